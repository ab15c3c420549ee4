#include "platform/qt/paged_painting.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPagedPaintDevice>

namespace triaxlab {

QPageSize paperOf(PageSize size) {
  const QSizeF points(size.width / 20.0, size.height / 20.0);
  // A printer must recognise its A4; every other size is taken as it is.
  const bool standard = size.width == kA4.width && size.height == kA4.height;
  return standard ? QPageSize(QPageSize::A4) : QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch);
}

DrawingSurface* PagedPainting::beginPage(PageSize size) {
  const bool first = !m_painter.isActive();
  m_device.setPageLayout(QPageLayout(paperOf(size), QPageLayout::Portrait, QMarginsF()));
  m_surface.reset();
  if (first ? !m_painter.begin(&m_device) : !m_device.newPage()) return nullptr;
  return &m_surface.emplace(m_painter, PainterSurface::Medium::Paper);
}

}  // namespace triaxlab
