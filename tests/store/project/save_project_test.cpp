#include "store/project/save_project.h"

#include "store/project/project_file.h"
#include "store/settings/settings_file.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SaveProject : public StoreTest {
 protected:
  SaveReport save() { return saveProject(workspace, ProjectKind::Triaxial, nullptr); }
  void setDate(std::string_view year, std::string_view month, std::string_view day) {
    SetText(workspace.processingDate.year, year);
    SetText(workspace.processingDate.month, month);
    SetText(workspace.processingDate.day, day);
  }
  /// A header as a save makes it today, without a date of its own.
  static HeaderTexts newHeader(const std::string& count, const std::string& projectNo) {
    return {count, projectNo, "2024/05/06", "2024/05/06", "2024/05/06", ""};
  }
};

TEST_F(SaveProject, ThreeSamplesMakeAFile) {
  const std::string first = triaxialBytes("N1", "A-1"), second = triaxialBytes("N1", "A-2", 1),
                    third = triaxialBytes("N1", "A-3", 3);
  setRow(0, first);
  setRow(1, second);
  setRow(7, third);
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "  QC-07");
  const SaveReport report = save();
  EXPECT_THAT(report.errors, IsEmpty());
  EXPECT_THAT(report.remarks, IsEmpty());
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt"),
                    headerBytes(newHeader("0003", "N1")) + first + second + third + field("QC-07", kEndTextSize));
  EXPECT_EQ(workspace.projectHeader.sampleCount.view(), "0003");
}

TEST_F(SaveProject, TheDateBoxesDateANewFile) {
  setRow(0, triaxialBytes("N1", "A-1"));
  setDate("2024", "3", "2");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo, "N0");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate, "2020/01/01");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[100].projectNo, "N1");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[100].testDate, "2024/02/28");
  save();
  // The three texts are joined as they are held: 4, 2 and 2 places.
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt").substr(0, kHeaderSize),
                    headerBytes({"0001", "N1", "2024/05/06", "2024-3 -2 ", "2024/02/28", ""}));
}

TEST_F(SaveProject, ASecondSaveWritesOverTheRecordInItsPlace) {
  const std::string kept = triaxialBytes("P1", "A-1"), old = triaxialBytes("P1", "A-2");
  write("HSZS/WKSZP1.txt", headerBytes({"2", "P1"}) + kept + old + field("OLD", kEndTextSize));
  std::string changed = triaxialBytes("P1", "A-2", 2, "300");
  put(changed, 306, "clay");
  setRow(0, changed);
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "NEW");
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), headerBytes({"2", "P1"}) + kept + changed + field("NEW", kEndTextSize))
      << "count and processing date stay as they were";
}

TEST_F(SaveProject, AnEmptyEndTextBlanksTheStoredOne) {
  const std::string record = triaxialBytes("P1", "A-1");
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + record + field("OLD", kEndTextSize));
  setRow(0, record);
  save();
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(kHeaderSize + kTriaxialSize), field("", kEndTextSize));
}

TEST_F(SaveProject, TheDateBoxesDateAnExistingFile) {
  const std::string record = triaxialBytes("P1", "A-1");
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + record + field("", kEndTextSize));
  setRow(0, record);
  setDate("2024", "05", "01");
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt").substr(0, kHeaderSize),
                    headerBytes({"0001", "P1", "2024/01/02", "2024-05-01"}));
}

TEST_F(SaveProject, DateBoxesThatSumToNothingAreNoDate) {
  setRow(0, triaxialBytes("N1", "A-1"));
  setDate("ab", "0", "");
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt").substr(0, kHeaderSize), headerBytes(newHeader("0001", "N1")));
}

TEST_F(SaveProject, TheSameNumberWithAnotherMethodIsAnotherRecord) {
  const std::string stored = triaxialBytes("P1", "A-1", 2), other = triaxialBytes("P1", "A-1", 3);
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + stored + field("TAIL", kEndTextSize));
  setRow(0, other);
  SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "TAIL");
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), headerBytes({"0002", "P1"}) + stored + other + field("TAIL", kEndTextSize))
      << "the end text moves on";
}

TEST_F(SaveProject, OfSeveralStoredRecordsTheFirstIsWrittenOver) {
  const std::string stored = triaxialBytes("P1", "A-1");
  write("HSZS/WKSZP1.txt", headerBytes({"0002", "P1"}) + stored + stored + field("", kEndTextSize));
  const std::string changed = triaxialBytes("P1", "A-1", 2, "250");
  setRow(0, changed);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), headerBytes({"0002", "P1"}) + changed + stored + field("", kEndTextSize));
}

