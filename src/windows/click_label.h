#pragma once

#include <QLabel>

namespace triaxlab {

/// A text that can be clicked. One that is wider than its place is condensed, never cut.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ClickLabel(QWidget* parent, const QString& text = {});

  /// Shown on the ground of a chosen line.
  void setMarked(bool marked);

 signals:
  void clicked();
  void doubleClicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace triaxlab
