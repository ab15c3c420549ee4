#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "shell/command_table.h"
#include "shell/document_kinds.h"
#include "shell/lab.h"
#include "window_geometry.h"
#include "windows/controls/words.h"
#include "windows/main_window.h"
#include "windows/play/find_widget.h"
#include "windows/play/person.h"
#include "windows/play/play_dialogs.h"

namespace triaxlab::testing {

/// Notes the name of each modal window that opens, looks at it, and leaves it, by a key or as the corner does.
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
    EXPECT_THAT(WindowGeometry::faultsOf(*dialog), ::testing::IsEmpty());
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
    return std::tuple(window.isVisible(), windowsBeside(), window.grab().toImage(), entries,
                      std::exchange(modal.shown, {}), dialogs.takeNotes(), dialogs.takeFailure());
  }

  /// Those that stay open beside the main window, by name; they are closed.
  static std::set<QString> windowsBeside() {
    std::set<QString> names;
    for (QWidget* const other : QApplication::topLevelWidgets())
      if (other->isVisible() && qobject_cast<MDIForm1*>(other) == nullptr) {
        names.insert(other->objectName());
        other->close();
      }
    return names;
  }

  Lab lab;
  PlayDialogs dialogs;
  ModalWindows modal;
  MDIForm1 window{lab.workspace, dialogs};
};

}  // namespace triaxlab::testing
