// What a triaxial save leaves in the summary file that all tools of the laboratory share.

#include "store/project/save_project.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A CU sample of project P1 with c = 20.5 kPa, phi = 18.3 degrees, c' = 12 kPa, phi' = 24.06 degrees.
std::string sampleBytes(std::string_view sampleNo, int testMethod = 2) {
  std::string record = triaxialBytes("P1", sampleNo, testMethod);
  put(record, 44, int16Bytes(205));
  put(record, 46, floatBytes(18.3F));
  put(record, 50, int16Bytes(120));
  put(record, 52, floatBytes(24.06F));
  put(record, 38366, "2024-02-28");
  put(record, 38376, field("20.5", 9) + field("12", 9));
  return record;
}

class SummarySave : public StoreTest {
 protected:
  SaveReport save() { return saveProject(workspace, ProjectKind::Triaxial, nullptr); }
  std::string summary() const { return read("ZMSJ/KHZP1.txt"); }
  std::string record(std::size_t k) const {
    return summary().substr(kSummaryHeaderSize + k * kSummaryRecordSize, kSummaryRecordSize);
  }
  /// Saves one sample over a record that sibling tools have filled and returns that record.
  std::string savedOverSiblings(const std::string& sample, const std::string& before) {
    write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + before);
    setRow(0, sample);
    EXPECT_THAT(save().errors, IsEmpty());
    return record(0);
  }
};

TEST_F(SummarySave, AFirstSaveMakesTheFile) {
  setRow(0, sampleBytes("S1"));
  workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0] = {};
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo, "ZK12");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingDepth, "10.2-10.5");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot, "  north bank");
  save();

  std::string header = newSummaryHeaderBytes("0001", "P1");
  put(header, 30, "2024/02/28");  // this tool's date: that of the sample
  std::string sample = newSummaryRecordBytes();
  put(sample, 3, "0001" + field("S1", 15) + field("ZK12", 15) + field("10.2-10.5", 15));
  put(sample, 1107, field("north bank", 30));
  put(sample, 2598, "2024/02/282");
  put(sample, 2640, "20.5 18.312   24.1");  // c 5, phi 4, c' 5, phi' 4 places
  put(sample, 2676, "18.324.120.5 12   ");  // CU: phi 2676, phi' 2680, c 2684, c' 2689
  EXPECT_SAME_BYTES(summary(), header + sample);
}

TEST_F(SummarySave, ThePairsStandByMethod) {
  for (const int method : {1, 2, 3, 4}) {
    clearRows();
    setRow(0, sampleBytes("S1", method));
    std::filesystem::remove(data("ZMSJ/KHZP1.txt"));
    save();
    const std::string effective = method == 2 ? "24.1" : "    ", effectiveC = method == 2 ? "12   " : "     ";
    std::string pairs(72, ' ');
    put(pairs, 18 * (static_cast<std::size_t>(method) - 1), "18.3" + effective + "20.5 " + effectiveC);
    EXPECT_EQ(record(0).substr(2608, 1), std::to_string(method));
    EXPECT_EQ(record(0).substr(2640, 18), "20.5 18.3" + effectiveC + effective) << method;
    EXPECT_EQ(record(0).substr(2658, 72), pairs) << method;
  }
}

TEST_F(SummarySave, AnUnknownMethodHasNoPair) {
  setRow(0, sampleBytes("S1", 25));
  save();
  EXPECT_EQ(record(0).substr(2608, 1), "2") << "25 cut at the field's one place";
  EXPECT_EQ(record(0).substr(2658, 72), std::string(72, ' '));
}

TEST_F(SummarySave, NoEnvelopeLeavesCAndPhiBlank) {
  std::string sample = sampleBytes("S1");
  put(sample, 44, int16Bytes(0) + floatBytes(0));
  setRow(0, sample);
  save();
  EXPECT_EQ(record(0).substr(2640, 18), "         12   24.1");
  EXPECT_EQ(record(0).substr(2676, 18), "    24.1     12   ");
}

