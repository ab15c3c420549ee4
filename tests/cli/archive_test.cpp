// Commands over many project files, and over a data folder that stays as it is.
#include <array>
#include <map>
#include <regex>

#include "cli/cli_fixture.h"
#include "support/job_server.h"

namespace triaxlab::testing {
namespace {

namespace fs = std::filesystem;

class Archive : public CliTest {
 protected:
  Archive() {
    for (const char* project : {"P1", "P2"})
      EXPECT_EQ(run({"import", "auto", database({sampleEntry(project, std::string("S-") + project)})}).status, 0);
  }

  /// Standard input of the next runs.
  void setInput(std::string_view names) { setShell("", " <'" + folder.write("names", names).string() + "'"); }
  std::string resultsOf(const std::vector<std::string>& names) {
    setShell("", "");
    std::vector<std::string> words{"results", "triaxial"};
    words.insert(words.end(), names.begin(), names.end());
    return run(words).out;
  }
  ProgramRun runOnData(std::vector<std::string> words) const {
    words.insert(words.end(), {"--data", app().string()});
    return runBare(words);
  }
  /// Everything in the application folder, which is the data folder too: names, contents, times.
  std::map<std::string, std::pair<std::string, fs::file_time_type>> everything() const {
    std::map<std::string, std::pair<std::string, fs::file_time_type>> all;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(app()))
      all[entry.path().string()] = {entry.is_regular_file() ? folder.read(entry.path()) : "", entry.last_write_time()};
    return all;
  }
  /// Makes the project file one of the format before, whose records ended in front of the last 210 bytes.
  void makeOld(const std::string& name) const {
    std::string bytes = folder.read("app/HSZS/" + name);
    bytes.erase(kHeaderSize + kSampleSize - 210, 210);
    bytes.replace(bytes.find("V2.0"), 4, "V1.0");
    folder.write("app/HSZS/" + name, bytes);
  }
};

// ---- Names

TEST_F(Archive, StandardInputNamesAFileALine) {
  const std::string both = resultsOf({"WKSZP1.txt", "WKSZP2.txt"});
  setInput("WKSZP1.txt\r\n\nWKSZP2.txt");
  const ProgramRun ran = run({"results", "triaxial", "-"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out, both);
}

TEST_F(Archive, AZeroByteMayEndTheNames) {
  const std::string both = resultsOf({"WKSZP2.txt", "WKSZP1.txt"});
  setInput(std::string_view("WKSZP1.txt\0", 11));
  EXPECT_EQ(run({"results", "triaxial", "-0", "WKSZP2.txt", "-"}).out, both) << "in the order of the command line";
}

TEST_F(Archive, NoNamesAtAllAreNoWork) {
  setInput("");
  const ProgramRun ran = run({"results", "triaxial", "-"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.out + ran.err, "");
}

TEST_F(Archive, WhatIsNoListOfNamesEndsTheReading) {
  setInput(std::string(100000, 'x') + "\nWKSZP1.txt\n");
  const ProgramRun ran = run({"results", "triaxial", "-"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
  setShell("", " <'" + app().string() + "'");  // a folder, which can't be read
  EXPECT_EQ(run({"results", "triaxial", "-"}).status, 1);
}

TEST_F(Archive, ProgressIsToldOnStandardErrorWithWhatFailed) {
  const ProgramRun named = run({"results", "triaxial", "WKSZP1.txt", "NONE.txt", "WKSZP2.txt", "--progress"});
  EXPECT_EQ(named.status, 1);
  EXPECT_NE(named.err.find("\n已处理 3/3 个文件，其中 1 个失败。\n"), std::string::npos) << named.err;
  EXPECT_EQ(lineCount(named.out), 3U);
  setInput("WKSZP1.txt\n");
  EXPECT_EQ(run({"results", "triaxial", "-", "--progress"}).err, "已处理 1 个文件，其中 0 个失败。\n");
}

TEST_F(Archive, ManyFilesArePrintedEachToItsOwnPlace) {
  const std::string place = (folder / "pages-{}.json").string();
  const std::vector<std::string> both{"print",    "triaxial",     "WKSZP1.txt", "WKSZP2.txt",
                                      "--layout", "three-in-one", "--out"};
  std::vector<std::string> toEach = both, toOne = both;
  toEach.push_back(place);
  EXPECT_EQ(run(toEach).status, 0);
  for (const char* name : {"pages-WKSZP1.json", "pages-WKSZP2.json"}) EXPECT_GT(folder.read(name).size(), 100U);
  toOne.push_back((folder / "pages.json").string());
  EXPECT_EQ(run(toOne).status, 2) << "one would be written over the other";
  EXPECT_FALSE(fs::exists(folder / "pages.json"));
}

// ---- A data folder as it stands

TEST_F(Archive, ADataFolderIsReadAndLeftAsItIs) {
  const std::string both = resultsOf({"WKSZP1.txt", "WKSZP2.txt"});
  makeOld("WKSZP2.txt");
  folder.write("app/triaxlab.lock", "");
  const auto before = everything();
  const ProgramRun ran = runOnData({"results", "triaxial", "WKSZP1.txt", "WKSZP2.txt"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out, both);
  const std::string table = (folder / "table.csv").string();
  EXPECT_EQ(runOnData({"export", "triaxial", "WKSZP1.txt", "WKSZP2.txt", "--format", "csv", "--out", table}).status, 0);
  EXPECT_EQ(runOnData({"open", "triaxial", "WKSZP1.txt", "--show", "3"}).status, 0);
  EXPECT_EQ(
      runOnData({"print", "triaxial", "WKSZP1.txt", "--layout", "chart", "--out", (folder / "a.json").string()}).status,
      0);
  EXPECT_EQ(everything(), before);
}

TEST_F(Archive, ADataFolderHasNoSettings) {
  const std::string usual = resultsOf({"WKSZP1.txt"});
  for (const char* place : {"app/sz.ini", "sz.ini"}) folder.write(place, "[土样编号]=[样号]\r\n");
  EXPECT_NE(resultsOf({"WKSZP1.txt"}), usual);
  setShell("cd '" + folder.path().string() + "'; ", "");
  EXPECT_EQ(runOnData({"results", "triaxial", "WKSZP1.txt"}).out, usual);
}

TEST_F(Archive, ASaveThatIsUnderWayThereIsTold) {
  folder.write("app/journal", "half");
  const auto before = everything();
  const ProgramRun ran = runOnData({"results", "triaxial", "WKSZP1.txt"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
  EXPECT_NE(ran.err.find("没有完成或正在进行的保存"), std::string::npos) << ran.err;
  EXPECT_EQ(everything(), before);
}

TEST_F(Archive, ADataFolderThatIsMissingIsToldAndNotMade) {
  const ProgramRun ran = runBare({"results", "triaxial", "WKSZP1.txt", "--data", (folder / "none").string()});
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find((folder / "none").string()), std::string::npos) << ran.err;
  EXPECT_FALSE(fs::exists(folder / "none"));
}

TEST_F(Archive, ADataFolderIsNotSavedToAndNeedsNoApplicationFolder) {
  EXPECT_EQ(runOnData({"open", "triaxial", "WKSZP1.txt", "--save"}).status, 2);
  EXPECT_EQ(run({"results", "triaxial", "WKSZP1.txt", "--data", app().string()}).status, 2);
}

// ---- Work that is parted

/// A folder of forty projects, and what one run makes of them.
class PartedArchive : public Archive {
 protected:
  static constexpr int kProjects = 40;

  PartedArchive() {
    std::string names;
    for (int i = 0; i < kProjects; ++i) {
      const std::string name = "WKSZ" + std::to_string(i) + ".txt";
      fs::copy_file(projectFile(i % 2 == 0 ? "WKSZP1.txt" : "WKSZP2.txt"), projectFile(name));
      names += name + "\n";
    }
    for (const char* const first : {"WKSZP1.txt", "WKSZP2.txt"}) fs::remove(projectFile(first));
    folder.write("names", names);
    EXPECT_EQ(std::system((exportTo((folder / "whole.jsonl").string()) + m_input).c_str()), 0);
    EXPECT_EQ(lineCount(folder.read("whole.jsonl")), static_cast<std::size_t>(kProjects));
  }
  std::string exportTo(const std::string& out) const {
    return "'" TRIAXLAB_CLI "' export triaxial - --data '" + app().string() + "' --format jsonl --out '" + out + "'";
  }
  int runHere(const std::string& command) const {
    return std::system(("cd '" + folder.path().string() + "' && " + command).c_str());
  }
  /// The job that the page on archives shows, for this folder, this program and so many tasks.
  std::string jobOfThePage(int tasks) const {
    const std::string page = folder.read(TRIAXLAB_SOURCE "/docs/archives.md");
    const std::size_t begin = page.find("    #!/bin/sh"), end = page.find("\n\n", begin);
    std::string job = std::regex_replace(page.substr(begin, end - begin) + "\n", std::regex("(^|\n)    "), "$1");
    for (const auto& [shown, used] : {std::pair<std::string, std::string>{"0-99", "0-" + std::to_string(tasks - 1)},
                                      {"% 100", "% " + std::to_string(tasks)},
                                      {"DATA", app().string()},
                                      {"triaxlab-cli", TRIAXLAB_CLI}})
      job = std::regex_replace(job, std::regex(shown), used);
    return job;
  }
  std::string m_input = " <'" + (folder / "names").string() + "'";
};

TEST_F(PartedArchive, PartsOfTheWorkGiveWhatOneRunGives) {
  if (std::system("command -v parallel >/dev/null 2>&1") != 0) GTEST_SKIP() << "GNU parallel isn't installed";
  ASSERT_EQ(runHere("parallel --will-cite --pipe -N 7 -j 2 \"" + exportTo("part-{#}.jsonl") + "\"" + m_input), 0);
  ASSERT_EQ(runHere("cat part-?.jsonl >parts.jsonl"), 0);
  EXPECT_EQ(folder.read("parts.jsonl"), folder.read("whole.jsonl"));
}

TEST_F(PartedArchive, AJobArrayGivesWhatOneRunGives) {
  if (!JobServer::isInstalled()) GTEST_SKIP() << "Slurm isn't installed";
  const auto job = folder.write("job", jobOfThePage(4));
  const JobServer server;
  ASSERT_EQ(JobServer::runToEnd(job, folder.path()), 0);
  ASSERT_EQ(runHere("cat part-?.jsonl | sort >parts.jsonl && sort whole.jsonl >sorted.jsonl"), 0);
  EXPECT_EQ(folder.read("parts.jsonl"), folder.read("sorted.jsonl"));
}

}  // namespace
}  // namespace triaxlab::testing
