#include "windows/command_line.h"

#include <string_view>

namespace triaxlab {

std::optional<StartOptions> readCommandLine(std::span<char*> arguments, std::string& problem) {
  StartOptions options;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    const std::string_view name = arguments[i];
    if (name != "--app" && name != "--today" && name != "--play") {
      problem = "unknown argument: " + std::string(name);
      return std::nullopt;
    }
    if (i + 1 == arguments.size()) {
      problem = "nothing behind " + std::string(name);
      return std::nullopt;
    }
    const char* const value = arguments[i + 1];
    if (name == "--app") options.applicationFolder = value;
    if (name == "--play") options.script = value;
    if (name == "--today" && !(options.today = parseIsoDate(value))) {
      problem = "no date: " + std::string(value);
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace triaxlab
