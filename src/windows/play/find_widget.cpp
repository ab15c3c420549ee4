#include "windows/play/find_widget.h"

#include <fmt/core.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "windows/controls/words.h"

namespace triaxlab {
namespace {

QWidget* openWindow(const QString& name) {
  const QWidgetList widgets = QApplication::allWidgets();
  for (QWidget* const widget : widgets)
    if (widget->objectName() == name && widget->isVisible()) return widget;
  return nullptr;
}

QMainWindow* mainWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (auto* const main = qobject_cast<QMainWindow*>(window)) return main;
  return nullptr;
}

/// The window that takes keys: the modal one, else the document window in front, else the main window.
QWidget* frontWindow() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  QMainWindow* const main = mainWindow();
  if (main == nullptr) throw ScriptError("no window is open");
  const auto* const area = main->findChild<QMdiArea*>();
  const QMdiSubWindow* const document = area != nullptr ? area->currentSubWindow() : nullptr;
  return document != nullptr && document->widget() != nullptr ? document->widget() : main;
}

}  // namespace

QWidget* findWindow(const std::string& name) {
  if (QWidget* const window = openWindow(words(name))) return window;
  throw ScriptError(fmt::format("no window {} is open", name));
}

QWidget* findControl(const Target& target) {
  QWidget* const window = findWindow(target.window);
  if (target.control.empty()) return window;
  if (auto* const control = window->findChild<QWidget*>(words(target.control))) return control;
  throw ScriptError(fmt::format("{} has no control {}", target.window, target.control));
}

QWidget* reachControl(const Target& target) {
  // As under the mouse, which closes an open list by what it does beside it.
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  QWidget* const control = findControl(target);
  requireInFront(control->window(), target.spelled());
  if (!control->isVisible()) throw ScriptError(fmt::format("{} is not visible", target.spelled()));
  return control;
}

QAction* findCommandAction(const std::string& name) {
  const QMainWindow* const main = mainWindow();
  return main != nullptr ? main->findChild<QAction*>(words(name)) : nullptr;
}

void requireInFront(const QWidget* window, const std::string& spelled) {
  const QWidget* const modal = QApplication::activeModalWidget();
  if (modal == nullptr) return;
  // What belongs to the modal window is as free as itself.
  for (const QWidget* at = window; at != nullptr; at = at->parentWidget())
    if (at == modal) return;
  throw ScriptError(fmt::format("{} is behind the window {}", spelled, utf8(modal->objectName())));
}

QWidget* keyTarget() {
  if (QWidget* const popup = QApplication::activePopupWidget())
    return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
  QWidget* const front = frontWindow();
  QWidget* const focused = QApplication::focusWidget();
  if (focused != nullptr && (focused == front || front->isAncestorOf(focused))) return focused;
  return front->focusWidget() != nullptr ? front->focusWidget() : front;
}

}  // namespace triaxlab