TEST_F(SummarySave, CAloneOrPhiAloneIsWrittenWithTheOther) {
  std::string sample = sampleBytes("S1", 3);
  put(sample, 46, floatBytes(0));
  setRow(0, sample);
  save();
  EXPECT_EQ(record(0).substr(2640, 9), "20.5 0.0 ");
  sample = sampleBytes("S1", 3);
  put(sample, 44, int16Bytes(0));
  put(sample, 38376, field("", 9));
  setRow(0, sample);
  save();
  EXPECT_EQ(record(0).substr(2640, 9), "     18.3");
}

TEST_F(SummarySave, AnEffectiveAngleThatWasNeverFoundIsWrittenAsItStands) {
  std::string sample = sampleBytes("S1");
  put(sample, 52, floatBytes(0));
  put(sample, 38385, field("", 9));
  setRow(0, sample);
  save();
  EXPECT_EQ(record(0).substr(2640, 18), "20.5 18.3     0.0 ");
}

TEST_F(SummarySave, LongValuesAreCutAtTheirFields) {
  std::string sample = sampleBytes("S1");
  put(sample, 46, floatBytes(100.04F));
  put(sample, 38376, field("123456.78", 9));
  setRow(0, sample);
  save();
  EXPECT_EQ(record(0).substr(2640, 9), "12345100.");
}

TEST_F(SummarySave, TouchesItsOwnFieldsAlone) {
  const std::string before = siblingRecordBytes("S1");
  std::string wanted = before;
  put(wanted, 3, "0001" + field("S1", 15) + field("", 15) + field("", 15));
  put(wanted, 1107, field("", 30));
  put(wanted, 2598, "2024/02/282");
  put(wanted, 2640, "20.5 18.312   24.1");
  put(wanted, 2658, std::string(72, ' '));
  put(wanted, 2676, "18.324.120.5 12   ");
  EXPECT_SAME_BYTES(savedOverSiblings(sampleBytes("S1"), before), wanted);
}

TEST_F(SummarySave, ThePairsStayWhenTheFirstSpecimenIsUnused) {
  std::string sample = sampleBytes("S1");
  put(sample, 56, field("", 6) + field("200", 6));
  const std::string before = siblingRecordBytes("S1");
  const std::string after = savedOverSiblings(sample, before);
  EXPECT_EQ(after.substr(2658, 72), before.substr(2658, 72));
  EXPECT_EQ(after.substr(2640, 18), "20.5 18.312   24.1");
}

TEST_F(SummarySave, AnotherMethodOfTheSampleBlanksThePairsBefore) {
  setRow(0, sampleBytes("S1", 2));
  setRow(1, sampleBytes("S1", 1));
  save();
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0002");
  EXPECT_EQ(summary().size(), kSummaryHeaderSize + kSummaryRecordSize) << "one record for both";
  EXPECT_EQ(record(0).substr(2658, 72), "18.3    20.5      " + std::string(54, ' '));
}

TEST_F(SummarySave, OfSeveralRecordsOfANumberTheFirstIsWritten) {
  const std::string other = siblingRecordBytes("S1");
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0003", "P1") + siblingRecordBytes("S9") + other + other);
  setRow(0, sampleBytes("S1"));
  save();
  EXPECT_EQ(record(1).substr(3, 4), "0002");
  EXPECT_SAME_BYTES(record(2), other);
}

TEST_F(SummarySave, NewSamplesAreCountedAndNumbered) {
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + siblingRecordBytes("S9"));
  setRow(0, sampleBytes("S1"));
  setRow(1, sampleBytes("S2"));
  save();
  EXPECT_EQ(summary().substr(0, 4), "0003");
  EXPECT_EQ(record(2).substr(3, 19), "0003" + field("S2", 15));
  EXPECT_SAME_BYTES(record(0), siblingRecordBytes("S9"));
}

