#pragma once

#include "platform/drawing_surface.h"
#include "reports/page_head.h"

namespace triaxlab {

/// Where the texts of a frame stand, twips: a value for each family of pages.
struct FrameForm {
  double bodySize;  // point
  double titleY, methodY;
  Point controlNumber, pageNumber;
  Point projectNo, projectName, testDate;
  Point testDateAside;  // when a long project number has the whole line
  double footY;
  Point sampleNo = {}, sampleNoAside = {};  // of pages that show one sample; aside for the same reason
};

/// The frame of the triaxial result pages; the date stands aside below the page number.
inline constexpr FrameForm kResultFrame{.bodySize = 10.5,
                                        .titleY = 500,
                                        .methodY = 1000,
                                        .controlNumber = {600, 300},
                                        .pageNumber = {9500, 300},
                                        .projectNo = {600, 1350},
                                        .projectName = {600, 1600},
                                        .testDate = {7800, 1350},
                                        .testDateAside = {9500, 600},
                                        .footY = 15350};

/// Draws what surrounds the blocks of a page of that width.
void drawPageFrame(DrawingSurface& surface, const FrameForm& form, const PageHead& head, double pageWidth);

}  // namespace triaxlab
