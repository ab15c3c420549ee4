#include "windows/command_line.h"

#include <CLI/CLI.hpp>

namespace triaxlab {

ParsedWindowOptions readCommandLine(int argc, const char* const* argv) {
  CLI::App app("The laboratory's triaxial tests.", "triaxlab");
  WindowOptions options;
  addStartOptions(app, options);
  app.add_option("--play", options.script, "plays a script against the windows")->type_name("SCRIPT");
  if (const std::optional<int> status = statusOfParse(app, argc, argv)) return {std::nullopt, *status};
  return {options, kDone};
}

}  // namespace triaxlab
