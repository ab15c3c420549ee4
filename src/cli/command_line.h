#pragma once

#include <optional>

#include "cli/commands.h"

namespace triaxlab::cli {

/// What the program was asked to do, or the exit status when nothing is left to do: the usage was asked for and
/// printed, or the command line is wrong, which was said on standard error together with the usage.
struct ParsedCommandLine {
  std::optional<CommandLine> commandLine;
  int status = kDone;
};
ParsedCommandLine parseCommandLine(int argc, const char* const* argv);

}  // namespace triaxlab::cli
