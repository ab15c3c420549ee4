#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "common/date.h"

namespace triaxlab {

/// What the program was started with.
struct StartOptions {
  std::optional<std::filesystem::path> applicationFolder;  // --app
  std::optional<Date> today;                               // --today
  std::optional<std::filesystem::path> script;             // --play
};

/// `arguments` without the program's name. Nothing when they are wrong; `problem` then says how.
std::optional<StartOptions> readCommandLine(std::span<char*> arguments, std::string& problem);

inline constexpr const char* kUsage = "usage: triaxlab [--app DIR] [--today YYYY-MM-DD] [--play SCRIPT]\n";

}  // namespace triaxlab
