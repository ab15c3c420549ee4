#pragma once

#include <QRawFont>

class QFont;

namespace triaxlab {

/// The font that has a character, which need not be the one asked for, and its shape there.
struct FoundGlyph {
  QRawFont font;
  quint32 index = 0;  // 0: no font has it, and this is the box that stands for it
};
FoundGlyph glyphOf(const QFont& font, char32_t character);

/// UserError when no font of this machine has Chinese: pages would be full of boxes.
void requireChineseFont();

}  // namespace triaxlab
