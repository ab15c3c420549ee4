#pragma once

#include <string>

#include "windows/play/script.h"

class QAction;
class QWidget;

namespace triaxlab {

/// The open window of that name. ScriptError when none is.
QWidget* findWindow(const std::string& name);

/// The control, whether a person could reach it or not. ScriptError when there is none.
QWidget* findControl(const Target& target);

/// The same for a statement that does something: ScriptError also when the control is hidden, or when another window
/// stands in front of its own and has to be answered first.
QWidget* reachControl(const Target& target);

/// The control as a widget of a kind; ScriptError names what it isn't.
template <class Widget>
Widget* as(QWidget* control, const Target& target, const char* kind) {
  if (auto* const widget = qobject_cast<Widget*>(control)) return widget;
  throw ScriptError(target.spelled() + " is no " + kind);
}

/// The menu command of that name; null when there is none.
QAction* findCommandAction(const std::string& name);

/// ScriptError when a modal window other than `window` waits for an answer.
void requireInFront(const QWidget* window, const std::string& spelled);

/// Where a key press goes: the widget with the focus, else the one that would have it.
QWidget* keyTarget();

}  // namespace triaxlab