TEST_F(SaveProject, RecordsBehindTheCountAreNotKnown) {
  const std::string first = triaxialBytes("P1", "A-1"), behind = triaxialBytes("P1", "A-2");
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + first + behind);
  const std::string changed = triaxialBytes("P1", "A-2", 2, "250");
  setRow(0, changed);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), headerBytes({"0002", "P1"}) + first + changed + field("", kEndTextSize));
}

TEST_F(SaveProject, ASampleThatComesTwiceIsStoredOnce) {
  setRow(0, triaxialBytes("N1", "A-1", 2, "100"));
  setRow(1, triaxialBytes("N1", "A-1", 2, "200"));
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt"), headerBytes(newHeader("0001", "N1")) +
                                                 triaxialBytes("N1", "A-1", 2, "200") + field("", kEndTextSize));
}

TEST_F(SaveProject, RowsWithoutProjectOrSampleNumberAreSkipped) {
  setRow(0, triaxialBytes("", "A-1"));
  setRow(1, triaxialBytes("N1", ""));
  setRow(2, triaxialBytes("N1", "A-3"));
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt"),
                    headerBytes(newHeader("0001", "N1")) + triaxialBytes("N1", "A-3") + field("", kEndTextSize));
}

TEST_F(SaveProject, AnEmptyTableWritesNothingAndSaysTheSame) {
  setRow(0, triaxialBytes("N1", ""));
  const SaveReport report = save();
  EXPECT_THAT(report.errors, IsEmpty());
  EXPECT_TRUE(std::filesystem::is_empty(workspace.applicationFolder));
  EXPECT_TRUE(std::filesystem::is_empty(workspace.projectFolder()));
  EXPECT_TRUE(std::filesystem::is_empty(workspace.summaryFolder()));
}

TEST_F(SaveProject, RowsGoToTheFilesOfTheirProjectsAlsoWhenTheyAlternate) {
  const std::string a1 = triaxialBytes("A", "1"), b1 = triaxialBytes("B", "1"), a2 = triaxialBytes("A", "2");
  setRow(0, a1);
  setRow(1, b1);
  setRow(2, a2);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZA.txt"), headerBytes(newHeader("0002", "A")) + a1 + a2 + field("", kEndTextSize));
  EXPECT_SAME_BYTES(read("HSZS/WKSZB.txt"), headerBytes(newHeader("0001", "B")) + b1 + field("", kEndTextSize));
}

TEST_F(SaveProject, ANewFileInheritsTheOperatorOfTheHeaderBefore) {
  const std::string stored = triaxialBytes("P1", "A-1");
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + stored);
  setRow(0, stored);
  setRow(1, triaxialBytes("N1", "A-2"));
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt").substr(0, kHeaderSize),
                    headerBytes({"0001", "N1", "2024/05/06", "2024/05/06", "2024/05/06", "Zhao"}));
}

TEST_F(SaveProject, ProjectsThatDifferInCaseShareAFile) {
  const std::string lower = triaxialBytes("ab", "1"), upper = triaxialBytes("AB", "2");
  setRow(0, lower);
  setRow(1, upper);
  save();
  EXPECT_FALSE(has("HSZS/WKSZAB.txt"));
  EXPECT_SAME_BYTES(read("HSZS/WKSZab.txt"),
                    headerBytes(newHeader("0002", "ab")) + lower + upper + field("", kEndTextSize));
}

TEST_F(SaveProject, AnExistingFileIsFoundWithoutRegardToCase) {
  const std::string record = triaxialBytes("P1", "A-1");
  write("HSZS/wkszp1.TXT", headerBytes({"0000", "P1"}));
  setRow(0, record);
  save();
  EXPECT_FALSE(has("HSZS/WKSZP1.txt"));
  EXPECT_SAME_BYTES(read("HSZS/wkszp1.TXT"), headerBytes({"0001", "P1"}) + record + field("", kEndTextSize));
}

