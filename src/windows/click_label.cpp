#include "windows/click_label.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace triaxlab {

ClickLabel::ClickLabel(QWidget* parent, const QString& text) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void ClickLabel::setMarked(bool marked) {
  if (marked == autoFillBackground()) return;
  setBackgroundRole(marked ? QPalette::Highlight : QPalette::NoRole);
  setForegroundRole(marked ? QPalette::HighlightedText : QPalette::NoRole);
  setAutoFillBackground(marked);
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit clicked();
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit doubleClicked();
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  const QRect place = contentsRect();
  const int needed = fontMetrics().size(0, text()).width();
  if (needed <= place.width()) return QLabel::paintEvent(event);
  QPainter painter(this);
  drawFrame(&painter);
  painter.setClipRect(place);
  painter.translate(place.topLeft());
  painter.scale(place.width() / static_cast<double>(needed), 1);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(QRect(0, 0, needed, place.height()), static_cast<int>(alignment()), text());
}

}  // namespace triaxlab
