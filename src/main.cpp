#include <fmt/core.h>

#include <QApplication>
#include <cstdio>
#include <memory>
#include <optional>

#include "common/user_error.h"
#include "platform/process.h"
#include "platform/qt/application.h"
#include "platform/qt/qt_dialogs.h"
#include "shell/start_up.h"
#include "store/workspace.h"
#include "windows/command_line.h"
#include "windows/controls/appearance.h"
#include "windows/instance_lock.h"
#include "windows/main_window.h"
#include "windows/play/player.h"

using namespace triaxlab;

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUse = 2;  // a command line or a script that can't be read

/// The windows, from start to end, for a person.
int runForPerson(Workspace& workspace, const Remarks& remarks) {
  QtDialogs dialogs;
  MDIForm1 window(workspace, dialogs);
  window.show();
  if (!remarks.empty()) window.showRemarks(remarks);
  return QApplication::exec();
}

/// The same for a script.
int runForScript(Workspace& workspace, const Remarks& remarks, std::vector<ScriptLine> lines,
                 const std::filesystem::path& folder) {
  PlayDialogs dialogs;
  Player player(std::move(lines), dialogs, folder);
  MDIForm1 window(workspace, dialogs);
  window.show();
  if (!remarks.empty()) window.showRemarks(remarks);
  player.start();
  QApplication::exec();
  return player.finish();
}

int run(const StartOptions& options, std::vector<ScriptLine> script) {
  Workspace workspace;
  workspace.fixedToday = options.today;
  workspace.applicationFolder =
      chooseApplicationFolder(options.applicationFolder, executableFolder(), userDataFolder());
  InstanceLock lock(workspace.applicationFolder);
  const std::optional<Remarks> remarks = startUp(workspace, [&lock] { return lock.take(); });
  // Another copy is running: this one ends without a word.
  if (!remarks) return 0;
  if (!options.script) return runForPerson(workspace, *remarks);
  const auto folder = std::filesystem::absolute(*options.script).parent_path();
  return runForScript(workspace, *remarks, std::move(script), folder);
}

/// What `work` returns, or `status` when it meets an error that nobody inside could show.
template <class Work>
int orStatus(int status, Work&& work) {
  try {
    return work();
  } catch (const UserError& error) {
    fmt::print(stderr, "{}\n", error.what());
    return status;
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string problem;
  const auto options = readCommandLine(std::span(argv + 1, static_cast<std::size_t>(argc - 1)), problem);
  if (!options) {
    fmt::print(stderr, "{}\n{}", problem, kUsage);
    return kWrongUse;
  }
  std::vector<ScriptLine> script;
  const int unreadable = orStatus(kWrongUse, [&] {
    if (options->script) script = readScript(*options->script);
    return 0;
  });
  if (unreadable != 0) return unreadable;

  prepareApplication();
  QApplication application(argc, argv);
  restoreNumberLocale();
  setAppearance(application);
  return orStatus(kFailed, [&] { return run(*options, std::move(script)); });
}
