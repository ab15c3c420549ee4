#include "windows/controls/appearance.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>
#include <QTranslator>

#include "platform/qt/painter_surface.h"
#include "windows/controls/layout.h"
#include "windows/controls/scaled_style.h"

namespace triaxlab {
namespace {

/// Two Mohr circles under their envelope.
QIcon programIcon() {
  constexpr int kSize = 64;
  QPixmap picture(kSize, kSize);
  picture.fill(colourOf(Colour::White));
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(0, 0, kSize, 54);
  painter.setPen(QPen(colourOf(Colour::LightRed), 3));
  painter.drawEllipse(QPointF(20, 54), 11, 11);
  painter.drawEllipse(QPointF(39, 54), 21, 21);
  painter.setPen(QPen(colourOf(Colour::Blue), 3));
  painter.drawLine(QPointF(2, 44), QPointF(62, 16));
  painter.setClipping(false);
  painter.setPen(QPen(colourOf(Colour::Black), 3));
  painter.drawPolyline(QPolygonF{{4, 4}, {4, 54}, {62, 54}});
  return picture;
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
  auto* const buttons = new QTranslator(&application);
  if (buttons->load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(buttons);
}

}  // namespace triaxlab
