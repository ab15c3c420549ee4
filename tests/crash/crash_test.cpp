// A save of thirty samples, the rewrite of a sample list and the upgrade of an old file are stopped at each of the
// system calls by which they write, sync, rename or remove: by SIGKILL before the call, in the middle of a write, and
// by a disk that is full or broken for that one call. Every call by which they look at the disk fails in turn, too: a
// file that can't be looked at must not pass for one that isn't there. However it ends, after the next start project
// files and summary files are all as they were or all as they were to become, byte for byte, and nothing else lies
// about.

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "crash/crash_samples.h"
#include "crash/failing_calls.h"
#include "store/project/save_project.h"
#include "support/temporary_folder.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves its declaration to the program

namespace triaxlab::testing {
namespace {

enum Exit : int { kDone = 0, kUnchanged = 2, kFinishedLater = 3 };

/// What became of a run of the program.
struct Outcome {
  bool killed = false;
  int exitStatus = -1;
};

pid_t startProgram(std::vector<std::string> arguments, std::vector<std::string> environment) {
  arguments.insert(arguments.begin(), CRASH_PROGRAM);
  std::vector<char*> argv, envp;
  for (std::string& text : arguments) argv.push_back(text.data());
  for (std::string& text : environment) envp.push_back(text.data());
  for (char** inherited = environ; *inherited != nullptr; ++inherited) envp.push_back(*inherited);
  argv.push_back(nullptr);
  envp.push_back(nullptr);
  pid_t child = -1;
  EXPECT_EQ(posix_spawn(&child, CRASH_PROGRAM, nullptr, nullptr, argv.data(), envp.data()), 0);
  return child;
}

Outcome endOf(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) return {};
  if (WIFSIGNALED(status)) return {WTERMSIG(status) == SIGKILL, -1};
  return {false, WEXITSTATUS(status)};
}

Outcome runProgram(std::vector<std::string> arguments, std::vector<std::string> environment) {
  return endOf(startProgram(std::move(arguments), std::move(environment)));
}

/// The files of HSZS and ZMSJ, and what lies beside these folders: a save journal, a new content.
using Contents = std::map<std::string, std::string>;

/// What there is before, and what the program is told to do.
struct Scene {
  std::string name;
  std::vector<std::string> existing;  // projects with ten samples on disk
  std::vector<std::string> projects;  // that something is done to
  std::string deed = "save";
  bool oldFormat = false;  // of what is on disk
};

class Crash : public ::testing::TestWithParam<Scene> {
 protected:
  void SetUp() override {
#ifndef FAILING_CALLS
    GTEST_SKIP() << "The library that lets calls fail can't be loaded in front of a sanitizer.";
#else
    for (const char* name : {"HSZS", "ZMSJ"}) std::filesystem::create_directories(m_folder.path() / name);
    makeOldFiles();
    m_old = contents();
    m_calls = countCalls({GetParam().deed});
    m_new = contents();
    ASSERT_NE(m_old, m_new);
    ASSERT_GT(m_calls, GetParam().oldFormat ? 5 : 10) << "the files, their syncs and renames are more than that";
#endif
  }

  /// Stops the program at each call in turn, starts it anew, and looks at the files.
  void stopAtEachCall(const std::string& way) {
    for (long call = 1; call <= m_calls; ++call) {
      restore(m_old);
      const Outcome outcome = stop({GetParam().deed}, way, call);
      const bool dies = way == "kill" || way == "tear";
      ASSERT_EQ(outcome.killed, dies) << call;
      const std::string then =
          way + " at call " + std::to_string(call) + ", exit " + std::to_string(outcome.exitStatus);
      ASSERT_EQ(run({"recover"}).exitStatus, kDone) << then;
      const Contents after = contents();
      ASSERT_TRUE(after == m_old || after == m_new) << then << ": the files are neither old nor new";
      if (outcome.exitStatus == kUnchanged) {
        ASSERT_TRUE(after == m_old) << then;
      }
      expectWholeBackups(then);
      if (outcome.exitStatus == kDone || outcome.exitStatus == kFinishedLater) {
        ASSERT_TRUE(after == m_new) << then;
      }
      if (!dies) {
        ASSERT_NE(outcome.exitStatus, 1) << then << ": the sentence doesn't say what became of the files";
      }
      (after == m_old ? m_sawOld : m_sawNew) = true;
      if (!GetParam().oldFormat) continue;
      ASSERT_EQ(run({GetParam().deed}).exitStatus, kDone) << then << ": an upgrade runs again";
      ASSERT_TRUE(contents() == m_new) << then;
    }
    EXPECT_TRUE(m_sawOld && m_sawNew) << "a save that is stopped early leaves the old files, a late one the new";
    EXPECT_EQ(m_backups > 0, !GetParam().existing.empty());
  }

