#include "windows/controls/record_edit.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>

namespace triaxlab {

RecordEdit::RecordEdit(QWidget* parent) : QLineEdit(parent) {}

void RecordEdit::showText(const QString& shown) {
  if (shown == text()) return;
  const QSignalBlocker blocked(this);
  const auto cursor = std::min<qsizetype>(cursorPosition(), shown.size());
  setText(shown);
  setCursorPosition(static_cast<int>(cursor));
}

bool RecordEdit::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QLineEdit::event(event);
  constexpr int kCursorRoom = 4;  // pixels beside the text
  QStyleOptionFrame box;
  initStyleOption(&box);
  const int room = style()->subElementRect(QStyle::SE_LineEditContents, &box, this).width() - kCursorRoom;
  const bool cut = fontMetrics().horizontalAdvance(text()) > room;
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? text() : QString(), this);
  return true;
}

void RecordEdit::keyPressEvent(QKeyEvent* event) {
  if (onKey && onKey(*event)) return event->accept();
  QLineEdit::keyPressEvent(event);
}

void RecordEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  emit focusEntered();
}

void RecordEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // A text that is cut shows its beginning, unless the person comes back to where the cursor was.
  const bool comesBack = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!comesBack) setCursorPosition(0);
  emit focusLeft();
}

}  // namespace triaxlab
