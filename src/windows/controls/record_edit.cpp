#include "windows/controls/record_edit.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <QValidator>
#include <algorithm>
#include <utility>

#include "sessions/typed_text.h"
#include "windows/controls/words.h"

namespace triaxlab {

/// Looks at each text that typing, pasting or dropping would give the box. One that is refused is taken back by the box
/// itself, which so keeps what it can undo; a text that is set anew would lose that.
class RecordEdit::Gate : public QValidator {
 public:
  explicit Gate(RecordEdit* box) : QValidator(box), m_box(*box) {}
  State validate(QString& text, int& cursor) const override { return m_box.lets(text, cursor) ? Acceptable : Invalid; }

 private:
  RecordEdit& m_box;
};

RecordEdit::RecordEdit(QWidget* parent) : QLineEdit(parent) {
  setValidator(new Gate(this));
  connect(this, &QLineEdit::textChanged, this, [this] { m_shown = text(); });
}

bool RecordEdit::lets(const QString& typed, int cursor) {
  if (!fieldWidth || typed == m_shown) return true;
  // What was put in ends at the cursor; what stands behind it stood there before.
  const QString behind = typed.mid(cursor);
  const qsizetype most = std::min<qsizetype>(cursor, m_shown.size() - behind.size());
  if (most < 0) return true;
  const QChar* const parting = std::mismatch(typed.begin(), typed.begin() + most, m_shown.begin()).first;
  const qsizetype before = parting - typed.begin();
  const QString inserted = typed.mid(before, cursor - before);
  QString fitting = words(takenBeside(utf8(typed.left(before) + behind), utf8(inserted), fieldWidth()));
  if (fitting == inserted) return true;
  const qsizetype replaced = m_shown.size() - behind.size() - before;
  m_fitting = {static_cast<int>(before), static_cast<int>(replaced), std::move(fitting)};
  // For what comes by no event of the box: its menu.
  QMetaObject::invokeMethod(this, &RecordEdit::insertFitting, Qt::QueuedConnection);
  return false;
}

void RecordEdit::insertFitting() {
  if (!m_fitting) return;
  const Replacement fitting = *std::exchange(m_fitting, std::nullopt);
  setSelection(fitting.begin, fitting.length);
  insert(fitting.text);
}

void RecordEdit::showText(const QString& shown) {
  if (shown == text()) return;
  const QSignalBlocker blocked(this);
  m_shown = shown;
  m_fitting.reset();
  const auto cursor = std::min<qsizetype>(cursorPosition(), shown.size());
  setText(shown);
  setCursorPosition(static_cast<int>(cursor));
}

bool RecordEdit::event(QEvent* event) {
  // The box is gone behind it.
  if (event->type() == QEvent::DeferredDelete) return QLineEdit::event(event);
  if (event->type() != QEvent::ToolTip) {
    const bool done = QLineEdit::event(event);
    insertFitting();
    return done;
  }
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