TEST_F(SummarySave, TheDateIsTheSamplesElseTheProjectsElseToday) {
  std::string sample = sampleBytes("S1");
  put(sample, 38366, field("", 10));
  setRow(0, sample);
  save();
  EXPECT_EQ(record(0).substr(2598, 10), "2024/05/06");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo, "P1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate, "2024-01-15");
  save();
  EXPECT_EQ(record(0).substr(2598, 10), "2024/01/15");
  EXPECT_EQ(summary().substr(30, 10), "2024/01/15");
}

TEST_F(SummarySave, TheToolsDateIsThatOfTheLastSample) {
  setRow(0, sampleBytes("S1"));
  std::string second = sampleBytes("S2");
  put(second, 38366, "2023/12/01");
  setRow(1, second);
  save();
  EXPECT_EQ(summary().substr(30, 20), "2023/12/012024/05/06") << "the siblings' dates stay";
}

TEST_F(SummarySave, TrialPitsStandInFrontOfTheBorehole) {
  workspace.settings.habits.trialPitNumber = true;
  setRow(0, sampleBytes("S1"));
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo, "ZK12-ABCDEF");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot, "TJ0012 northern bank");
  save();
  EXPECT_EQ(record(0).substr(22, 15), "TJ0012 ZK12-ABC");
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo.view(), "TJ0012 ZK12-ABC");
  save();
  EXPECT_EQ(record(0).substr(22, 15), "TJ0012 ZK12-ABC") << "what was read from the file is written as it stands";
}

TEST_F(SummarySave, ATrialPitIsNotCutInsideAChineseCharacter) {
  workspace.settings.habits.trialPitNumber = true;
  setRow(0, sampleBytes("S1"));
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo, "1234567\xD1\xD2");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot,
          "\xD1\xD2\xCD\xC1\xBF\xB1\xB2\xEC");
  save();
  EXPECT_EQ(record(0).substr(22, 15), "\xD1\xD2\xCD\xC1\xBF\xB1 1234567 ");
  readLocations(workspace, ProjectKind::Triaxial);
  save();
  EXPECT_EQ(record(0).substr(22, 15), "\xD1\xD2\xCD\xC1\xBF\xB1 1234567 ") << "nor does it wander at the next save";
}

TEST_F(SummarySave, ATypedTitleGoesToEveryProject) {
  setRow(0, sampleBytes("S1"));
  setRow(1, triaxialBytes("P2", "S1"));
  workspace.dataOf(ProjectKind::Triaxial).projectName = {"Dam", true, "P1"};
  workspace.dataOf(ProjectKind::Triaxial).secondTitleLine = {"Lot 7", true, "P1"};
  save();
  for (const char* name : {"ZMSJ/KHZP1.txt", "ZMSJ/KHZP2.txt"}) {
    EXPECT_EQ(read(name).substr(416, 120), field("Dam", 120));
    EXPECT_EQ(read(name).substr(536, 60), field("Lot 7", 60));
  }
}

TEST_F(SummarySave, AnUntouchedTitleStaysWithItsProject) {
  std::string header = newSummaryHeaderBytes("0000", "P2");
  put(header, 416, field("  Bridge", 120));
  write("ZMSJ/KHZP2.txt", header);
  setRow(0, sampleBytes("S1"));
  setRow(1, triaxialBytes("P2", "S1"));
  workspace.dataOf(ProjectKind::Triaxial).projectName = {"Dam", false, "P1"};
  save();
  EXPECT_EQ(read("ZMSJ/KHZP1.txt").substr(416, 120), field("Dam", 120));
  EXPECT_EQ(read("ZMSJ/KHZP2.txt").substr(416, 120), field("  Bridge", 120));
}

TEST_F(SummarySave, AnUntouchedTitleThatWasReadIsNotWrittenAnew) {
  std::string header = newSummaryHeaderBytes("0000", "P1");
  put(header, 416, field("  Bridge \xD1", 120));  // leading blanks and half a character stay as a sibling left them
  write("ZMSJ/KHZP1.txt", header);
  setRow(0, sampleBytes("S1"));
  readLocations(workspace, ProjectKind::Triaxial);
  save();
  EXPECT_EQ(summary().substr(416, 120), field("  Bridge \xD1", 120));
}