  /// Lets each look at the disk fail in turn, with one error after the other.
  void failAtEachLook() {
    restore(m_old);
    const long looks = countCalls({GetParam().deed}, kLooks);
    ASSERT_GT(looks, 15);
    for (long look = 1; look <= looks; ++look) {
      restore(m_old);
      const std::string way = errorOfLook(look);
      const Outcome outcome = stop({GetParam().deed}, way, look, kLooks);
      const std::string then =
          way + " at look " + std::to_string(look) + ", exit " + std::to_string(outcome.exitStatus);
      ASSERT_FALSE(outcome.killed) << then;
      if (contents().contains("journal")) {
        ASSERT_EQ(run({"recover"}).exitStatus, kDone) << then;
      }
      const bool isSaved = outcome.exitStatus == kDone || outcome.exitStatus == kFinishedLater;
      // Projects are saved apart from each other, and an upgrade stands when the open behind it fails.
      const bool areApart = GetParam().projects.size() > 1 || GetParam().oldFormat;
      ASSERT_TRUE(areApart && !isSaved ? isOldOrNewFileByFile() : contents() == (isSaved ? m_new : m_old)) << then;
      if (isSaved) continue;
      ASSERT_EQ(run({GetParam().deed}).exitStatus, kDone) << then << ": it works the next time";
      ASSERT_TRUE(contents() == m_new) << then;
    }
  }

  /// From each call on nothing can be changed any more, a journal not dropped either. What is said then is true.
  void breakForGoodAtEachCall() {
    std::set<int> told;
    for (long call = 1; call <= m_calls; ++call) {
      restore(m_old);
      const Outcome outcome = stop({GetParam().deed}, "EIO", call, "FAILING_FROM=");
      const std::string then = "call " + std::to_string(call) + ", exit " + std::to_string(outcome.exitStatus);
      ASSERT_EQ(run({"recover"}).exitStatus, kDone) << then;
      const Contents after = contents();
      const bool isUnchanged = outcome.exitStatus == kUnchanged;
      ASSERT_TRUE(isUnchanged || outcome.exitStatus == kDone || outcome.exitStatus == kFinishedLater) << then;
      ASSERT_TRUE(after == (isUnchanged ? m_old : m_new)) << then;
      told.insert(outcome.exitStatus);
    }
    EXPECT_TRUE(told.contains(kUnchanged));
    EXPECT_NE(told.contains(kFinishedLater), GetParam().oldFormat) << "an upgrade has no journal";
  }

  /// Leaves a complete journal that nothing of was applied, then lets each look of its application fail.
  void failAtEachLookOfTheRecovery() {
    const Contents journalled = contentsWithJournal();
    restore(journalled);
    const long looks = countCalls({"recover"}, kLooks);
    for (long look = 1; look <= looks; ++look) {
      restore(journalled);
      const std::string then = errorOfLook(look) + " at look " + std::to_string(look);
      stop({"recover"}, errorOfLook(look), look, kLooks);
      ASSERT_EQ(run({"recover"}).exitStatus, kDone) << then;
      ASSERT_TRUE(contents() == m_new) << then;
    }
  }

  /// Leaves a complete journal that nothing of was applied, then stops each attempt to finish it.
  void stopTheRecovery(const std::string& way) {
    const Contents journalled = contentsWithJournal();
    ASSERT_TRUE(journalled.contains("journal"));
    restore(journalled);
    const long calls = countCalls({"recover"});
    ASSERT_EQ(contents(), m_new);
    for (long call = 1; call <= calls; ++call) {
      restore(journalled);
      stop({"recover"}, way, call);
      ASSERT_EQ(run({"recover"}).exitStatus, kDone) << call;
      ASSERT_TRUE(contents() == m_new) << way << " at call " << call;
    }
  }

