// How programs are started on Windows, where the words of a command line are one text.
#include "platform/process.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "platform/files.h"
#include "platform/folders.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

constexpr const char* kNote = "TRIAXLAB_TEST_NOTE";

/// This program as another one starts it: it writes down the words that it is given, a line each, and does nothing
/// else.
bool noteWords() {
  const std::filesystem::path note = folderNamedBy(kNote);
  if (note.empty()) return false;
  const auto [count, words] = commandWords(0, nullptr);
  std::string lines;
  for (int i = 1; i < count; ++i) lines += std::string(words[i]) + "|\n";
  writeWholeFile(note, std::as_bytes(std::span(lines)));
  std::_Exit(0);
}
[[maybe_unused]] const bool notesWords = noteWords();

TEST(StartProgramOnWindows, WordsArriveAsTheyAre) {
  const TemporaryFolder folder;
  const std::vector<std::string> words{"a b", "土样 \"1\"", "", "c:\\", "c d\\", "\\\"", "\U00020BB7", "*.txt"};
  std::string lines;
  for (const std::string& word : words) lines += word + "|\n";
  setVariable(kNote, (folder / "note").string().c_str());
  const auto program = findProgram(std::array{executableFolder()}, "platform_test.exe");
  ASSERT_TRUE(program);
  EXPECT_NE(startProgram(*program, words), 0);
  unsetVariable(kNote);
  for (int tenths = 0; tenths < 100 && !fileExists(folder / "note"); ++tenths)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_EQ(folder.read("note"), lines);
}

}  // namespace
}  // namespace triaxlab::testing
