#pragma once

#include <QDialog>

#include "sessions/dialogs/range_dialog.h"

namespace triaxlab {

/// Which samples of a large project to read. Esc and the corner accept like the one button.
class Form21 : public QDialog {
  Q_OBJECT

 public:
  Form21(QWidget* parent, RangeDialog& range);

  void reject() override { accept(); }
};

}  // namespace triaxlab