  /// Leaves a complete journal that nothing of was applied, lets a sibling tool write, and stops each attempt to finish
  /// the save.
  void letASiblingWriteBeforeTheRecovery() {
    restore(contentsWithJournal());
    m_folder.write(kSummary, changedBySibling(m_folder.read(kSummary)));
    const Contents journalled = contents();
    ASSERT_TRUE(journalled.contains("journal"));
    Contents wanted = m_new;
    wanted[kSummary] = changedBySibling(m_new[kSummary]);
    const long calls = countCalls({"recover"});
    ASSERT_TRUE(contents() == wanted);
    for (long call = 1; call <= calls; ++call) {
      restore(journalled);
      stop({"recover"}, "kill", call);
      ASSERT_EQ(run({"recover"}).exitStatus, kDone) << call;
      ASSERT_TRUE(contents() == wanted) << "killed at call " << call;
    }
  }

 private:
  static constexpr const char* kSummary = "ZMSJ/KHZP1.txt";
  static constexpr std::size_t kSummaryHeader = 600, kSummaryRecord = 2747;

  static std::string recordOf(const std::string& summary, std::size_t k) {
    return summary.substr(kSummaryHeader + k * kSummaryRecord, kSummaryRecord);
  }
  static std::string fourPlaces(std::size_t number) {
    std::string text = std::to_string(number);
    return text.insert(0, 4 - text.size(), '0');
  }
  /// Sets the sequence numbers anew.
  static std::string summaryOf(std::string header, const std::vector<std::string>& records) {
    header.replace(0, 4, fourPlaces(records.size()));
    for (std::size_t k = 0; k < records.size(); ++k) header += std::string(records[k]).replace(3, 4, fourPlaces(k + 1));
    return header;
  }
  /// Of the ten samples of before, the first two change places and the third gets a result in the section "WS:";
  /// another follows them. The second date of the header is the sibling's.
  static std::string changedBySibling(const std::string& summary) {
    std::string header = summary.substr(0, kSummaryHeader);
    std::vector<std::string> records;
    for (std::size_t k = 0; kSummaryHeader + k * kSummaryRecord < summary.size(); ++k)
      records.push_back(recordOf(summary, k));
    header.replace(40, 10, "2031/12/31");
    std::swap(records[0], records[1]);
    records[2].replace(62, 6, "123.45");
    std::string another(kSummaryRecord, '?');
    another.replace(7, 15, "X1             ");
    records.insert(records.begin() + 10, another);
    return summaryOf(header, records);
  }

  void makeOldFiles() {
    Workspace workspace;
    workspace.applicationFolder = workspace.dataFolder = m_folder.path();
    workspace.fixedToday = Date{2023, 1, 2};
    SetText(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "OLD");
    int rowsUsed = 0;
    for (const std::string& projectNo : GetParam().existing) {
      crash::fill(workspace, projectNo, rowsUsed, 10, 55);
      rowsUsed += 10;
    }
    if (rowsUsed > 0) saveProject(workspace, ProjectKind::Triaxial, nullptr);
    if (GetParam().oldFormat)
      for (const std::string& projectNo : GetParam().existing) makeOldFormat("HSZS/WKSZ" + projectNo + ".txt");
  }

  /// Takes the last 210 bytes of each record and the tag out of a file.
  void makeOldFormat(const std::string& name) const {
    constexpr std::size_t kHeader = 81, kRecord = 38576, kOldRecord = 38366, kTag = 59;
    const std::string current = m_folder.read(name);
    std::string old = current.substr(0, kHeader);
    old.replace(kTag, 4, "    ");
    for (std::size_t at = kHeader; at < current.size(); at += kRecord) old += current.substr(at, kOldRecord);
    m_folder.write(name, old);
  }

  /// The state in which the save died between the sync of its journal and the first write to a file.
  Contents contentsWithJournal() {
    for (long call = 1; call <= m_calls; ++call) {
      restore(m_old);
      stop({GetParam().deed}, "kill", call);
      Contents found = contents();
      const bool hasJournal = found.erase("journal") == 1;
      std::erase_if(found, [](const auto& file) { return file.first.starts_with("journal."); });
      const Contents withJournal = contents();
      if (hasJournal && found == m_old && run({"recover"}).exitStatus == kDone && contents() == m_new)
        return withJournal;
    }
    ADD_FAILURE() << "no call lies between journal and files";
    return {};
  }

