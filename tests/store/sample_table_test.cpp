#include "store/sample_table.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "store/workspace.h"

namespace triaxlab {
namespace {

using Table = SampleTable<K0SampleRecord>;

Table tableWith(std::size_t row, std::string_view sampleNo) {
  Table table;
  SetText(table[row].sampleNo, sampleNo);
  return table;
}

TEST(SampleTable, ARowThatNobodyWroteToReadsAsABlankRecord) {
  const Table table;
  EXPECT_EQ(table.size(), 1001U);
  EXPECT_EQ(table.used().size(), 0U);
  for (const std::size_t row : {std::size_t{0}, std::size_t{1000}}) {
    EXPECT_TRUE(table[row].sampleNo.isBlank());
    EXPECT_TRUE(table.at(row).samplingDepth.isBlank());
  }
  EXPECT_EQ(table.used().size(), 0U) << "a look makes no row";
}

TEST(SampleTable, WritingMakesTheRowAndThoseInFrontOfIt) {
  const Table table = tableWith(2, "S3");
  EXPECT_EQ(table.used().size(), 3U);
  EXPECT_TRUE(table[0].sampleNo.isBlank());
  EXPECT_EQ(table[2].sampleNo.trimmed(), "S3");
}

TEST(SampleTable, ARowStaysWhereItIsUntilAllOfThemExist) {
  Table table;
  const K0SampleRecord* const first = &table[0];
  table.at(1000);
  EXPECT_EQ(&table[0], first);
  Table copy;
  const K0SampleRecord* const firstOfCopy = &copy[0];
  copy = table;
  EXPECT_EQ(&copy[0], firstOfCopy);
  Table madeAsCopy(tableWith(0, "S1"));
  const K0SampleRecord* const firstMade = &madeAsCopy[0];
  madeAsCopy.at(1000);
  EXPECT_EQ(&madeAsCopy[0], firstMade);
}

TEST(SampleTable, ThereIsNoRowBehindTheLast) {
  Table table;
  EXPECT_THROW(table.at(1001), std::out_of_range);
  EXPECT_THROW(std::as_const(table).at(1001), std::out_of_range);
}

TEST(SampleTable, RowsThatExistAndRowsThatDoNotAreEqualWhenBlank) {
  Table made;
  made.at(7);
  EXPECT_TRUE(made == Table());
  EXPECT_TRUE(tableWith(2, "S") == tableWith(2, "S"));
  EXPECT_FALSE(tableWith(2, "S") == tableWith(3, "S"));
  EXPECT_FALSE(tableWith(2, "S") == Table());
}

TEST(SampleTable, ClearedItIsBlankAgain) {
  Table table = tableWith(2, "S3");
  table.clear();
  EXPECT_TRUE(table == Table());
  EXPECT_TRUE(table[2].sampleNo.isBlank());
}

TEST(SampleTable, TablesExchangeTheirRows) {
  Table one = tableWith(1, "A"), other;
  one.swap(other);
  EXPECT_TRUE(one == Table());
  EXPECT_EQ(other[1].sampleNo.trimmed(), "A");
}

TEST(SampleTable, ANewWorkspaceHoldsNoRow) {
  const Workspace workspace;
  EXPECT_EQ(workspace.TriaxialSampleTable.used().size(), 0U);
  EXPECT_EQ(workspace.UnconfinedSampleTable.used().size(), 0U);
  EXPECT_EQ(workspace.K0SampleTable.used().size(), 0U);
  EXPECT_EQ(workspace.TK0SampleTable.used().size(), 0U);
}

}  // namespace
}  // namespace triaxlab
