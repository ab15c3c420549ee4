#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"
#include "support/print_server.h"

namespace triaxlab::testing {
namespace {

class PrintCommand : public CliTest {
 protected:
  PrintCommand() { EXPECT_EQ(run({"import", "auto", TRIAXLAB_SAMPLES "/HSZSJ.KU", "--show", "3"}).status, 0); }
  ProgramRun print(const std::filesystem::path& out, const std::vector<std::string>& more = {}) {
    std::vector<std::string> words{"print",        "triaxial", "WKSZDT2-07.txt", "--layout",
                                   "three-in-one", "--out",    out.string()};
    words.insert(words.end(), more.begin(), more.end());
    return run(words);
  }
  std::size_t pages(const std::vector<std::string>& more) {
    const ProgramRun ran = print(folder.path() / "pages.json", more);
    EXPECT_EQ(ran.status, 0) << ran.err;
    return nlohmann::json::parse(folder.read("pages.json"))["pages"].size();
  }
};

// Four samples of two curves, two blocks a page.
TEST_F(PrintCommand, WritesTheDrawingOperations) {
  EXPECT_EQ(pages({}), 4U);
  EXPECT_EQ(pages({"--curves", "1"}), 2U);
  EXPECT_EQ(pages({"--samples", "2-3", "--curves", "1"}), 1U);
  EXPECT_EQ(pages({"--samples", "all", "--curves", "1,3"}), 4U);
  EXPECT_EQ(pages({"--pages", "2-3"}), 2U);
  EXPECT_EQ(pages({"--samples", "1-2", "--pages", "2-2"}), 1U);
}

TEST_F(PrintCommand, RowsAndColumnsBelowOneCountAsOne) {
  for (const char* number : {"0", "-3", "31"})
    EXPECT_EQ(pages({"--curves", "1", "--rows", number, "--columns", number}), 2U) << number;
}

/// The size of the pages, and their number.
struct Sheets {
  int width, height;
  std::size_t pages;
  bool operator==(const Sheets&) const = default;
};

class PrintedSheets : public PrintCommand {
 protected:
  Sheets sheets(const std::string& layout, const std::vector<std::string>& more = {}) {
    std::vector<std::string> words{
        "print", "triaxial", "WKSZDT2-07.txt", "--layout", layout, "--out", (folder.path() / "sheets.json").string()};
    words.insert(words.end(), more.begin(), more.end());
    const ProgramRun ran = run(words);
    EXPECT_EQ(ran.status, 0) << ran.err;
    const auto drawn = nlohmann::json::parse(folder.read("sheets.json"));
    return {drawn["width"], drawn["height"], drawn["pages"].size()};
  }
};

// Four samples of one curve.
TEST_F(PrintedSheets, ChartsInRowsAndColumnsOnAPaperOfTheirOwn) {
  EXPECT_EQ(sheets("chart", {"--curves", "1"}), (Sheets{16838, 11906, 4})) << "as without a stored page setup";
  EXPECT_EQ(sheets("chart", {"--curves", "1", "--rows", "1", "--columns", "3", "--paper", "A3"}),
            (Sheets{23811, 16838, 2}));
  EXPECT_EQ(sheets("chart", {"--curves", "1", "--rows", "2", "--columns", "2", "--paper", "wide", "--data-sheet"}),
            (Sheets{23816, 15870, 1}));
}

TEST_F(PrintedSheets, ThePaperOfTheStoredPageSetupStandsUnlessAnotherIsNamed) {
  std::string setup(83, '\0');
  setup[9] = 1;   // A3
  setup[19] = 4;  // rows
  setup[59] = 1;  // upright
  folder.write("app/zmsz.sys", setup);
  EXPECT_EQ(sheets("chart", {"--curves", "1"}), (Sheets{16838, 23811, 4})) << "one row unless more are asked for";
  EXPECT_EQ(sheets("chart", {"--curves", "1", "--landscape"}), (Sheets{23811, 16838, 4}));
  EXPECT_EQ(sheets("chart", {"--curves", "1", "--paper", "A4"}), (Sheets{11906, 16838, 4}));
}

TEST_F(PrintedSheets, PagesOfAFixedFormLieOnA4OrInTwosOnA3) {
  EXPECT_EQ(sheets("single", {"--curves", "1"}), (Sheets{11906, 16838, 4}));
  EXPECT_EQ(sheets("three-in-one", {"--curves", "1", "--paper", "A4"}), (Sheets{11906, 16838, 2}));
  EXPECT_EQ(sheets("three-in-one", {"--curves", "1", "--paper", "A3"}), (Sheets{23810, 16841, 1}));
  for (const std::vector<std::string>& more : {std::vector<std::string>{"--landscape"}, {"--paper", "wide"}}) {
    const ProgramRun ran = print(folder.path() / "pages.json", more);
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
  }
}

TEST_F(PrintCommand, LeavesTheProjectAsItWas) {
  const std::string before = folder.read("app/HSZS/WKSZDT2-07.txt");
  pages({"--curves", "1,2,3,4,5,6"});
  EXPECT_TRUE(folder.read("app/HSZS/WKSZDT2-07.txt") == before);
}

TEST_F(PrintCommand, AFileThatCannotBeWrittenIsNamed) {
  const std::filesystem::path out = folder.path() / "missing" / "pages.json";
  const ProgramRun ran = print(out);
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find("pages.json"), std::string::npos) << ran.err;
  EXPECT_EQ(lineCount(ran.err), 1U);
}

TEST_F(PrintCommand, WithoutAnythingToPrintThereIsNoFile) {
  // Curve 4 is for CU alone.
  const ProgramRun ran = print(folder.path() / "none.json", {"--samples", "1-2", "--curves", "4"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(lineCount(ran.err), 1U);
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "none.json"));
}

#ifdef TRIAXLAB_HAS_QT
/// What of the demonstration databases a layout prints.
struct PrintedKind {
  const char *source, *database, *kind, *file;
  std::vector<const char*> layouts;
};

TEST_F(CliTest, TheSameJobOfADayMakesTheSamePdf) {
  const std::vector<PrintedKind> kinds{
      {"auto",
       "HSZSJ.KU",
       "triaxial",
       "WKSZDT2-07.txt",
       {"three-in-one", "chart", "single", "triaxial-table", "consolidation"}},
      {"unconfined-kzj", "KZJSJ.KU", "unconfined", "KWCX2024A3.txt", {"unconfined-table", "unconfined-curve"}},
      {"k0-hgj", "HGJSJ.KU", "k0", "KO2024K2.txt", {"k0"}},
      {"tk0-hgj", "tk0/HGJSJ.KU", "tk0", "TKO2024T1.txt", {"tk0", "tk0-curve"}}};
  for (const PrintedKind& printed : kinds) {
    ASSERT_EQ(run({"import", printed.source, std::string(TRIAXLAB_SAMPLES "/") + printed.database}).status, 0);
    for (const char* const layout : printed.layouts) {
      for (const char* const name : {"first.pdf", "second.pdf"})
        ASSERT_EQ(
            run({"print", printed.kind, printed.file, "--layout", layout, "--out", (folder / name).string()}).status, 0)
            << layout;
      const std::string pages = folder.read("first.pdf");
      EXPECT_TRUE(pages == folder.read("second.pdf")) << layout;
      EXPECT_THAT(pages, ::testing::HasSubstr("20240506)")) << layout;
      EXPECT_THAT(pages, ::testing::HasSubstr("/Type /Outlines")) << layout;
    }
  }
}

/// A machine with the fonts of these folders alone.
std::string onlyFontsOf(const TemporaryFolder& folder, const std::string& folders) {
  const std::filesystem::path settings =
      folder.write("fonts.conf", "<?xml version=\"1.0\"?><fontconfig>" + folders + "</fontconfig>");
  return "FONTCONFIG_FILE='" + settings.string() + "' ";
}

TEST_F(PrintCommand, WithoutAChineseFontThereIsASentenceInsteadOfBoxes) {
  folder.write("pages.pdf", "old");
  for (const char* const fonts : {"", "<dir>/usr/share/fonts/truetype/liberation</dir>"}) {
    setShell(onlyFontsOf(folder, fonts), "");
    for (const char* const out : {"pages.pdf", "pictures"}) {
      const ProgramRun ran = print(folder / out);
      EXPECT_EQ(ran.status, 1) << out;
      EXPECT_THAT(ran.err, ::testing::HasSubstr("没有中文字体")) << out;
      EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
    }
    EXPECT_EQ(folder.read("pages.pdf"), "old");
    EXPECT_FALSE(std::filesystem::exists(folder / "pictures"));
    EXPECT_EQ(pages({}), 4U) << "drawing operations need no font";
  }
}

// The curves of the stages have numbers in a narrow font, which this machine lacks; others of it hold ornaments alone.
TEST_F(CliTest, NumbersAreNeverSetInAFontOfSymbols) {
  ASSERT_EQ(run({"import", "tk0-hgj", TRIAXLAB_SAMPLES "/tk0/HGJSJ.KU"}).status, 0);
  setShell(
      onlyFontsOf(folder, "<dir>/usr/share/fonts/truetype/arphic</dir><dir>/usr/share/fonts/opentype/urw-base35</dir>"),
      "");
  const ProgramRun ran =
      run({"print", "tk0", "TKO2024T1.txt", "--layout", "tk0-curve", "--out", (folder / "pages.pdf").string()});
  ASSERT_EQ(ran.status, 0) << ran.err;
  for (const char* const symbols : {"D050000L", "StandardSymbols"})
    EXPECT_THAT(folder.read("pages.pdf"), ::testing::Not(::testing::HasSubstr(symbols)));
}

TEST_F(PrintCommand, WritesAPdf) {
  EXPECT_EQ(print(folder.path() / "pages.PDF").status, 0);
  EXPECT_EQ(folder.read("pages.PDF").substr(0, 5), "%PDF-");
}

TEST_F(PrintCommand, WritesABitmapForEachPage) {
  EXPECT_EQ(print(folder.path() / "pictures", {"--curves", "1"}).status, 0);
  for (const char* name : {"SZ1.BMP", "SZ2.BMP"})
    EXPECT_EQ(folder.read(std::filesystem::path("pictures") / name).substr(0, 2), "BM") << name;
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "pictures/SZ3.BMP"));
}