  Outcome run(std::vector<std::string> deed, std::vector<std::string> environment = {}) {
    deed.insert(deed.begin(), m_folder.path().string());
    deed.insert(deed.end(), GetParam().projects.begin(), GetParam().projects.end());
    return runProgram(std::move(deed), std::move(environment));
  }
  static constexpr const char* kChanges = "UNUSED=";  // the library's own choice of calls
  Outcome stop(std::vector<std::string> deed, const std::string& way, long call, const char* side = kChanges) {
    return run(std::move(deed), {preload(), side, "FAILING_WAY=" + way, "FAILING_CALL=" + std::to_string(call)});
  }
  long countCalls(std::vector<std::string> deed, const char* side = kChanges) {
    const std::string count = "CALL_COUNT=" + (m_folder.path() / "calls").string();
    EXPECT_EQ(run(std::move(deed), {preload(), side, count}).exitStatus, kDone);
    return countedCalls(m_folder.read("calls"));
  }
  /// Each file is whole, whatever became of the others.
  bool isOldOrNewFileByFile() const {
    const Contents now = contents();
    return std::all_of(now.begin(), now.end(), [this](const auto& file) {
      const auto old = m_old.find(file.first), made = m_new.find(file.first);
      return (old != m_old.end() && old->second == file.second) || (made != m_new.end() && made->second == file.second);
    });
  }

  Contents contents() const {
    Contents files;
    for (const char* name : {"HSZS", "ZMSJ"})
      for (const auto& entry : std::filesystem::directory_iterator(m_folder.path() / name)) {
        if (entry.is_directory()) continue;  // the backups
        const std::string path = std::string(name) + "/" + entry.path().filename().string();
        files[path] = m_folder.read(path);
      }
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
      const std::string name = entry.path().filename().string();
      if (name.starts_with("journal")) files[name] = m_folder.read(name);
    }
    return files;
  }
  /// Every finished copy is the old file, byte for byte.
  void expectWholeBackups(const std::string& then) {
    const std::filesystem::path folder = m_folder.path() / "HSZS/backup";
    if (!std::filesystem::exists(folder)) return;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const std::string name = entry.path().filename().string();
      if (name.starts_with("copy.")) continue;  // one that was being made
      ++m_backups;
      const std::string original = name.substr(0, name.find('_')) + ".txt";
      ASSERT_TRUE(m_folder.read("HSZS/backup/" + name) == m_old.at("HSZS/" + original)) << then << ": " << name;
    }
  }
  void restore(const Contents& files) const {
    std::filesystem::remove_all(m_folder.path() / "HSZS/backup");
    for (const auto& [path, bytes] : contents())
      if (!files.contains(path)) std::filesystem::remove(m_folder.path() / path);
    for (const auto& [path, bytes] : files) m_folder.write(path, bytes);
  }

  TemporaryFolder m_folder;
  Contents m_old, m_new;
  long m_calls = 0;
  bool m_sawOld = false, m_sawNew = false;
  long m_backups = 0;
};

std::string nameOf(const ::testing::TestParamInfo<Scene>& scene) { return scene.param.name; }
const Scene kOverAnExistingProject{"OverAnExistingProject", {"P1"}, {"P1"}};
const Scene kRewriteOfAList{"RewriteOfAList", {"P1"}, {"P1"}, "rewrite"};
const Scene kDeletionOfAll{"DeletionOfAll", {"P1"}, {"P1"}, "delete"};

TEST_P(Crash, KilledBeforeAnyCall) { stopAtEachCall("kill"); }
TEST_P(Crash, ADiskThatIsFullOnce) { stopAtEachCall("ENOSPC"); }
INSTANTIATE_TEST_SUITE_P(Saves, Crash,
                         ::testing::Values(kOverAnExistingProject, Scene{"OfANewProject", {}, {"N1"}},
                                           Scene{"OfThreeProjects", {"P1", "P2"}, {"P2", "N1", "P1"}}, kRewriteOfAList,
                                           kDeletionOfAll, Scene{"Upgrade", {"P1"}, {"P1"}, "open", true}),
                         nameOf);

