// Two programs on one data folder: whoever comes second waits, and when it takes too long, says so and writes nothing.

#include "platform/file_lock.h"
#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/save_project.h"
#include "store/safety/data_lock.h"
#include "store/safety/file_update.h"
#include "store/summary/summary_fixture.h"
#include "support/lock_holder.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::Not;
using namespace std::chrono_literals;

static_assert(kLockPatience == 5s);

class Locks : public StoreTest {
 protected:
  Locks() {
    workspace.lockPatience = 100ms;
    write("HSZS/WKSZP1.txt",
          headerBytes({"0002", "P1"}) + triaxialBytes("P1", "S1") + triaxialBytes("P1", "S2") + field("", 100));
    write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0000", "P1"));
    setRow(0, triaxialBytes("P1", "S1", 2, "250"));
  }

  static ::testing::Matcher<std::string> isBusy() {
    const auto waited = AllOf(HasSubstr("另一个程序"), HasSubstr("0.1 秒"));
#ifdef _WIN32
    return AnyOf(waited, HasSubstr("它正被别的程序使用"));  // and can't even be opened
#else
    return waited;
#endif
  }
  void save() { saveProject(workspace, ProjectKind::Triaxial, nullptr); }
  void rewrite() { rewriteProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", std::array{1U, 0U}); }
  void open() { openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr); }
  /// While another program holds `held`, each of the acts ends with a sentence that names `told`, and not a byte
  /// changes.
  template <class... Acts>
  void expectRefused(const std::string& held, LockWay way, const std::string& told, Acts... acts) {
    const auto before = snapshot();
    LockHolder other(data(held), way);
    ASSERT_TRUE(other.holds());
    for (const std::string& sentence : {sentenceOf(acts)...})
      EXPECT_THAT(sentence, AllOf(HasSubstr(textOfPath(told)), isBusy()));
    other.kill();  // where a lock is kept by force, only its holder can read the file
    EXPECT_EQ(snapshot(), before);
  }
  bool folderIsFree() const { return FileLock::take(data("HSZS"), FileLock::Clock::now()).has_value(); }
};

TEST_F(Locks, AFileThatAnotherProgramHoldsIsNamedAndNothingIsWritten) {
  for (const LockWay way : {LockWay::Flock, LockWay::RecordLock})
    for (const std::string file : {"HSZS/WKSZP1.txt", "ZMSJ/KHZP1.txt"})
      expectRefused(
          file, way, file, [this] { save(); }, [this] { rewrite(); });
  const std::string before = read("HSZS/WKSZP1.txt");
  save();
  EXPECT_NE(difference(read("HSZS/WKSZP1.txt"), before), "") << "a program that was killed holds nothing";
}

TEST_F(Locks, OneBusyProjectKeepsTheOthersFromBeingSavedAndUpgradedToo) {
  write("HSZS/WKSZP0.txt", headerBytes({"0000", "P0", "", "", "", "", "V1.0"}) + field("", 100));
  setRow(1, triaxialBytes("P0", "S1"));
  expectRefused("HSZS/WKSZP1.txt", LockWay::Flock, "HSZS/WKSZP1.txt", [this] { save(); });
}

TEST_F(Locks, ASaveOfAnotherProgramIsWaitedFor) {
  expectRefused(
      "HSZS", LockWay::Flock, "HSZS", [this] { save(); }, [this] { rewrite(); });
  const LockHolder other(data("HSZS"), LockWay::Flock);
  open();
  EXPECT_TRUE(isLive(row(1))) << "without a journal an open needs nobody's leave";
}

TEST_F(Locks, AnUpgradeIsAChange) {
  write("HSZS/WKSZP1.txt", headerBytes({"0000", "P1", "", "", "", "", "V1.0"}) + field("", 100));
  for (const std::string locked : {"HSZS", "HSZS/WKSZP1.txt"})
    expectRefused(
        locked, LockWay::Flock, locked, [this] { open(); },
        [this] { listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt"); });
}

TEST_F(Locks, AJournalInTheMakingIsLeftToItsProgram) {
  for (const std::string name : {"journal", "journal.new"}) {
    write(name, "not finished yet");
    expectRefused(
        "HSZS", LockWay::Flock, "HSZS", [this] { open(); }, [this] { listProjects(workspace, ProjectKind::Triaxial); });
    open();
    EXPECT_FALSE(has(name)) << "nobody is going to finish it";
  }
}

TEST_F(Locks, ASaveOnAnotherMachineIsWaitedFor) {
  // A share of a network keeps the lock of a folder to the machine; that of a file reaches here.
  for (const LockWay way : {LockWay::Flock, LockWay::RecordLock}) {
    write("triaxlab.lock", "");
    expectRefused(
        "triaxlab.lock", way, "data", [this] { save(); }, [this] { rewrite(); });
    LockHolder other(data("triaxlab.lock"), way);
    open();
    other.kill();
    FileUpdate::recover(workspace.dataFolder);
    EXPECT_FALSE(has("triaxlab.lock")) << "a dead program's lock file lies about no longer";
  }
  save();
  EXPECT_FALSE(has("triaxlab.lock"));
}

TEST_F(Locks, EndWithTheSave) {
  save();
  EXPECT_TRUE(folderIsFree());
  rewrite();
  EXPECT_TRUE(folderIsFree());
  EXPECT_THROW(rewriteProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", std::array{7U}), UserError);
  EXPECT_TRUE(folderIsFree());
}

TEST_F(Locks, NobodyWaitsForAPerson) {
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  bool wasFree = false;
  saveProject(workspace, ProjectKind::Triaxial,
              [&](Workspace&, const std::vector<KnownSample>&) { return wasFree = folderIsFree(); });
  EXPECT_TRUE(wasFree);
}

TEST_F(Locks, AFileThatChangesWhileThePersonAnswersIsReadAgain) {
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  setRow(1, triaxialBytes("P1", "S9"));
  std::vector<std::size_t> knownCounts;
  saveProject(workspace, ProjectKind::Triaxial, [&](Workspace&, const std::vector<KnownSample>& known) {
    knownCounts.push_back(known.size());
    if (knownCounts.size() > 1) return true;
    // Another program adds sample S9 in the meantime.
    write("HSZS/WKSZP1.txt", headerBytes({"0003", "P1"}) + triaxialBytes("P1", "S1") + triaxialBytes("P1", "S2") +
                                 triaxialBytes("P1", "S9") + field("", 100));
    return true;
  });
  EXPECT_THAT(knownCounts, ::testing::ElementsAre(1U, 2U)) << "S1 at first, then S9 too";
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0003");
  EXPECT_EQ(read("HSZS/WKSZP1.txt").size(), kHeaderSize + 3 * kTriaxialSize + kEndTextSize);
}

TEST_F(Locks, AFolderThatIsMissingIsNoReasonToWait) {
  std::filesystem::remove_all(data("HSZS"));
  EXPECT_THAT(sentenceOf([this] { save(); }), AllOf(HasSubstr("没有保存"), Not(HasSubstr("另一个程序"))));
}

}  // namespace
}  // namespace triaxlab::testing
