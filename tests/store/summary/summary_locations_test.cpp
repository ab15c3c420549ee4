// What an opened project and a sample list learn from the summary file.

#include "store/project/project_list.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string locatedRecord(std::string_view sampleNo, std::string_view borehole, std::string_view depth,
                          std::string_view spot) {
  std::string record = newSummaryRecordBytes();
  put(record, 7, field(sampleNo, 15) + field(borehole, 15) + field(depth, 15));
  put(record, 1107, field(spot, 30));
  return record;
}

class SummaryLocations : public StoreTest {
 protected:
  std::string boreholeOf(std::size_t index) const {
    return std::string(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[index].boreholeNo.trimmed());
  }
};

TEST_F(SummaryLocations, FillTheRowsOfTheTable) {
  setRow(0, triaxialBytes("P1", "S2"));
  setRow(3, triaxialBytes("P1", "S1"));
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0002", "P1") + locatedRecord("S1", "ZK1", "1.0", "north") +
                              locatedRecord("  S2", "ZK2", "2.0", "  south"));
  EXPECT_THAT(readLocations(workspace, ProjectKind::Triaxial), IsEmpty());
  EXPECT_EQ(boreholeOf(3), "ZK1");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[3].samplingDepth.trimmed(), "1.0");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot.view(), field("  south", 30))
      << "copied as it stands";
}

TEST_F(SummaryLocations, RowsLookIntoTheFileOfTheirOwnProject) {
  setRow(0, triaxialBytes("P1", "S1"));
  setRow(1, triaxialBytes("P2", "S1"));
  write("ZMSJ/KHZP2.txt", newSummaryHeaderBytes("0001", "P2") + locatedRecord("S1", "ZK2", "", ""));
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(boreholeOf(0), "");
  EXPECT_EQ(boreholeOf(1), "ZK2");
}

TEST_F(SummaryLocations, OfSeveralRecordsOfANumberTheLastCounts) {
  setRow(0, triaxialBytes("P1", "S1", 1));
  setRow(1, triaxialBytes("P1", "S1", 2));
  write("ZMSJ/KHZP1.txt",
        newSummaryHeaderBytes("0002", "P1") + locatedRecord("S1", "ZK1", "", "") + locatedRecord("S1", "ZK2", "", ""));
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(boreholeOf(0), "ZK2");
  EXPECT_EQ(boreholeOf(1), "ZK2");
}

TEST_F(SummaryLocations, OfSeveralRecordsOfANumberTheFirstGivesTheDepthOfAK0Record) {
  for (const std::size_t row : {0U, 1U}) {
    SetText(workspace.K0SampleTable[row].projectNo, "P1");
    SetText(workspace.K0SampleTable[row].sampleNo, row == 0 ? "S1" : "S2");
    SetText(workspace.K0SampleTable[row].samplingDepth, "9.9");
  }
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0002", "P1") + locatedRecord(" S1", "ZK1", "1.0", "") +
                              locatedRecord("S1", "ZK2", "2.0", ""));
  readLocations(workspace, ProjectKind::K0);
  EXPECT_EQ(workspace.K0SampleTable[0].samplingDepth.trimmed(), "1.0");
  EXPECT_EQ(workspace.dataOf(ProjectKind::K0).SampleDisplayTable[0].samplingDepth.trimmed(), "2.0");
  EXPECT_TRUE(workspace.K0SampleTable[1].samplingDepth.isBlank()) << "the file doesn't know it";
  EXPECT_EQ(lookupSamplingDepth(workspace, "P1", "S1"), "1.0");
  EXPECT_EQ(lookupSamplingDepth(workspace, "P1", "S2"), "");
  EXPECT_EQ(lookupSamplingDepth(workspace, "P2", "S1"), "") << "no such file";
}

TEST_F(SummaryLocations, AFileThatCanNotBeReadSaysNothingOfADepth) {
  SetText(workspace.TK0SampleTable[0].k0.projectNo, "P1");
  SetText(workspace.TK0SampleTable[0].k0.sampleNo, "S1");
  SetText(workspace.TK0SampleTable[0].k0.samplingDepth, "9.9");
  write("ZMSJ/KHZP1.txt", "damaged");
  const Remarks remarks = readLocations(workspace, ProjectKind::TK0);
  EXPECT_THAT(remarks, ElementsAre(HasSubstr("KHZP1.txt"))) << "once";
  EXPECT_EQ(workspace.TK0SampleTable[0].k0.samplingDepth.trimmed(), "9.9") << "as the record has it";
  EXPECT_THROW(lookupSamplingDepth(workspace, "P1", "S1"), UserError);
}

TEST_F(SummaryLocations, RecordsBehindTheCountOrTheEndAreNotThere) {
  setRow(0, triaxialBytes("P1", "S1"));
  setRow(1, triaxialBytes("P1", "S2"));
  const std::string records = locatedRecord("S1", "ZK1", "", "") + locatedRecord("S2", "ZK2", "", "");
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + records);
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(boreholeOf(1), "");
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("9999", "P1") + records.substr(0, records.size() - 1));
  EXPECT_THAT(readLocations(workspace, ProjectKind::Triaxial), IsEmpty());
  EXPECT_EQ(boreholeOf(0), "ZK1");
  EXPECT_EQ(boreholeOf(1), "");
}