TEST_P(Crash, ALookThatFailsOnce) { failAtEachLook(); }

class CrashOfOneSave : public Crash {};
TEST_P(CrashOfOneSave, KilledInTheMiddleOfAWrite) { stopAtEachCall("tear"); }
TEST_P(CrashOfOneSave, ADiskThatBreaksOnce) { stopAtEachCall("EIO"); }
TEST_P(CrashOfOneSave, ADiskThatBreaksForGood) { breakForGoodAtEachCall(); }
INSTANTIATE_TEST_SUITE_P(Saves, CrashOfOneSave,
                         ::testing::Values(kOverAnExistingProject, kRewriteOfAList, kDeletionOfAll,
                                           Scene{"Upgrade", {"P1"}, {"P1"}, "open", true}),
                         nameOf);

class CrashOfARecovery : public Crash {};
TEST_P(CrashOfARecovery, IsKilledToo) { stopTheRecovery("kill"); }
TEST_P(CrashOfARecovery, IsTornToo) { stopTheRecovery("tear"); }
TEST_P(CrashOfARecovery, MeetsABrokenDiskToo) { stopTheRecovery("EIO"); }
TEST_P(CrashOfARecovery, CanNotLookOnceToo) { failAtEachLookOfTheRecovery(); }
TEST_P(CrashOfARecovery, KeepsWhatASiblingToolWroteInBetween) { letASiblingWriteBeforeTheRecovery(); }
INSTANTIATE_TEST_SUITE_P(Saves, CrashOfARecovery,
                         ::testing::Values(kOverAnExistingProject, kRewriteOfAList, kDeletionOfAll), nameOf);

TEST(Share, ProgramsOnMachinesThatDoNotHearOfEachOthersFlockLoseNothing) {
#ifndef FAILING_CALLS
  GTEST_SKIP() << "The library that keeps locks local can't be loaded in front of a sanitizer.";
#endif
  constexpr std::size_t kHeader = 81, kRecord = 38576, kText = 38376;
  const TemporaryFolder folder;
  for (const char* name : {"HSZS", "ZMSJ"}) std::filesystem::create_directories(folder.path() / name);
  std::vector<pid_t> programs;
  for (const auto& [project, letter] : {std::pair{"P1", "A"}, {"P1", "B"}, {"P2", "C"}, {"P2", "D"}})
    programs.push_back(
        startProgram({folder.path().string(), "share", project, letter}, {preload(), "FLOCK_IS_LOCAL=1"}));
  for (const pid_t program : programs) EXPECT_EQ(endOf(program).exitStatus, kDone);

  for (const auto& [project, letters] : {std::pair<std::string, std::string>{"P1", "AB"}, {"P2", "CD"}}) {
    std::set<std::string> wanted, stored, inSummary;
    for (const char letter : letters)
      for (int number = 1; number <= crash::kSamplesOfASharer; ++number)
        wanted.insert(project + " " + letter + std::to_string(number) + " " + std::to_string(number));
    const std::string file = folder.read("HSZS/WKSZ" + project + ".txt");
    const auto text = [](const std::string& bytes, std::size_t at, std::size_t size) {
      return std::string(Trim(std::string_view(bytes).substr(at, size)));
    };
    EXPECT_EQ((file.size() - kHeader) / kRecord, wanted.size());
    for (std::size_t at = kHeader; at + kRecord <= file.size(); at += kRecord)
      stored.insert(text(file, at, 15) + " " + text(file, at + 15, 14) + " " + text(file, at + kText, 9));
    EXPECT_EQ(stored, wanted);
    const std::string summary = folder.read("ZMSJ/KHZ" + project + ".txt");
    EXPECT_EQ(summary.size(), 600 + wanted.size() * 2747);
    for (std::size_t at = 600; at < summary.size(); at += 2747)
      inSummary.insert(project + " " + text(summary, at + 7, 15) + " " + text(summary, at + 2640, 5));
    EXPECT_EQ(inSummary, wanted);
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "triaxlab.lock"));
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "journal"));
}

}  // namespace
}  // namespace triaxlab::testing
