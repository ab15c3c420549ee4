#include "windows/controls/scaled_window.h"

#include <QFont>
#include <QVariant>
#include <algorithm>
#include <cmath>

namespace triaxlab {
namespace {

/// Under which a control keeps its place.
constexpr const char* kPlaceProperty = "placeInTwips";

}  // namespace

void setPlace(QWidget* control, Place place) {
  control->setProperty(kPlaceProperty, QRect(place.x, place.y, place.width, place.height));
  control->setGeometry(rectangle(place, scaleOf(control)));
}

Place placeOf(const QWidget* control) {
  const QVariant kept = control->property(kPlaceProperty);
  if (!kept.isValid()) return {};
  const QRect place = kept.toRect();
  return {place.x(), place.y(), place.width(), place.height()};
}

double scaleOf(const QWidget* widget) {
  for (const QWidget* at = widget; at != nullptr; at = at->parentWidget())
    if (const auto* const window = qobject_cast<const ScaledWindow*>(at)) return window->scale();
  return 1;
}

double ScaledWindow::scaleWithin(QSize room) const {
  const double across = static_cast<double>(room.width()) / m_naturalSize.width();
  const double down = static_cast<double>(room.height()) / m_naturalSize.height();
  return std::clamp(std::min(across, down), kSmallestScale, kLargestScale);
}

void ScaledWindow::setNaturalSize(Place inner, int typeHeight) {
  m_naturalSize = rectangle(inner).size();
  m_typeHeight = typeHeight;
  showType();
  // A smaller frame scrolls.
  setMinimumSize(sizeAt(kSmallestScale));
  resize(sizeAt(1));
}

void ScaledWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const double scale = scaleWithin(size());
  if (scale == m_scale) return;
  m_scale = scale;
  showType();
  for (QWidget* const control : findChildren<QWidget*>())
    if (const Place place = placeOf(control); place.width > 0) control->setGeometry(rectangle(place, m_scale));
}

void ScaledWindow::showType() {
  QFont type = font();
  // Whole pixels, rounded down: what has room in the natural size has room at every scale.
  type.setPixelSize(static_cast<int>(m_typeHeight * m_scale / kTwipsPerPixel));
  setFont(type);
}

}  // namespace triaxlab
