#include "store/project/project_file.h"

#include <optional>

#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

class OpenProject : public StoreTest {
 protected:
  Remarks open(ProjectKind kind, std::string_view name) {
    return openProject(workspace, kind, name, [this](int count) {
      askedWith = count;
      return answer.value_or(SampleRange{1, count});
    });
  }
  Remarks openTriaxial(const std::string& bytes) {
    write("HSZS/WKSZP1.txt", bytes);
    return open(ProjectKind::Triaxial, "WKSZP1.txt");
  }
  /// A K0 file whose records hold their own number, from 1, as sample number.
  void writeK0(int claimed, int records) {
    std::string bytes = headerBytes({std::to_string(claimed), "R1"});
    for (int number = 1; number <= records; ++number)
      bytes += field("R1", 15) + field(std::to_string(number), 15) + std::string(213, ' ');
    write("HSZS/KOR1.txt", bytes);
  }
  std::string k0SampleNo(std::size_t index) const {
    return std::string(workspace.K0SampleTable[index].sampleNo.trimmed());
  }

  std::optional<int> askedWith;
  std::optional<SampleRange> answer;
};

TEST_F(OpenProject, TheRecordsAreTheBytesOfTheFile) {
  const std::string first = triaxialBytes("P1", "A-1"), second = triaxialBytes("P1", "A-2", 3, "200");
  EXPECT_TRUE(openTriaxial(headerBytes({"0002", "P1"}) + first + second + field("QC-07", 100)).empty());
  // A blank test date takes the header's, whose year is above 100.
  std::string wanted = first;
  put(wanted, 38366, "2024/02/28");
  EXPECT_SAME_BYTES(bytesOfRecord(row(0)), wanted);
  wanted = second;
  put(wanted, 38366, "2024/02/28");
  EXPECT_SAME_BYTES(bytesOfRecord(row(1)), wanted);
  for (std::size_t i = 2; i < kTableRows; ++i) ASSERT_SAME_BYTES(bytesOfRecord(row(i)), emptyTriaxial());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.trimmed(), "QC-07");
  EXPECT_EQ(askedWith, std::nullopt) << "nobody is asked for a range up to 100 samples";
}

TEST_F(OpenProject, TheHeaderGivesTheDates) {
  openTriaxial(headerBytes({"0", "P1", "2024/01/02", "2023-11-07", "2024/2/8 1"}) + field("", 100));
  EXPECT_EQ(workspace.projectHeader.operatorName.trimmed(), "Zhao");
  EXPECT_EQ(workspace.processingDate.year.view(), "2023");
  EXPECT_EQ(workspace.processingDate.month.view(), "11");
  EXPECT_EQ(workspace.processingDate.day.view(), "07");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo.trimmed(), "P1");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate.trimmed(), "2024/2/8")
      << "cut before the blank";
}

TEST_F(OpenProject, WhatTheWorkspaceHeldBeforeIsGone) {
  setRow(5, triaxialBytes("OLD", "X"));
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[7].projectNo, "OLD");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[5].boreholeNo, "ZK5");
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "OLD");
  workspace.dataOf(ProjectKind::Triaxial).projectName = {"old name", true, "OLD"};
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  openTriaxial(headerBytes({"0000", "P1"}));
  EXPECT_SAME_BYTES(bytesOfRecord(row(5)), emptyTriaxial());
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[7].projectNo.isBlank());
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[5].boreholeNo.isBlank());
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text, "");
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).projectName.typed);
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST_F(OpenProject, ABlankCohesionTextIsMadeFromTheTenths) {
  workspace.settings.habits.cohesionDecimals = 2;
  std::string record = triaxialBytes("P1", "A-1");
  put(record, 44, int16Bytes(-125));  // c  = -12.5 kPa
  put(record, 50, int16Bytes(305));   // c' =  30.5 kPa
  openTriaxial(headerBytes({"0001", "P1"}) + record);
  EXPECT_EQ(row(0).cohesionText.view(), "-12.50   ");
  EXPECT_EQ(row(0).cohesionEffText.view(), "30.50    ");
}

TEST_F(OpenProject, AFilledCohesionTextStands) {
  std::string record = triaxialBytes("P1", "A-1");
  put(record, 44, int16Bytes(125));
  put(record, 38376, "13       ");
  openTriaxial(headerBytes({"0001", "P1"}) + record);
  EXPECT_EQ(row(0).cohesionText.trimmed(), "13");
  EXPECT_TRUE(row(0).cohesionEffText.isBlank()) << "0 tenths make no text";
}

TEST_F(OpenProject, ATestDateOfShortNumbersCountsAsNone) {
  const auto testDateOf = [this](std::string_view recordDate, const std::string& headerDate) {
    std::string record = triaxialBytes("P1", "A-1");
    put(record, 38366, field(recordDate, 10));
    openTriaxial(headerBytes({"0001", "P1", "2024/01/02", "2024/03/04", headerDate}) + record);
    return std::string(row(0).testDate.trimmed());
  };
  EXPECT_EQ(testDateOf("", "2024/02/28"), "2024/02/28");
  EXPECT_EQ(testDateOf("99", "2024/02/28"), "2024/02/28");
  EXPECT_EQ(testDateOf("100", "2024/02/28"), "100");
  EXPECT_EQ(testDateOf("2023-01-05", "2024/02/28"), "2023-01-05");
  EXPECT_EQ(testDateOf("5/6", "100"), "5/6") << "the header's value must be above 100";
  EXPECT_EQ(testDateOf("5/6", "101"), "101");
}

