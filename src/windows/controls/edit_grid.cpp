#include "windows/controls/edit_grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "windows/controls/cell_keys.h"
#include "windows/controls/record_edit.h"

namespace triaxlab {
namespace {

/// The name of the box in which a cell is typed.
constexpr const char* kCellBox = "Cell";

constexpr int kRowHeight = 24;  // pixels: a line with the frame of its box

struct Step {
  int rows, columns;
};
constexpr std::array kLeavingKeys{
    KeyRow{Qt::Key_Return, Step{1, 0}, "记入，到下一行"},
    KeyRow{Qt::Key_Enter, Step{1, 0}, "记入，到下一行"},
    KeyRow{Qt::Key_Tab, Step{0, 1}, "记入，到后一格"},
    KeyRow{int(Qt::SHIFT) | int(Qt::Key_Tab), Step{0, -1}, "记入，到前一格"},
};
/// In a cell that is typed; otherwise the grid has its own way up and down.
constexpr std::array kTypingKeys{KeyRow{Qt::Key_Down, Step{1, 0}, "记入，到下一行"},
                                 KeyRow{Qt::Key_Up, Step{-1, 0}, "记入，到上一行"}};

/// The grid's own keys, as a person reads them.
struct OwnKey {
  int toolkitKey;
  const char* effect;
};
constexpr std::array kOwnKeys{OwnKey{Qt::Key_F2, "接着改这一格的文字"}, OwnKey{Qt::Key_Escape, "放弃正在输入的文字"}};

std::optional<Step> stepOf(const QKeyEvent& event, bool isTyping) {
  // The number pad's Enter has a modifier of its own, and Shift+Tab comes as a key of its own, with Shift or without.
  const int key = event.key() == Qt::Key_Backtab ? int(Qt::SHIFT) | int(Qt::Key_Tab)
                                                 : int(event.modifiers() & ~Qt::KeypadModifier) | event.key();
  const auto in = [key](const auto& rows) -> std::optional<Step> {
    const auto* const row = std::ranges::find(rows, key, [](const auto& r) { return r.toolkitKey; });
    return row != rows.end() ? std::optional(row->key) : std::nullopt;
  };
  if (const std::optional<Step> step = in(kLeavingKeys)) return step;
  return isTyping ? in(kTypingKeys) : std::nullopt;
}

}  // namespace

/// Makes the boxes in which cells are typed.
class EditGrid::Editors : public QStyledItemDelegate {
 public:
  Editors(EditGrid* grid, CellWidth width) : QStyledItemDelegate(grid), m_grid(*grid), m_width(std::move(width)) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                        const QModelIndex& index) const override {
    auto* const box = new RecordEdit(parent);
    box->setObjectName(kCellBox);
    box->fieldWidth = [this, row = index.row() + 1, column = index.column()] { return m_width(row, column); };
    return box;
  }

 protected:
  bool eventFilter(QObject* box, QEvent* event) override {
    if (event->type() == QEvent::KeyPress)
      if (const auto step = stepOf(static_cast<const QKeyEvent&>(*event), true)) {
        m_grid.finishTyping();
        m_grid.move(step->rows, step->columns);
        return true;
      }
    return QStyledItemDelegate::eventFilter(box, event);
  }

 private:
  EditGrid& m_grid;
  CellWidth m_width;
};

EditGrid::EditGrid(QWidget* parent, const GridContent& content, CellWidth width) : GridView(parent, content) {
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                  QAbstractItemView::EditKeyPressed);
  verticalHeader()->setDefaultSectionSize(kRowHeight);
  setTabKeyNavigation(true);
  setItemDelegate(new Editors(this, std::move(width)));
}

GridBlock EditGrid::block() const {
  const QItemSelection chosen = selectionModel()->selection();
  if (chosen.isEmpty()) {
    const int row = currentRow(), column = std::max(0, currentIndex().column());
    return {row, column, row, column};
  }
  QRect cells;
  for (const QItemSelectionRange& range : chosen)
    cells |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
  return {cells.top() + 1, cells.left(), cells.bottom() + 1, cells.right()};
}

void EditGrid::finishTyping() {
  auto* const box = viewport()->findChild<RecordEdit*>(kCellBox);
  if (box == nullptr) return;
  commitData(box);
  closeEditor(box, QAbstractItemDelegate::NoHint);
}

KeyGroup EditGrid::keyHelp() { return keyGroup("表格", kLeavingKeys, kTypingKeys, kOwnKeys); }

bool EditGrid::isTyped(const QModelIndex& index) { return (index.flags() & Qt::ItemIsEditable) != 0; }

bool EditGrid::move(int rows, int columns) {
  QModelIndex cell = currentIndex();
  if (!cell.isValid()) return false;
  const int columnCount = model()->columnCount();
  do {
    const int at = cell.row() * columnCount + cell.column() + rows * columnCount + columns;
    if (at < 0 || at >= model()->rowCount() * columnCount) return false;
    cell = model()->index(at / columnCount, at % columnCount);
  } while (columns != 0 && !isTyped(cell));
  // Not as a click would: Shift, which may be held, would choose the cells between.
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
  return true;
}

void EditGrid::keyPressEvent(QKeyEvent* event) {
  if (const std::optional<Step> step = stepOf(*event, false)) {
    // Tab goes on to the buttons behind the last cell.
    event->setAccepted(move(step->rows, step->columns) || step->columns == 0);
    return;
  }
  if (!onKey || !onKey(*event)) GridView::keyPressEvent(event);
}

}  // namespace triaxlab
