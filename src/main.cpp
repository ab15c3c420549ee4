#include <fmt/core.h>

#include <cstdio>
#include <memory>
#include <optional>

#include "build_commit.h"
#include "common/user_error.h"
#include "platform/process.h"
#include "platform/qt/application.h"
#include "platform/qt/qt_dialogs.h"
#include "sessions/dialogs/error_display.h"
#include "shell/about.h"
#include "shell/barrier.h"
#include "shell/fault_log.h"
#include "shell/guarded_end.h"
#include "shell/start_up.h"
#include "shell/window_memory.h"
#include "store/workspace.h"
#include "windows/command_line.h"
#include "windows/controls/appearance.h"
#include "windows/guarded_application.h"
#include "windows/instance_lock.h"
#include "windows/main_window.h"
#include "windows/play/player.h"

using namespace triaxlab;

namespace {

/// Nothing ends without a word: as long as it lives, what nobody expected comes to the barrier.
class Guard {
 public:
  Guard(GuardedApplication& application, Dialogs& dialogs, MDIForm1& window, FaultLog& log)
      : m_application(application), m_barrier(dialogs, window.shell(), log) {
    window.shell().onCommand = [&log](std::string_view name) { log.noteCommand(name); };
    application.onException = [this](Occasion occasion) { m_barrier.caught(occasion); };
  }
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;
  ~Guard() { m_application.onException = nullptr; }

 private:
  GuardedApplication& m_application;
  Barrier m_barrier;
};

/// What a run of the windows works on.
struct Program {
  GuardedApplication& application;
  Workspace& workspace;
  FaultLog& log;
  InstanceLock& lock;
};

void tellAtStart(const Program& program, MDIForm1& window, const Remarks& remarks) {
  window.shell().warn(remarks, startWarnings(program.workspace));
  window.shell().warnOfFaults(program.log);
}

/// The windows, from start to end, for a person.
int runForPerson(const Program& program, const Remarks& remarks) {
  QtDialogs dialogs;
  WindowMemory memory(program.workspace.applicationFolder);
  MDIForm1 window(program.workspace, dialogs, &memory);
  const Guard guard(program.application, dialogs, window, program.log);
  window.show();
  program.lock.setCalled([&window] { window.comeToFront(); });
  tellAtStart(program, window, remarks);
  return QApplication::exec();
}

/// The same for a script, which finds every window in its given size, whatever the person made of it.
int runForScript(const Program& program, const Remarks& remarks, std::vector<ScriptLine> lines,
                 const std::filesystem::path& folder) {
  PlayDialogs dialogs;
  Player player(std::move(lines), dialogs, folder);
  MDIForm1 window(program.workspace, dialogs);
  const Guard guard(program.application, dialogs, window, program.log);
  window.show();
  tellAtStart(program, window, remarks);
  player.start();
  QApplication::exec();
  return player.finish();
}

void endWithoutWindows(const char* thrown) {
  std::fputs("triaxlab: ", stderr);
  std::fputs(thrown, stderr);
  std::fputs("\n", stderr);
}

int run(GuardedApplication& application, const WindowOptions& options, FaultLog& log, std::vector<ScriptLine> script) {
  Workspace workspace;
  workspace.fixedToday = options.today;
  workspace.applicationFolder =
      chooseApplicationFolder(namedApplicationFolder(options.applicationFolder), programParts(), userDataFolder());
  log.keepIn(workspace.applicationFolder);
  guardTheEnd(log, endWithoutWindows);
  InstanceLock lock(workspace.applicationFolder);
  const Program program{application, workspace, log, lock};
  const std::optional<Remarks> remarks = startUp(workspace, [&lock] { return lock.take(); });
  // Another copy is running: this one ends without a word, and a person gets that one to see.
  if (!remarks) {
    if (!options.script) lock.call();
    return 0;
  }
  if (!options.script) return runForPerson(program, *remarks);
  const auto folder = std::filesystem::absolute(*options.script).parent_path();
  return runForScript(program, *remarks, std::move(script), folder);
}

/// Tells of what keeps the windows from coming up. Somebody who started the program from the desktop sees no standard
/// error; a script has nobody to see a box.
void tellOfFailedStart(const UserError& error, bool isForPerson) {
  if (!isForPerson) return fmt::print(stderr, "{}\n", error.what());
  QtDialogs dialogs;
  showError(dialogs, error);
}

int startAndRun(GuardedApplication& application, const WindowOptions& options, std::vector<ScriptLine> script) {
  // Said to the very end, when all else is gone.
  static FaultLog log({}, "triaxlab", programVersion(TRIAXLAB_COMMIT));
  guardTheEnd(log, endWithoutWindows);
  noteToolkitMessages(log);
  const bool isForPerson = !options.script;
  try {
    return run(application, options, log, std::move(script));
  } catch (const UserError& error) {
    tellOfFailedStart(error, isForPerson);
  } catch (...) {
    const std::string thrown = thrownText();
    log.write(thrown);
    tellOfFailedStart(UserError(std::string(kProgramTitle), fmt::format("程序不能启动（{}）。", thrown)), isForPerson);
  }
  return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  takeFailuresAsErrors();
  const ParsedWindowOptions parsed = readCommandLine(argc, argv);
  if (!parsed.options) return parsed.status;
  const WindowOptions& options = *parsed.options;
  std::vector<ScriptLine> script;
  try {
    if (options.script) script = readScript(*options.script);
  } catch (const UserError& error) {
    fmt::print(stderr, "{}\n", error.what());
    return kWrongCommandLine;
  }

  prepareApplication();
  GuardedApplication application(argc, argv);
  restoreNumberLocale();
  setAppearance(application);
  QApplication::setApplicationVersion(QString::fromStdString(programVersion(TRIAXLAB_COMMIT)));
  return startAndRun(application, options, std::move(script));
}
