// The command line with too little memory or room: from the least with which it starts at all up to what a command
// needs. It never ends without a sentence that names the file, and a save is whole or not begun.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

class ShortResources : public CliTest {
 protected:
  using Words = std::vector<std::string>;

  void SetUp() override {
#ifndef FAILING_CALLS
    GTEST_SKIP() << "A sanitizer reserves more addresses than any limit leaves.";
#endif
    ASSERT_EQ(run({"import", "auto", database({sampleEntry("P1", "S-1"), sampleEntry("P1", "S-2")})}).status, 0);
  }

  ProgramRun runLimited(const std::string& limit, const Words& words) {
    setShell("ulimit " + limit + "; ", "");
    ProgramRun ran = run(words);
    setShell("", "");
    return ran;
  }
  ProgramRun runWith(int kilobytes, const Words& words) { return runLimited("-v " + std::to_string(kilobytes), words); }
  std::string project() const { return folder.read("app/HSZS/WKSZP1.txt"); }
  /// The system's loader or what runs before main gives up with another status.
  static bool hasStarted(const ProgramRun& ran) { return ran.status == 0 || ran.status == 1; }

  /// The least limit with which the run is as `isEnough` wants it.
  template <class Test>
  int leastLimit(const Words& words, Test isEnough) {
    int tooLittle = 1'000, enough = 1'000'000;
    while (enough - tooLittle > kStep) {
      const int middle = (tooLittle + enough) / 2;
      (isEnough(runWith(middle, words)) ? enough : tooLittle) = middle;
    }
    return enough;
  }

  void expectSentenceOrWork(const Words& words, const std::string& file) {
    ASSERT_EQ(run(words).status, 0);
    const std::string saved = project();  // each further save writes the same
    const int starts = leastLimit(words, hasStarted);
    const int enough = leastLimit(words, [](const ProgramRun& ran) { return ran.status == 0; });
    ASSERT_LT(starts + 10 * kStep, enough);
    const int wide = (enough - starts) / 40, closely = 8 * kStep;
    int told = 0;
    for (int limit = starts; limit < enough + closely; limit += limit + closely < enough ? wide : kStep / 2) {
      const ProgramRun ran = runWith(limit, words);
      if (!hasStarted(ran) && limit < starts + closely) continue;
      ASSERT_TRUE(hasStarted(ran)) << limit << " kB: status " << ran.status << ", " << ran.err;
      ASSERT_TRUE(project() == saved) << limit << " kB";
      if (ran.status == 0) continue;
      ++told;
      EXPECT_NE(ran.err.find(file), std::string::npos) << limit << " kB: " << ran.err;
    }
    EXPECT_GT(told, 20);
  }

 private:
  static constexpr int kStep = 64;  // kB
};

TEST_F(ShortResources, AnImportIsSavedOrItsDatabaseIsNamed) {
  expectSentenceOrWork({"import", "auto", (folder / "raw/HSZSJ.KU").string()}, "HSZSJ.KU");
}

TEST_F(ShortResources, AnOpenedProjectIsSavedOrNamed) {
  expectSentenceOrWork({"open", "triaxial", "WKSZP1.txt", "--save"}, "WKSZP1.txt");
}

TEST_F(ShortResources, PagesAreDrawnOrTheProjectIsNamed) {
  expectSentenceOrWork(
      {"print", "triaxial", "WKSZP1.txt", "--layout", "three-in-one", "--out", (folder / "pages.json").string()},
      "WKSZP1.txt");
}

TEST_F(ShortResources, AFileThatMayNotGrowIsNamed) {
  const std::string before = project();
  const std::string file = database({sampleEntry("P1", "S-3"), sampleEntry("P1", "S-4")});
  for (int blocks = 1; blocks <= 300; blocks += 13) {
    const ProgramRun ran = runLimited("-f " + std::to_string(blocks), {"import", "auto", file});
    ASSERT_EQ(ran.status, 1) << blocks;
    EXPECT_NE(ran.err.find("文件超过系统允许的大小"), std::string::npos) << blocks << ": " << ran.err;
    EXPECT_NE(ran.err.find("P1"), std::string::npos) << blocks << ": " << ran.err;
    run({"init"});
    ASSERT_TRUE(project() == before) << blocks;
  }
}

}  // namespace
}  // namespace triaxlab::testing
