#include "windows/play/control_text.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableView>
#include <QTextEdit>

#include "windows/controls/words.h"
#include "windows/play/script.h"

namespace triaxlab {
namespace {

/// Captions hold an "&" in front of the letter that the Alt key takes.
QString withoutMnemonic(QString caption) {
  static const QChar kMark = '&';
  for (qsizetype at = caption.indexOf(kMark); at >= 0; at = caption.indexOf(kMark, at + 1)) caption.remove(at, 1);
  return caption;
}

/// The panels of a status bar.
QString panelTexts(const QStatusBar& bar) {
  QStringList texts;
  for (const QLabel* const panel : bar.findChildren<QLabel*>()) texts << panel->text();
  return texts.join('\t');
}

}  // namespace

QString controlText(const QWidget* control) {
  // A title may tell more than what the window is.
  if (control->isWindow() && !control->accessibleName().isEmpty()) return control->accessibleName();
  if (control->isWindow() || control->windowTitle() != QString()) return control->windowTitle();
  if (const auto* const label = qobject_cast<const QLabel*>(control)) return label->text();
  if (const auto* const edit = qobject_cast<const QLineEdit*>(control)) return edit->text();
  if (const auto* const page = qobject_cast<const QTextEdit*>(control)) return page->toPlainText();
  if (const auto* const button = qobject_cast<const QAbstractButton*>(control)) return withoutMnemonic(button->text());
  if (const auto* const list = qobject_cast<const QComboBox*>(control)) return list->currentText();
  if (const auto* const frame = qobject_cast<const QGroupBox*>(control)) return withoutMnemonic(frame->title());
  if (const auto* const slider = qobject_cast<const QAbstractSlider*>(control))
    return words(std::to_string(slider->value()));
  if (const auto* const bar = qobject_cast<const QProgressBar*>(control)) return words(std::to_string(bar->value()));
  if (const auto* const bar = qobject_cast<const QStatusBar*>(control)) return panelTexts(*bar);
  throw ScriptError(utf8(control->objectName()) + " has no text");
}

QString cellText(QWidget* grid, int row, int column) {
  const auto* const view = qobject_cast<QTableView*>(grid);
  if (view == nullptr) throw ScriptError(utf8(grid->objectName()) + " is no grid");
  const QAbstractItemModel& model = *view->model();
  if (row < 0 || row > model.rowCount() || column < 0 || column >= model.columnCount())
    throw ScriptError("the grid has no such cell");
  if (row == 0) return model.headerData(column, Qt::Horizontal).toString();
  return model.index(row - 1, column).data().toString();
}

bool isChecked(const QWidget* control) {
  const auto* const button = qobject_cast<const QAbstractButton*>(control);
  return button != nullptr && button->isChecked();
}

}  // namespace triaxlab