TEST_F(OpenProject, TheNameIsFoundWithoutRegardToCase) {
  write("HSZS/WkSzP1.TxT", headerBytes({"0001", "P1"}) + triaxialBytes("P1", "A-1"));
  open(ProjectKind::Triaxial, "WKSZP1.txt");
  EXPECT_EQ(row(0).sampleNo.trimmed(), "A-1");
}

TEST_F(OpenProject, EveryKindFillsItsOwnTable) {
  write("HSZS/KWCX1.txt", headerBytes({"0001", "1"}) + field("1", 15) + field("U-1", 15) + std::string(1894, ' '));
  write("HSZS/KO1.txt",
        headerBytes({"0001", "1", "", "", "", "", ""}) + field("1", 15) + field("K-1", 15) + std::string(213, ' '));
  write("HSZS/TKO1.txt",
        headerBytes({"0001", "1", "", "", "", "", ""}) + field("1", 15) + field("T-1", 15) + std::string(4851, ' '));
  open(ProjectKind::Unconfined, "KWCX1.txt");
  open(ProjectKind::K0, "KO1.txt");
  open(ProjectKind::TK0, "TKO1.txt");
  EXPECT_EQ(workspace.UnconfinedSampleTable[0].sampleNo.trimmed(), "U-1");
  EXPECT_EQ(workspace.K0SampleTable[0].sampleNo.trimmed(), "K-1");
  EXPECT_EQ(workspace.TK0SampleTable[0].k0.sampleNo.trimmed(), "T-1");
}

TEST_F(OpenProject, AHundredSamplesAreNotAskedFor) {
  writeK0(100, 100);
  open(ProjectKind::K0, "KOR1.txt");
  EXPECT_EQ(askedWith, std::nullopt);
  EXPECT_EQ(k0SampleNo(99), "100");
}

TEST_F(OpenProject, MoreAreAskedForAndTheRangeBeginsInRowZero) {
  writeK0(105, 105);
  answer = SampleRange{9, 4};
  open(ProjectKind::K0, "KOR1.txt");
  EXPECT_EQ(askedWith, 105);
  EXPECT_EQ(k0SampleNo(0), "4");
  EXPECT_EQ(k0SampleNo(5), "9");
  EXPECT_EQ(k0SampleNo(6), "");
}

TEST_F(OpenProject, WithoutAnyoneToAskAllAreRead) {
  writeK0(105, 105);
  openProject(workspace, ProjectKind::K0, "KOR1.txt", nullptr);
  EXPECT_EQ(k0SampleNo(104), "105");
}

TEST_F(OpenProject, TheSpanEndsAtTheFilesCount) {
  writeK0(105, 110);
  answer = SampleRange{104, 300};
  EXPECT_TRUE(open(ProjectKind::K0, "KOR1.txt").empty());
  EXPECT_EQ(k0SampleNo(1), "105");
  EXPECT_EQ(k0SampleNo(2), "");
}

TEST_F(OpenProject, ARangeBehindTheCountIsEmpty) {
  writeK0(105, 105);
  answer = SampleRange{106, 300};
  EXPECT_TRUE(open(ProjectKind::K0, "KOR1.txt").empty());
  EXPECT_EQ(k0SampleNo(0), "");
}

TEST_F(OpenProject, AThousandAndOneIsTheMost) {
  writeK0(1500, 1500);
  answer = SampleRange{2, 1002};
  open(ProjectKind::K0, "KOR1.txt");
  EXPECT_EQ(k0SampleNo(1000), "1002");
  answer = SampleRange{1, 1002};
  EXPECT_EQ(sentenceOf([&] { open(ProjectKind::K0, "KOR1.txt"); }), "一次最多只能打开1001个试样");
  answer = SampleRange{2, 5000};
  EXPECT_EQ(sentenceOf([&] { open(ProjectKind::K0, "KOR1.txt"); }), "一次最多只能打开1001个试样");
  EXPECT_EQ(k0SampleNo(0), "2") << "the table is as it was";
}

TEST(LimitedRange, ExchangesReversedNumbers) {
  EXPECT_EQ(limitedRange({5, 3}).first, 3);
  EXPECT_EQ(limitedRange({5, 3}).last, 5);
}

TEST(LimitedRange, IsAtMostTwoThousandLong) {
  EXPECT_EQ(limitedRange({1, 5000}).last, 2000);
  EXPECT_EQ(limitedRange({1, 2000}).last, 2000);
}

TEST(LimitedRange, StaysBetweenOneAndTenThousand) {
  EXPECT_EQ(limitedRange({0, 10}).first, 1);
  EXPECT_EQ(limitedRange({9000, 20000}).last, 10000);
  EXPECT_EQ(limitedRange({-7, -9}).last, 1);
}

TEST_F(OpenProject, ATagThatBeginsWithV20IsTheCurrentFormat) {
  write("HSZS/WKSZP1.txt", headerBytes({"0000", "P1", "", "", "", "", "V2.0b"}));
  EXPECT_TRUE(open(ProjectKind::Triaxial, "WKSZP1.txt").empty());
}

TEST_F(OpenProject, ANameThatTheBrowserWouldNotListIsRefused) {
  write("HSZS/KOR1.txt", headerBytes({"0000", "R1"}));
  write("secret.txt", "x");
  for (const char* name : {"KOR1.txt", "WKSZ1.bak", "", "..", "../secret.txt", "WKSZ/../../secret.txt"})
    EXPECT_THROW(open(ProjectKind::Triaxial, name), UserError) << name;
}

TEST_F(OpenProject, AMissingFileIsNamed) {
  EXPECT_THAT(sentenceOf([&] { open(ProjectKind::K0, "KOGONE.txt"); }), HasSubstr("KOGONE.txt"));
}

}  // namespace
}  // namespace triaxlab::testing
