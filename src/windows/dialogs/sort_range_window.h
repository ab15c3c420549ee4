#pragma once

#include <QDialog>

#include "sessions/dialogs/list_range_dialog.h"

namespace triaxlab {

/// Which rows of a sample list to remove or to sort, and how. Esc and the corner are 取 消.
class Form16 : public QDialog {
  Q_OBJECT

 public:
  Form16(QWidget* parent, ListRangeDialog& range);

 private:
  void makeMethods();
  void makeButtons();

  ListRangeDialog& m_range;
};

}  // namespace triaxlab
