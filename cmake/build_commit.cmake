# Writes the commit of the sources into a header, which stays untouched while it is the same; an empty text where the
# sources aren't a clone.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND git -C ${SOURCE} describe --always --dirty --abbrev=10 --exclude *
  OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
file(CONFIGURE OUTPUT ${HEADER} CONTENT "#pragma once\n#define TRIAXLAB_COMMIT \"@commit@\"\n" @ONLY)
