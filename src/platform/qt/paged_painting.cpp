#include "platform/qt/paged_painting.h"

#include <QMarginsF>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <array>
#include <cstdlib>

namespace triaxlab {
namespace {

struct NamedPaper {
  QPageSize::PageSizeId name;
  PageSize upright;
};
constexpr std::array kNamedPapers{NamedPaper{QPageSize::A4, kA4}, NamedPaper{QPageSize::A3, kA3}};
// Two pages of A4 side by side are some twips off A3.
constexpr int kToleranceTwips = 5;

bool isAbout(PageSize one, PageSize other) {
  return std::abs(one.width - other.width) <= kToleranceTwips && std::abs(one.height - other.height) <= kToleranceTwips;
}

}  // namespace

QPageLayout layoutOf(PageSize size) {
  for (const NamedPaper& paper : kNamedPapers) {
    const QPageSize name(paper.name);
    if (isAbout(size, paper.upright)) return {name, QPageLayout::Portrait, QMarginsF()};
    if (isAbout({size.height, size.width}, paper.upright)) return {name, QPageLayout::Landscape, QMarginsF()};
  }
  const QSizeF points(size.width / 20.0, size.height / 20.0);
  return {QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch), QPageLayout::Portrait, QMarginsF()};
}

DrawingSurface* PagedPainting::beginPage() {
  const bool first = !m_painter.isActive();
  m_surface.reset();
  if (first ? !m_painter.begin(&m_device) : !m_device.newPage()) return nullptr;
  return &m_surface.emplace(m_painter, PainterSurface::Medium::Paper);
}

}  // namespace triaxlab
