#pragma once

#include <QPageLayout>
#include <QPainter>
#include <optional>

#include "platform/page_device.h"
#include "platform/qt/painter_surface.h"

class QPagedPaintDevice;

namespace triaxlab {

inline constexpr int kTwipsPerInch = 1440;

/// Paper, orientation and no margins. What is the size of a named paper within some twips is that paper, for printers
/// know their papers by name; each other size is taken as it is, upright.
QPageLayout layoutOf(PageSize size);

/// Pages onto a device of Qt that takes one page after the other, as a printer. The device must have been set to
/// kTwipsPerInch units to the inch.
class PagedPainting {
 public:
  explicit PagedPainting(QPagedPaintDevice& device) : m_device(device) {}

  /// A page of the device's layout. Nothing when the device can't be drawn on.
  DrawingSurface* beginPage();
  void end() { m_painter.end(); }

 private:
  QPagedPaintDevice& m_device;
  QPainter m_painter;
  std::optional<PainterSurface> m_surface;
};

}  // namespace triaxlab
