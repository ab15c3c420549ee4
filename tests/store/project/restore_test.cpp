// A copy of a project file takes its place again, and the summary file follows.

#include "store/project/restore_project.h"

#include "store/project/save_project.h"
#include "store/summary/summary_fixture.h"
#include "store/summary/summary_record.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kFile = "WKSZP1.txt";
constexpr const char* kCopy = "WKSZP1_20240504-101112-000000.txt";

class Restore : public StoreTest {
 protected:
  /// A sample with a cohesion that a save puts into the summary file.
  void setSample(std::size_t at, std::string_view sampleNo, std::string_view cohesion) {
    setRow(at, triaxialBytes("P1", sampleNo));
    SetText(row(at).cohesionText, cohesion);
    row(at).frictionAngle = 20;
  }
  void save() { EXPECT_THAT(saveProject(workspace, ProjectKind::Triaxial, nullptr).errors, IsEmpty()); }
  /// S1 with 10 kPa is in the copy; in the file it has 30 kPa, and S2 has come.
  void saveTwice() {
    setSample(0, "S1", "10");
    save();
    write(std::string("HSZS/backup/") + kCopy, read("HSZS/WKSZP1.txt"));
    summaryOfCopy = read("ZMSJ/KHZP1.txt");
    setSample(0, "S1", "30");
    setSample(1, "S2", "40");
    save();
  }
  std::vector<ProjectCopy> copies() { return listCopies(workspace, ProjectKind::Triaxial, kFile); }
  RestoreReport restore(const std::string& copy = kCopy) {
    return restoreProject(workspace, ProjectKind::Triaxial, kFile, copy);
  }

  std::string summaryOfCopy;
};

TEST_F(Restore, ACopyTellsItsDayItsSamplesAndWhatDiffers) {
  EXPECT_THAT(sentenceOf([&] { copies(); }), HasSubstr(kFile));
  saveTwice();
  write("HSZS/backup/WKSZP1_20240505-000000-000000.txt", read("HSZS/WKSZP1.txt"));
  write("HSZS/backup/WKSZP1_20240503-235959-000000.txt", "cut");
  write("HSZS/backup/WKSZP12_20240504-101112-000000.txt", read("HSZS/WKSZP1.txt"));
  const std::vector<ProjectCopy> rows = copies();
  ASSERT_THAT(rows, SizeIs(3)) << "another project's are its own";
  EXPECT_EQ(rows[0].time, "2024-05-05 00:00:00");
  EXPECT_EQ(rows[0].sampleCount, "2");
  EXPECT_EQ(rows[0].difference, "试样和现在一样");
  EXPECT_EQ(rows[1].name, kCopy);
  EXPECT_EQ(rows[1].time, "2024-05-04 10:11:12");
  EXPECT_EQ(rows[1].sampleCount, "1");
  EXPECT_EQ(rows[1].difference, "没有 1 个：S2；改变 1 个：S1");
  EXPECT_EQ(rows[2].sampleCount, "");
  EXPECT_THAT(rows[2].difference, HasSubstr("WKSZP1_20240503-235959-000000.txt"));
}

TEST_F(Restore, TheFileIsTheCopyAndWhatItWasIsACopyToo) {
  saveTwice();
  const std::string before = read("HSZS/WKSZP1.txt"), copy = read(std::string("HSZS/backup/") + kCopy);
  const RestoreReport report = restore();
  EXPECT_THAT(report.errors, IsEmpty());
  EXPECT_THAT(report.remarks, IsEmpty());
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), copy);
  ASSERT_THAT(backups(), SizeIs(2));
  EXPECT_SAME_BYTES(read("HSZS/backup/" + backups()[1]), before);
  EXPECT_FALSE(has("journal"));
}

