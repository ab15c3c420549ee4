#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "common/date.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace triaxlab {

/// Exit statuses of both programs.
inline constexpr int kDone = 0, kFailed = 1, kWrongCommandLine = 2;

/// What both programs take in front of all else.
struct StartOptions {
  std::optional<std::filesystem::path> applicationFolder;  // --app
  std::optional<Date> today;                               // --today
};

/// Adds --version, --app and --today. The options outlive the parse.
void addStartOptions(CLI::App& app, StartOptions& options);

/// An option whose text goes through `parse`; a text that it refuses is a wrong command line. `form` says what it
/// takes.
CLI::Option* addParsedOption(CLI::App& app, const std::string& name, const std::string& form, const std::string& help,
                             const std::function<bool(const std::string&)>& parse);

/// Reads the command line into what was added. The exit status when there is nothing left to do: the usage or the
/// version was asked for and printed, or the command line is wrong, which is said on standard error together with the
/// usage.
std::optional<int> statusOfParse(CLI::App& app, int argc, const char* const* argv);

}  // namespace triaxlab
