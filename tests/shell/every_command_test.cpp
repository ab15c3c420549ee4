// Presses every command that is on, in front of every document: something must happen that a person can see.

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include "shell/fakes.h"
#include "shell/lab.h"
#include "shell/shell_session.h"
#include "store/settings/toggles.h"

namespace triaxlab::testing {
namespace {

/// The main window with this document in front: nothing, or Form1 with a sample and perhaps a window beside it.
struct Desk {
  explicit Desk(std::optional<ActiveDocument> front) {
    if (!front) return;
    lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
    windows.form1.emplace();
    windows.form1->envelopes.ratioEnabled = true;
    shell.documentActivated(kForm1);
    if (*front != kForm1) shell.documentActivated(*front);
  }

  /// All that a person could see of what a command did.
  auto visible() const {
    std::vector<bool> toggles;
    for (const ToggleByte& byte : toggleBytes()) toggles.push_back(lab.workspace.settings.toggles.*byte.toggle);
    return std::tuple(windows.shown, windows.raisedTools, dialogs.shown, dialogs.fileQuestions.size(),
                      shell.statusTexts(), toggles);
  }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

/// The commands that are on in front of the document, each pressed on a desk of its own; those that did nothing.
std::set<std::string_view> idleCommands(std::optional<ActiveDocument> front, std::size_t& pressed) {
  std::set<std::string_view> idle;
  for (const Command& command : commandTable()) {
    if (command.action == Action::None) continue;  // a heading opens its entries
    Desk desk(front);
    const CommandState state = desk.shell.commandState(command);
    if (!state.visible || !state.enabled) continue;
    ++pressed;
    const auto before = desk.visible();
    EXPECT_TRUE(desk.shell.trigger(command.name)) << command.name;
    if (desk.visible() == before) idle.insert(command.name);
  }
  return idle;
}

TEST(EveryCommand, ThatIsOnDoesSomethingInFrontOfEveryDocument) {
  for (const std::optional<ActiveDocument> front :
       {std::optional<ActiveDocument>(), std::optional(kForm1), std::optional(kForm2), std::optional(kForm7)}) {
    std::size_t pressed = 0;
    EXPECT_EQ(idleCommands(front, pressed), std::set<std::string_view>()) << front.value_or(kNoDocument);
    EXPECT_GT(pressed, 30U) << front.value_or(kNoDocument);
  }
}

}  // namespace
}  // namespace triaxlab::testing
