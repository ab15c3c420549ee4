// Saves of the kinds beside the triaxial one: the same files, with less to do.

#include "store/project/project_file.h"
#include "store/project/save_project.h"
#include "store/settings/settings_file.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t kUnconfinedSize = 1924, kK0Size = 243, kTK0Size = 4881;

/// A record of a kind: names, then blanks.
std::string recordBytes(std::string_view projectNo, std::string_view sampleNo, std::size_t size) {
  return field(projectNo, 15) + field(sampleNo, 15) + std::string(size - 30, ' ');
}

struct KindOfTest {
  ProjectKind kind;
  std::string prefix;
  std::size_t recordSize;
  std::string newTag;  // of a file that is made
};

void PrintTo(const KindOfTest& test, std::ostream* out) { *out << test.prefix; }

class OtherKinds : public StoreTest, public ::testing::WithParamInterface<KindOfTest> {
 protected:
  std::string fileName(const std::string& projectNo = "P1") const {
    return "HSZS/" + GetParam().prefix + projectNo + ".txt";
  }
  std::string sample(std::string_view sampleNo, std::string_view projectNo = "P1") const {
    return recordBytes(projectNo, sampleNo, GetParam().recordSize);
  }
  void setSample(std::size_t row, const std::string& record) {
    switch (GetParam().kind) {
      case ProjectKind::Unconfined:
        workspace.UnconfinedSampleTable[row] = recordOf<UnconfinedSampleRecord>(record);
        break;
      case ProjectKind::K0:
        workspace.K0SampleTable[row] = recordOf<K0SampleRecord>(record);
        break;
      default:
        workspace.TK0SampleTable[row] = recordOf<TK0SampleRecord>(record);
    }
  }
  SaveReport save() {
    return saveProject(workspace, GetParam().kind, [](Workspace&, const std::vector<KnownSample>&) {
      ADD_FAILURE() << "only a triaxial import asks what to write over";
      return true;
    });
  }
  void setDate(std::string_view year, std::string_view month, std::string_view day) {
    SetText(workspace.processingDate.year, year);
    SetText(workspace.processingDate.month, month);
    SetText(workspace.processingDate.day, day);
  }
  /// The head of a file that a save on the day of the tests makes.
  std::string newHeader(const std::string& count, const std::string& processed = "2024/05/06") const {
    return headerBytes({count, "P1", "2024/05/06", processed, "2024/05/06", "", GetParam().newTag});
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, OtherKinds,
                         ::testing::Values(KindOfTest{ProjectKind::Unconfined, "KWCX", kUnconfinedSize, "V2.0"},
                                           KindOfTest{ProjectKind::K0, "KO", kK0Size, ""},
                                           KindOfTest{ProjectKind::TK0, "TKO", kTK0Size, ""}),
                         [](const auto& test) { return test.param.prefix; });

TEST_P(OtherKinds, AFirstSaveMakesTheFile) {
  setSample(0, sample("S1"));
  setSample(1000, sample("S2"));
  const SaveReport report = save();
  EXPECT_THAT(report.errors, IsEmpty());
  EXPECT_SAME_BYTES(read(fileName()), newHeader("0002") + sample("S1") + sample("S2"));
}

TEST_P(OtherKinds, ASaveOverwritesByTheNumberAlone) {
  const std::string header = headerBytes({"0002", "P1"});
  write(fileName(), header + sample("S1") + sample("S2"));
  std::string changed = sample(" S2");
  changed.replace(32, 4, "1234");  // in a triaxial record the method stands here
  setSample(0, changed);
  setSample(1, sample("S3"));
  save();
  EXPECT_SAME_BYTES(read(fileName()), headerBytes({"0003", "P1"}) + sample("S1") + changed + sample("S3"));
}

TEST_P(OtherKinds, TheProcessingDateGoesIntoNewFilesAlone) {
  setDate("2023", "7", "8");
  setSample(0, sample("S1"));
  save();
  EXPECT_SAME_BYTES(read(fileName()), newHeader("0001", "2023-7 -8 ") + sample("S1"));
  setDate("2022", "1", "2");
  setSample(1, sample("S2"));
  save();
  EXPECT_SAME_BYTES(read(fileName()), newHeader("0002", "2023-7 -8 ") + sample("S1") + sample("S2"));
}

TEST_P(OtherKinds, TheNamesInTheSettingsStayAndNoDateIsStored) {
  SettingsFile settings = sharedSettings(workspace);
  settings.writeText({910, 60}, "\xD5\xC5\xC8\xFD");
  settings.writeText({970, 60}, "Li Si");
  setDate("2024", "3", "2");
  setSample(0, sample("S1"));
  save();
  EXPECT_EQ(settings.readText({910, 60}), "\xD5\xC5\xC8\xFD");
  EXPECT_EQ(settings.readText({970, 60}), "Li Si");
  EXPECT_EQ(settings.readText({1030, 60}), "");
  workspace.dataOf(GetParam().kind).typedDateTexts[1] = " Wang ";
  save();
  EXPECT_EQ(settings.readText({910, 60}), "\xD5\xC5\xC8\xFD");
  EXPECT_EQ(settings.readText({970, 60}), "Wang");
}

TEST_P(OtherKinds, TheTestDateIsThatOfTheProject) {
  SetText(workspace.dataOf(GetParam().kind).ProjectDateTable[100].projectNo, "P1");
  SetText(workspace.dataOf(GetParam().kind).ProjectDateTable[100].testDate, "2024-02-28");
  setSample(0, sample("S1"));
  save();
  EXPECT_EQ(read(fileName()).substr(39, 10), "2024-02-28");
  EXPECT_EQ(read("ZMSJ/KHZP1.txt").substr(30, 10), "2024/02/28");
}

TEST_P(OtherKinds, AnImportAndTheTogglesChangeNothing) {
  workspace.dataOf(GetParam().kind).rawImportPending = true;
  workspace.settings.toggles.mergePressures = true;
  workspace.dataOf(GetParam().kind).keepExisting.set();
  write(fileName(), headerBytes({"0001", "P1"}) + sample("S1"));
  std::string changed = sample("S1");
  changed.replace(100, 3, "abc");
  setSample(0, changed);
  save();
  EXPECT_SAME_BYTES(read(fileName()), headerBytes({"0001", "P1"}) + changed);
}

TEST_P(OtherKinds, SlotsWithoutAProjectOrANumberAreEmpty) {
  setSample(0, sample(""));
  setSample(1, sample("S1", ""));
  save();
  EXPECT_TRUE(listFiles(data("HSZS"), "", "").empty());
  EXPECT_TRUE(listFiles(data("ZMSJ"), "", "").empty());
}

TEST_P(OtherKinds, SeveralProjectsGoIntoTheirFiles) {
  setSample(0, sample("S1", "P1"));
  setSample(1, sample("S1", "P2"));
  setSample(2, sample("S2", "P1"));
  setSample(3, sample("S1", "P/3"));
  EXPECT_THAT(save().errors, ElementsAre(HasSubstr("P/3")));
  EXPECT_SAME_BYTES(read(fileName()), newHeader("0002") + sample("S1") + sample("S2"));
  EXPECT_SAME_BYTES(read(fileName("P2")).substr(kHeaderSize), sample("S1", "P2"));
}

TEST_P(OtherKinds, ATableOfAnotherKindIsNotSaved) {
  setRow(0, triaxialBytes("P1", "A-1"));
  setSample(0, sample("S1"));
  save();
  EXPECT_THAT(listFiles(data("HSZS"), "", ""), ElementsAre(GetParam().prefix + "P1.txt"));
}

TEST_P(OtherKinds, WhatWasSavedIsOpenedAgain) {
  setSample(0, sample("S1"));
  setSample(1, sample("S2"));
  save();
  const std::string saved = read(fileName());
  setSample(0, sample("", ""));
  setSample(1, sample("", ""));
  EXPECT_THAT(openProject(workspace, GetParam().kind, GetParam().prefix + "P1.txt", nullptr), IsEmpty());
  save();
  EXPECT_SAME_BYTES(read(fileName()), saved);
}

// ---- The summary file

TEST_P(OtherKinds, ANewSampleGetsASummaryRecordOfNameAndPlace) {
  SampleLocation& location = workspace.dataOf(GetParam().kind).SampleDisplayTable[0];
  SetText(location.boreholeNo, "ZK12");
  SetText(location.samplingDepth, "10.2-10.5");
  SetText(location.samplingSpot, "  north bank");
  setSample(0, sample("123456789012345"));
  save();
  std::string wanted = newSummaryRecordBytes();
  put(wanted, 3, "0001" + std::string("123456789012345") + field("ZK12", 15) + field("10.2-10.5", 15));
  put(wanted, 1107, field("north bank", 30));
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), newSummaryHeaderBytes("0001", "P1") + wanted);
}

