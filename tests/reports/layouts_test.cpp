#include "reports/layouts.h"

#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

TEST(Layouts, AreFoundByTheirNames) {
  for (const Layout* layout : layouts()) EXPECT_EQ(layoutOfId(layout->id), layout) << layout->id;
  EXPECT_EQ(layoutOfId("three-in-one"), &kThreeInOne);
  EXPECT_EQ(layoutOfId("four-in-one"), nullptr);
}

using Reports = PageTest;

TEST_F(Reports, AreMadeOnceAndDrawnAsOftenAsWanted) {
  sample(0, kUU, "A-1");
  const auto made = report();
  RecordingDevice preview, paper;
  EXPECT_EQ(sendReport(*made, job, preview), 1);
  EXPECT_EQ(sendReport(*made, job, paper), 1);
  EXPECT_EQ(preview.pages.at(0).drawing, paper.pages.at(0).drawing);
}

TEST_F(Reports, TellWhoseSampleAPageBeginsWith) {
  sample(0, kUU, "A-1", "P1");
  sample(1, kUU, "A-2", "P1");
  sample(2, kUU, "A-3", "P2");
  EXPECT_EQ(report()->samplesOf(1).front().projectNo, "P1");
  EXPECT_EQ(report()->samplesOf(2).front().projectNo, "P2");
}

TEST_F(Reports, WithoutAPageSendNothing) {
  const auto none = report();
  EXPECT_EQ(none->pageCount(), 0);
  RecordingDevice device;
  EXPECT_EQ(sendReport(*none, job, device), 0);
  EXPECT_TRUE(device.pages.empty());
}

}  // namespace
}  // namespace triaxlab::testing