TEST_F(SaveProject, ChineseProjectsThatDifferInALowerBitHaveFilesOfTheirOwn) {
  // 丄 is 81 41 and 乤 is 81 61: as bytes they differ like "A" and "a".
  setRow(0, triaxialBytes("\x81\x41", "1"));
  setRow(1, triaxialBytes("\x81\x61", "1"));
  save();
  EXPECT_TRUE(has("HSZS/WKSZ丄.txt"));
  EXPECT_TRUE(has("HSZS/WKSZ乤.txt"));
}

TEST_F(SaveProject, TheSpecimensOfARowAreSortedByPressure) {
  // Slots 0 to 4 hold 300, 0.5, 100, blank, 200. Every slot's height names its pressure.
  std::string row0 = triaxialBytes("N1", "A-1");
  put(row0, 56, field("300", 6) + field("0.5", 6) + field("100", 6) + field("", 6) + field("200", 6));
  put(row0, 86, field("h300", 6) + field("h0.5", 6) + field("h100", 6) + field("h", 6) + field("h200", 6));
  // The exchanges, slot by slot: 0 with 2 (100 below 300); then 0.5 in slot 1 is above nothing that counts; slot 2
  // (300) with slot 4 (200). 0.5 and blank are not moved forward and stay where they are.
  std::string sorted = row0;
  put(sorted, 56, field("100", 6) + field("0.5", 6) + field("200", 6) + field("", 6) + field("300", 6));
  put(sorted, 86, field("h100", 6) + field("h0.5", 6) + field("h200", 6) + field("h", 6) + field("h300", 6));
  // The one reading that triaxialBytes gives slot 0 goes along to slot 2 and on to slot 4.
  put(sorted, 476, field("", 6));
  put(sorted, 476 + 4 * 6, field("52", 6));
  setRow(0, row0);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZN1.txt").substr(kHeaderSize, kTriaxialSize), sorted);
  EXPECT_SAME_BYTES(bytesOfRecord(row(0)), sorted) << "the row in memory as well";
}

TEST_F(SaveProject, TheDateTextsGoIntoTheSettings) {
  setRow(0, triaxialBytes("N1", "A-1"));
  setDate("2024", " 5", "6");
  save();
  const SettingsFile settings = sharedSettings(workspace);
  EXPECT_EQ(settings.readText({910, 60}), "2024");
  const Bytes bytes = readWholeFile(workspace.applicationFolder / "qvb.sys", 10'000);
  ASSERT_EQ(bytes.size(), 1089U);  // position 1030 and 60 places
  const std::string text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  EXPECT_EQ(text.substr(909), field("2024", 60) + field("5", 60) + field("6", 60));
}

TEST_F(SaveProject, ANameTypedInADateBoxGoesIntoTheSettings) {
  setRow(0, triaxialBytes("N1", "A-1"));
  setDate("", "5", "6");
  workspace.dataOf(ProjectKind::Triaxial).typedDateTexts[0] = "\xD5\xC5\xC8\xFD ";  // a name and a blank
  save();
  const SettingsFile settings = sharedSettings(workspace);
  EXPECT_EQ(settings.readText({910, 60}), "\xD5\xC5\xC8\xFD");
  EXPECT_EQ(settings.readText({970, 60}), "5");
}

TEST_F(SaveProject, SettingsThatCanNotBeWrittenAreARemark) {
  std::filesystem::create_directory(workspace.applicationFolder / "qvb.sys");
  setRow(0, triaxialBytes("N1", "A-1"));
  const SaveReport report = save();
  EXPECT_THAT(report.remarks, ::testing::ElementsAre(HasSubstr("qvb.sys")));
  EXPECT_THAT(report.errors, IsEmpty());
  EXPECT_TRUE(has("HSZS/WKSZN1.txt"));
}

TEST_F(SaveProject, NumbersThatCanNotBeFileNamesAreNamedAndTheOthersSaved) {
  setRow(0, triaxialBytes("a/b", "1"));
  setRow(1, triaxialBytes("good", "1"));
  setRow(2, triaxialBytes("a/b", "2"));
  setRow(3, triaxialBytes("..", "1"));
  // No text; they look alike and are two projects all the same.
  setRow(4, triaxialBytes("A\xFF", "1"));
  setRow(5, triaxialBytes("A\xFE", "1"));
  const SaveReport report = save();
  EXPECT_THAT(report.errors, ::testing::ElementsAre(HasSubstr("“a/b”（第 1、3 行）"), HasSubstr("“..”（第 4 行）"),
                                                    HasSubstr("“A?”（第 5 行）"), HasSubstr("“A?”（第 6 行）")));
  EXPECT_TRUE(has("HSZS/WKSZgood.txt"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(workspace.projectFolder()), {}), 1);
}

TEST_F(SaveProject, WhenNoRowCanBeSavedNothingIsWritten) {
  setRow(0, triaxialBytes("CON", "1"));
  EXPECT_THAT(sentenceOf([&] { save(); }), HasSubstr("“CON”"));
  EXPECT_TRUE(std::filesystem::is_empty(workspace.projectFolder()));
  EXPECT_TRUE(std::filesystem::is_empty(workspace.summaryFolder()));
}

TEST_F(SaveProject, ADamagedFileIsLeftAloneAndTheOthersSaved) {
  const std::string old = headerBytes({"many", "P1"}) + std::string(38576, ' ');
  write("HSZS/WKSZP1.txt", old);
  setRow(0, triaxialBytes("P1", "A-1"));
  setRow(1, triaxialBytes("N1", "A-1"));
  const SaveReport report = save();
  EXPECT_THAT(report.errors, ::testing::ElementsAre(HasSubstr("WKSZP1.txt")));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), old);
  EXPECT_FALSE(has("ZMSJ/KHZP1.txt"));
  EXPECT_TRUE(has("HSZS/WKSZN1.txt"));
}

