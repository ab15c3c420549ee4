#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/drawing_surface.h"

namespace triaxlab {

/// A text as it was drawn.
struct PlacedText {
  Point upperLeft;
  std::string utf8;
  Font font;
  Colour colour = Colour::Black;
  bool rotated = false;
  bool operator==(const PlacedText&) const = default;
};

/// Brings texts into the order in which people read them, for those who search and copy: small marks that are drawn
/// into the gaps of a text, as the 2 into "(cm )", follow what they belong to. So a text is held back until the next
/// comes.
class ReadingOrder {
 public:
  /// True when the text is a mark for a gap of the one that is held: it is held with it.
  bool takeMark(const PlacedText& text);
  /// What was held until now, in its order; from now on this text is.
  std::vector<PlacedText> hold(PlacedText text);
  /// What was held; then nothing is.
  std::vector<PlacedText> release();

 private:
  struct Mark {
    std::size_t gap;  // the byte of the text that it stands in the place of
    PlacedText text;
  };

  PlacedText m_text;
  std::vector<Mark> m_marks;
};

}  // namespace triaxlab
