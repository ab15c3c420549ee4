#include "sessions/triaxial/page_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace triaxlab {
namespace {

using testing::ElementsAre;

TriaxialSampleRecord sampleOf(int method) {
  TriaxialSampleRecord record;
  record.testMethod = static_cast<std::uint8_t>(method);
  return record;
}

/// The pages of seven steps from a page.
template <class Page, class Step>
std::vector<int> walk(int from, Step step) {
  std::vector<int> pages;
  auto page = static_cast<Page>(from);
  for (int i = 0; i < 7; ++i) {
    page = step(page);
    pages.push_back(static_cast<int>(page));
  }
  return pages;
}

std::vector<int> behind(int method, FailureMode checked, int from = 1) {
  return walk<CurvePage>(from, [&](CurvePage page) { return pageBehind(page, sampleOf(method), checked); });
}
std::vector<int> before(int method, FailureMode checked, int from = 1) {
  return walk<CurvePage>(from, [&](CurvePage page) { return pageBefore(page, sampleOf(method), checked); });
}

TEST(CurvePageSteps, CuGoesRoundAllPagesButTheEnvelopeThatIsNotChecked) {
  EXPECT_THAT(behind(kCU, FailureMode::PeakStress), ElementsAre(3, 4, 5, 6, 1, 3, 4));
  EXPECT_THAT(before(kCU, FailureMode::PeakStress), ElementsAre(6, 5, 4, 3, 1, 6, 5));
  EXPECT_THAT(behind(kCU, FailureMode::PeakRatio), ElementsAre(2, 4, 5, 6, 1, 2, 4));
  EXPECT_THAT(before(kCU, FailureMode::PeakRatio), ElementsAre(6, 5, 4, 2, 1, 6, 5));
}

TEST(CurvePageSteps, OtherMethodsGoBetweenTheFirstPageAndTheEnvelope) {
  for (const int method : {0, int{kUU}, int{kCD}, 4}) {
    EXPECT_THAT(behind(method, FailureMode::PeakStress), ElementsAre(3, 1, 3, 1, 3, 1, 3)) << method;
    EXPECT_THAT(before(method, FailureMode::PeakStress), ElementsAre(3, 1, 3, 1, 3, 1, 3)) << method;
  }
}

TEST(CurvePageSteps, CdComesBackFromThePagesThatOnlyTheMenuReaches) {
  for (const int page : {4, 5, 6}) {
    EXPECT_EQ(before(kCD, FailureMode::PeakStress, page).front(), 1) << page;
    EXPECT_EQ(behind(kCD, FailureMode::PeakStress, page).front(), 3) << page;
  }
}

TEST(TablePageSteps, EachCurvePageOpensWithItsOwn) {
  constexpr std::array<int, 6> kTablePageOf{3, 1, 1, 5, 4, 4};
  for (int page = 1; page <= 6; ++page)
    EXPECT_EQ(static_cast<int>(tablePageOf(static_cast<CurvePage>(page))),
              kTablePageOf.at(static_cast<std::size_t>(page - 1)))
        << page;
}

std::vector<int> tableBehind(int method, int from) {
  return walk<TablePage>(from, [&](TablePage page) { return tablePageBehind(page, sampleOf(method)); });
}
std::vector<int> tableBefore(int method, int from) {
  return walk<TablePage>(from, [&](TablePage page) { return tablePageBefore(page, sampleOf(method)); });
}

TEST(TablePageSteps, GoRoundSixPagesForCuAndThreeForTheOthers) {
  EXPECT_THAT(tableBehind(kCU, 3), ElementsAre(4, 5, 6, 1, 2, 3, 4));
  EXPECT_THAT(tableBefore(kCU, 3), ElementsAre(2, 1, 6, 5, 4, 3, 2));
  for (const int method : {0, int{kUU}, int{kCD}}) {
    EXPECT_THAT(tableBehind(method, 3), ElementsAre(1, 2, 3, 1, 2, 3, 1)) << method;
    EXPECT_THAT(tableBefore(method, 3), ElementsAre(2, 1, 3, 2, 1, 3, 2)) << method;
  }
}

TEST(TablePageSteps, EffectiveStressesOfOtherThanCuFallBackToTheStresses) {
  for (int page = 1; page <= 6; ++page) {
    EXPECT_EQ(static_cast<int>(tablePageFor(sampleOf(kCU), static_cast<TablePage>(page))), page);
    EXPECT_EQ(static_cast<int>(tablePageFor(sampleOf(kCD), static_cast<TablePage>(page))), page > 3 ? 3 : page);
  }
}

}  // namespace
}  // namespace triaxlab
