#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

#include "reports/send_report.h"
#include "reports/three_in_one.h"
#include "support/drawings.h"
#include "support/recording_device.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {

/// A document of a laboratory with empty settings, in a folder of its own.
struct PageTest : ::testing::Test {
  TemporaryFolder folder;
  Workspace workspace;
  PrintJob job;
  const Layout* layout = &kThreeInOne;

  PageTest() {
    workspace.applicationFolder = workspace.dataFolder = folder.path();
    job.curves.pages = {CurvePage::StressStrain};
  }

  /// A sample of one stage under 100 kPa with two readings, in the table row.
  TriaxialSampleRecord& sample(std::size_t row, TestMethod method, std::string_view sampleNo,
                               std::string_view projectNo = "P1") {
    TriaxialSampleRecord& record = workspace.TriaxialSampleTable[row];
    SetText(record.projectNo, projectNo);
    SetText(record.sampleNo, sampleNo);
    record.testMethod = method;
    record.shearMode = 1;
    record.failureStrainLimit.fill(150);
    SetText(record.cellPressure[0], "100");
    for (std::size_t reading = 0; reading < 2; ++reading) {
      record.axialStrain[reading][0] = 0.4F * static_cast<float>(reading + 1);
      SetText(record.deviatorStress[reading][0], reading == 0 ? "10" : "15");
    }
    return record;
  }

  std::unique_ptr<Report> report() const { return layout->make(job, workspace); }
  int pageCount() const { return report()->pageCount(); }
  std::vector<RecordingDevice::Page> print() {
    RecordingDevice device;
    sent = sendReport(*report(), job, device);
    EXPECT_EQ(device.finished, 1);
    return device.pages;
  }
  Drawing firstPage() { return print().at(0).drawing; }

  int sent = 0;
};

/// A text of 10 point, as frames, heads and tables of the other tests have it.
inline DrawnText small(std::string_view text, int x, int y) { return sized(10, text, x, y); }

/// Tops of the plots of a page, told by their frames: a plot begins 500 twips below its block.
inline std::vector<int> blockTops(const Drawing& page) {
  std::vector<int> tops;
  for (const DrawnBox& box : all<DrawnBox>(page))
    if (box.corner.x == 1300 && box.opposite.x == 7300) tops.push_back(box.corner.y - 500);
  return tops;
}

inline std::vector<std::string> textsAt(const Drawing& page, int x, int y) {
  std::vector<std::string> found;
  for (const DrawnText& text : all<DrawnText>(page))
    if (text.upperLeft == TwipPoint{x, y}) found.push_back(text.text);
  return found;
}

/// The numbers of the pages, which stand at that place.
inline std::vector<std::string> pageNumbers(const std::vector<RecordingDevice::Page>& pages, int x = 9500,
                                            int y = 300) {
  std::vector<std::string> numbers;
  for (const auto& page : pages)
    for (std::string& text : textsAt(page.drawing, x, y)) numbers.push_back(std::move(text));
  return numbers;
}

/// The fonts of the texts that begin so.
inline std::vector<Font> fontsOf(const Drawing& page, std::string_view start) {
  std::vector<Font> fonts;
  for (const DrawnText& text : all<DrawnText>(page))
    if (text.text.starts_with(start)) fonts.push_back(text.font);
  return fonts;
}

/// The lines beside the blocks, from top to bottom.
inline std::vector<std::string> headLines(const Drawing& page) {
  std::vector<std::string> found;
  for (const DrawnText& text : all<DrawnText>(page))
    if (text.upperLeft.x == 7900) found.push_back(text.text);
  return found;
}

}  // namespace triaxlab::testing