TEST_P(OtherKinds, AKnownSampleKeepsAllThatIsNotOfThisTest) {
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + siblingRecordBytes("S1"));
  setSample(0, sample("S1"));
  save();
  std::string wanted = siblingRecordBytes("S1");
  put(wanted, 3, "0001" + field("S1", 15) + std::string(30, ' '));
  put(wanted, 1107, std::string(30, ' '));
  // This test's own results, which the sample doesn't have.
  if (GetParam().kind == ProjectKind::Unconfined)
    put(wanted, 2735, std::string(10, ' '));
  else
    put(wanted, 1137, std::string(6, ' '));
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), newSummaryHeaderBytes("0001", "P1") + wanted);
}

TEST_P(OtherKinds, WhatTheTriaxialWindowShowsStaysOutOfTheSave) {
  DocumentData& triaxial = workspace.dataOf(ProjectKind::Triaxial);
  SetText(triaxial.SampleDisplayTable[0].boreholeNo, "ZK9");
  triaxial.projectName = {.text = "another project", .typed = true, .projectNo = {}};
  triaxial.typedDateTexts[0] = "Wu";
  setSample(0, sample("S1"));
  save();
  std::string wanted = newSummaryRecordBytes();
  put(wanted, 3, "0001" + field("S1", 15) + std::string(30, ' '));
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), newSummaryHeaderBytes("0001", "P1") + wanted);
  EXPECT_EQ(sharedSettings(workspace).readText({910, 60}), "");
}

