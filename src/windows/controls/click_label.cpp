#include "windows/controls/click_label.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <cmath>

#include "windows/controls/scaled_window.h"

namespace triaxlab {
namespace {

constexpr int kCellMargin = 2;  // pixels between a cell's text and its edges

}  // namespace

ClickLabel::ClickLabel(QWidget* parent, const QString& text, Look look) : QLabel(text, parent), m_look(look) {
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setAutoFillBackground(look != Look::Caption);
  setGround();
}

Place ClickLabel::insideOfLines() const {
  Place place = placeOf(this);
  place.width -= kTwipsPerPixel;
  place.height -= kTwipsPerPixel;
  return place;
}

void ClickLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (m_look == Look::Caption) return;
  const int margin = static_cast<int>(std::lround(kCellMargin * scaleOf(this)));
  setContentsMargins(margin, 0, margin, 1);
}

void ClickLabel::setMarked(bool marked) {
  if (marked == m_marked) return;
  m_marked = marked;
  setGround();
}

void ClickLabel::setInk(std::optional<QColor> ink) {
  if (ink == m_ink) return;
  m_ink = ink;
  QPalette colours;  // what isn't set in it comes from the window
  if (ink) colours.setColor(QPalette::WindowText, *ink);
  setPalette(colours);
}

void ClickLabel::setGround() {
  if (m_look == Look::Caption) return;
  const auto plain = m_look == Look::Head ? QPalette::Button : QPalette::Base;
  setBackgroundRole(m_marked ? QPalette::Highlight : plain);
  setForegroundRole(m_marked ? QPalette::HighlightedText : QPalette::WindowText);
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit clicked();
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) emit doubleClicked();
}

/// In pixels. A window asks all its labels whenever it is painted, and few have changed.
int ClickLabel::neededWidth() {
  if (!m_measured || m_measured->text != text() || m_measured->font != font())
    m_measured = {.text = text(), .font = font(), .width = fontMetrics().size(0, text()).width()};
  return m_measured->width;
}

bool ClickLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) return QLabel::event(event);
  const bool condensed = neededWidth() > contentsRect().width();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), condensed ? text() : QString(), this);
  return true;
}

void ClickLabel::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  update();
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) emit reached();
}

void ClickLabel::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  update();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  for (const int key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
    if (event->key() == key) return emit clicked();
  QLabel::keyPressEvent(event);
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  paintText(event);
  if (!hasFocus()) return;
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void ClickLabel::paintText(QPaintEvent* event) {
  if (m_look == Look::Head || m_look == Look::Cell) {
    QPainter lines(this);
    lines.setPen(palette().color(QPalette::Midlight));
    lines.drawLine(rect().bottomLeft(), rect().bottomRight());
    lines.drawLine(rect().topRight(), rect().bottomRight());
  }
  const QRect place = contentsRect();
  const int needed = neededWidth();
  if (needed <= place.width()) return QLabel::paintEvent(event);
  QPainter painter(this);
  drawFrame(&painter);
  painter.translate(place.topLeft());
  painter.scale(place.width() / static_cast<double>(needed), 1);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(QRect(0, 0, needed, place.height()), static_cast<int>(alignment()), text());
}

}  // namespace triaxlab
