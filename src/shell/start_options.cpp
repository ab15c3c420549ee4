#include "shell/start_options.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "shell/about.h"

namespace triaxlab {

CLI::Option* addParsedOption(CLI::App& app, const std::string& name, const std::string& form, const std::string& help,
                             const std::function<bool(const std::string&)>& parse) {
  const auto take = [name, form, parse](const std::string& text) {
    if (!parse(text)) throw CLI::ValidationError(name, text + " is not " + form);
  };
  return app.add_option_function<std::string>(name, take, help)->type_name(form);
}

void addStartOptions(CLI::App& app, StartOptions& options) {
  // A name that begins with a slash is a name on every system.
  app.allow_windows_style_options(false);
  app.set_version_flag("--version", app.get_name() + ' ' + programVersion(""), "Print the version and exit");
  app.add_option("--app", options.applicationFolder,
                 "folder of the settings; by default TRIAXLAB_APP, else that of the program")
      ->type_name("DIR");
  addParsedOption(app, "--today", "YYYY-MM-DD", "the day taken as today", [&options](const std::string& text) {
    options.today = parseIsoDate(text);
    return options.today.has_value();
  });
}

std::optional<int> statusOfParse(CLI::App& app, int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return app.exit(error);
    std::cerr << error.what() << '\n' << app.help();
    return kWrongCommandLine;
  }
  return std::nullopt;
}

}  // namespace triaxlab
