#pragma once

#include <QPoint>
#include <QPointF>
#include <QString>
#include <cstdint>

class QWidget;

namespace triaxlab {

// What a person's hands do, as the events that the toolkit would make of it.

enum class MouseMotion : std::uint8_t { Press, Drag, Move, Release };

/// The left button at a place of the widget, down from press to release; a drag is a move with it. A press gives the
/// focus as a real one does.
void moveMouse(QWidget* widget, QPointF place, MouseMotion motion);
void clickMouse(QWidget* widget, QPoint place);
void doubleClickMouse(QWidget* widget, QPoint place);
/// Drags a file or folder from elsewhere onto the widget and lets it go. ScriptError when nothing there takes it.
void dropFile(QWidget* widget, const QString& path);
/// Notches away from the person are positive.
void turnWheel(QWidget* widget, QPointF place, int notches, Qt::KeyboardModifiers modifiers);

struct KeyStroke {
  int key = 0;  // Qt::Key
  Qt::KeyboardModifiers modifiers;
  QString text;
};
/// "Ctrl+Z", "Left", "5"; ScriptError when there is no such key.
KeyStroke keyStroke(const QString& name);
void pressKey(QWidget* widget, const KeyStroke& stroke);
/// Selects all in an edit control and types; an empty text clears it.
void typeText(QWidget* edit, const QString& text);

}  // namespace triaxlab
