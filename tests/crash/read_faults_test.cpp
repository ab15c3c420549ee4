// Every call by which the command line looks at the disk during an import and its save fails once: the raw file, the
// reader of databases, the settings, the project and summary files. What was not read must not count as absent.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>

#include "cli/cli_fixture.h"
#include "crash/failing_calls.h"

namespace triaxlab::testing {
namespace {

struct Import {
  const char* name;
  const char* source;
  const char* file;
  const char* program;  // whose calls fail
};

using Contents = std::map<std::string, std::string>;

class ReadFaults : public CliTest, public ::testing::WithParamInterface<Import> {
 protected:
  void SetUp() override {
#ifndef FAILING_CALLS
    GTEST_SKIP() << "The library that lets calls fail can't be loaded in front of a sanitizer.";
#endif
    m_raw = folder.path() / "raw" / GetParam().file;
    std::filesystem::create_directory(m_raw.parent_path());
    std::filesystem::copy(std::filesystem::path(TRIAXLAB_SAMPLES) / GetParam().file, m_raw);
    folder.write("app/zmqvb.ini", "[\xB9\xA4\xB3\xCC\xB1\xE0\xBA\xC5]=[No]\r\n");
    // The projects are known, with a result that is another: the save reads and changes what stands there.
    ASSERT_EQ(run({"import", GetParam().source, m_raw.string()}).status, 0);
    for (const auto& [name, bytes] : contents())
      if (name.starts_with("WKSZ")) folder.write("app/HSZS/" + name, withOtherSigma1(bytes));
    std::filesystem::copy(app(), before(), std::filesystem::copy_options::recursive);
    m_old = contents();
    const ProgramRun undisturbed = runWith(std::string("CALL_COUNT='") + (folder.path() / "calls").string() + "'");
    ASSERT_EQ(undisturbed.status, 0);
    m_usual = "\n" + undisturbed.err;
    m_new = contents();
    ASSERT_NE(m_old, m_new);
  }

  long looks() const { return countedCalls(folder.read("calls")); }
  ProgramRun runWith(const std::string& settings) {
    setShell(preload() + " " + kLooks + " FAILING_PROGRAM=" + GetParam().program + " " + settings + " ", "");
    ProgramRun ran = run({"import", GetParam().source, m_raw.string()});
    setShell("", "");
    return ran;
  }
  ProgramRun failAt(long look) {
    return runWith("FAILING_WAY=" + errorOfLook(look) + " FAILING_CALL=" + std::to_string(look));
  }

  /// Project and summary files; copies and locks are not the work.
  Contents contents() const {
    Contents files;
    for (const char* name : {"HSZS", "ZMSJ"})
      for (const auto& entry : std::filesystem::directory_iterator(app() / name))
        if (entry.is_regular_file())
          files[entry.path().filename().string()] =
              folder.read(std::filesystem::path("app") / name / entry.path().filename());
    return files;
  }
  void restore() const {
    std::filesystem::remove_all(app());
    std::filesystem::copy(before(), app(), std::filesystem::copy_options::recursive);
  }
  /// Projects are saved apart from each other, but none without its summary file.
  bool isOldOrNewByProject() const {
    const Contents now = contents();
    const auto isOf = [&now](const Contents& then, const std::string& projectFile) {
      const std::string summary = "KHZ" + projectFile.substr(std::string_view("WKSZ").size());
      return now.at(projectFile) == then.at(projectFile) && now.at(summary) == then.at(summary);
    };
    return now.size() == m_old.size() && std::ranges::all_of(now, [&](const auto& file) {
             return !file.first.starts_with("WKSZ") || isOf(m_old, file.first) || isOf(m_new, file.first);
           });
  }
  bool hasJournal() const { return std::filesystem::exists(app() / "journal"); }

  /// Each line that an undisturbed run doesn't say as well tells which file, or which program, it speaks of.
  void expectNames(std::string_view sentences, const std::string& then) const {
    while (!sentences.empty()) {
      const std::string_view line = sentences.substr(0, sentences.find('\n'));
      sentences.remove_prefix(std::min(line.size() + 1, sentences.size()));
      EXPECT_TRUE(m_usual.find("\n" + std::string(line) + "\n") != m_usual.npos ||
                  line.find(folder.path().string()) != line.npos || line.find("triaxlab-jet-reader”") != line.npos)
          << then << ": " << line;
    }
  }

  Contents m_old, m_new;
  std::string m_usual;  // what an undisturbed run says, a line each

 private:
  static std::string withOtherSigma1(std::string bytes) { return bytes.replace(kHeaderSize + 386, 6, "7     "); }
  std::filesystem::path before() const { return folder.path() / "before"; }

  std::filesystem::path m_raw;
};

TEST_P(ReadFaults, LeaveAllOldOrAllNewAndAreTold) {
  ASSERT_GE(looks(), 4);
  for (long look = 1; look <= looks(); ++look) {
    restore();
    const ProgramRun ran = failAt(look);
    const std::string then = errorOfLook(look) + " at look " + std::to_string(look) + ": " + ran.err;
    ASSERT_TRUE(ran.status == 0 || ran.status == 1) << then;
    expectNames(ran.err, then);
    EXPECT_FALSE(ran.err.empty()) << then;
    // A save that is written down is finished by the next start.
    if (hasJournal()) {
      ASSERT_EQ(run({"init"}).status, 0) << then;
    }
    ASSERT_TRUE(ran.status == 0 ? contents() == m_new : isOldOrNewByProject()) << then;
  }
}

std::string nameOf(const ::testing::TestParamInfo<Import>& import) { return import.param.name; }
INSTANTIATE_TEST_SUITE_P(Imports, ReadFaults,
                         ::testing::Values(Import{"Indexed", "auto", "HSZSJ.KU", "triaxlab-cli"},
                                           Import{"TextFile", "nanjing", "NJ1105.SZD", "triaxlab-cli"},
                                           Import{"Database", "win", "SZData.dat", "triaxlab-cli"},
                                           Import{"InTheReaderOfDatabases", "win", "SZData.dat",
                                                  "triaxlab-jet-reader"}),
                         nameOf);

}  // namespace
}  // namespace triaxlab::testing
