#pragma once

#include <filesystem>
#include <optional>

#include "shell/start_options.h"

namespace triaxlab {

/// What the program was started with.
struct WindowOptions : StartOptions {
  std::optional<std::filesystem::path> script;  // --play
};

/// What the program was asked for, or the exit status when nothing is left to do: the usage was asked for and printed,
/// or the command line is wrong, which was said on standard error together with the usage.
struct ParsedWindowOptions {
  std::optional<WindowOptions> options;
  int status = kDone;
};
ParsedWindowOptions readCommandLine(int argc, const char* const* argv);

}  // namespace triaxlab
