#pragma once

#include <QAbstractSlider>
#include <QKeyEvent>
#include <array>

namespace triaxlab {

/// What a key does to a scroll bar.
struct ScrollKey {
  int toolkitKey;
  QAbstractSlider::SliderAction action;
  const char* effect;
};

inline constexpr std::array kScrollKeys{
    ScrollKey{Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub, "上翻一页"},
    ScrollKey{Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd, "下翻一页"},
    ScrollKey{Qt::Key_Home, QAbstractSlider::SliderToMinimum, "到开头"},
    ScrollKey{Qt::Key_End, QAbstractSlider::SliderToMaximum, "到末尾"},
};
inline constexpr std::array kLineKeys{
    ScrollKey{Qt::Key_Up, QAbstractSlider::SliderSingleStepSub, "上移一行"},
    ScrollKey{Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd, "下移一行"},
};

/// False for a key that isn't in the table.
template <std::size_t N>
bool scrollByKey(QAbstractSlider& bar, const QKeyEvent& event, const std::array<ScrollKey, N>& table) {
  for (const ScrollKey& row : table) {
    if (row.toolkitKey != event.key()) continue;
    bar.triggerAction(row.action);
    return true;
  }
  return false;
}

}  // namespace triaxlab
