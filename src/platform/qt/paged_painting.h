#pragma once

#include <QPageSize>
#include <QPainter>
#include <optional>

#include "platform/page_device.h"
#include "platform/qt/painter_surface.h"

class QPagedPaintDevice;

namespace triaxlab {

inline constexpr int kTwipsPerInch = 1440;

QPageSize paperOf(PageSize size);

/// Pages onto a device of Qt that takes one page after the other (a PDF, a printer). The device must have been set to
/// kTwipsPerInch units to the inch, without margins.
class PagedPainting {
 public:
  explicit PagedPainting(QPagedPaintDevice& device) : m_device(device) {}

  /// Nothing when the device can't be drawn on.
  DrawingSurface* beginPage(PageSize size);
  void end() { m_painter.end(); }

 private:
  QPagedPaintDevice& m_device;
  QPainter m_painter;
  std::optional<PainterSurface> m_surface;
};

}  // namespace triaxlab
