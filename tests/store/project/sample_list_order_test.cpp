// Sorting, moving and deleting in a sample list.

#include "store/project/sample_list_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

SampleListTable listOf(const std::vector<std::string>& sampleNumbers) {
  SampleListTable rows;
  for (const std::string& number : sampleNumbers) {
    SampleListRow& row = rows.emplace_back();
    row.recordIndex = rows.size() - 1;
    row.sampleNo = number;
  }
  return rows;
}

std::vector<std::string> numbersOf(const SampleListTable& rows) {
  std::vector<std::string> numbers;
  for (const SampleListRow& row : rows) numbers.push_back(row.sampleNo);
  return numbers;
}

std::vector<std::string> sorted(const std::vector<std::string>& sampleNumbers, SortMethod method,
                                SortDirection direction = SortDirection::Ascending) {
  SampleListTable rows = listOf(sampleNumbers);
  sortSampleList(rows, {1, static_cast<int>(rows.size())}, &SampleListRow::sampleNo, method, direction);
  return numbersOf(rows);
}

// ---- Ranges

TEST(ListRange, IsCutToTheList) {
  EXPECT_EQ(limitedListRange(1, 9999, 20), (ListRange{1, 20}));
  EXPECT_EQ(limitedListRange(30, 40, 20), (ListRange{20, 20}));
}

TEST(ListRange, IsExchangedWhenReversed) {
  EXPECT_EQ(limitedListRange(7, 3, 20), (ListRange{3, 7}));
  EXPECT_EQ(limitedListRange(9999, 5, 20), (ListRange{5, 20}));
}

TEST(ListRange, BeginsAtOneWhenTheFirstIsBelow) {
  EXPECT_EQ(limitedListRange(0, 5, 20), (ListRange{1, 5}));
  EXPECT_EQ(limitedListRange(5, -2, 20), (ListRange{1, 5}));
}

TEST(ListRange, IsEmptyWithoutNumbers) {
  for (const auto& [first, last] : {std::pair{0, 0}, {-3, 0}, {-3, -1}}) {
    const ListRange range = limitedListRange(first, last, 20);
    EXPECT_GT(range.first, range.last);
  }
  const ListRange ofNothing = limitedListRange(1, 5, 0);
  EXPECT_GT(ofNothing.first, ofNothing.last);
}

// ---- Method one

TEST(SortByText, ComparesTheTextsAsTheyAre) {
  EXPECT_THAT(sorted({"B-1", "A-9", "A-10", "", "a-1", "A"}, SortMethod::ByText),
              ElementsAre("", "A", "A-10", "A-9", "B-1", "a-1"));
  EXPECT_THAT(sorted({"A-9", "A-10", "B-1"}, SortMethod::ByText, SortDirection::Descending),
              ElementsAre("B-1", "A-9", "A-10"));
}

TEST(SortByText, PassesOverBlanksAtBothEnds) {
  EXPECT_THAT(sorted({" B", "A ", "  C"}, SortMethod::ByText), ElementsAre("A ", " B", "  C"));
}

TEST(SortByText, GoesByTheBytesOfTheFile) {
  // 阿 is B0 A2, 岩 D1 D2, 一 D2 BB in a record; in another order in Unicode: 一 4E00, 岩 5CA9, 阿 963F.
  EXPECT_THAT(sorted({"一1", "岩1", "阿1", "Z"}, SortMethod::ByText), ElementsAre("Z", "阿1", "岩1", "一1"));
  EXPECT_THAT(sorted({"一1", "岩1", "阿1"}, SortMethod::ByText, SortDirection::Descending),
              ElementsAre("一1", "岩1", "阿1"));
}

TEST(SortByText, EqualKeysKeepTheirOrderInBothDirections) {
  for (const SortDirection direction : {SortDirection::Ascending, SortDirection::Descending}) {
    SampleListTable rows = listOf({"S1", "S2", "S3", "S4"});
    for (SampleListRow& row : rows) row.boreholeNo = "ZK1";
    rows[3].boreholeNo = direction == SortDirection::Ascending ? "ZK0" : "ZK2";
    sortSampleList(rows, {1, 4}, &SampleListRow::boreholeNo, SortMethod::ByText, direction);
    EXPECT_THAT(numbersOf(rows), ElementsAre("S4", "S1", "S2", "S3"));
  }
}

