#pragma once

#include <QFrame>

#include "common/user_error.h"

class QLabel;

namespace triaxlab {

/// What went wrong on the way and must not be overlooked, until the person has taken note of it. Nothing waits for
/// that.
class WarningBar : public QFrame {
  Q_OBJECT

 public:
  explicit WarningBar(QWidget* parent);

  /// The bar is there as long as there are remarks. What was taken note of doesn't come back with the same ones.
  void show(const Remarks& remarks);

 signals:
  /// The bar came, or went.
  void shown(bool isThere);
  void dismissed();

 private:
  Remarks m_remarks;
  QLabel* m_text;
};

}  // namespace triaxlab
