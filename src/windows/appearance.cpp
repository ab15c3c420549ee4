#include "windows/appearance.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QTranslator>

#include "platform/drawing_surface.h"

namespace triaxlab {
namespace {

/// 9 point at 96 pixels to the inch: the controls have fixed places, so their text has a fixed size.
constexpr int kFontPixels = 12;

}  // namespace

void setAppearance(QApplication& application) {
  QApplication::setStyle("Fusion");
  QFont font(QString::fromUtf8(kSong));
  font.setPixelSize(kFontPixels);
  QApplication::setFont(font);
  auto* const buttons = new QTranslator(&application);
  if (buttons->load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(buttons);
}

}  // namespace triaxlab