TEST(SortByText, TakesOnlyTheRowsOfTheRange) {
  SampleListTable rows = listOf({"5", "4", "3", "2", "1"});
  sortSampleList(rows, {2, 4}, &SampleListRow::sampleNo, SortMethod::ByText, SortDirection::Ascending);
  EXPECT_THAT(numbersOf(rows), ElementsAre("5", "2", "3", "4", "1"));
  sortSampleList(rows, {}, &SampleListRow::sampleNo, SortMethod::ByText, SortDirection::Ascending);
  EXPECT_THAT(numbersOf(rows), ElementsAre("5", "2", "3", "4", "1"));
  SampleListTable none;
  sortSampleList(none, limitedListRange(1, 1, 0), &SampleListRow::sampleNo, SortMethod::ByText,
                 SortDirection::Ascending);
  EXPECT_THAT(none, IsEmpty());
}

TEST(SortByText, RowsTakeTheirPlaceAndTheirMarkAlong) {
  SampleListTable rows = listOf({"B", "A"});
  rows[0].deleteMark = true;
  rows[0].samplingDepth = "1.5";
  sortSampleList(rows, {1, 2}, &SampleListRow::sampleNo, SortMethod::ByText, SortDirection::Ascending);
  EXPECT_EQ(rows[1].recordIndex, 0U);
  EXPECT_TRUE(rows[1].deleteMark);
  EXPECT_EQ(rows[1].samplingDepth, "1.5");
  EXPECT_FALSE(rows[0].deleteMark);
}

// ---- Method two

TEST(SortByTextAndNumber, PutsNineBeforeTen) {
  EXPECT_THAT(sorted({"A-10", "A-9", "A-100", "B-1", "A-1"}, SortMethod::ByTextAndNumber),
              ElementsAre("A-1", "A-9", "A-10", "A-100", "B-1"));
  EXPECT_THAT(sorted({"A-10", "A-9", "B-1"}, SortMethod::ByTextAndNumber, SortDirection::Descending),
              ElementsAre("B-1", "A-10", "A-9"));
}

TEST(SortByTextAndNumber, ComparesTheTextFirst) {
  EXPECT_THAT(sorted({"B1", "A99", "AB1", "100", "20"}, SortMethod::ByTextAndNumber),
              ElementsAre("20", "100", "A99", "AB1", "B1"));
}

TEST(SortByTextAndNumber, AKeyWithoutANumberGoesFirst) {
  EXPECT_THAT(sorted({"A0", "A", "", "0"}, SortMethod::ByTextAndNumber), ElementsAre("", "0", "A", "A0"));
}

TEST(SortByTextAndNumber, GoesOnBehindEqualNumbers) {
  EXPECT_THAT(sorted({"ZK1-10", "ZK1-9", "ZK1", "ZK10-1", "ZK2-1", "ZK1-9b"}, SortMethod::ByTextAndNumber),
              ElementsAre("ZK1", "ZK1-9", "ZK1-9b", "ZK1-10", "ZK2-1", "ZK10-1"));
}

TEST(SortByTextAndNumber, ReadsDecimals) {
  EXPECT_THAT(sorted({"10.25", "2.5", "2.25", "10"}, SortMethod::ByTextAndNumber),
              ElementsAre("2.25", "2.5", "10", "10.25"));
  EXPECT_THAT(sorted({"1E5", "2"}, SortMethod::ByTextAndNumber), ElementsAre("1E5", "2")) << "E is a letter here";
}

TEST(SortByTextAndNumber, EqualKeysKeepTheirOrder) {
  EXPECT_THAT(sorted({"A-09", "A-9", "A-009"}, SortMethod::ByTextAndNumber), ElementsAre("A-09", "A-9", "A-009"));
  EXPECT_THAT(sorted({"A-09", "A-9", "A-009"}, SortMethod::ByTextAndNumber, SortDirection::Descending),
              ElementsAre("A-09", "A-9", "A-009"));
}

TEST(SortByTextAndNumber, TextGoesByTheBytesOfTheFile) {
  EXPECT_THAT(sorted({"一9", "岩10", "岩9"}, SortMethod::ByTextAndNumber), ElementsAre("岩9", "岩10", "一9"));
}

/// The sort as the laboratory knows it: each row is compared with every row behind it and exchanged.
void exchangeSort(std::vector<int>& numbers) {
  for (std::size_t s = 0; s + 1 < numbers.size(); ++s)
    for (std::size_t t = s + 1; t < numbers.size(); ++t)
      if (numbers[s] > numbers[t]) std::swap(numbers[s], numbers[t]);
}

