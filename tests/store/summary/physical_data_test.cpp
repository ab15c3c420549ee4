#include "store/summary/physical_data.h"

#include "common/gbk.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kHeadSize = 22699, kRecordSize = 2004;

std::string headBytes(int count) {
  std::string head(kHeadSize, '\x07');  // bytes that nobody reads
  put(head, 49, int16Bytes(count));
  return head;
}

/// A record whose values tell what they are; every byte between them is a letter.
std::string recordBytes(std::string_view sampleNo) {
  std::string record(kRecordSize, 'x');
  put(record, 4, field(sampleNo, 15));
  put(record, 34, field("2.50-2.80", 15));
  put(record, 189, field("23.4", 5));
  put(record, 194, field("1.98", 7));
  put(record, 229, field("2.72", 7));
  put(record, 243, field("0.695", 7));
  put(record, 250, field("34.6", 7));
  put(record, 257, field("19.2", 7));
  put(record, 264, field("15.4", 7));
  put(record, 271, field("0.27", 7));
  put(record, 1870, field(utf8ToGbk("含少量砂"), 16));
  return record;
}

std::vector<std::string> textsOf(const PhysicalValues& values) {
  std::vector<std::string> texts;
  for (const PhysicalValue& value : values) texts.push_back(value.text);
  return texts;
}

class PhysicalDataTest : public StoreTest {
 protected:
  std::vector<std::string> texts(std::string_view sampleNo, std::string_view projectNo = "P1") const {
    return textsOf(physicalValues(workspace, projectNo, sampleNo));
  }
  std::string depth(std::string_view sampleNo) const { return texts(sampleNo).front(); }
};

TEST_F(PhysicalDataTest, EveryValueHasItsPlaceAndItsLabel) {
  write("ZMSJ/P1.dat", headBytes(1) + recordBytes("S1"));
  EXPECT_THAT(texts("S1"), ElementsAre("2.50-2.80", "23.4", "1.98", "2.72", "0.695", "34.6", "19.2", "15.4", "0.27",
                                       utf8ToGbk("含少量砂")));
  std::vector<std::string_view> labels;
  for (const PhysicalValue& value : physicalValues(workspace, "P1", "S1")) labels.push_back(value.label);
  EXPECT_THAT(labels, ElementsAre("  取土深度：", "天然含水率：", "  天然密度：", "      比重：", "天然孔隙比：",
                                  "      流限：", "      塑限：", "  塑性指数：", "  液性指数：", "备注："));
}

TEST_F(PhysicalDataTest, ValuesFillTheirFieldsToTheLastPlace) {
  std::string record = recordBytes("123456789012345");
  put(record, 34, "ABCDEFGHIJKLMNO");
  put(record, 189, "12.34");
  put(record, 194, "1.98765");
  put(record, 271, "-0.2765");
  put(record, 1870, "ABCDEFGHIJKLMNOP");
  write("ZMSJ/P1.dat", headBytes(1) + record);
  EXPECT_THAT(texts("123456789012345"), ElementsAre("ABCDEFGHIJKLMNO", "12.34", "1.98765", "2.72", "0.695", "34.6",
                                                    "19.2", "15.4", "-0.2765", "ABCDEFGHIJKLMNOP"));
}

TEST_F(PhysicalDataTest, WithoutAFileTheLabelsStandAlone) {
  const PhysicalValues values = physicalValues(workspace, "P1", "S1");
  EXPECT_THAT(textsOf(values), Each(IsEmpty()));
  EXPECT_EQ(values.front().label, "  取土深度：");
}

TEST_F(PhysicalDataTest, SampleNumbersCompareWithoutTheBlanksAroundThem) {
  write("ZMSJ/P1.dat", headBytes(1) + recordBytes("  S 1"));
  EXPECT_EQ(depth(" S 1   "), "2.50-2.80");
  EXPECT_EQ(depth("S1"), "");
  EXPECT_EQ(texts("S 1", "  P1   ").front(), "2.50-2.80");
}

