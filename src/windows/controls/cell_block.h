#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <vector>

#include "sessions/listed_session.h"
#include "windows/controls/layout.h"

class QKeyEvent;

namespace triaxlab {

class ClickLabel;
class RecordEdit;

/// The cells of a list or of a table: each an edit box, and a label that lies over it, and under it while somebody
/// types there. Tab comes to the chosen cell alone.
class CellBlock : public QObject {
  Q_OBJECT

 public:
  struct Names {
    const char *boxes, *labels;
  };
  CellBlock(QWidget* window, Names names, const std::vector<Place>& places);

  RecordEdit* box(int cell) const { return m_cells.at(static_cast<std::size_t>(cell)).box; }
  int count() const { return static_cast<int>(m_cells.size()); }
  /// The focus goes to a cell, its text is marked for being typed over.
  void enter(int cell);
  /// The window goes down: boxes that lose the focus have nobody to tell any more.
  void fallSilent();

  void show(const CellBlockState& now);
  /// The cells hold numbers that are read one below the other.
  void alignNumbers();
  /// These cells and no others are shown as chosen.
  void mark(int firstCell, int lastCell);
  void setEnabled(bool enabled);

  /// Whether a key in a cell is done with.
  std::function<bool(int cell, const QKeyEvent& event)> onKey;

 signals:
  void entered(int cell);
  void left();  // the person has gone elsewhere
  void typed(int cell, const QString& text);

 private:
  struct Cell {
    RecordEdit* box;
    ClickLabel* label;
  };
  void connectCell(int cell);

  std::vector<Cell> m_cells;
  CellBlockState m_shown;
};

}  // namespace triaxlab
