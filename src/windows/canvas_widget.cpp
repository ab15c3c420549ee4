#include "windows/canvas_widget.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

#include "platform/qt/painter_surface.h"
#include "windows/layout.h"

namespace triaxlab {

CanvasWidget::CanvasWidget(QWidget* parent, int width, int height, Drawing drawing)
    : QWidget(parent), m_width(width), m_height(height), m_drawing(std::move(drawing)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::ClickFocus);
  setMouseTracking(true);
}

void CanvasWidget::redraw() {
  m_isCurrent = false;
  update();
}

void CanvasWidget::drawPicture() {
  const double scale = devicePixelRatioF();
  const QSize size = (QSizeF(this->size()) * scale).toSize();
  if (m_picture.size() != size) m_picture = QImage(size, QImage::Format_RGB32);
  m_picture.setDevicePixelRatio(scale);
  // The ground is white whatever the desktop's theme.
  m_picture.fill(colourOf(Colour::White));
  QPainter painter(&m_picture);
  painter.scale(1.0 / kTwipsPerPixel, 1.0 / kTwipsPerPixel);
  PainterSurface surface(painter, PainterSurface::Medium::Screen);
  m_drawing(surface);
  m_isCurrent = true;
}

void CanvasWidget::paintEvent(QPaintEvent*) {
  if (!m_isCurrent || m_picture.deviceIndependentSize().toSize() != size()) drawPicture();
  QPainter(this).drawImage(0, 0, m_picture);
}

void CanvasWidget::tellMouse(const QMouseEvent& event) {
  // Whole twips: a fraction comes from the pixels of a fine screen alone.
  const QPointF place = event.position() * kTwipsPerPixel;
  emit mouseAt({std::round(place.x()), std::round(place.y())}, event.buttons().testFlag(Qt::LeftButton));
}

void CanvasWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) tellMouse(*event);
}

void CanvasWidget::mouseMoveEvent(QMouseEvent* event) { tellMouse(*event); }

void CanvasWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit mouseReleased();
}

}  // namespace triaxlab
