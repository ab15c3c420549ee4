// triaxlab-cli: the laboratory's engine without windows, for batch work.
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <variant>

#include "cli/command_line.h"
#include "cli/console_dialogs.h"
#include "cli/page_devices.h"
#include "cli/program.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/program_parts.h"
#include "shell/fault_log.h"
#include "shell/guarded_end.h"
#include "shell/start_up.h"

namespace triaxlab::cli {
namespace {

/// The file that a command works on, as it was named.
struct FileOfCommand {
  template <class Work>
  std::string operator()([[maybe_unused]] const Work& work) const {
    if constexpr (requires { textOfPath(work.file); }) return textOfPath(work.file);
    if constexpr (requires { std::string(work.name); }) return work.name;
    if constexpr (requires { work.files.names; })
      return work.files.names.empty() ? std::string() : work.files.names.front();
    return {};
  }
};

int failWithoutMemory(const std::string& work) {
  printError(
      fmt::format("{}内存不足，没有做完。请关闭别的程序再试。", work.empty() ? "" : fmt::format("处理“{}”时", work)));
  return kFailed;
}

/// The command as it was typed, for memory that ends before it is understood.
std::string typedCommand(int argc, char** argv) {
  return fmt::format("{}", fmt::join(argv + std::min(argc, 1), argv + argc, " "));
}

/// Where memory is so short that not even an exception can be made.
void endWithoutException(const char* /*thrown*/) {
  printError("程序出错，没有做完，可能是内存不足。请关闭别的程序再试。");
  std::_Exit(kFailed);
}

/// Faults of this program, which are told in the application folder as soon as there is one.
class Faults {
 public:
  Faults() { guardTheEnd(m_log, endWithoutException); }

  void noteCommand(std::string_view typed) { m_log.noteCommand(typed); }
  void keepIn(const std::filesystem::path& applicationFolder) {
    m_log.keepIn(applicationFolder);
    guardTheEnd(m_log, endWithoutException);
  }
  /// Nobody else tells of those of earlier runs, and once is enough.
  void tellOfEarlier() const {
    if (m_log.unseen().empty()) return;
    printError(
        fmt::format("程序以前运行时出过意外的错误，或者意外中断过，报告在文件“{}”里。", textOfPath(m_log.setAside())));
  }
  /// Of the exception that is being handled.
  void write() const noexcept try { m_log.write(thrownText()); } catch (...) {
    // Memory is too short for it.
  }

 private:
  FaultLog m_log{{}, "triaxlab-cli"};
};

/// The data folder that a command is to read as it stands.
struct DataFolderOfCommand {
  template <class Work>
  const std::optional<std::filesystem::path>* operator()([[maybe_unused]] const Work& work) const {
    if constexpr (requires { work.files.dataFolder; })
      return &work.files.dataFolder;
    else
      return nullptr;
  }
};

int readDataFolder(const CommandLine& line, const std::filesystem::path& folder) {
  Workspace workspace;
  workspace.fixedToday = line.start.today;
  printRemarks(lookAtDataFolder(workspace, folder));
  return run(workspace, line.command);
}

int doWork(const CommandLine& line, Faults& faults) {
  const auto* const dataFolder = std::visit(DataFolderOfCommand(), line.command);
  if (dataFolder != nullptr && *dataFolder) return readDataFolder(line, **dataFolder);
  const auto folder = namedApplicationFolder(line.start.applicationFolder);
  if (folder && !folderExists(*folder)) throw UserError(fmt::format("没有文件夹“{}”。", textOfPath(*folder)));
  Workspace workspace;
  workspace.fixedToday = line.start.today;
  workspace.applicationFolder = chooseApplicationFolder(folder, programParts(), userDataFolder());
  faults.keepIn(workspace.applicationFolder);
  printRemarks(startUp(workspace));
  faults.tellOfEarlier();
  // The remarks have told why; what is asked for can't be looked for anywhere else.
  if (!workspace.dataFolderProblem.empty()) return kFailed;
  return run(workspace, line.command);
}

int runCommandLine(const CommandLine& line, Faults& faults) {
  try {
    return doWork(line, faults);
  } catch (const std::bad_alloc&) {
    faults.write();
    return failWithoutMemory(std::visit(FileOfCommand(), line.command));
  } catch (const std::length_error&) {
    faults.write();
    return failWithoutMemory(std::visit(FileOfCommand(), line.command));
  }
}

#ifdef TRIAXLAB_PAGES_PROGRAM
/// Hands a command that prints, or draws PDF or pictures, to the program that has the toolkit for it.
void handOver(const CommandLine& line, char** argv) {
  const auto* const print = std::get_if<Print>(&line.command);
  if (print != nullptr && needsToolkit(*print)) becomeProgram(programParts().helpers / TRIAXLAB_PAGES_PROGRAM, argv);
}
#else
void handOver(const CommandLine& /*line*/, char** /*argv*/) {}
#endif

int runProgram(int argc, char** argv, Faults& faults) {
  try {
    faults.noteCommand(typedCommand(argc, argv));
    const ParsedCommandLine parsed = parseCommandLine(argc, argv);
    if (!parsed.commandLine) return parsed.status;
    handOver(*parsed.commandLine, argv);
    return runCommandLine(*parsed.commandLine, faults);
  } catch (const UserError& error) {
    printError(error.what());
  } catch (const std::bad_alloc&) {
    return failWithoutMemory(typedCommand(argc, argv));
  } catch (const std::exception& error) {
    faults.write();
    printError(fmt::format("程序出错，没有做完：{}", error.what()));
  } catch (...) {
    faults.write();
    printError("程序出错，没有做完。");
  }
  return kFailed;
}

}  // namespace
}  // namespace triaxlab::cli

int main(int argc, char** argv) {
  using namespace triaxlab;
  takeFailuresAsErrors();
  // Said to the very end, when all else is gone.
  static cli::Faults faults;
  const auto [count, words] = commandWords(argc, argv);
  const int status = cli::runProgram(count, words, faults);
  if (cli::outputIsWhole()) return status;
  cli::printError("结果没有全部写出：屏幕或输出文件不能写。");
  return status == kDone ? kFailed : status;
}
