#pragma once

#include <string>
#include <string_view>

#include "common/date.h"
#include "platform/drawing_surface.h"

namespace triaxlab {

struct PageSize {
  int width = 11906, height = 16838;  // twips
  bool operator==(const PageSize&) const = default;
};
inline constexpr PageSize kA4{11906, 16838};
inline constexpr PageSize kA3{16838, 23811};
inline constexpr PageSize kDotMatrixPage{11904, 15870};
inline constexpr PageSize kA3SideBySide{23810, 16841};

/// What a document tells of itself beside its pages, UTF-8.
struct DocumentInfo {
  std::string title, subject;
  Date created;
};

/// What turns pages into paper, a PDF, pictures or a recording. Pages come one after the other and are not kept.
/// A file that can't be written is a UserError.
class PageDevice {
 public:
  virtual ~PageDevice() = default;
  /// Begins a page; the surface is valid until endPage.
  virtual DrawingSurface& beginPage(PageSize size) = 0;
  /// Names a place on the page that has begun, for devices whose pages are leafed through by names.
  virtual void bookmark(std::string_view /*title*/) {}
  virtual void endPage() = 0;
  /// Ends the document; what it wrote is complete only then.
  virtual void finish() = 0;
  /// Ends a job that somebody has stopped: what is a file is not written, paper that was begun comes out.
  virtual void stop() {}
};

}  // namespace triaxlab
