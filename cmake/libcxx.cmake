# The whole program on LLVM's standard library. Debian's C++ libraries are compiled for GNU's, so what is used of them
# is compiled along.
add_compile_options(-stdlib=libc++)
add_link_options(-stdlib=libc++)
add_compile_definitions(FMT_HEADER_ONLY)
if(TRIAXLAB_TESTS)
  add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
