#include "windows/controls/grid_view.h"

#include <QBrush>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPalette>
#include <QToolTip>

#include "windows/controls/layout.h"

namespace triaxlab {
namespace {

constexpr int kRowHeight = 20;  // pixels

}  // namespace

GridModel::GridModel(GridContent content, QObject* parent)
    : QAbstractTableModel(parent), m_content(std::move(content)) {}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_content.rowCount(); }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_content.columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole || role == Qt::EditRole) return m_content.cell(index.row() + 1, index.column());
  if (role == Qt::TextAlignmentRole) return alignmentOf(index.column());
  if (role == Qt::BackgroundRole && index.column() == 0) return QGuiApplication::palette().brush(QPalette::Button);
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return m_content.columns.at(static_cast<std::size_t>(section)).heading;
  if (role == Qt::TextAlignmentRole) return alignmentOf(section);
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const bool isTyped = index.isValid() && m_content.isTyped && m_content.isTyped(index.column());
  return QAbstractTableModel::flags(index) | (isTyped ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid() || !m_content.type) return false;
  m_content.type(index.row() + 1, index.column(), value.toString());
  return true;
}

int GridModel::alignmentOf(int column) const {
  const bool isCount = column == 0 || m_content.columns.at(static_cast<std::size_t>(column)).isCount;
  return static_cast<int>(isCount ? kNumberAlignment : Qt::AlignLeft | Qt::AlignVCenter);
}

void GridModel::contentChanged() {
  beginResetModel();
  endResetModel();
}

void GridModel::rowsChanged(int first, int last) {
  if (first > last) return;
  emit dataChanged(index(first - 1, 0), index(last - 1, columnCount() - 1));
}

GridView::GridView(QWidget* parent, const GridContent& content)
    : QTableView(parent), m_model(new GridModel(content, this)) {
  setModel(m_model);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(kRowHeight);
  horizontalHeader()->setHighlightSections(false);
  for (std::size_t column = 0; column < content.columns.size(); ++column)
    setColumnWidth(static_cast<int>(column), pixels(content.columns[column].width));
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& cell) { emit rowDoubleClicked(cell.row() + 1); });
}

void GridView::setCurrentCell(int row, int column) { setCurrentIndex(m_model->index(row - 1, column)); }

void GridView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return emit enterPressed();
  QTableView::keyPressEvent(event);
}

bool GridView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const QModelIndex cell = indexAt(help.pos());
  const bool cut = cell.isValid() && sizeHintForIndex(cell).width() > columnWidth(cell.column());
  QToolTip::showText(help.globalPos(), cut ? cell.data().toString() : QString(), viewport());
  return true;
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid() && current.column() == 0) setCurrentIndex(current.siblingAtColumn(1));
}

// A click on a row's number makes the cell beside it current; the number itself must not look chosen instead.
QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
  if (index.isValid() && index.column() == 0) return QItemSelectionModel::NoUpdate;
  return QTableView::selectionCommand(index, event);
}

}  // namespace triaxlab
