// What the demonstration databases of the Windows edition hold, as their maker wrote it down.
#include <map>

#include "common/gbk.h"
#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

class WindowsSamples : public ImportTest {
 protected:
  ImportReport importSample(const char* name, const char* source) {
    return importPath(std::filesystem::path(TRIAXLAB_SAMPLES) / name, source);
  }
  std::vector<std::string> pressures(std::size_t index) const {
    std::vector<std::string> texts;
    for (const auto& text : row(index).cellPressure)
      if (!text.isBlank()) texts.emplace_back(text.trimmed());
    return texts;
  }
};

using Texts = std::vector<std::string>;

TEST_F(WindowsSamples, TheGrids) {
  const std::filesystem::path samples = TRIAXLAB_SAMPLES;
  const auto win = openRawSource(*importerOfId("win"), samples / "SZData.dat");
  ASSERT_EQ(win->rows().size(), 3U);
  EXPECT_EQ(win->rows()[0].cells, (Texts{"2020-031", "5", "2020-05-03"}));
  EXPECT_EQ(win->rows()[1].cells, (Texts{"KC2020-07", "2", "2020-06-11"}));
  EXPECT_EQ(win->rows()[2].cells, (Texts{"XA19", "1", "2020-06-12"}));
  const auto datx = openRawSource(*importerOfId("win-datx"), samples / "SZ1.DATX");
  ASSERT_EQ(datx->rows().size(), 3U);
  EXPECT_EQ(datx->rows()[0].cells, (Texts{"2021-118", "5", "2021-12-02"}));
  EXPECT_EQ(datx->rows()[1].cells, (Texts{"LH2021-2", "2", "2021-12-10"}));
}

// Of the first project the ordinary tests of the first row's day, in stored order; the third project has none at all.
TEST_F(WindowsSamples, OrdinaryTestsOfTheDayComeIn) {
  ASSERT_EQ(importSample("SZData.dat", "win").sampleRows, 5U);
  const char* const numbers[] = {"T2-1", "T1-2", "T1-1", "SJ-5", "SJ-3"};
  const int methods[] = {kCD, kCU, kUU, kUU, kCU};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(row(i).sampleNo.trimmed(), numbers[i]);
    EXPECT_EQ(row(i).testMethod, methods[i]) << numbers[i];
  }
  EXPECT_EQ(row(0).shearRate[0], 12);
  EXPECT_EQ(row(4).shearRate[0], 80);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).importedProjectName("KC2020-07"), utf8ToGbk("东湖新城三期"));
}

TEST_F(WindowsSamples, TheDatxByProject) {
  workspace.settings.habits.winTriaxialByProject = true;
  ASSERT_EQ(importSample("SZ1.DATX", "win-datx").sampleRows, 6U);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "ZK4-2");
  EXPECT_EQ(row(0).testDate.trimmed(), "2021/12/02");
  EXPECT_EQ(row(0).shearMode, 2);
  EXPECT_EQ(row(0).uuAdjustFlag, 1);
  EXPECT_EQ(row(2).sampleNo.trimmed(), "ZK1-3");
  // 400, 500, 600, 700 set over a back pressure of 300.
  EXPECT_EQ(pressures(2), (Texts{"100", "200", "300", "400"}));
  EXPECT_EQ(row(4).sampleNo.trimmed(), utf8ToGbk("原状5"));
}

TEST_F(WindowsSamples, TestsOfEveryKindAreThereForAWorkbook) {
  const std::filesystem::path samples = TRIAXLAB_SAMPLES;
  const auto tests = openRawTests(*importerOfId("win"), samples / "SZData.dat");
  ASSERT_EQ(tests->count(), 8U);
  std::map<std::string, int> kinds, projects;
  for (std::size_t i = 0; i < tests->count(); ++i) {
    const StagedTest test = tests->test(i);
    ++kinds[test.kind];
    ++projects[test.projectNo];
    if (test.projectNo != "XA19") continue;
    EXPECT_EQ(test.testDate, "2020/06/12");
    EXPECT_EQ(test.savedOn, "2020-06-12");
  }
  EXPECT_EQ(projects, (std::map<std::string, int>{{"2020-031", 5}, {"KC2020-07", 2}, {"XA19", 1}}));
  EXPECT_GT(kinds.size(), 1U) << "the third project has no ordinary test";
}

}  // namespace
}  // namespace triaxlab::testing