TEST_F(SaveProject, AFullFileTakesNoNewSample) {
  const std::string known = triaxialBytes("P1", "A-1"), changed = triaxialBytes("P1", "A-1", 2, "250");
  // The file claims 9999 samples and holds the first; nothing but its head and that record is touched.
  write("HSZS/WKSZP1.txt", headerBytes({"9999", "P1"}) + known);
  setRow(0, changed);
  setRow(1, triaxialBytes("P1", "A-2"));
  setRow(2, triaxialBytes("P1", "A-3"));
  const SaveReport report = save();
  EXPECT_THAT(report.errors, ::testing::ElementsAre(HasSubstr("A-2、A-3")));
  EXPECT_SAME_BYTES(readStart("HSZS/WKSZP1.txt", kHeaderSize + kTriaxialSize), headerBytes({"9999", "P1"}) + changed);
  EXPECT_EQ(std::filesystem::file_size(data("HSZS/WKSZP1.txt")), 81 + 9999ULL * 38576 + 100) << "the end text's place";
}

TEST_F(SaveProject, TheSampleBeforeTheLastPlaceIsTaken) {
  write("HSZS/WKSZP1.txt", headerBytes({"9998", "P1"}));
  setRow(0, triaxialBytes("P1", "A-1"));
  EXPECT_THAT(save().errors, IsEmpty());
  EXPECT_EQ(readStart("HSZS/WKSZP1.txt", 4), "9999");
}

TEST_F(SaveProject, AHoleThatAShortFileGetsIsNoSample) {
  // The file claims two samples and holds none; a third is put behind them.
  write("HSZS/WKSZP1.txt", headerBytes({"0002", "P1"}));
  const std::string third = triaxialBytes("P1", "A-3");
  setRow(0, third);
  save();
  EXPECT_EQ(read("HSZS/WKSZP1.txt").size(), kHeaderSize + 3 * kTriaxialSize + kEndTextSize);
  clearRows();
  openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr);
  EXPECT_FALSE(isLive(row(0)));
  EXPECT_FALSE(isLive(row(1)));
  EXPECT_TRUE(isLive(row(2)));
  EXPECT_TRUE(row(0).projectNo.isBlank()) << "a blank record, not one of zero bytes";
}

TEST_F(SaveProject, AFailedSaveLeavesTheRowsAsTheyWere) {
  std::string unsorted = triaxialBytes("N1", "A-1");
  put(unsorted, 56, field("300", 6) + field("100", 6));
  setRow(0, unsorted);
  std::filesystem::remove_all(workspace.dataFolder);
  SetText(workspace.projectHeader.projectNo, "BEFORE");
  setDate("2024", "5", "6");
  EXPECT_THAT(sentenceOf([&] { save(); }), HasSubstr("没有保存"));
  EXPECT_FALSE(sharedSettings(workspace).exists()) << "the date goes with the save";
  EXPECT_SAME_BYTES(bytesOfRecord(row(0)), unsorted);
  EXPECT_EQ(workspace.projectHeader.projectNo.trimmed(), "BEFORE");
}

}  // namespace
}  // namespace triaxlab::testing