TEST_F(PhysicalDataTest, ABlankSampleNumberFindsNothing) {
  write("ZMSJ/P1.dat", headBytes(1) + recordBytes(""));
  EXPECT_EQ(depth("   "), "");
}

TEST_F(PhysicalDataTest, TheFirstOfSeveralRecordsCounts) {
  std::string second = recordBytes("S1");
  put(second, 34, field("9.9", 15));
  write("ZMSJ/P1.dat", headBytes(3) + recordBytes("S0") + recordBytes("S1") + second);
  EXPECT_EQ(depth("S1"), "2.50-2.80");
}

TEST_F(PhysicalDataTest, TheNameIsFoundInAnySpelling) {
  write("ZMSJ/p1.DAT", headBytes(1) + recordBytes("S1"));
  EXPECT_EQ(depth("S1"), "2.50-2.80");
}

TEST_F(PhysicalDataTest, AChineseProjectNumberNamesItsFile) {
  write("ZMSJ/勘2024.dat", headBytes(1) + recordBytes("S1"));
  EXPECT_EQ(texts("S1", utf8ToGbk("勘2024")).front(), "2.50-2.80");
}

TEST_F(PhysicalDataTest, RecordsBehindTheCountAreNotLookedAt) {
  write("ZMSJ/P1.dat", headBytes(1) + recordBytes("S1") + recordBytes("S2"));
  EXPECT_EQ(depth("S2"), "");
  write("ZMSJ/P1.dat", headBytes(0) + recordBytes("S1"));
  EXPECT_EQ(depth("S1"), "");
}

TEST_F(PhysicalDataTest, ANegativeCountIsNone) {
  for (const int count : {-1, -32768}) {
    write("ZMSJ/P1.dat", headBytes(count) + recordBytes("S1"));
    EXPECT_EQ(depth("S1"), "") << count;
  }
}

TEST_F(PhysicalDataTest, ManyRecordsAreReadInBlocks) {
  std::string file = headBytes(600);
  for (int i = 1; i <= 600; ++i) file += recordBytes("S" + std::to_string(i));
  write("ZMSJ/P1.dat", file);
  for (const char* sampleNo : {"S1", "S256", "S257", "S512", "S513", "S600"})
    EXPECT_EQ(depth(sampleNo), "2.50-2.80") << sampleNo;
  EXPECT_EQ(depth("S601"), "");
}

TEST_F(PhysicalDataTest, AFileThatEndsEarlyGivesTheRecordsThatItHoldsWhole) {
  const std::string whole = headBytes(32767) + recordBytes("S1") + recordBytes("S2");
  for (std::size_t size = 0; size <= whole.size(); size += 97) {
    write("ZMSJ/P1.dat", std::string_view(whole).substr(0, size));
    EXPECT_EQ(depth("S1"), size >= kHeadSize + kRecordSize ? "2.50-2.80" : "") << size;
    EXPECT_EQ(depth("S2"), "") << size;
  }
  write("ZMSJ/P1.dat", whole);
  EXPECT_EQ(depth("S2"), "2.50-2.80");
}

TEST_F(PhysicalDataTest, WhatStandsBehindAZeroByteIsNotShown) {
  std::string record = recordBytes(std::string_view("S1\0S9", 5));
  put(record, 194, std::string_view("1.9\0abc", 7));
  put(record, 229, std::string(7, '\0'));
  write("ZMSJ/P1.dat", headBytes(1) + record);
  EXPECT_EQ(texts("S1")[2], "1.9");
  EXPECT_EQ(texts("S1")[3], "");
}

TEST_F(PhysicalDataTest, WhateverKeepsTheFileAwayIsNoError) {
  std::filesystem::create_directories(data("ZMSJ/P1.dat"));
  EXPECT_EQ(depth("S1"), "") << "a folder";
  write("precious.dat", headBytes(1) + recordBytes("S1"));
  EXPECT_EQ(texts("S1", "../precious").front(), "") << "no project number";
  workspace.dataFolder = folder() / "gone";
  EXPECT_EQ(depth("S1"), "") << "no data folder";
}

}  // namespace
}  // namespace triaxlab::testing
