#include "reports/document_info.h"

#include <gmock/gmock.h>

#include "common/gbk.h"
#include "reports/page_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

struct DocumentInfoTest : PageTest {
  DocumentInfo information() const { return documentInfo(*layout, *report(), job, workspace); }
  std::vector<std::vector<std::string>> bookmarks() {
    std::vector<std::vector<std::string>> ofPages;
    for (const auto& page : print()) ofPages.push_back(page.bookmarks);
    return ofPages;
  }
};

// Two blocks a page.
TEST_F(DocumentInfoTest, EachSampleHasABookmarkWhereItBegins) {
  for (std::size_t row = 0; row < 3; ++row) sample(row, kCU, "ZK-" + std::to_string(row + 1));
  EXPECT_THAT(bookmarks(), ElementsAre(ElementsAre("ZK-1", "ZK-2"), ElementsAre("ZK-3")));
  job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope, CurvePage::StressRatioEnvelope};
  EXPECT_THAT(bookmarks(),
              ElementsAre(ElementsAre("ZK-1"), ElementsAre("ZK-2"), ElementsAre(), ElementsAre("ZK-3"), ElementsAre()));
}

TEST_F(DocumentInfoTest, PagesOfARangeNameWhatStandsOnThem) {
  for (std::size_t row = 0; row < 3; ++row) sample(row, kUU, "ZK-" + std::to_string(row + 1));
  job.scope = PrintScope::Pages;
  job.printRangeFrom = job.printRangeTo = 2;
  EXPECT_THAT(bookmarks(), ElementsAre(ElementsAre("ZK-3")));
}

TEST_F(DocumentInfoTest, TwoPagesOnASheetShareItsBookmarks) {
  for (std::size_t row = 0; row < 3; ++row) sample(row, kUU, "ZK-" + std::to_string(row + 1));
  job.printToA3 = true;
  EXPECT_THAT(bookmarks(), ElementsAre(ElementsAre("ZK-1", "ZK-2", "ZK-3")));
}

TEST_F(DocumentInfoTest, AmongSeveralProjectsASampleIsNamedWithItsOwn) {
  sample(0, kUU, "A-1", "P1");
  sample(1, kUU, "A-1", "P2");
  EXPECT_THAT(bookmarks(), ElementsAre(ElementsAre("P1 A-1", "P2 A-1")));
}

TEST_F(DocumentInfoTest, NumbersAreToldInTheirSigns) {
  sample(0, kUU, utf8ToGbk("土1"));
  EXPECT_THAT(bookmarks(), ElementsAre(ElementsAre("土1")));
}

TEST_F(DocumentInfoTest, TellsWhatIsPrintedOfWhichProjectsAndWhen) {
  workspace.fixedToday = Date{2024, 5, 6};
  sample(0, kUU, "A-1", "P1");
  sample(1, kUU, "A-2", "P1");
  sample(2, kUU, "A-3", "P2");
  EXPECT_EQ(information().title, "三轴试验成果曲线");
  EXPECT_EQ(information().subject, "P1；P2");
  EXPECT_EQ(information().created, (Date{2024, 5, 6}));
  auto& name = workspace.dataOf(ProjectKind::Triaxial).projectName;
  name.text = utf8ToGbk("一号坝");
  name.projectNo = "P1";
  EXPECT_EQ(information().subject, "P1 一号坝；P2");
}

}  // namespace
}  // namespace triaxlab::testing
