// triaxlab-cli: the laboratory's engine without windows, for batch work.
#include <fmt/core.h>

#include <cstdio>
#include <exception>
#include <iostream>

#include "cli/command_line.h"
#include "cli/console_dialogs.h"
#include "cli/page_devices.h"
#include "cli/program.h"
#include "platform/files.h"
#include "platform/process.h"
#include "shell/start_up.h"

namespace triaxlab::cli {
namespace {

int runCommandLine(const CommandLine& line) {
  const std::optional<std::filesystem::path>& folder = line.start.applicationFolder;
  if (folder && !folderExists(*folder)) throw UserError(fmt::format("没有文件夹“{}”。", textOfPath(*folder)));
  Workspace workspace;
  workspace.fixedToday = line.start.today;
  workspace.applicationFolder = chooseApplicationFolder(folder, executableFolder(), userDataFolder());
  printRemarks(startUp(workspace));
  const int status = run(workspace, line.command);
  // A full disk or a closed pipe shows at the latest here.
  if (!std::cout.flush() || std::fflush(stdout) != 0) throw UserError("结果不能写到标准输出。");
  return status;
}

#ifdef TRIAXLAB_PAGES_PROGRAM
/// Hands a command that draws PDF or pictures to the program that has the toolkit for it.
void handOver(const CommandLine& line, char** argv) {
  const auto* const print = std::get_if<Print>(&line.command);
  if (print != nullptr && needsToolkit(print->out)) becomeProgram(executableFolder() / TRIAXLAB_PAGES_PROGRAM, argv);
}
#else
void handOver(const CommandLine& /*line*/, char** /*argv*/) {}
#endif

}  // namespace
}  // namespace triaxlab::cli

int main(int argc, char** argv) {
  using namespace triaxlab;
  try {
    const cli::ParsedCommandLine parsed = cli::parseCommandLine(argc, argv);
    if (!parsed.commandLine) return parsed.status;
    cli::handOver(*parsed.commandLine, argv);
    return cli::runCommandLine(*parsed.commandLine);
  } catch (const std::exception& error) {
    // A UserError has its sentence; anything else (no memory left) at least a line and the status.
    cli::printError(error.what());
    return kFailed;
  }
}
