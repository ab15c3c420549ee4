#pragma once

#include <QRect>
#include <QString>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace triaxlab {

inline constexpr int kTwipsPerPixel = 15;
/// Height of the letters in windows, twips: 9 point.
inline constexpr int kTypeHeight = 180;

/// Twips to logical pixels, in a window of natural size.
constexpr int pixels(int twips) { return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel; }

/// Place of a control inside its window, twips.
struct Place {
  int x = 0, y = 0, width = 0, height = 0;
};

/// What a place becomes in a window of this scale, logical pixels.
inline QRect rectangle(Place place, double scale = 1) {
  const auto scaled = [scale](int twips) { return static_cast<int>(std::lround(twips * scale / kTwipsPerPixel)); };
  // Edges are rounded, not sizes, so that controls that touch in twips touch on the screen; a rule of a pixel stays
  // one.
  const int left = scaled(place.x), top = scaled(place.y);
  return {left, top, std::max(1, scaled(place.x + place.width) - left),
          std::max(1, scaled(place.y + place.height) - top)};
}

/// Gives a control its place inside the widget that holds it. In a window that can be scaled it keeps it at every
/// scale.
void setPlace(QWidget* control, Place place);
/// The place that a control was given; an empty one for all others.
Place placeOf(const QWidget* control);

/// Where numbers stand that are read one below the other.
inline constexpr Qt::Alignment kNumberAlignment = Qt::AlignRight | Qt::AlignVCenter;

/// Gives a control its name and its place. The name is what scripts and tests find it by.
template <class Widget>
Widget* put(Widget* control, const QString& name, Place place) {
  control->setObjectName(name);
  setPlace(control, place);
  return control;
}

}  // namespace triaxlab