TEST_P(OtherKinds, AnOpenedProjectLeavesTheTextsOfTheTriaxialWindow) {
  setSample(0, sample("S1"));
  save();
  DocumentData& triaxial = workspace.dataOf(ProjectKind::Triaxial);
  SetText(triaxial.SampleDisplayTable[0].boreholeNo, "ZK9");
  SetText(triaxial.controlledDocNo, "QR-07");
  triaxial.rawImportPending = true;
  triaxial.projectName.text = "another project";
  EXPECT_THAT(openProject(workspace, GetParam().kind, GetParam().prefix + "P1.txt", nullptr), IsEmpty());
  EXPECT_EQ(triaxial.SampleDisplayTable[0].boreholeNo.trimmed(), "ZK9");
  EXPECT_EQ(triaxial.controlledDocNo.trimmed(), "QR-07");
  EXPECT_TRUE(triaxial.rawImportPending) << "its import is still to be saved";
  EXPECT_EQ(triaxial.projectName.text, "another project");
}

TEST_P(OtherKinds, LocationsAreReadForTheRowsOfTheTable) {
  std::string known = newSummaryRecordBytes();
  put(known, 7, field("S2", 15) + field("ZK2", 15) + field("3.0", 15));
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + known);
  setSample(0, sample("S1"));
  setSample(1, sample("S2"));
  EXPECT_THAT(readLocations(workspace, GetParam().kind), IsEmpty());
  EXPECT_TRUE(workspace.dataOf(GetParam().kind).SampleDisplayTable[0].boreholeNo.isBlank());
  EXPECT_EQ(workspace.dataOf(GetParam().kind).SampleDisplayTable[1].boreholeNo.trimmed(), "ZK2");
  EXPECT_EQ(workspace.dataOf(GetParam().kind).SampleDisplayTable[1].samplingDepth.trimmed(), "3.0");
}

// ---- What differs between them

class UnconfinedSave : public StoreTest {};

TEST_F(UnconfinedSave, TheStrengthsAreCutToFivePlaces) {
  std::string record = recordBytes("P1", "S1", kUnconfinedSize);
  put(record, 1894, "1234.5" + field("98.7", 6));  // qu, qu'
  workspace.UnconfinedSampleTable[0] = recordOf<UnconfinedSampleRecord>(record);
  saveProject(workspace, ProjectKind::Unconfined, nullptr);
  EXPECT_EQ(read("ZMSJ/KHZP1.txt").substr(600 + 2732, 15), "WC:1234.98.7 \r\n");
}

class KoSave : public StoreTest {
 protected:
  std::string koOf(std::string_view koValue, ProjectKind kind) {
    std::string record = recordBytes("P1", "S1", kind == ProjectKind::K0 ? kK0Size : kTK0Size);
    put(record, 211, field(koValue, 6));
    if (kind == ProjectKind::K0)
      workspace.K0SampleTable[0] = recordOf<K0SampleRecord>(record);
    else
      workspace.TK0SampleTable[0] = recordOf<TK0SampleRecord>(record);
    saveProject(workspace, kind, nullptr);
    return read("ZMSJ/KHZP1.txt").substr(600 + 1137, 6);
  }
};

TEST_F(KoSave, TheSlopeIsCutToFivePlacesOfSix) {
  for (const ProjectKind kind : {ProjectKind::K0, ProjectKind::TK0}) {
    EXPECT_EQ(koOf("0.464", kind), "0.464 ");
    EXPECT_EQ(koOf("-0.464", kind), "-0.46 ");
    EXPECT_EQ(koOf("", kind), "      ");
  }
}

TEST_F(KoSave, ANewFileHasTheTagOfTheHeadThatWasInUse) {
  write("HSZS/WKSZP9.txt", headerBytes({"0000", "P9"}));
  openProject(workspace, ProjectKind::Triaxial, "WKSZP9.txt", nullptr);
  workspace.processingDate = {};
  koOf("0.5", ProjectKind::K0);
  EXPECT_EQ(read("HSZS/KOP1.txt").substr(59, 20), field("V2.0", 20));
}

}  // namespace
}  // namespace triaxlab::testing
