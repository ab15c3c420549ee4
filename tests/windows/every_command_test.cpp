// Presses every command that is on in the real windows, in front of every document: something must happen that a person
// can see.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "lone_application.h"
#include "platform/files.h"
#include "shell/command_table.h"
#include "shell/lab.h"
#include "windows/controls/words.h"
#include "windows/main_window.h"
#include "windows/play/find_widget.h"
#include "windows/play/person.h"
#include "windows/play/play_dialogs.h"

namespace triaxlab::testing {
namespace {

/// Notes the name of each modal window that opens and leaves it, by a key or as the corner does.
class ModalWindows {
 public:
  ModalWindows() {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(1);
  }

  std::vector<QString> shown;
  bool pressEnter = false;

 private:
  void look() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    shown.push_back(dialog->objectName());
    if (pressEnter) return pressKey(keyTarget(), keyStroke("Enter"));
    dialog->QDialog::reject();
  }

  QTimer m_timer;
};

/// The program's main window with this document in front: nothing, Form1 with a sample that was corrected by hand and
/// perhaps a window beside it, or the window of another test with a sample.
class Desk {
 public:
  explicit Desk(ActiveDocument front) {
    window.resize(1200, 800);
    inLoop([this] { window.show(); });
    // The desktop has made it active.
    inLoop([this] { window.grab(); });
    if (front == kNoDocument) return;
    if (documentKindOf(front).tests == ProjectKind::Triaxial)
      openCorrected(front);
    else
      open(documentKindOf(front).tests);
  }

  /// A triaxial sample that was corrected by hand.
  void openCorrected(ActiveDocument front) {
    TriaxialSampleRecord corrected = sample("P1", "A-1", kCU);
    corrected.adjustedFlag = 1;
    lab.writeProject("P1", {corrected});
    modal.pressEnter = true;
    press("ZMOPEN");
    modal.pressEnter = false;
    if (front != kForm1) window.shell().showTable(front);
  }

  /// A project of another kind than the triaxial one, out of the browser.
  void open(ProjectKind tests) {
    const auto command = std::ranges::find_if(commandTable(), [tests](const Command& row) {
      return row.action == Action::OpenProject && row.argument == static_cast<std::int16_t>(tests);
    });
    lab.writeSamples(tests, "P1", {"A-1"});
    modal.pressEnter = true;
    press(command->name);
    modal.pressEnter = false;
  }
  QAction* action(std::string_view name) const { return window.findChild<QAction*>(words(name)); }
  /// In the loop of the program, which 退出 ends.
  void inLoop(const std::function<void()>& operation) {
    QTimer::singleShot(0, &window, [&operation] {
      operation();
      QCoreApplication::exit();
    });
    QCoreApplication::exec();
  }
  void press(std::string_view name) {
    inLoop([this, name] { action(name)->trigger(); });
  }
  /// What the last command had to say goes with the next one.
  void forget() {
    window.showRemarks({});
    modal.shown.clear();
    dialogs.takeNotes();
    dialogs.takeFailure();
  }

  /// All that a person could see; boxes that came since the last call.
  auto visible() {
    std::vector<std::tuple<QString, bool, bool>> entries;
    for (const Command& command : commandTable()) {
      const QAction* const entry = action(command.name);
      entries.emplace_back(entry->text(), entry->isEnabled(), entry->isChecked());
    }
    return std::tuple(window.isVisible(), window.grab().toImage(), entries, std::exchange(modal.shown, {}),
                      dialogs.takeNotes(), dialogs.takeFailure());
  }

  Lab lab;
  PlayDialogs dialogs;
  ModalWindows modal;
  MDIForm1 window{lab.workspace, dialogs};
};

/// A page that can show what the command does: not the one that it turns to, and one with a sign of corrections.
void turnPage(Desk& desk, const Command& command) {
  if (command.action == Action::ReprocessCurves) desk.press("QUXIAN3");
  if (command.action == Action::ShowCurvePage) desk.press(command.name == "QUXIAN1" ? "QUXIAN5" : "QUXIAN1");
}

/// A sibling tool that leaves a file when it is started.
std::filesystem::path putTool(const Lab& lab, const Command& command) {
  const std::filesystem::path tool = lab.folder.path() / command.target;
  lab.folder.write(std::string(command.target), "#!/bin/sh\n: >\"$0.started\"\n");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  return tool.string() + ".started";
}

bool appears(const std::filesystem::path& file) {
  for (int look = 0; look < 500 && !fileExists(file); ++look)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return fileExists(file);
}

bool doesSomething(Desk& desk, const Command& command) {
  if (command.action == Action::StartTool) {
    const std::filesystem::path started = putTool(desk.lab, command);
    desk.press(command.name);
    return appears(started);
  }
  desk.forget();
  const auto before = desk.visible();
  desk.press(command.name);
  return desk.visible() != before;
}

/// A caret that blinks is nothing that a command did.
void stopBlinking() {
  makeApplication();
  QApplication::setCursorFlashTime(0);
}

class EveryCommandOf : public ::testing::TestWithParam<ActiveDocument> {};

TEST_P(EveryCommandOf, DoesSomethingWhenItIsOn) {
  stopBlinking();
  std::set<std::string_view> idle;
  std::size_t pressed = 0;
  for (const Command& command : commandTable()) {
    if (command.kind == CommandKind::Submenu) continue;  // opens its entries
    Desk desk(GetParam());
    if (GetParam() == kForm1) turnPage(desk, command);
    if (const QAction* const entry = desk.action(command.name); !entry->isEnabled() || !entry->isVisible()) continue;
    ++pressed;
    if (!doesSomething(desk, command)) idle.insert(command.name);
  }
  // A table that is in front already stays there.
  const std::set<std::string_view> inFront =
      GetParam() == kForm2 ? std::set<std::string_view>{"SHUJUBIAO"} : std::set<std::string_view>{};
  EXPECT_EQ(idle, inFront);
  EXPECT_GT(pressed, 30U);
}

TEST_P(EveryCommandOf, IsTheReasonForWhatIsSeen) {
  stopBlinking();
  Desk desk(GetParam());
  desk.forget();
  const auto before = desk.visible();
  desk.inLoop([] {});
  EXPECT_TRUE(desk.visible() == before);
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryCommandOf,
                         ::testing::Values(kNoDocument, kForm1, kForm2, kForm7, kForm4, kForm6, kForm9));

}  // namespace
}  // namespace triaxlab::testing
