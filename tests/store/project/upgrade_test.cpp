// Project files of the two formats with shorter records, which are brought into today's in place.

#include "store/project/upgrade.h"

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/save_project.h"
#include "store/store_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t kOldTriaxialSize = 38366, kOldUnconfinedSize = 916, kUnconfinedSize = 1924;

std::string oldHeader(const std::string& count, const std::string& tag = "V1.0") {
  return headerBytes({count, "P1", "2019/01/02", "2019-03-04", "2019/02/28", "Qian", tag});
}

/// Every byte of an old triaxial record tells where it stood.
std::string oldTriaxial(std::string_view sampleNo, int seed = 0) {
  std::string record(kOldTriaxialSize, ' ');
  for (std::size_t i = 0; i < record.size(); ++i)
    record[i] = static_cast<char>('!' + (i * 7 + static_cast<std::size_t>(seed)) % 90);
  put(record, 0, field("P1", 15) + field(sampleNo, 14));
  return record;
}
/// Test date, the two C texts and the reserve are blank.
std::string upgradedTriaxial(const std::string& old) { return old + std::string(210, ' '); }

/// A column of 23 texts of 6, "a0" to "a22".
std::string oldColumn(char name) {
  std::string column;
  for (int row = 0; row < 23; ++row) column += field(name + std::to_string(row), 6);
  return column;
}
/// Heights, areas, ring coefficients, qu, qu', St, strain limits and spare, as they follow the columns.
std::string scalars() {
  return field("8.00", 6) + field("7.90", 6) + field("12.00", 6) + field("11.90", 6) + int16Bytes(1234) +
         int16Bytes(-5) + field("88.8", 6) + field("44.4", 6) + field("2.00", 6) + "\x96\x64" + field("spare", 10);
}
std::string oldUnconfined(std::string_view sampleNo) {
  std::string record = field("P1", 15) + field(sampleNo, 15);
  for (const char column : {'a', 'b', 'c', 'd', 'e', 'f'}) record += oldColumn(column);
  return record + scalars();
}
std::string upgradedUnconfined(std::string_view sampleNo) {
  std::string record = field("P1", 15) + field(sampleNo, 15);
  for (const char column : {'a', 'b', 'c', 'd', 'e', 'f'}) record += field(oldColumn(column), 51 * 6);
  return record + scalars();
}

class Upgrade : public StoreTest {
 protected:
  Remarks open(ProjectKind kind, const std::string& name) { return openProject(workspace, kind, name, nullptr); }
  /// What lies in the application folder but the settings.
  bool hasTemporary() const { return !listFiles(folder() / "app", "", ".bak").empty(); }
  const std::string endText = field("doc 17", 100);
};

TEST_F(Upgrade, ATriaxialFileKeepsItsFieldsAndItsEndText) {
  ASSERT_EQ(oldTriaxial("A-1").size() + 210, kTriaxialSize);
  write("HSZS/WKSZP1.TXT", oldHeader("0002") + oldTriaxial("A-1") + oldTriaxial("A-2", 5) + endText);
  EXPECT_THAT(open(ProjectKind::Triaxial, "WKSZP1.txt"), IsEmpty());
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.TXT"), oldHeader("0002", "V2.0") + upgradedTriaxial(oldTriaxial("A-1")) +
                                                 upgradedTriaxial(oldTriaxial("A-2", 5)) + endText);
  EXPECT_EQ(row(1).sampleNo.trimmed(), "A-2");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.trimmed(), "doc 17");
  EXPECT_FALSE(hasTemporary());
  EXPECT_THAT(listFiles(data("HSZS"), "", ""), ElementsAre("WKSZP1.TXT"));
}

TEST_F(Upgrade, AnUnconfinedFileGetsTwentyEightBlankRowsInEachColumn) {
  ASSERT_EQ(oldUnconfined("S1").size(), kOldUnconfinedSize);
  ASSERT_EQ(upgradedUnconfined("S1").size(), kUnconfinedSize);
  write("HSZS/KWCXP1.txt", oldHeader("0002", "") + oldUnconfined("S1") + oldUnconfined("S2"));
  EXPECT_THAT(open(ProjectKind::Unconfined, "KWCXP1.txt"), IsEmpty());
  EXPECT_SAME_BYTES(read("HSZS/KWCXP1.txt"),
                    oldHeader("0002", "V2.0") + upgradedUnconfined("S1") + upgradedUnconfined("S2"));
  const UnconfinedSampleRecord& record = workspace.UnconfinedSampleTable[1];
  EXPECT_EQ(record.remouldedReading[22].trimmed(), "f22");
  EXPECT_TRUE(record.undisturbedStress[23].isBlank());
  EXPECT_EQ(record.ringCoefficient[0], 1234);
  EXPECT_FALSE(hasTemporary());
}

