#pragma once

#include <gtest/gtest.h>

#include <QClipboard>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>
#include <memory>
#include <string>
#include <vector>

#include "lone_application.h"
#include "shell/fakes.h"
#include "windows/controls/words.h"
#include "windows/play/person.h"

namespace triaxlab::testing {

/// A document window as a person has it in hand. A test fills the workspace and makes the form.
template <class Form>
class WindowInHand : public ::testing::Test {
 protected:
  WindowInHand() { makeApplication(); }

  template <class Widget = QLineEdit>
  Widget* find(const char* name) const {
    auto* const widget = form->template findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  static void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    pressKey(widget, {key, modifiers, {}});
  }
  /// Pastes over what the box holds.
  static void paste(QLineEdit* box, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    box->setFocus();
    box->selectAll();
    press(box, Qt::Key_V, Qt::ControlModifier);
  }
  /// The tip beside the mouse. One that is shown goes only after a while: ask for the empty ones first.
  static QString tipOf(QWidget* widget) {
    const QPoint middle = widget->rect().center();
    QHelpEvent event(QEvent::ToolTip, middle, widget->mapToGlobal(middle));
    QApplication::sendEvent(widget, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  }
  /// The controls to which Tab comes, in its order.
  std::vector<std::string> wayOfTab() const {
    std::vector<std::string> way;
    const QWidget* at = form.get();
    do {
      if (at != form.get() && at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0)
        way.push_back(utf8(at->objectName()));
      at = at->nextInFocusChain();
    } while (at != form.get());
    return way;
  }

  Workspace workspace;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{workspace, dialogs, windows};
  std::unique_ptr<Form> form;
};

}  // namespace triaxlab::testing
