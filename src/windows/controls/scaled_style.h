#pragma once

#include <QProxyStyle>

namespace triaxlab {

/// The look of all controls. What the style itself measures in pixels goes along with the scale of the window.
class ScaledStyle : public QProxyStyle {
 public:
  ScaledStyle() : QProxyStyle("Fusion") {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace triaxlab
