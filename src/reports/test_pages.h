#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "common/settings.h"
#include "platform/drawing_surface.h"
#include "reports/page_frame.h"
#include "reports/print_job.h"
#include "reports/report.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

// What the pages of the unconfined, K0 and TK0 tests share: one frame, and blocks of samples below each other. A job
// that chooses samples sends the pages on which they stand, whole and with the numbers that they have in the job of all
// samples.

/// The frame of those pages, whose texts below stand at `footY`.
constexpr FrameForm testFrame(double footY) {
  return {.bodySize = 10,
          .titleY = 800,
          .methodY = 0,
          .controlNumber = {},
          .pageNumber = {9500, 500},
          .projectNo = {600, 2000},
          .projectName = {600, 1600},
          .testDate = {8100, 2000},
          .testDateAside = {8100, 2000},
          .footY = footY,
          .sampleNo = {4700, 2000},
          .sampleNoAside = {600, 2300}};
}
/// The texts of frame, heads and tables; charts have those of their windows.
inline const Font kTestPageFont{.size = 10};

/// A sample, or one of the parts of which a sample has several.
struct TestBlock {
  std::size_t row = 0;  // of the sample in its table
  std::size_t part = 0;
  bool operator==(const TestBlock&) const = default;
};

/// All that such a layout has of its own.
struct TestPageForm {
  const char* title;
  ProjectKind tests;
  bool LaboratoryHabits::*omitsTestDate;
  FrameForm frame;
  bool headsSample = false;  // the sample's number stands in the frame
  std::size_t blocksPerPage = 2;
  double firstBlockTop = 2300, blockPitch = 5500;
  /// How many parts a sample has: it begins a page with the first of them. Null: it is one block.
  std::size_t (*partsOf)(const Workspace& workspace, std::size_t row) = nullptr;
  /// x is that of the page, y counts from the top of the block. The numbers are reduced anew; the workspace stays as it
  /// is.
  void (*drawBlock)(DrawingSurface& surface, const Workspace& workspace, TestBlock block, int lineWeight) = nullptr;
};

// The texts above a block; what they tell is GBK.
void printSampleNo(DrawingSurface& surface, double x, std::string_view sampleNo);
void printSamplingDepth(DrawingSurface& surface, std::string_view samplingDepth);

/// The form and the workspace outlive the report.
std::unique_ptr<Report> makeTestPages(const TestPageForm& form, const PrintJob& job, const Workspace& workspace);

}  // namespace triaxlab