TEST_F(SummaryLocations, AreReadInALongFileToo) {
  std::string bytes = newSummaryHeaderBytes("0700", "P1");
  for (int k = 0; k < 700; ++k) bytes += locatedRecord("S" + std::to_string(k), "ZK" + std::to_string(k), "", "");
  write("ZMSJ/KHZP1.txt", bytes);
  setRow(0, triaxialBytes("P1", "S0"));
  setRow(1, triaxialBytes("P1", "S256"));
  setRow(2, triaxialBytes("P1", "S699"));
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(boreholeOf(0) + boreholeOf(1) + boreholeOf(2), "ZK0ZK256ZK699");
}

TEST_F(SummaryLocations, ABlankSampleNumberMatchesNothing) {
  setRow(0, triaxialBytes("P1", "S1"));
  setRow(1, triaxialBytes("P1", ""));
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + locatedRecord("", "ZK1", "", ""));
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(boreholeOf(1), "");
}

TEST_F(SummaryLocations, TheTitlesAreThoseOfTheFirstLiveRowsProject) {
  setRow(2, triaxialBytes("P2", "S1"));
  setRow(3, triaxialBytes("P1", "S1"));
  std::string header = newSummaryHeaderBytes("0000", "P2");
  put(header, 416, field("Bridge", 120) + field("Lot 7", 60));
  write("ZMSJ/KHZP2.txt", header);
  workspace.dataOf(ProjectKind::Triaxial).projectName.typed = true;
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text, "Bridge");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.text, "Lot 7");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.projectNo, "P2");
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).projectName.typed);
}

TEST_F(SummaryLocations, WithoutAFileTheNameIsTheImporters) {
  setRow(0, triaxialBytes("P1", "S1"));
  workspace.dataOf(ProjectKind::Triaxial).projectName.text =
      workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.text = "of the document before";
  workspace.dataOf(ProjectKind::Triaxial).importedProjectNames["P1"] = "from the database";
  EXPECT_THAT(readLocations(workspace, ProjectKind::Triaxial), IsEmpty());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text, "from the database");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).secondTitleLine.text, "");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.projectNo, "P1");
}

TEST_F(SummaryLocations, TheNameInTheFileGoesBeforeTheImporters) {
  setRow(0, triaxialBytes("P1", "S1"));
  workspace.dataOf(ProjectKind::Triaxial).importedProjectNames["P1"] = "from the database";
  std::string header = newSummaryHeaderBytes("0000", "P1");
  write("ZMSJ/KHZP1.txt", header);
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text, "from the database") << "the file has none";
  put(header, 416, field("Bridge", 120));
  write("ZMSJ/KHZP1.txt", header);
  readLocations(workspace, ProjectKind::Triaxial);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.text, "Bridge");
}

TEST_F(SummaryLocations, AFileThatCanNotBeReadIsARemarkAndItsTitleBelongsToNobody) {
  setRow(0, triaxialBytes("P1", "S1"));
  setRow(1, triaxialBytes("P2", "S1"));
  write("ZMSJ/KHZP1.txt", "0001");
  write("ZMSJ/KHZP2.txt", newSummaryHeaderBytes("0001", "P2") + locatedRecord("S1", "ZK2", "", ""));
  EXPECT_THAT(readLocations(workspace, ProjectKind::Triaxial), ElementsAre(HasSubstr("KHZP1.txt")));
  EXPECT_EQ(boreholeOf(1), "ZK2");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).projectName.projectNo, "");
}

TEST_F(SummaryLocations, AProjectNumberThatIsNoFileNameHasNone) {
  setRow(0, triaxialBytes("../P1", "S1"));
  EXPECT_EQ(summaryPath(workspace, "../P1"), std::filesystem::path());
  EXPECT_THAT(readLocations(workspace, ProjectKind::Triaxial), IsEmpty());
}

TEST_F(SummaryLocations, StandInTheSampleList) {
  write("HSZS/WKSZP1.txt", headerBytes({"0002", "P1"}) + triaxialBytes("P1", "S1") + triaxialBytes("P1", "S2"));
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + locatedRecord("S2", "\xD1\xD2", "2.5-2.8", "x"));
  const std::vector<SampleListRow> rows = listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].boreholeNo, "");
  EXPECT_EQ(rows[1].boreholeNo, "岩");
  EXPECT_EQ(rows[1].samplingDepth, "2.5-2.8");
}

TEST_F(SummaryLocations, OfALaboratoryWithTrialPitsTheListNamesThePit) {
  workspace.settings.habits.trialPitNumber = true;
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + triaxialBytes("P1", "S1"));
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + locatedRecord("S1", "TJ0012 ZK12-ABC", "2.5", "x"));
  EXPECT_EQ(listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt").at(0).boreholeNo, "TJ0012");
}

TEST_F(SummaryLocations, ADamagedSummaryDoesNotHideTheSampleList) {
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + triaxialBytes("P1", "S1"));
  std::filesystem::create_directory(data("ZMSJ/KHZP1.txt"));
  EXPECT_EQ(listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt").size(), 1U);
  write("ZMSJ/KHZP2.txt", "short");
  write("HSZS/WKSZP2.txt", headerBytes({"0001", "P2"}) + triaxialBytes("P2", "S1"));
  EXPECT_EQ(listSamples(workspace, ProjectKind::Triaxial, "WKSZP2.txt").size(), 1U);
}

}  // namespace
}  // namespace triaxlab::testing