TEST_F(SummarySave, AnExistingFileIsFoundWithoutRegardToCase) {
  write("ZMSJ/khzP1.TXT", newSummaryHeaderBytes("0000", "P1"));
  setRow(0, sampleBytes("S1"));
  save();
  EXPECT_FALSE(has("ZMSJ/KHZP1.txt"));
  EXPECT_EQ(read("ZMSJ/khzP1.TXT").substr(0, 4), "0001");
}

TEST_F(SummarySave, AFullFileTakesNoNewSampleButTheProjectDoes) {
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("9999", "P1"));
  setRow(0, sampleBytes("S1"));
  const SaveReport report = save();
  EXPECT_THAT(report.errors, ::testing::IsEmpty());
  EXPECT_THAT(report.summaryErrors, ::testing::ElementsAre(HasSubstr("S1")));
  EXPECT_EQ(summary(), newSummaryHeaderBytes("9999", "P1"));
  EXPECT_TRUE(has("HSZS/WKSZP1.txt"));
}

TEST_F(SummarySave, ADamagedFileStaysAsItIsAndKeepsNoProjectFromBeingSaved) {
  setRow(0, sampleBytes("S1"));
  setRow(1, triaxialBytes("P2", "S1"));
  const std::string whole = newSummaryHeaderBytes("0001", "P1") + siblingRecordBytes("S1");
  std::string withoutCount = whole;
  put(withoutCount, 0, "    ");
  for (const std::string& damaged : {whole.substr(0, 300), withoutCount, std::string()}) {
    std::filesystem::remove_all(data("HSZS"));
    std::filesystem::create_directory(data("HSZS"));
    workspace.fileMemory = {};
    write("ZMSJ/KHZP1.txt", damaged);
    const SaveReport report = save();
    EXPECT_THAT(report.errors, ::testing::IsEmpty());
    EXPECT_THAT(report.summaryErrors, ::testing::ElementsAre(HasSubstr("KHZP1.txt")));
    EXPECT_EQ(report.failures(), report.summaryErrors);
    EXPECT_EQ(summary(), damaged);
    EXPECT_EQ(readStart("HSZS/WKSZP1.txt", 4), "0001");
    EXPECT_TRUE(has("HSZS/WKSZP2.txt"));
    EXPECT_TRUE(has("ZMSJ/KHZP2.txt"));
  }
}

TEST_F(SummarySave, AGapBehindAShortFileIsFilledWithBlanks) {
  // One whole record and the first 1000 bytes of a second, of four.
  const std::string first = siblingRecordBytes("S8"), second = siblingRecordBytes("S9").substr(0, 1000);
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0004", "P1") + first + second);
  setRow(0, sampleBytes("S1"));
  save();
  EXPECT_EQ(summary().substr(0, 4), "0005");
  ASSERT_EQ(summary().size(), kSummaryHeaderSize + 5 * kSummaryRecordSize);
  EXPECT_SAME_BYTES(record(0), first);
  EXPECT_SAME_BYTES(record(1), field(second, kSummaryRecordSize));
  EXPECT_SAME_BYTES(record(2) + record(3), std::string(2 * kSummaryRecordSize, ' '));
  EXPECT_EQ(record(4).substr(3, 6), "0005S1");
}

TEST_F(SummarySave, ACutRecordIsMendedAlsoBehindANewOne) {
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + siblingRecordBytes("S9").substr(0, 1000));
  setRow(0, sampleBytes("S1"));
  setRow(1, sampleBytes("S9"));
  save();
  ASSERT_EQ(summary().size(), kSummaryHeaderSize + 2 * kSummaryRecordSize);
  EXPECT_EQ(record(0).substr(59, 941), siblingRecordBytes("S9").substr(59, 941));
  EXPECT_EQ(record(0).substr(1563, 5), "\r\nPC:") << "what was cut is that of a new record";
}

}  // namespace
}  // namespace triaxlab::testing
