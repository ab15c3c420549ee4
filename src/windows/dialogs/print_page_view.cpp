#include "windows/dialogs/print_page_view.h"

#include <QPainter>
#include <cmath>

#include "platform/qt/painter_surface.h"
#include "windows/controls/layout.h"

namespace triaxlab {
namespace {

/// A copied page is as fine as one that is printed to a bitmap.
constexpr double kPictureInch = 200, kTwipsPerInch = 1440;

int whole(double pixels) { return static_cast<int>(std::lround(pixels)); }

}  // namespace

PrintPageView::PrintPageView(QWidget* parent, const Sheets& sheets) : QWidget(parent), m_sheets(sheets) {
  setFocusPolicy(Qt::StrongFocus);
  setZoom(m_zoom);
}

void PrintPageView::showSheet(int sheet) {
  m_sheet = sheet;
  update();
}

void PrintPageView::setZoom(double zoom) {
  m_zoom = zoom;
  resize(whole(widthTwips() * zoom / kTwipsPerPixel), whole(heightTwips() * zoom / kTwipsPerPixel));
  update();
}

double PrintPageView::zoomForWidth(int pixels) const { return pixels * double{kTwipsPerPixel} / widthTwips(); }

double PrintPageView::zoomForHeight(int pixels) const { return pixels * double{kTwipsPerPixel} / heightTwips(); }

void PrintPageView::paintOn(QPainter& painter, double pixelsPerTwip) const {
  painter.scale(pixelsPerTwip, pixelsPerTwip);
  PainterSurface surface(painter, PainterSurface::Medium::Picture);
  drawOn(surface);
}

void PrintPageView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  // Paper is white whatever the desktop's theme.
  painter.fillRect(rect(), Qt::white);
  paintOn(painter, m_zoom / kTwipsPerPixel);
}

QImage PrintPageView::picture() const {
  constexpr double kScale = kPictureInch / kTwipsPerInch;
  QImage picture(whole(widthTwips() * kScale), whole(heightTwips() * kScale), QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  paintOn(painter, kScale);
  return picture;
}

}  // namespace triaxlab
