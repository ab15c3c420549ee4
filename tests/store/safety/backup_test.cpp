// Copies of project files as they were before a run of the program first changed them.

#include "store/safety/backup.h"

#include <algorithm>
#include <limits>
#include <regex>

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/save_project.h"
#include "store/store_fixture.h"
#include "support/posix_only.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::SizeIs;

class Backup : public StoreTest {
 protected:
  static std::string project(const std::string& projectNo, const std::string& sample = "S1") {
    return headerBytes({"0001", projectNo}) + triaxialBytes(projectNo, sample) + field("doc", 100);
  }
  Remarks save() { return saveProject(workspace, ProjectKind::Triaxial, nullptr).remarks; }
  void rewrite(std::vector<std::uint32_t> order) {
    rewriteProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", order);
  }
  /// A fresh start of the program: nothing is remembered.
  void startAnew() { workspace.fileMemory = {}; }
  std::string backup(std::size_t index) const { return read("HSZS/backup/" + backups().at(index)); }
  /// A copy of the given time, of which nothing but its size is on the disk.
  void writeCopy(const std::string& name, std::uint64_t size = 3) const {
    write("HSZS/backup/" + name, "");
    std::filesystem::resize_file(data("HSZS/backup/" + name), size);
  }
};

TEST_F(Backup, OfTheStateBeforeTheFirstSaveOfARun) {
  const std::string old = project("P1");
  write("HSZS/WKSZP1.txt", old);
  setRow(0, triaxialBytes("P1", "S2"));
  EXPECT_THAT(save(), IsEmpty());
  ASSERT_THAT(backups(), SizeIs(1));
  EXPECT_TRUE(std::regex_match(backups()[0], std::regex("WKSZP1_20[0-9]{6}-[0-9]{6}-[0-9]{6}\\.txt"))) << backups()[0];
  EXPECT_SAME_BYTES(backup(0), old);
  const std::string saved = read("HSZS/WKSZP1.txt");
  save();
  rewrite({1});
  EXPECT_THAT(backups(), SizeIs(1)) << "the later states are this run's own";
  write("HSZS/WKSZP1.txt", saved);
  startAnew();
  save();
  ASSERT_THAT(backups(), SizeIs(2)) << "another run, another copy";
  EXPECT_SAME_BYTES(backup(1), saved);
}

TEST_F(Backup, BeforeARewriteADeletionAndAnUpgrade) {
  for (const std::vector<std::uint32_t>& order : {std::vector<std::uint32_t>{0}, {}}) {
    startAnew();
    std::filesystem::remove_all(data("HSZS/backup"));
    write("HSZS/WKSZP1.txt", project("P1"));
    rewrite(order);
    ASSERT_THAT(backups(), SizeIs(1));
    EXPECT_SAME_BYTES(backup(0), project("P1"));
  }
  const std::string old = headerBytes({"0001", "P2", "", "", "", "", "V1.0"}) +
                          triaxialBytes("P2", "S1").substr(0, 38366) + field("doc", 100);
  write("HSZS/WKSZP2.txt", old);
  openProject(workspace, ProjectKind::Triaxial, "WKSZP2.txt", nullptr);
  ASSERT_THAT(backups(), ElementsAre(HasSubstr("WKSZP1_"), HasSubstr("WKSZP2_")));
  EXPECT_SAME_BYTES(backup(1), old);
  workspace.TriaxialSampleTable[0].frictionAngle = 30;
  save();
  EXPECT_THAT(backups(), SizeIs(2)) << "the upgraded file is this run's own";
}

TEST_F(Backup, OfAStateThatAnotherProgramMade) {
  write("HSZS/WKSZP1.txt", project("P1"));
  setRow(0, triaxialBytes("P1", "S1", 2, "300"));
  save();
  const std::string others = project("P1", "others");
  write("HSZS/WKSZP1.txt", others);
  save();
  ASSERT_THAT(backups(), SizeIs(2));
  EXPECT_SAME_BYTES(backup(1), others);
}

TEST_F(Backup, NothingForAFileThatTheRunMade) {
  setRow(0, triaxialBytes("P1", "S1"));
  save();
  save();
  rewrite({0});
  EXPECT_FALSE(has("HSZS/backup"));
}

TEST_F(Backup, OnlyOfFilesThatAreWritten) {
  write("HSZS/WKSZP1.txt", project("P1"));
  setRow(0, triaxialBytes("P1", "S1"));
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  saveProject(workspace, ProjectKind::Triaxial, [](Workspace& asked, const std::vector<KnownSample>& known) {
    for (const KnownSample& sample : known) asked.dataOf(ProjectKind::Triaxial).keepExisting[sample.row] = true;
    return true;
  });
  EXPECT_FALSE(has("HSZS/backup"));
}

TEST_F(Backup, TenInOneSecondHaveNamesOfTheirOwnAndFiveAreKept) {
  for (int i = 0; i < 10; ++i) {
    write("HSZS/WKSZP1.txt", std::string(static_cast<std::size_t>(i + 1), 'x'));
    EXPECT_THAT(keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0), IsEmpty());
    EXPECT_THAT(backups(), SizeIs(std::min(i + 1, 5)));
  }
  ASSERT_THAT(backups(), SizeIs(5));
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(backup(i).size(), i + 6) << "the newest, by name in order of age";
}