TEST_F(PrintCommand, OnAFullDiskTheOldPagesStay) {
  folder.write("pages.pdf", "the old one");
  folder.write("pictures/SZ1.BMP", "the old one");
  setShell("ulimit -f 16; ", "");  // blocks: less than a page takes
  for (const char* const out : {"pages.pdf", "pictures"}) {
    const ProgramRun ran = print(folder.path() / out);
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
    EXPECT_NE(ran.err.find(out), std::string::npos) << ran.err;
  }
  EXPECT_EQ(folder.read("pages.pdf"), "the old one");
  EXPECT_EQ(folder.read("pictures/SZ1.BMP"), "the old one");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "pictures"), {}), 1);
}

TEST_F(PrintCommand, GoesToThePrinterOfTheName) {
  if (!PrintServer::isInstalled()) GTEST_SKIP() << "cups-daemon and cups-client are not installed: nothing was printed";
  PrintServer server;
  server.addDefaultQueue("Office");
  server.addDefaultQueue("Lab");
  const ProgramRun ran = run({"print", "triaxial", "WKSZDT2-07.txt", "--layout", "single", "--curves", "1", "--printer",
                              "Office", "--copies", "2"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  const auto job = server.nextJob();
  ASSERT_TRUE(job.has_value());
  EXPECT_THAT(job->options, ::testing::HasSubstr("queue=Office title=三轴试验成果图表（单页） copies=2"));
  EXPECT_THAT(job->options, ::testing::HasSubstr("media=A4"));
}

TEST_F(PrintCommand, APrinterThatIsNotThereIsNamed) {
  const ProgramRun ran = run({"print", "triaxial", "WKSZDT2-07.txt", "--layout", "single", "--printer", "Nowhere-7"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
  EXPECT_NE(ran.err.find("Nowhere-7"), std::string::npos) << ran.err;
}
#else
TEST_F(PrintCommand, SaysThatItCannotDrawWithoutTheToolkit) {
  for (const char* name : {"pages.pdf", "pictures"}) {
    const ProgramRun ran = print(folder.path() / name);
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(lineCount(ran.err), 1U);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / name));
  }
}
#endif

}  // namespace
}  // namespace triaxlab::testing
