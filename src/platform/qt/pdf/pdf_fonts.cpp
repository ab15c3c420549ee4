#include "platform/qt/pdf/pdf_fonts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "platform/qt/font_lookup.h"
#include "platform/qt/ruled_text.h"

namespace triaxlab {
namespace {

constexpr int kUnits = 1000;  // of a font's size, in a PDF

QFont faceOf(const Font& font, bool bold) {
  QFont face(QString::fromStdString(font.name));
  face.setPixelSize(kUnits);
  face.setBold(bold);
  face.setHintingPreference(QFont::PreferNoHinting);
  return face;
}

/// The same for all sizes and artificial weights of a font.
QByteArray headOf(const QRawFont& font) { return font.familyName().toUtf8() + font.fontTable("head"); }

FontShape shapeOf(const QRawFont& font, quint32 index) {
  QPointF advance;
  font.advancesForGlyphIndexes(&index, &advance, 1, QRawFont::UseDesignMetrics);
  return {static_cast<int>(std::lround(advance.x())), font.pathForGlyph(index)};
}

/// See kPrime. The mark keeps its whole place, so that a text that has it is one text for those who read the document.
FontShape primeOf(const FontShape& shape) {
  return {kUnits, shape.outline.translated(-shape.outline.boundingRect().left(), 0)};
}

/// The name of a font that has some of its characters begins with six letters, others for other characters.
std::string nameOfPart(const QRawFont& font, const std::vector<char32_t>& characters) {
  std::uint64_t mixed = 14695981039346656037U;
  for (const char32_t character : characters) mixed = (mixed ^ character) * 1099511628211U;
  std::string name;
  for (int letter = 0; letter < 6; ++letter, mixed /= 26) name += static_cast<char>('A' + mixed % 26);
  name += '+';
  for (const QChar sign : font.familyName())
    if (sign.unicode() > ' ' && sign.unicode() < 0x7F && sign.isLetterOrNumber()) name += sign.toLatin1();
  return name;
}

/// What the numbers of a font mean, so that texts can be searched and copied.
std::string charactersOfCodes(const std::vector<char32_t>& characters) {
  constexpr std::size_t kMostInABlock = 100;
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
  for (std::size_t first = 1; first < characters.size(); first += kMostInABlock) {
    const std::size_t end = std::min(first + kMostInABlock, characters.size());
    fmt::format_to(std::back_inserter(map), "{} beginbfchar\n", end - first);
    for (std::size_t code = first; code < end; ++code)
      fmt::format_to(std::back_inserter(map), "<{:04X}> <{}>\n", code,
                     pdfUtf16(QString::fromUcs4(&characters[code], 1).toStdString()));
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

std::string widthsOf(const std::vector<FontShape>& shapes) {
  std::string widths;
  for (const FontShape& shape : shapes) fmt::format_to(std::back_inserter(widths), " {}", shape.advance);
  return widths;
}

int writeDescriptor(PdfFile& file, const QRawFont& font, std::string_view name, const std::vector<FontShape>& shapes) {
  const int program = file.reserve(), descriptor = file.reserve();
  file.writeStream(program, "/Subtype /CIDFontType0C ", compactFont(name, shapes));
  const FontBox box = boxOf(shapes);
  const auto units = [](double value) { return static_cast<int>(std::lround(value)); };
  file.write(descriptor,
             fmt::format("<< /Type /FontDescriptor /FontName /{} /Flags 4 /FontBBox [{} {} {} {}] /ItalicAngle 0 "
                         "/Ascent {} /Descent {} /CapHeight {} /StemV 80 /FontFile3 {} >>",
                         name, box.left, box.bottom, box.right, box.top, units(font.ascent()), -units(font.descent()),
                         units(font.capHeight()), pdfReference(program)));
  return descriptor;
}

}  // namespace

const PdfGlyph& PdfFonts::glyph(const Font& font, char32_t character) {
  const auto known = m_glyphs.find(std::tie(font.name, font.bold, character));
  if (known != m_glyphs.end()) return known->second;
  return m_glyphs.emplace(Key{font.name, font.bold, character}, makeGlyph(font, character)).first->second;
}

PdfGlyph PdfFonts::makeGlyph(const Font& font, char32_t character) {
  FoundGlyph found = glyphOf(faceOf(font, font.bold), character);
  const bool emboldened = font.bold && headOf(found.font) == headOf(glyphOf(faceOf(font, false), character).font);
  found.font.setPixelSize(kUnits);
  const int number = numberOf(found.font);
  UsedFont& used = m_fonts.at(static_cast<std::size_t>(number) - 1);
  auto place = std::ranges::find(used.characters, character);
  if (place == used.characters.end()) {
    const FontShape shape = shapeOf(found.font, found.index);
    used.shapes.push_back(character == kPrimeSign ? primeOf(shape) : shape);
    place = used.characters.insert(place, character);
  }
  const auto code = place - used.characters.begin();
  const FontShape& shape = used.shapes.at(static_cast<std::size_t>(code));
  return {.font = number,
          .code = static_cast<int>(code),
          .advance = static_cast<double>(shape.advance) / kUnits,
          .emboldened = emboldened};
}

int PdfFonts::numberOf(const QRawFont& font) {
  const QByteArray head = headOf(font);
  const auto known = std::ranges::find(m_fonts, head, &UsedFont::head);
  if (known != m_fonts.end()) return static_cast<int>(known - m_fonts.begin()) + 1;
  m_fonts.push_back({font, head, {shapeOf(font, 0)}, {0}});
  return static_cast<int>(m_fonts.size());
}

std::string PdfFonts::write(PdfFile& file) const {
  std::string entries;
  for (std::size_t i = 0; i < m_fonts.size(); ++i) {
    const UsedFont& used = m_fonts[i];
    const std::string name = nameOfPart(used.font, used.characters);
    const int descriptor = writeDescriptor(file, used.font, name, used.shapes);
    const int characters = file.reserve(), part = file.reserve(), whole = file.reserve();
    file.writeStream(characters, "", charactersOfCodes(used.characters));
    file.write(part, fmt::format("<< /Type /Font /Subtype /CIDFontType0 /BaseFont /{} /CIDSystemInfo << /Registry "
                                 "(Adobe) /Ordering (Identity) /Supplement 0 >> /FontDescriptor {} /W [0 [{}]] >>",
                                 name, pdfReference(descriptor), widthsOf(used.shapes)));
    file.write(whole, fmt::format("<< /Type /Font /Subtype /Type0 /BaseFont /{}-Identity-H /Encoding /Identity-H "
                                  "/DescendantFonts [{}] /ToUnicode {} >>",
                                  name, pdfReference(part), pdfReference(characters)));
    fmt::format_to(std::back_inserter(entries), "/F{} {} ", i + 1, pdfReference(whole));
  }
  return fmt::format("/Font << {}>>", entries);
}

}  // namespace triaxlab