TEST_F(Upgrade, AFileWithoutSamplesGetsANewHeadAndItsEndText) {
  write("HSZS/WKSZP1.txt", oldHeader("0000") + endText);
  open(ProjectKind::Triaxial, "WKSZP1.txt");
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), oldHeader("0000", "V2.0") + endText);
}

TEST_F(Upgrade, TheFirstFourPlacesOfTheTagAloneTell) {
  for (const char* tag : {"", "V1.9", "v2.0", " V2.0", "V2,0"}) {
    write("HSZS/WKSZP1.txt", oldHeader("0001", tag) + oldTriaxial("A-1") + endText);
    open(ProjectKind::Triaxial, "WKSZP1.txt");
    EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"),
                      oldHeader("0001", "V2.0") + upgradedTriaxial(oldTriaxial("A-1")) + endText)
        << tag;
  }
}

TEST_F(Upgrade, ACurrentFileIsNotTouched) {
  workspace.applicationFolder = folder() / "gone";  // where nothing could be converted
  const std::string triaxial = oldHeader("0001", "V2.0b") + triaxialBytes("P1", "A-1") + endText;
  const std::string k0 = oldHeader("0001", "V1.0") + field("P1", 15) + field("S1", 15) + std::string(213, ' ');
  write("HSZS/WKSZP1.txt", triaxial);
  write("HSZS/KOP1.txt", k0);
  EXPECT_THAT(open(ProjectKind::Triaxial, "WKSZP1.txt"), IsEmpty());
  EXPECT_THAT(open(ProjectKind::K0, "KOP1.txt"), IsEmpty()) << "K0 files have one format only";
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), triaxial);
  EXPECT_SAME_BYTES(read("HSZS/KOP1.txt"), k0);
}

TEST_F(Upgrade, AMissingFileIsNone) {
  EXPECT_THAT(upgradeProject(workspace, infoOf(ProjectKind::Triaxial), data("HSZS/WKSZ9.txt")), IsEmpty());
  EXPECT_FALSE(has("HSZS/WKSZ9.txt"));
}

TEST_F(Upgrade, TheSampleListComesFromTheUpgradedFile) {
  write("HSZS/WKSZP1.txt", oldHeader("0002") + oldTriaxial("A-1") + oldTriaxial("A-2") + endText);
  const SampleListTable rows = listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[1].sampleNo, "A-2");
  EXPECT_EQ(read("HSZS/WKSZP1.txt").size(), 81U + 2 * 38576 + 100);
}

TEST_F(Upgrade, ASaveFindsItsSamplesInTheUpgradedFile) {
  const std::string stored = oldTriaxial("A-1");
  write("HSZS/WKSZP1.txt", oldHeader("0001") + stored + endText);
  setRow(0, triaxialBytes("P1", "A-1", static_cast<unsigned char>(stored[32])));
  setRow(1, triaxialBytes("P1", "A-2"));
  EXPECT_THAT(saveProject(workspace, ProjectKind::Triaxial, nullptr).errors, IsEmpty());
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"),
                    oldHeader("0002", "V2.0") + bytesOfRecord(row(0)) + bytesOfRecord(row(1)) + std::string(100, ' '));
}

TEST_F(Upgrade, AnUnconfinedSaveUpgradesToo) {
  write("HSZS/KWCXP1.txt", oldHeader("0001", "") + oldUnconfined("S1"));
  workspace.UnconfinedSampleTable[0] = recordOf<UnconfinedSampleRecord>(upgradedUnconfined("S2"));
  EXPECT_THAT(saveProject(workspace, ProjectKind::Unconfined, nullptr).errors, IsEmpty());
  EXPECT_SAME_BYTES(read("HSZS/KWCXP1.txt"),
                    oldHeader("0002", "V2.0") + upgradedUnconfined("S1") + upgradedUnconfined("S2"));
}

// ---- Damage

TEST_F(Upgrade, WhatTheFileLacksIsBlankAndTold) {
  const std::string old = oldTriaxial("A-2");
  write("HSZS/WKSZP1.txt", oldHeader("0003") + oldTriaxial("A-1") + old.substr(0, 30'000));
  const Remarks remarks = open(ProjectKind::Triaxial, "WKSZP1.txt");
  EXPECT_THAT(remarks,
              ElementsAre(::testing::AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("缺 2 个试样（第 2 个只剩一部分）"))));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), oldHeader("0003", "V2.0") + upgradedTriaxial(oldTriaxial("A-1")) +
                                                 emptyTriaxial() + emptyTriaxial() + std::string(100, ' '));
}

