#include "windows/controls/scaled_style.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "windows/controls/scaled_window.h"

namespace triaxlab {
namespace {

/// The marks of option buttons and check boxes and what stands between them and their texts.
constexpr std::array kScaled{
    QStyle::PM_IndicatorWidth,          QStyle::PM_IndicatorHeight,          QStyle::PM_CheckBoxLabelSpacing,
    QStyle::PM_ExclusiveIndicatorWidth, QStyle::PM_ExclusiveIndicatorHeight, QStyle::PM_RadioButtonLabelSpacing,
    QStyle::PM_ScrollBarSliderMin,
};

}  // namespace

int ScaledStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  const int natural = QProxyStyle::pixelMetric(metric, option, widget);
  if (std::ranges::find(kScaled, metric) == kScaled.end()) return natural;
  return static_cast<int>(std::lround(natural * scaleOf(widget)));
}

}  // namespace triaxlab
