#include "windows/controls/appearance.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

#include "windows/controls/layout.h"
#include "windows/controls/scaled_style.h"

// Outside the namespace, as the toolkit wants it.
static void openIcons() { Q_INIT_RESOURCE(icons); }

namespace triaxlab {
namespace {

/// The desktop entry of an installation is a file of this name.
constexpr const char* kDesktopId = "org.triaxlab.triaxlab";

/// One picture for each size, of which the desktop takes the one that fits.
QIcon programIcon() {
  openIcons();
  QIcon icon;
  for (const QString& file : QDir(":/icons").entryList()) icon.addFile(":/icons/" + file);
  return icon;
}

}  // namespace

QStringList windowFonts() { return {"Noto Sans CJK SC", "WenQuanYi Micro Hei", "Microsoft YaHei", "sans-serif"}; }

void setAppearance(QApplication& application) {
  QApplication::setStyle(new ScaledStyle);
  QFont font;
  font.setFamilies(windowFonts());
  // The controls have their places in twips, and so has their text its size, whatever the desktop prefers.
  font.setPixelSize(pixels(kTypeHeight));
  QApplication::setFont(font);
  QApplication::setWindowIcon(programIcon());
  QApplication::setDesktopFileName(kDesktopId);  // by which a desktop knows whose windows these are
  auto* const buttons = new QTranslator(&application);
  if (buttons->load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(buttons);
}

}  // namespace triaxlab
