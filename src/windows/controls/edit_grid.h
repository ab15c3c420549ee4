#pragma once

#include <QString>
#include <cstddef>
#include <functional>

#include "sessions/dialogs/grid_block.h"
#include "windows/controls/grid_view.h"
#include "windows/controls/key_help.h"

class QKeyEvent;

namespace triaxlab {

/// A grid that is typed into. A key that writes begins a cell anew, F2 and a double click go on in it; the keys that
/// leave the cell store it and go to the next one, Esc leaves it as it was.
class EditGrid : public GridView {
  Q_OBJECT

 public:
  using CellWidth = std::function<std::size_t(int row, int column)>;
  /// `width`: how many bytes of GBK a typed cell takes.
  EditGrid(QWidget* parent, const GridContent& content, CellWidth width);

  /// The chosen cells.
  GridBlock block() const;
  /// What is being typed is stored.
  void finishTyping();
  static KeyGroup keyHelp();

  /// Looks at each key before the grid does, but while a cell is typed; true: the key is done with.
  std::function<bool(const QKeyEvent&)> onKey;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Editors;
  /// So many rows down, or typed cells to the right; a row that ends goes on in the next one. False at the ends of the
  /// grid, where it stays.
  bool move(int rows, int columns);
  static bool isTyped(const QModelIndex& index);
};

}  // namespace triaxlab
