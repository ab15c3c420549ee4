#pragma once

#include <QString>
#include <QWidget>

namespace triaxlab {

inline constexpr int kTwipsPerPixel = 15;

/// Twips to logical pixels.
constexpr int pixels(int twips) { return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel; }

/// Place of a control inside its window, twips.
struct Place {
  int x = 0, y = 0, width = 0, height = 0;
};

constexpr QRect rectangle(Place place) {
  // Edges are rounded, not sizes, so that controls that touch in twips touch on the screen.
  const int left = pixels(place.x), top = pixels(place.y);
  return {left, top, pixels(place.x + place.width) - left, pixels(place.y + place.height) - top};
}

/// Gives a control its name and its place. The name is what scripts and tests find it by.
template <class Widget>
Widget* put(Widget* control, const QString& name, Place place) {
  control->setObjectName(name);
  control->setGeometry(rectangle(place));
  return control;
}

}  // namespace triaxlab
