#pragma once

#include <QWidget>

#include "windows/controls/layout.h"

namespace triaxlab {

/// A window that a person makes larger or smaller, and all that stands in it goes along by one factor: the places of
/// its controls, its canvases and its letters. Twips mean the same at every scale.
class ScaledWindow : public QWidget {
  Q_OBJECT

 public:
  static constexpr double kSmallestScale = 0.8, kLargestScale = 3;

  /// 1 in the natural size.
  double scale() const { return m_scale; }
  QSize sizeAt(double scale) const { return m_naturalSize * scale; }
  /// The largest scale at which the whole window has room, as far as there is a choice.
  double scaleWithin(QSize room) const;
  QSize sizeHint() const override { return sizeAt(1); }

 protected:
  /// A window's own constructor tells its inner size and the height of its letters, twips.
  void setNaturalSize(Place inner, int typeHeight = kTypeHeight);
  void resizeEvent(QResizeEvent* event) override;

 private:
  void showType();

  QSize m_naturalSize;
  int m_typeHeight = kTypeHeight;
  double m_scale = 1;
};

/// The scale of the window around a widget; 1 in a window that has none.
double scaleOf(const QWidget* widget);

}  // namespace triaxlab
