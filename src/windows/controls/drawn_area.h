#pragma once

#include "platform/drawing_surface.h"

namespace triaxlab {

/// A widget whose drawing a script can have as operations. Sizes in twips.
class DrawnArea {
 public:
  virtual ~DrawnArea() = default;
  virtual int widthTwips() const = 0;
  virtual int heightTwips() const = 0;
  /// What is seen.
  virtual void drawOn(DrawingSurface& surface) const = 0;
};

}  // namespace triaxlab
