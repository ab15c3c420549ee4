// Presses every command that is on in the real windows, in front of every document: something must happen that a person
// can see.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QTimer>
#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

#include "desk.h"
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
    // What is opened again, or has all the room already, looks as before; the demonstration is another process.
    static constexpr std::array kLeaveAll{Action::OpenRecent, Action::FitWindow, Action::StartDemonstration};
    if (std::ranges::find(kLeaveAll, command.action) != kLeaveAll.end()) continue;
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
