#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "importers/ku_builder.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {

struct ProgramRun {
  int status = -1;
  std::string out, err;
};

/// Runs the built triaxlab-cli on an application folder of its own, on 2024-05-06.
class CliTest : public ::testing::Test {
 protected:
  CliTest() { std::filesystem::create_directory(app()); }

  std::filesystem::path app() const { return folder.path() / "app"; }
  std::filesystem::path projectFile(std::string_view name) const { return app() / "HSZS" / name; }

  ProgramRun run(const std::vector<std::string>& words) const {
    std::vector<std::string> line{"--app", app().string(), "--today", "2024-05-06"};
    line.insert(line.end(), words.begin(), words.end());
    return runBare(line);
  }
  /// With nothing in front; `output` takes the standard output when it is not to be read back.
  ProgramRun runBare(const std::vector<std::string>& words, const std::string& output = "") const {
    const std::string out = output.empty() ? (folder.path() / "out").string() : output;
    const std::string err = (folder.path() / "err").string();
    std::string command = quoted(TRIAXLAB_CLI);
    for (const std::string& word : words) command += ' ' + quoted(word);
    const int ended = std::system((m_before + command + " >" + quoted(out) + " 2>" + quoted(err) + m_behind).c_str());
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, output.empty() ? folder.read("out") : "", folder.read("err")};
  }

  std::string database(const std::vector<Entry>& entries) const {
    return folder.write("raw/HSZSJ.KU", kuFile(entries)).string();
  }

  TemporaryFolder folder;

  /// What the shell is told before the program runs ("ulimit -f 8; "), and redirections behind it (" 2>/dev/full").
  void setShell(const std::string& before, const std::string& behind) {
    m_before = before;
    m_behind = behind;
  }

 private:
  std::string m_before, m_behind;

  static std::string quoted(std::string_view word) {
    std::string text = "'";
    for (const char c : word) text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
  }
};

/// Three UU specimens of one sample whose stresses need no correction worth a kPa to be told apart.
inline Entry sampleEntry(const std::string& projectNo, const std::string& sampleNo) {
  std::vector<Specimen> specimens;
  for (const int stage : {1, 2, 3})
    specimens.push_back({.sampleNo = sampleNo,
                         .projectNo = projectNo,
                         .testMethod = 1,
                         .cellPressure = stage * 1000,
                         .stress = {{1, 100 * stage}, {2, 400 + 200 * stage}, {3, 400 + 100 * stage}}});
  Entry entry = olderEntry({specimens});
  entry.projectNo = projectNo;
  return entry;
}

constexpr std::size_t kHeaderSize = 81, kSampleSize = 38576, kEndTextSize = 100;

inline std::size_t lineCount(std::string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace triaxlab::testing
