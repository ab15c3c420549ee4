#include "windows/controls/canvas_widget.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "platform/placed_surface.h"
#include "platform/qt/painter_surface.h"
#include "windows/controls/layout.h"
#include "windows/controls/scaled_window.h"

namespace triaxlab {
namespace {

constexpr double kLargestZoom = 16, kZoomOfNotch = 1.25;
constexpr double kWheelNotch = 120;  // eighths of a degree
/// A copied picture is for documents, which are looked at closer than a screen.
constexpr int kCopyScale = 3;

}  // namespace

CanvasWidget::CanvasWidget(QWidget* parent, int width, int height, Drawing drawing)
    : QWidget(parent), m_width(width), m_height(height), m_zoomWidth(width), m_drawing(std::move(drawing)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

void CanvasWidget::redraw() {
  m_isCurrent = false;
  update();
}

void CanvasWidget::drawOn(DrawingSurface& surface) const {
  if (!isZoomed()) return m_drawing(surface);
  PlacedSurface placed(surface, {-m_corner.x * m_zoom, -m_corner.y * m_zoom}, m_zoom);
  m_drawing(placed);
  if (m_edges) m_edges(surface, {m_corner, m_zoom, static_cast<double>(m_zoomWidth), static_cast<double>(m_height)});
}

void CanvasWidget::paintOn(QImage& picture, double pixelTwips, Fields fields) const {
  // The ground is white whatever the desktop's theme.
  picture.fill(colourOf(Colour::White));
  QPainter painter(&picture);
  painter.scale(1 / pixelTwips, 1 / pixelTwips);
  PainterSurface surface(painter, PainterSurface::Medium::Screen);
  if (isZoomed() && m_zoomWidth < m_width) {
    painter.setClipRect(m_zoomWidth, 0, m_width - m_zoomWidth, m_height);
    m_drawing(surface);
    painter.setClipRect(0, 0, m_zoomWidth, m_height);
  }
  drawOn(surface);
  painter.setClipping(false);
  if (fields == Fields::Drawn && m_fieldTexts) m_fieldTexts(surface);
}

void CanvasWidget::paintEvent(QPaintEvent*) {
  // A window that goes to another screen may get other pixels.
  const double screenScale = devicePixelRatioF();
  const QSize wanted = (QSizeF(size()) * screenScale).toSize();
  if (!m_isCurrent || m_picture.size() != wanted || m_picture.devicePixelRatio() != screenScale) {
    if (m_picture.size() != wanted) m_picture = QImage(wanted, QImage::Format_RGB32);
    paintOn(m_picture, pixelTwips() / screenScale);
    m_picture.setDevicePixelRatio(screenScale);
    m_isCurrent = true;
  }
  QPainter(this).drawImage(0, 0, m_picture);
}

// ---- looking closer

double CanvasWidget::pixelTwips() const { return kTwipsPerPixel / scaleOf(this); }

bool CanvasWidget::isMagnified(QPointF pixel) const { return isZoomed() && pixel.x() * pixelTwips() <= m_zoomWidth; }

Point CanvasWidget::placeAt(QPointF pixel) const {
  const QPointF twips = pixel * pixelTwips();
  if (!isMagnified(pixel)) return {twips.x(), twips.y()};
  return {m_corner.x + twips.x() / m_zoom, m_corner.y + twips.y() / m_zoom};
}

void CanvasWidget::show(Point place, QPointF at, double zoom) {
  m_zoom = zoom;
  const QPointF twips = at * pixelTwips();
  m_corner = {std::clamp(place.x - twips.x() / zoom, 0.0, m_zoomWidth - m_zoomWidth / zoom),
              std::clamp(place.y - twips.y() / zoom, 0.0, m_height - m_height / zoom)};
  if (isZoomed())
    setCursor(Qt::OpenHandCursor);
  else
    unsetCursor();
  redraw();
}

void CanvasWidget::setZoomable(bool zoomable) {
  m_zoomable = zoomable;
  if (!zoomable) showWhole();
}

void CanvasWidget::showWhole() {
  m_dragged.reset();
  if (isZoomed()) show({}, {}, 1);
}

void CanvasWidget::wheelEvent(QWheelEvent* event) {
  const bool isOnChart = event->position().x() * pixelTwips() <= m_zoomWidth;
  if (!m_zoomable || !isOnChart || !event->modifiers().testFlag(Qt::ControlModifier)) return event->ignore();
  const double zoom = m_zoom * std::pow(kZoomOfNotch, event->angleDelta().y() / kWheelNotch);
  // Turned back as far as it was turned in, the canvas is whole again, whatever the powers leave in the last digits.
  constexpr double kWhole = 1.01;
  show(placeAt(event->position()), event->position(), zoom < kWhole ? 1 : std::min(zoom, kLargestZoom));
  event->accept();
}

// ---- the mouse

void CanvasWidget::tellMouse(const QMouseEvent& event) {
  // Whole twips: a fraction comes from the pixels of a fine screen alone.
  const Point place = placeAt(event.position());
  emit mouseAt({std::round(place.x), std::round(place.y)}, event.buttons().testFlag(Qt::LeftButton));
}

void CanvasWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (isMagnified(event->position())) m_dragged = placeAt(event->position());
  tellMouse(*event);
}

void CanvasWidget::mouseMoveEvent(QMouseEvent* event) {
  if (m_dragged) show(*m_dragged, event->position(), m_zoom);
  tellMouse(*event);
}

void CanvasWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  m_dragged.reset();
  emit mouseReleased();
}

void CanvasWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  showWhole();
  tellMouse(*event);
}

void CanvasWidget::leaveEvent(QEvent*) { emit mouseLeft(); }

// ---- the clipboard

void CanvasWidget::copyPicture() const {
  // The same size at every scale of the window.
  QImage picture(rectangle({0, 0, m_width, m_height}).size() * kCopyScale, QImage::Format_RGB32);
  paintOn(picture, double{kTwipsPerPixel} / kCopyScale, Fields::Drawn);
  QGuiApplication::clipboard()->setImage(picture);
}

void CanvasWidget::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return copyPicture();
  QWidget::keyPressEvent(event);
}

void CanvasWidget::contextMenuEvent(QContextMenuEvent* event) {
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction("复制图片\tCtrl+C", this, &CanvasWidget::copyPicture);
  if (isZoomed()) menu->addAction("显示全图", this, &CanvasWidget::showWhole);
  menu->popup(event->globalPos());
}

}  // namespace triaxlab
