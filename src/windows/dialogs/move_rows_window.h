#pragma once

#include <QDialog>

#include "sessions/dialogs/row_moves.h"

namespace triaxlab {

/// Rows of a sample list moved by hand, while the list stands behind. Enter in a box moves as the button of its line
/// does; Esc and the corner are 返 回.
class Form17 : public QDialog {
  Q_OBJECT

 public:
  Form17(QWidget* parent, RowMoves& moves);
};

}  // namespace triaxlab
