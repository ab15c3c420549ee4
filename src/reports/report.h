#pragma once

#include <string_view>
#include <vector>

#include "platform/drawing_surface.h"
#include "platform/page_device.h"
#include "reports/job_range.h"

namespace triaxlab {

/// What a sample is known by, GBK, trimmed.
struct SampleNumbers {
  std::string_view projectNo, sampleNo;
  bool operator==(const SampleNumbers&) const = default;
};

/// A job laid out in pages: made once, then drawn page by page on whatever takes pages. Pages count from 1 over the
/// whole job, whichever of them are sent. What it was made of outlives it, and stays as it is.
class Report {
 public:
  virtual ~Report() = default;
  virtual PageSize pageSize() const = 0;
  virtual int pageCount() const = 0;
  /// Those of them that a job sends, which is the one that the report was made of.
  virtual NumberRange pagesOf(const PrintJob& job) const { return chosenPages(job, pageCount()); }
  virtual void drawPage(DrawingSurface& surface, int page) = 0;
  /// Those that the page shows, one at least, as they stand on it from above.
  virtual std::vector<SampleNumbers> samplesOf(int page) const = 0;
};

}  // namespace triaxlab
