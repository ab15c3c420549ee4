// What the program makes of its arguments, before any file is touched.
#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

class CommandLine : public CliTest {};

TEST_F(CommandLine, AWrongOneGivesTheUsageAndTouchesNothing) {
  const std::vector<std::vector<std::string>> wrong{
      {},
      {"walk"},
      {"init", "more"},
      {"import"},
      {"import", "auto"},
      {"import", "AUTO", "x.ku"},
      {"import", "auto", "x.ku", "--rows", "1,x"},
      {"import", "auto", "x.ku", "--rows", ""},
      {"import", "auto", "x.ku", "--rows", "-1"},
      {"import", "auto", "x.ku", "--rows"},
      {"import", "auto", "x.ku", "--show", "0"},
      {"import", "auto", "x.ku", "--show", "7"},
      {"import", "auto", "x.ku", "--save"},
      {"open", "triaxial"},
      {"open", "square", "WKSZ1.txt"},
      {"open", "triaxial", "WKSZ1.txt", "--first", "one"},
      {"list"},
      {"list", "triaxial", "k0"},
      {"show", "triaxial", "WKSZ1.txt", "--sample", "1-2"},
      {"print", "triaxial", "WKSZ1.txt", "--out", "x.pdf"},
      {"print", "triaxial", "WKSZ1.txt", "--layout", "four-in-one", "--out", "x.pdf"},
      {"print", "triaxial", "WKSZ1.txt", "--layout", "three-in-one"},
      {"print", "triaxial", "WKSZ1.txt", "--layout", "three-in-one", "--out", "x.pdf", "--curves", "1,7"},
      {"print", "triaxial", "WKSZ1.txt", "--layout", "three-in-one", "--out", "x.pdf", "--samples", "2-"},
      {"print", "triaxial", "WKSZ1.txt", "--layout", "three-in-one", "--out", "x.pdf", "--paper", "A5"},
      {"print", "triaxial", "WKSZ1.txt", "--layout", "three-in-one", "--out", "x.pdf", "--copies", "100"},
      {"rewrite", "triaxial", "WKSZ1.txt"},
      {"rewrite", "triaxial", "WKSZ1.txt", "--order", "3,,1"},
      {"workbook", "WKSZ1.txt"},
      {"workbook", "WKSZ1.txt", "--out", "x"},
      {"workbook-raw", "auto", "HSZSJ.KU", "--out", "x.xls"},
      {"workbook-raw", "win", "--out", "x.xls"},
      {"workbook-raw", "win", "SZData.dat", "--out", "x.txt"},
      {"workbook", "WKSZ1.txt", "--out", "x.csv"},
      {"workbook", "WKSZ1.txt", "--out", "x.xls", "--kind", "square"},
      {"workbook", "WKSZ1.txt", "--out", "x.xls", "--first", "one"},
  };
  for (const auto& words : wrong) {
    const ProgramRun ran = run(words);
    EXPECT_EQ(ran.status, 2) << ::testing::PrintToString(words);
    EXPECT_NE(ran.err.find("Usage: triaxlab-cli"), std::string::npos) << ran.err;
    EXPECT_EQ(ran.out, "");
  }
  EXPECT_TRUE(std::filesystem::is_empty(app()));
}

TEST_F(CommandLine, ADayMustBeOneOfTheCalendar) {
  for (const char* day : {"2024-13-01", "2023-02-29", "today", "2024/05/06", ""})
    EXPECT_EQ(runBare({"--app", app().string(), "--today", day, "init"}).status, 2) << day;
  EXPECT_EQ(runBare({"--app", app().string(), "--today", "2024-02-29", "init"}).status, 0);
}

TEST_F(CommandLine, HelpIsNoError) {
  const ProgramRun ran = runBare({"--help"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_NE(ran.out.find("import"), std::string::npos);
  EXPECT_EQ(ran.err, "");
}

TEST_F(CommandLine, TheVersionIsALine) {
  const ProgramRun ran = runBare({"--version"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.out, "triaxlab-cli " TRIAXLAB_VERSION "\n");
  EXPECT_EQ(ran.err, "");
}

TEST_F(CommandLine, AnApplicationFolderThatIsNotThereIsNamed) {
  const std::string missing = (folder.path() / "missing").string();
  const ProgramRun ran = runBare({"--app", missing, "init"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(ran.err, "没有文件夹“" + missing + "”。\n");
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(CommandLine, AVariableNamesTheApplicationFolder) {
  setShell("TRIAXLAB_APP='" + app().string() + "' ", "");
  EXPECT_EQ(runBare({"init"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(app() / "qvb.sys"));
  EXPECT_EQ(runBare({"--app", (folder / "gone").string(), "init"}).status, 1) << "the option goes first";

  setShell("TRIAXLAB_APP='" + (folder / "gone").string() + "' ", "");
  const ProgramRun named = runBare({"init"});
  EXPECT_EQ(named.status, 1);
  EXPECT_EQ(named.err, "没有文件夹“" + (folder / "gone").string() + "”。\n");
}

TEST_F(CommandLine, InitMakesSettingsAndFolders) {
  const ProgramRun ran = run({"init"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.out + ran.err, "");
  EXPECT_EQ(std::filesystem::file_size(app() / "qvb.sys"), 7168U);  // up to the data folder at 6999, 170 wide
  for (const char* name : {"HSZS", "ZMSJ", "PTU"}) EXPECT_TRUE(std::filesystem::is_directory(app() / name)) << name;
}

TEST_F(CommandLine, EveryCommandDoesTheStepsOfTheStart) {
  EXPECT_EQ(run({"list", "triaxial"}).status, 0);
  EXPECT_TRUE(std::filesystem::exists(app() / "qvb.sys"));
  EXPECT_TRUE(std::filesystem::is_directory(app() / "HSZS"));
}

TEST_F(CommandLine, WhatThisVersionLacksIsSaidInOneSentence) {
  const std::vector<std::vector<std::string>> lacking{
      {"open", "k0", "KO1.txt", "--show", "1"},
  };
  for (const auto& words : lacking) {
    const ProgramRun ran = run(words);
    EXPECT_EQ(ran.status, 1) << ::testing::PrintToString(words);
    EXPECT_EQ(ran.err.substr(0, std::string("本版本还没有").size()), "本版本还没有") << ran.err;
    EXPECT_EQ(lineCount(ran.err), 1U);
  }
}

}  // namespace
}  // namespace triaxlab::testing