TEST(SortByTextAndNumber, GivesTheOrderOfAnExchangeSort) {
  std::mt19937 random(7);
  std::vector<int> numbers;
  std::vector<std::string> texts;
  for (int i = 0; i < 2000; ++i) texts.push_back("ZK" + std::to_string(numbers.emplace_back(random() % 100'000)));
  exchangeSort(numbers);
  std::vector<std::string> wanted;
  for (const int number : numbers) wanted.push_back("ZK" + std::to_string(number));
  EXPECT_EQ(sorted(texts, SortMethod::ByTextAndNumber), wanted);
}

// ---- Deleting

TEST(MarkedSamples, AreRemovedAndTheOthersCloseUp) {
  SampleListTable rows = listOf({"a", "b", "c", "d", "e"});
  rows[0].deleteMark = true;
  markSamples(rows, {3, 4});
  EXPECT_EQ(rows.size(), 5U);
  removeMarkedSamples(rows);
  EXPECT_THAT(numbersOf(rows), ElementsAre("b", "e"));
  EXPECT_EQ(rows[1].recordIndex, 4U);
  removeMarkedSamples(rows);
  EXPECT_EQ(rows.size(), 2U);
}

TEST(MarkedSamples, AnEmptyRangeMarksNothing) {
  SampleListTable rows = listOf({"a"});
  markSamples(rows, limitedListRange(0, 0, 1));
  EXPECT_FALSE(rows[0].deleteMark);
}

// ---- Moving

std::vector<std::string> moved(int from, int to) {
  SampleListTable rows = listOf({"1", "2", "3", "4", "5", "6"});
  moveSample(rows, from, to);
  return numbersOf(rows);
}

std::vector<std::string> movedBlock(int first, int last, int to) {
  SampleListTable rows = listOf({"1", "2", "3", "4", "5", "6"});
  moveSampleBlock(rows, first, last, to);
  return numbersOf(rows);
}

TEST(MovedSample, StandsAtItsTarget) {
  EXPECT_THAT(moved(2, 5), ElementsAre("1", "3", "4", "5", "2", "6"));
  EXPECT_THAT(moved(5, 2), ElementsAre("1", "5", "2", "3", "4", "6"));
  EXPECT_THAT(moved(1, 6), ElementsAre("2", "3", "4", "5", "6", "1"));
  EXPECT_THAT(moved(3, 3), ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST(MovedSample, NumbersAreCutToTheList) {
  EXPECT_THAT(moved(2, 99), ElementsAre("1", "3", "4", "5", "6", "2"));
  EXPECT_THAT(moved(99, 1), ElementsAre("6", "1", "2", "3", "4", "5"));
}

TEST(MovedSample, ANumberBelowOneDoesNothing) {
  for (const auto& [from, to] : {std::pair{0, 3}, {3, 0}, {-1, -1}})
    EXPECT_THAT(moved(from, to), ElementsAre("1", "2", "3", "4", "5", "6"));
  SampleListTable none;
  moveSample(none, 1, 2);
  EXPECT_THAT(none, IsEmpty());
}

TEST(MovedBlock, GoesUpWithItsFirstRowAndDownWithItsLastAtTheTarget) {
  EXPECT_THAT(movedBlock(4, 5, 2), ElementsAre("1", "4", "5", "2", "3", "6"));
  EXPECT_THAT(movedBlock(2, 3, 5), ElementsAre("1", "4", "5", "2", "3", "6"));
  EXPECT_THAT(movedBlock(1, 2, 99), ElementsAre("3", "4", "5", "6", "1", "2"));
  EXPECT_THAT(movedBlock(3, 99, 1), ElementsAre("3", "4", "5", "6", "1", "2"));
}

TEST(MovedBlock, ATargetInsideDoesNothing) {
  for (const int to : {2, 3, 4}) EXPECT_THAT(movedBlock(2, 4, to), ElementsAre("1", "2", "3", "4", "5", "6"));
  EXPECT_THAT(movedBlock(5, 99, 99), ElementsAre("1", "2", "3", "4", "5", "6")) << "cut to the last row of the block";
}

TEST(MovedBlock, MayBeToldInEitherOrder) {
  EXPECT_THAT(movedBlock(5, 4, 2), ElementsAre("1", "4", "5", "2", "3", "6"));
}

TEST(MovedBlock, ANumberBelowOneDoesNothing) {
  EXPECT_THAT(movedBlock(0, 2, 5), ElementsAre("1", "2", "3", "4", "5", "6"));
  EXPECT_THAT(movedBlock(1, 2, 0), ElementsAre("1", "2", "3", "4", "5", "6"));
}

}  // namespace
}  // namespace triaxlab::testing