TEST_F(Backup, EachProjectHasFiveOfItsOwn) {
  for (const char* day : {"01", "02", "03", "04", "05", "06"})
    for (const char* project : {"WKSZP1", "WKSZP1_2", "KOP1"})
      writeCopy(std::string(project) + "_202401" + day + "-120000-000000.txt");
  writeCopy("notes.txt");
  write("HSZS/WKSZP1.txt", "now");
  keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0);
  const std::vector<std::string> names = backups();
  const auto countOf = [&names](const std::string& prefix) {
    return std::count_if(names.begin(), names.end(), [&](const std::string& n) { return n.starts_with(prefix); });
  };
  EXPECT_EQ(countOf("KOP1_"), 5);
  EXPECT_EQ(countOf("WKSZP1_2_"), 5);
  EXPECT_EQ(countOf("WKSZP1_2024"), 4) << "and the new one";
  EXPECT_FALSE(has("HSZS/backup/WKSZP1_20240102-120000-000000.txt"));
  EXPECT_TRUE(has("HSZS/backup/WKSZP1_20240103-120000-000000.txt"));
  EXPECT_TRUE(has("HSZS/backup/notes.txt")) << "what isn't ours stays";
}

TEST_F(Backup, AllTogetherAreAGigabyteAndTheOldestGoFirst) {
  constexpr std::uint64_t kMegabyte = 1 << 20;
  writeCopy("WKSZP1_20240101-120000-000000.txt", 1);
  writeCopy("WKSZP2_20240102-120000-000000.txt", 600 * kMegabyte);
  writeCopy("WKSZP3_20240103-120000-000000.txt", 600 * kMegabyte);
  writeCopy("WKSZP4_20240104-120000-000000.txt", 424 * kMegabyte - 3);
  write("HSZS/WKSZP5.txt", "now");
  keepCopy(workspace, data("HSZS/WKSZP5.txt"), 0);
  EXPECT_THAT(backups(), ElementsAre(HasSubstr("WKSZP3_"), HasSubstr("WKSZP4_"), HasSubstr("WKSZP5_")))
      << "3 + 424 MB - 3 + 600 MB are 1024 MB";
}

TEST_F(Backup, AClockThatWasSetBackDoesNotCostTheNewCopy) {
  for (int i = 0; i < 5; ++i) writeCopy("WKSZP1_2999010" + std::to_string(i + 1) + "-120000-000000.txt");
  write("HSZS/WKSZP1.txt", "now");
  keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0);
  ASSERT_THAT(backups(), SizeIs(5));
  EXPECT_EQ(backup(0), "now");
  EXPECT_THAT(backups().at(1), HasSubstr("29990102"));
}

TEST_F(Backup, ThatCanNotBeMadeIsARemark) {
  write("HSZS/backup", "a file has the folder's name");
  write("HSZS/WKSZP1.txt", project("P1"));
  setRow(0, triaxialBytes("P1", "S2"));
  const Remarks remarks = save();
  EXPECT_THAT(remarks, ElementsAre(::testing::AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("备份"))));
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0002") << "the save is done";
  EXPECT_EQ(read("HSZS/backup"), "a file has the folder's name");
}

TEST_F(Backup, LeavesTheDiskToTheSave) {
  write("HSZS/WKSZP1.txt", "now");
  constexpr std::uint64_t kMoreThanAnyDisk = std::numeric_limits<std::int64_t>::max();
  EXPECT_THAT(keepCopy(workspace, data("HSZS/WKSZP1.txt"), kMoreThanAnyDisk), ElementsAre(HasSubstr("剩余空间")));
  EXPECT_THAT(backups(), IsEmpty());
  EXPECT_THAT(keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0), IsEmpty());
  EXPECT_THAT(backups(), SizeIs(1)) << "it is tried again";
}

TEST_F(Backup, OfAFileBeyondTheLimitIsNotMade) {
  write("HSZS/WKSZP1.txt", "");
  std::filesystem::resize_file(data("HSZS/WKSZP1.txt"), kLargestBackups + 1);
  EXPECT_THAT(keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0), ElementsAre(HasSubstr("上限")));
  EXPECT_THAT(backups(), IsEmpty());
}

TEST_F(Backup, AnUnfinishedOneIsNotWrittenThrough) {
  POSIX_ONLY("links");
  write("HSZS/backup/x", "");
  write("../precious", "not ours");
  std::filesystem::create_symlink(folder() / "precious", data("HSZS/backup/copy.new"));
  write("HSZS/WKSZP1.txt", "now");
  EXPECT_THAT(keepCopy(workspace, data("HSZS/WKSZP1.txt"), 0), IsEmpty());
  EXPECT_EQ(read("../precious"), "not ours");
  EXPECT_THAT(backups(), ElementsAre("copy.new", MatchesRegex("WKSZP1_.*txt"), "x"));
}

TEST_F(Backup, EqualToTheNewestIsNotMadeAgain) {
  write("HSZS/WKSZP1.txt", project("P1", "good"));
  setRow(0, triaxialBytes("P1", "S1"));
  save();
  for (int run = 0; run < 6; ++run) {
    startAnew();
    save();
  }
  ASSERT_THAT(backups(), SizeIs(2)) << "before the first save, and after it";
  EXPECT_SAME_BYTES(backup(0), project("P1", "good"));
}

TEST_F(Backup, IsNeverListed) {
  write("HSZS/WKSZP1.txt", project("P1"));
  setRow(0, triaxialBytes("P1", "S1"));
  save();
  ASSERT_THAT(backups(), SizeIs(1));
  EXPECT_THAT(listProjects(workspace, ProjectKind::Triaxial), SizeIs(1));
}

}  // namespace
}  // namespace triaxlab::testing
