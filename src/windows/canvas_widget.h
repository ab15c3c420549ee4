#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// A drawing area whose unit is a twip. What is drawn is kept as a picture and drawn again only when it has changed; a
/// script can have the same drawing as operations.
class CanvasWidget : public QWidget {
  Q_OBJECT

 public:
  using Drawing = std::function<void(DrawingSurface&)>;

  /// Width and height in twips.
  CanvasWidget(QWidget* parent, int width, int height, Drawing drawing);

  int widthTwips() const { return m_width; }
  int heightTwips() const { return m_height; }
  void drawOn(DrawingSurface& surface) const { m_drawing(surface); }

 signals:
  /// The mouse stands at a place of the canvas (twips); `leftButton` is down. Comes with each press and move.
  void mouseAt(Point place, bool leftButton);
  void mouseReleased();

 public slots:
  /// What the drawing shows has changed.
  void redraw();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void tellMouse(const QMouseEvent& event);
  void drawPicture();

  int m_width, m_height;
  Drawing m_drawing;
  QImage m_picture;
  bool m_isCurrent = false;
};

}  // namespace triaxlab
