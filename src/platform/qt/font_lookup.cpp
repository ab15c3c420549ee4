#include "platform/qt/font_lookup.h"

#include <QFont>
#include <QString>
#include <QTextLayout>

#include "common/user_error.h"
#include "platform/drawing_surface.h"

namespace triaxlab {

FoundGlyph glyphOf(const QFont& font, char32_t character) {
  QTextLayout layout(QString::fromUcs4(&character, 1), font);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  for (const QGlyphRun& run : layout.glyphRuns())
    if (const QList<quint32> glyphs = run.glyphIndexes(); !glyphs.isEmpty()) return {run.rawFont(), glyphs.front()};
  return {QRawFont::fromFont(font), 0};
}

void requireChineseFont() {
  static const bool hasChinese = [] {
    const FoundGlyph found = glyphOf(QFont(QString::fromUtf8(kSong)), U'验');
    // With no font at all the toolkit has one of boxes, which has every character and none of a font's tables.
    return found.index != 0 && !found.font.fontTable("head").isEmpty();
  }();
  if (!hasChinese)
    throw UserError(
        "这台计算机没有中文字体，页面上的汉字会成为方框，没有输出。请安装一种中文字体（如文鼎明体 AR PL UMing，"
        "软件包 fonts-arphic-uming），然后重新启动本程序。");
}

}  // namespace triaxlab
