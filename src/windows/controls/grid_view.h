#pragma once

#include <QAbstractTableModel>
#include <QItemSelectionModel>
#include <QTableView>
#include <functional>
#include <vector>

namespace triaxlab {

/// What a grid shows, asked of a session at each look.
struct GridContent {
  struct Column {
    QString heading;
    int width = 0;         // twips
    bool isCount = false;  // numbers that are read one below the other; column 0 has such in any case
  };
  std::vector<Column> columns;
  std::function<int()> rowCount;                     // data rows
  std::function<QString(int row, int column)> cell;  // row 1 is the first data row
  // Of a grid that is typed into.
  std::function<bool(int column)> isTyped;
  std::function<void(int row, int column, const QString& text)> type;
};

class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  GridModel(GridContent content, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  void contentChanged();
  void rowChanged(int row) { rowsChanged(row, row); }
  /// Their texts; the chosen cells stay chosen.
  void rowsChanged(int first, int last);

 private:
  int alignmentOf(int column) const;

  GridContent m_content;
};

/// A list of rows under fixed heads. Column 0 holds the row's number and is fixed like the heads.
class GridView : public QTableView {
  Q_OBJECT

 public:
  GridView(QWidget* parent, const GridContent& content);

  /// Row of the current cell, from 1; 0 when there is none.
  int currentRow() const { return currentIndex().row() + 1; }
  void setCurrentCell(int row, int column);
  void contentChanged() { m_model->contentChanged(); }
  void rowChanged(int row) { m_model->rowChanged(row); }
  void textsChanged() { m_model->rowsChanged(1, m_model->rowCount()); }

 signals:
  void rowDoubleClicked(int row);
  void enterPressed();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// A text that is cut is told in full beside the mouse.
  bool viewportEvent(QEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

 private:
  GridModel* m_model;
};

}  // namespace triaxlab
