#include "platform/last_words.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <string>

#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

class LastWordsTest : public ::testing::TestWithParam<int> {
 protected:
  LastWords words() const { return {.file = folder.path() / "words", .largestFile = 1000, .head = "head"}; }
  std::string said() const { return folder.read("words"); }
  TemporaryFolder folder;
};

TEST_P(LastWordsTest, AreSaidAndTheProcessEndsByItsSignal) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "The sanitizer ends the process in its own way.";
#endif
  EXPECT_EXIT(
      {
        prepareLastWords(words());
        noteLastDeed("deed");
        std::raise(GetParam());
      },
      ::testing::KilledBySignal(GetParam()), "");
  EXPECT_EQ(said().substr(0, 8), "head\nSIG");
  EXPECT_EQ(said().substr(said().find('\n', 5)), "\n命令: deed\n\n");
}

INSTANTIATE_TEST_SUITE_P(Signals, LastWordsTest, ::testing::Values(SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL));

/// Calls itself until the stack has run over.
int runOver(int depth) {
  std::array<volatile char, 4096> room{};
  room[0] = static_cast<char>(depth);
  return depth < 0 ? 0 : runOver(depth + 1) + room[0];
}

TEST_F(LastWordsTest, AreSaidWhenTheStackHasRunOver) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "The sanitizer ends the process in its own way.";
#endif
  EXPECT_EXIT(
      {
        prepareLastWords(words());
        runOver(0);
      },
      ::testing::KilledBySignal(SIGSEGV), "SIGSEGV");
  EXPECT_EQ(said(), "head\nSIGSEGV\n命令: \n\n");
}

TEST_F(LastWordsTest, AreSaidOnce) {
  EXPECT_EXIT(
      {
        prepareLastWords(words());
        sayLastWords("first");
        sayLastWords("second");
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(0), "程序意外中断（first）");
  EXPECT_EQ(said(), "head\nfirst\n命令: \n\n");
}

TEST_F(LastWordsTest, AreNotSaidWhenAllWasTold) {
  EXPECT_EXIT(
      {
        prepareLastWords(words());
        withholdLastWords();
        sayLastWords("first");
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(0), "");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "words"));
}

TEST_F(LastWordsTest, StandBehindThoseOfOtherRunsUntilTheFileIsLarge) {
  folder.write("words", "earlier\n");
  const auto sayIn = [this] {
    EXPECT_EXIT(
        {
          prepareLastWords(words());
          sayLastWords("now");
          std::_Exit(0);
        },
        ::testing::ExitedWithCode(0), "");
  };
  sayIn();
  EXPECT_EQ(said(), "earlier\nhead\nnow\n命令: \n\n");
  folder.write("words", std::string(1001, 'x'));
  sayIn();
  EXPECT_EQ(said(), "head\nnow\n命令: \n\n");
}

TEST_F(LastWordsTest, GoThroughNoLink) {
  folder.write("elsewhere", "");
  std::filesystem::create_symlink(folder.path() / "elsewhere", folder.path() / "words");
  EXPECT_EXIT(
      {
        prepareLastWords(words());
        sayLastWords("now");
        std::_Exit(0);
      },
      ::testing::ExitedWithCode(0), "now");
  EXPECT_EQ(folder.read("elsewhere"), "");
}

}  // namespace
}  // namespace triaxlab::testing