TEST_F(Upgrade, AFileCutAnywhereBecomesAWholeOne) {
  const std::string whole = oldHeader("0002", "") + oldUnconfined("S1") + oldUnconfined("S2");
  for (std::size_t size = 0; size < whole.size(); size += 97) {
    write("HSZS/KWCXP1.txt", whole.substr(0, size));
    if (size < kHeaderSize) {
      EXPECT_THAT(sentenceOf([&] { open(ProjectKind::Unconfined, "KWCXP1.txt"); }), HasSubstr("KWCXP1.txt")) << size;
      EXPECT_EQ(read("HSZS/KWCXP1.txt").size(), size);
      continue;
    }
    EXPECT_EQ(open(ProjectKind::Unconfined, "KWCXP1.txt").size(), 1U) << size;
    EXPECT_EQ(read("HSZS/KWCXP1.txt").size(), kHeaderSize + 2 * kUnconfinedSize) << size;
  }
}

TEST_F(Upgrade, AHeadWithoutACountIsRefusedAndLeftAlone) {
  const std::string file = oldHeader("abcd") + oldTriaxial("A-1");
  write("HSZS/WKSZP1.txt", file);
  EXPECT_THAT(sentenceOf([&] { open(ProjectKind::Triaxial, "WKSZP1.txt"); }), HasSubstr("没有试样总数"));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), file);
  EXPECT_FALSE(hasTemporary());
}

TEST_F(Upgrade, AFailureLeavesTheOldFileAndNamesIt) {
  const std::string file = oldHeader("0001") + oldTriaxial("A-1") + endText;
  write("HSZS/WKSZP1.txt", file);
  workspace.applicationFolder = folder() / "gone";
  EXPECT_THAT(sentenceOf([&] { open(ProjectKind::Triaxial, "WKSZP1.txt"); }),
              ::testing::AllOf(HasSubstr(textOfPath("HSZS/WKSZP1.txt")), HasSubstr("旧格式"),
                               HasSubstr(textOfPath("gone/b."))));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), file);
  EXPECT_TRUE(row(0).sampleNo.isBlank()) << "the table is as it was";
}

TEST_F(Upgrade, ALeftTemporaryFileIsNotWrittenThrough) {
  POSIX_ONLY("links");
  std::filesystem::create_directories(folder() / "elsewhere");
  write("../elsewhere/precious", "not ours");
  std::filesystem::create_symlink(folder() / "elsewhere/precious", folder() / "app/b.bak");
  write("HSZS/WKSZP1.txt", oldHeader("0000") + endText);
  open(ProjectKind::Triaxial, "WKSZP1.txt");
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), oldHeader("0000", "V2.0") + endText);
  EXPECT_EQ(read("../elsewhere/precious"), "not ours");
  EXPECT_THAT(listFiles(folder() / "app", "", ".bak"), ::testing::ElementsAre("b.bak"));
}

// ---- Without upgrading

TEST_F(Upgrade, ReadingAloneGivesTheSameSamplesAndTouchesNothing) {
  write("HSZS/WKSZP1.TXT", oldHeader("0002") + oldTriaxial("A-1") + oldTriaxial("A-2", 5) + endText);
  write("HSZS/KWCXP1.txt", oldHeader("0001", "") + oldUnconfined("S1"));
  write("triaxlab.lock", "");
  const auto before = snapshot();
  const Remarks readTriaxial = openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr, OpenFor::Reading);
  const Remarks readUnconfined =
      openProject(workspace, ProjectKind::Unconfined, "KWCXP1.txt", nullptr, OpenFor::Reading);
  EXPECT_EQ(snapshot(), before);

  const Workspace read = workspace;
  EXPECT_EQ(read.dataOf(ProjectKind::Triaxial).controlledDocNo.trimmed(), "doc 17");
  EXPECT_EQ(open(ProjectKind::Triaxial, "WKSZP1.txt"), readTriaxial);
  EXPECT_EQ(open(ProjectKind::Unconfined, "KWCXP1.txt"), readUnconfined);
  EXPECT_TRUE(read.TriaxialSampleTable == workspace.TriaxialSampleTable);
  EXPECT_TRUE(read.UnconfinedSampleTable == workspace.UnconfinedSampleTable);
}

TEST_F(Upgrade, ReadingAloneTellsWhatAShortFileLacks) {
  write("HSZS/WKSZP1.TXT", oldHeader("0003") + oldTriaxial("A-1") + oldTriaxial("A-2").substr(0, 20000));
  EXPECT_THAT(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr, OpenFor::Reading),
              ElementsAre(HasSubstr("缺 2 个试样（第 2 个只剩一部分）")));
  EXPECT_EQ(row(0).sampleNo.trimmed(), "A-1");
  EXPECT_TRUE(row(1).sampleNo.isBlank());
}

}  // namespace
}  // namespace triaxlab::testing
