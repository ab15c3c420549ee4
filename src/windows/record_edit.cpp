#include "windows/record_edit.h"

#include <QKeyEvent>
#include <QSignalBlocker>
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

void RecordEdit::keyPressEvent(QKeyEvent* event) {
  if (onKey && onKey(*event)) return event->accept();
  QLineEdit::keyPressEvent(event);
}

void RecordEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  emit focusLeft();
}

}  // namespace triaxlab
