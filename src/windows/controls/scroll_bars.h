#pragma once

#include <QScrollBar>
#include <QSignalBlocker>

#include "windows/controls/layout.h"

namespace triaxlab {

inline constexpr int kScrollBarWidth = 255;  // twips

/// The upright scroll bar of a list or table of which `page` lines are on display.
inline QScrollBar* uprightScrollBar(QWidget* window, const char* name, Place place, int page) {
  auto* const bar = put(new QScrollBar(Qt::Vertical, window), name, place);
  bar->setPageStep(page);
  // Tab comes to it; a click leaves the focus to the box that is typed in.
  bar->setFocusPolicy(Qt::TabFocus);
  return bar;
}

/// Shows a state without handing it out.
inline void showScroll(QScrollBar* bar, int top, int scrollMax) {
  const QSignalBlocker blocked(bar);
  bar->setRange(0, scrollMax);
  bar->setValue(top);
}

}  // namespace triaxlab
