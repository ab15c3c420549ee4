#include "windows/play/person.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QUrl>
#include <QWheelEvent>
#include <array>
#include <utility>

#include "windows/controls/words.h"
#include "windows/file_drop.h"
#include "windows/play/script.h"

namespace triaxlab {
namespace {

constexpr int kWheelNotch = 120;  // eighths of a degree, as the toolkit counts

void sendMouse(QWidget* widget, QPointF place, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
  QMouseEvent event(type, place, widget->mapToGlobal(place), button, held, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

/// The toolkit gives the focus for clicks that come from the desktop only.
void focusByClick(QWidget* widget) {
  for (QWidget* at = widget; at != nullptr && !at->isWindow(); at = at->parentWidget())
    if (at->isEnabled() && (at->focusPolicy() & Qt::ClickFocus) != 0) return at->setFocus(Qt::MouseFocusReason);
}

constexpr std::array<std::pair<const char*, Qt::Key>, 22> kKeys{{
    {"Left", Qt::Key_Left},       {"Right", Qt::Key_Right},   {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},       {"Home", Qt::Key_Home},     {"End", Qt::Key_End},
    {"Enter", Qt::Key_Return},    {"PageUp", Qt::Key_PageUp}, {"PageDown", Qt::Key_PageDown},
    {"Esc", Qt::Key_Escape},      {"Escape", Qt::Key_Escape}, {"Tab", Qt::Key_Tab},
    {"Backtab", Qt::Key_Backtab}, {"Delete", Qt::Key_Delete}, {"Backspace", Qt::Key_Backspace},
    {"Insert", Qt::Key_Insert},   {"Space", Qt::Key_Space},   {"F1", Qt::Key_F1},
    {"F2", Qt::Key_F2},           {"F3", Qt::Key_F3},         {"F4", Qt::Key_F4},
    {"F5", Qt::Key_F5},
}};

constexpr std::array<std::pair<const char*, Qt::KeyboardModifier>, 3> kModifiers{
    {{"Ctrl+", Qt::ControlModifier}, {"Shift+", Qt::ShiftModifier}, {"Alt+", Qt::AltModifier}}};

/// Takes the modifiers off the front of a key's name.
Qt::KeyboardModifiers takeModifiers(QString& name) {
  Qt::KeyboardModifiers modifiers;
  for (bool found = true; found;) {
    found = false;
    for (const auto& [prefix, modifier] : kModifiers)
      if (name.size() > qsizetype(qstrlen(prefix)) && name.startsWith(QLatin1String(prefix))) {
        modifiers |= modifier;
        name.remove(0, qsizetype(qstrlen(prefix)));
        found = true;
      }
  }
  return modifiers;
}

/// A single character as a key: letters and digits have codes, all others go by their text.
KeyStroke characterStroke(const QString& character, Qt::KeyboardModifiers modifiers) {
  const char16_t code = character.front().toUpper().unicode();
  const bool hasCode = code >= 0x20 && code < 0x7F;
  const bool isText = (modifiers & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  return {hasCode ? int{code} : int{Qt::Key_unknown}, modifiers, isText ? character : QString()};
}

/// The toolkit triggers shortcuts for keys that come from the desktop only. Those of a window behind are out of reach.
bool triggerShortcut(const QWidget* widget, const KeyStroke& stroke) {
  const QKeySequence wanted(QKeyCombination(stroke.modifiers, static_cast<Qt::Key>(stroke.key)));
  for (const QWidget* at = widget; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget())
    for (QAction* const action : at->findChildren<QAction*>())
      if (action->shortcut() == wanted && action->isEnabled()) {
        action->trigger();
        return true;
      }
  return false;
}

}  // namespace

void moveMouse(QWidget* widget, QPointF place, MouseMotion motion) {
  switch (motion) {
    case MouseMotion::Press:
      focusByClick(widget);
      return sendMouse(widget, place, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    case MouseMotion::Move:
      return sendMouse(widget, place, QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
    case MouseMotion::Drag:
      return sendMouse(widget, place, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
    case MouseMotion::Release:
      return sendMouse(widget, place, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
  }
}

void clickMouse(QWidget* widget, QPoint place) {
  const QPointer<QWidget> alive(widget);
  moveMouse(widget, place, MouseMotion::Press);
  if (alive) moveMouse(widget, place, MouseMotion::Release);
}

void doubleClickMouse(QWidget* widget, QPoint place) {
  const QPointer<QWidget> alive(widget);
  clickMouse(widget, place);
  if (alive) sendMouse(widget, place, QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton);
  if (alive) sendMouse(widget, place, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void dropFile(QWidget* widget, const QString& path) {
  QMimeData file;
  file.setUrls({QUrl::fromLocalFile(path)});
  file.setText(path);  // as file managers do beside it
  const QPoint place = widget->rect().center();
  QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &file, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QApplication::sendEvent(widget, &enter);
  if (!enter.isAccepted()) throw ScriptError("nothing takes a file there");
  QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &file, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &drop);
  // Which takes the file when the drag is over, in front of the next statement.
  for (FileDrop* const taker : widget->window()->findChildren<FileDrop*>())
    QCoreApplication::sendPostedEvents(taker, QEvent::MetaCall);
}

void turnWheel(QWidget* widget, QPointF place, int notches, Qt::KeyboardModifiers modifiers) {
  // The toolkit hands only events of the screen on to what lies below when a widget leaves them.
  for (QWidget* at = widget; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget()) {
    QWheelEvent event(widget->mapTo(at, place), widget->mapToGlobal(place), QPoint(), QPoint(0, notches * kWheelNotch),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(at, &event);
    if (event.isAccepted()) return;
  }
}

KeyStroke keyStroke(const QString& name) {
  QString rest = name;
  const Qt::KeyboardModifiers modifiers = takeModifiers(rest);
  for (const auto& [word, key] : kKeys)
    if (rest == QLatin1String(word)) return {key, modifiers, key == Qt::Key_Space ? QString(" ") : QString()};
  if (rest.size() != 1) throw ScriptError("no key is called " + utf8(name));
  return characterStroke(rest, modifiers);
}

void pressKey(QWidget* widget, const KeyStroke& stroke) {
  if (triggerShortcut(widget, stroke)) return;
  const QPointer<QWidget> alive(widget);
  QKeyEvent press(QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(widget, &press);
  if (!alive) return;
  QKeyEvent release(QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(widget, &release);
}

void typeText(QWidget* edit, const QString& text) {
  if (auto* const line = qobject_cast<QLineEdit*>(edit)) line->selectAll();
  if (text.isEmpty()) return pressKey(edit, {Qt::Key_Delete, Qt::NoModifier, {}});
  const QPointer<QWidget> alive(edit);
  for (const QChar character : text)
    if (alive) pressKey(edit, characterStroke(character, Qt::NoModifier));
}

}  // namespace triaxlab
