#pragma once

#include <QByteArray>
#include <QFont>
#include <QRawFont>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "platform/drawing_surface.h"
#include "platform/qt/pdf/compact_font.h"
#include "platform/qt/pdf/pdf_file.h"

namespace triaxlab {

/// A character as a page sets it: which of the document's fonts has it, and under what number.
struct PdfGlyph {
  int font = 1, code = 0;
  double advance = 0;       // in sizes of the font
  bool emboldened = false;  // bold was asked for, and no bold font has it
};

/// The fonts of a document: of each the characters that its pages use, in the order of their first use. Which font has
/// a character is asked for once.
class PdfFonts {
 public:
  const PdfGlyph& glyph(const Font& font, char32_t character);
  /// Writes the fonts and returns them as an entry of the pages' resources.
  std::string write(PdfFile& file) const;

 private:
  /// A font of this machine, and what of it is used. Shape 0 stands for what is missing; its character is 0.
  struct UsedFont {
    QRawFont font;
    QByteArray head;  // tells it from others
    std::vector<FontShape> shapes;
    std::vector<char32_t> characters;
  };

  PdfGlyph makeGlyph(const Font& font, char32_t character);
  int numberOf(const QRawFont& font);

  using Key = std::tuple<std::string, bool, char32_t>;
  std::map<Key, PdfGlyph, std::less<>> m_glyphs;
  std::vector<UsedFont> m_fonts;  // number 1, 2, ...
};

}  // namespace triaxlab
