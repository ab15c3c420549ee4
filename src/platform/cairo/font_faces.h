#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/cairo/cairo_handles.h"
#include "platform/drawing_surface.h"

namespace triaxlab {

/// A piece of a text whose signs one font has.
struct FaceRun {
  cairo_font_face_t* face = nullptr;
  std::string_view text;  // UTF-8
};

/// The fonts of this machine that take the places of those asked for, each made when it is first needed. A bold font
/// that this machine lacks is made from its thin one.
class FontFaces {
 public:
  /// The text in order. A sign that no font has goes to the first, which shows a box.
  std::vector<FaceRun> runsOf(std::string_view utf8, const Font& font);

 private:
  /// The fonts that may serve for one, the best first.
  struct Family {
    FontPattern asked;
    FontSet fonts;
    std::vector<CairoFace> faces;            // of the fonts, each empty until it is needed
    std::map<char32_t, std::size_t> places;  // in the fonts, of signs that were looked up
  };

  Family& familyOf(const Font& font);
  static std::size_t placeOf(Family& family, char32_t sign);
  static cairo_font_face_t* faceAt(Family& family, std::size_t place);

  std::map<std::pair<std::string, bool>, Family> m_families;  // by name and boldness
};

}  // namespace triaxlab
