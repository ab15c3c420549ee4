#include "reports/single_page.h"

#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

struct SinglePageTest : PageTest {
  SinglePageTest() {
    layout = &kSinglePage;
    sample(0, kCU, "A-1");
  }
  SampleLocation& location() { return workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0]; }
};

TEST_F(SinglePageTest, TheTextsOfThePage) {
  SetText(location().boreholeNo, "ZK3");
  SetText(location().samplingDepth, "2.50");
  SetText(workspace.processingDate.year, "2024");
  SetText(workspace.processingDate.month, "05");
  SetText(workspace.processingDate.day, "09");
  const Font large{.size = 19, .bold = true};
  // 30 bytes of 190, centred on 11906 / 2.
  EXPECT_THAT(all<DrawnText>(firstPage()),
              IsSupersetOf({DrawnText{{3103, 500}, "三  轴  试  验  成  果  图  表", large, Colour::Black, false},
                            words("土样号:A-1", 600, 1500), words("孔号:ZK3", 4000, 1500),
                            words("深度:2.50", 7400, 1500), words("试验审核人：", 600, 15350),
                            words("试验负责人：", 4700, 15350), words("日期:2024年05月09日", 8800, 15350)}));
}

TEST_F(SinglePageTest, TheChartIsMagnifiedAndItsTextIsNot) {
  const Drawing page = firstPage();
  // The canvas begins at 600, 1850 and is half as large again.
  EXPECT_THAT(all<DrawnBox>(page), ElementsAre(DrawnBox{{1650, 2600}, {10650, 8300}, {Colour::Grey, 4}, std::nullopt}));
  // 22 bytes of 105 centred on 600 + 1.5 x 3700, 1.5 x 150 below 1850.
  EXPECT_THAT(all<DrawnText>(page), Contains(words("主应力差与轴向应变曲线", 4995, 2075)));
}

TEST_F(SinglePageTest, ADepthThatIsNotKnownHasRoomForAHand) {
  EXPECT_THAT(textsAt(firstPage(), 7400, 1500), ElementsAre("深度:         m"));
}

TEST_F(SinglePageTest, TheLaboratorysOwnTitle) {
  workspace.settings.chart.slot[1] = "某某试验中心";
  EXPECT_THAT(textsAt(firstPage(), 4813, 500), ElementsAre("某某试验中心"));
}

TEST_F(SinglePageTest, EveryCurveHasAPage) {
  sample(1, kUU, "A-2");
  job.curves.pages = {CurvePage::StressStrain, CurvePage::StressPath};
  const auto pages = print();
  ASSERT_THAT(pages, SizeIs(3)) << "UU has no stress path";
  EXPECT_THAT(textsAt(pages[2].drawing, 600, 1500), ElementsAre("土样号:A-2"));
}

TEST_F(SinglePageTest, TheDateIsLeftOut) {
  workspace.settings.habits.omitPageDateTable = true;
  EXPECT_THAT(textsWith(firstPage(), "日期"), IsEmpty());
}

}  // namespace
}  // namespace triaxlab::testing