TEST_F(Restore, TheSummaryFileFollows) {
  saveTwice();
  const std::string both = read("ZMSJ/KHZP1.txt");
  restore();
  const std::string after = read("ZMSJ/KHZP1.txt");
  const std::size_t first = kSummaryHeaderSize, second = first + kSummaryRecordSize;
  EXPECT_SAME_BYTES(after.substr(0, second), both.substr(0, kSummaryHeaderSize) + summaryOfCopy.substr(first))
      << "S1 as it was saved then";
  ASSERT_EQ(after.size(), both.size()) << "the record of S2 stays, for other tools have data in it";
  const auto recordOfS2 = [&](const std::string& file) { return recordOf<SummaryRecord>(file.substr(second)); };
  EXPECT_EQ(recordOfS2(both).cSz.trimmed(), "40");
  EXPECT_EQ(recordOfS2(after).cSz.trimmed(), "") << "its results are gone with it";
  EXPECT_EQ(recordOfS2(after).sampleNo.trimmed(), "S2");
}

TEST_F(Restore, TheSummaryFileIsThatOfASaveOfTheCopysSamples) {
  saveTwice();
  restore();
  const std::string restored = read("ZMSJ/KHZP1.txt");
  clearRows();
  setSample(0, "S1", "10");
  workspace.fileMemory = {};
  save();
  EXPECT_SAME_BYTES(read("ZMSJ/KHZP1.txt"), restored);
}

TEST_F(Restore, TheTablesOfTheWorkspaceStay) {
  saveTwice();
  restore();
  EXPECT_EQ(row(0).cohesionText.trimmed(), "30");
  EXPECT_EQ(row(1).sampleNo.trimmed(), "S2");
}

TEST_F(Restore, AnOpenDocumentAsksBeforeItWritesOverWhatWasRestored) {
  saveTwice();
  restore();
  const std::string restored = read("HSZS/WKSZP1.txt");
  std::string asked;
  const auto no = [&](std::string_view, std::string_view question) {
    asked = question;
    return false;
  };
  EXPECT_THROW(saveProject(workspace, ProjectKind::Triaxial, nullptr, no), UserError);
  EXPECT_THAT(asked, HasSubstr(kFile));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), restored);
}

TEST_F(Restore, TheOldestOfAllCopiesCanBeRestored) {
  saveTwice();
  const std::string copy = read(std::string("HSZS/backup/") + kCopy);
  for (const char* const day : {"05", "06", "07", "08"})
    write(std::string("HSZS/backup/WKSZP1_202405") + day + "-101112-000000.txt", "other");
  restore();
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), copy);
  EXPECT_THAT(backups(), SizeIs(5)) << "the copy of the file as it was has pushed it out";
  EXPECT_FALSE(has(std::string("HSZS/backup/") + kCopy));
}

TEST_F(Restore, WithoutACopyOfTheFileAsItWasNothingIsRestored) {
  POSIX_ONLY("links");
  saveTwice();
  std::filesystem::create_directory(data("elsewhere"));
  std::filesystem::rename(data("HSZS/backup"), data("elsewhere/backup"));
  std::filesystem::create_directory_symlink(data("elsewhere/backup"), data("HSZS/backup"));
  const auto before = snapshot();
  EXPECT_NE(sentenceOf([&] { restore(); }), "nothing thrown");
  EXPECT_TRUE(snapshot() == before);
}

TEST_F(Restore, ADamagedCopyChangesNothing) {
  saveTwice();
  write("HSZS/backup/WKSZP1_20240503-235959-000000.txt", "cut");
  const auto before = snapshot();
  EXPECT_FALSE(copies().back().isReadable);
  EXPECT_TRUE(copies().front().isReadable);
  EXPECT_THAT(sentenceOf([&] { restore("WKSZP1_20240503-235959-000000.txt"); }), HasSubstr("WKSZP1"));
  EXPECT_THAT(sentenceOf([&] { restore("WKSZP1_20200101-000000-000000.txt"); }), HasSubstr("WKSZP1_20200101"));
  EXPECT_TRUE(snapshot() == before);
}

TEST_F(Restore, ADamagedSummaryFileIsNamedAndLeftAlone) {
  saveTwice();
  write("ZMSJ/KHZP1.txt", "cut");
  const RestoreReport report = restore();
  ASSERT_THAT(report.errors, SizeIs(1));
  EXPECT_THAT(report.errors[0], HasSubstr("KHZP1.txt"));
  EXPECT_EQ(read("ZMSJ/KHZP1.txt"), "cut");
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0001");
}

}  // namespace
}  // namespace triaxlab::testing
