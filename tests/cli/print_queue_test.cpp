// Jobs of the command line in a real print queue: what comes out of it, and what is said when nothing does.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"
#include "support/print_server.h"
#include "support/printed_document.h"

namespace triaxlab::testing {
namespace {

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::SizeIs;

/// A job, and the sheets that must come out of it.
struct QueueJob {
  const char *kind, *project, *layout;
  std::vector<std::string> options;
  std::size_t sheets;
  double width, height;  // points, whole ones
  const char* media;     // as the queue is asked for it
};

constexpr const char *kSZ = "WKSZDT2-07.txt", *kWCX = "KWCX2024A3.txt", *kKO = "KO2024K2.txt", *kTKO = "TKO2024T1.txt";

// The four triaxial samples have eight curves, two to a page; there are six unconfined ones and six of K0, five of TK0.
// Papers of no name: 23816 x 15870 twips are 1190.8 x 793.5 points, 11904 are 595.2.
const std::vector<QueueJob> kQueueJobs{
    {"triaxial", kSZ, "three-in-one", {}, 4, 595, 842, "media=A4"},
    {"triaxial", kSZ, "three-in-one", {"--paper", "A3"}, 2, 1191, 842, "media=A3"},
    {"triaxial", kSZ, "chart", {"--rows", "2", "--columns", "2"}, 2, 842, 595, "media=A4"},
    {"triaxial", kSZ, "chart", {"--columns", "4", "--paper", "A3", "--landscape"}, 2, 1191, 842, "media=A3"},
    {"triaxial", kSZ, "chart", {"--columns", "8", "--paper", "wide"}, 1, 1191, 794, "media=Custom.1190.8x793.5"},
    {"triaxial", kSZ, "chart", {"--rows", "4", "--paper", "narrow"}, 2, 595, 794, "media=Custom.595.2x793.5"},
    {"triaxial", kSZ, "single", {"--curves", "1"}, 4, 595, 842, "media=A4"},
    {"triaxial", kSZ, "triaxial-table", {"--pages", "2-3", "--copies", "3"}, 2, 595, 842, "copies=3 media=A4"},
    {"triaxial", kSZ, "consolidation", {"--pages", "1-2"}, 2, 595, 842, "media=A4"},
    {"unconfined", kWCX, "unconfined-table", {}, 6, 595, 842, "media=A4"},
    {"unconfined", kWCX, "unconfined-curve", {}, 3, 595, 842, "media=A4"},
    {"k0", kKO, "k0", {}, 3, 595, 842, "media=A4"},
    {"tk0", kTKO, "tk0", {}, 3, 595, 842, "media=A4"},
    {"tk0", kTKO, "tk0-curve", {"--pages", "1-2"}, 2, 595, 842, "media=A4"},
};

/// The letters of some texts in no order, for a reader of paper finds its own; without blanks.
std::string lettersOf(const std::vector<std::string>& texts) {
  std::string letters;
  for (const std::string& text : texts) letters += text;
  std::erase(letters, ' ');
  std::ranges::sort(letters);
  return letters;
}

class PrintQueue : public CliTest {
 protected:
  void SetUp() override {
    if (!PrintServer::isInstalled())
      GTEST_SKIP() << "cups-daemon and cups-client are not installed: nothing was printed";
    if (!PrintedDocument::canBeRead()) GTEST_SKIP() << "poppler-utils is not installed: no print could be read";
    m_server.emplace();
    for (const auto& [source, file] : {std::pair("auto", "HSZSJ.KU"), std::pair("unconfined-kzj", "KZJSJ.KU"),
                                       std::pair("k0-hgj", "HGJSJ.KU"), std::pair("tk0-hgj", "tk0/HGJSJ.KU")})
      EXPECT_EQ(run({"import", source, std::string(TRIAXLAB_SAMPLES "/") + file}).status, 0) << file;
  }
  PrintServer& server() { return *m_server; }

  ProgramRun send(const QueueJob& job, const std::string& printer) {
    std::vector<std::string> words{"print", job.kind,       job.project, "--layout", job.layout,
                                   "--out", drawn.string(), "--printer", printer};
    words.insert(words.end(), job.options.begin(), job.options.end());
    return run(words);
  }
  PrintServer::Job print(const QueueJob& job, const std::string& printer) {
    const ProgramRun ran = send(job, printer);
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, "");
    return server().nextJob().value_or(PrintServer::Job{});
  }
  /// The texts that the layout draws on each sheet.
  std::vector<std::vector<std::string>> drawnTexts() {
    std::vector<std::vector<std::string>> sheets;
    const auto drawing = nlohmann::json::parse(folder.read(drawn.filename()));
    for (const auto& sheet : drawing["pages"]) {
      sheets.emplace_back();
      for (const auto& operation : sheet)
        if (operation["op"] == "text") sheets.back().push_back(operation["text"]);
    }
    return sheets;
  }

  const std::filesystem::path drawn = folder.path() / "drawn.json";
  static constexpr PrintServer::Paper kA3Paper{"A3", 842, 1191}, kWideRoll{"", 1224, 1008};

 private:
  std::optional<PrintServer> m_server;
};

TEST_F(PrintQueue, EveryLayoutComesOutWholeAndInItsPlaceWhateverThePrinterCanReach) {
  server().addDefaultQueue("Edge", {.morePapers = {kA3Paper}, .largestOfAnySize = kWideRoll, .hasMargins = false});
  server().addDefaultQueue("Margins", {.morePapers = {kA3Paper}, .largestOfAnySize = kWideRoll});
  for (const QueueJob& job : kQueueJobs) {
    SCOPED_TRACE(::testing::Message() << job.layout << ' ' << ::testing::PrintToString(job.options));
    const PrintServer::Job paper = print(job, "Margins");
    EXPECT_THAT(paper.options, HasSubstr(job.media));
    const PrintedDocument printed(paper.pages);
    ASSERT_THAT(printed.pages, SizeIs(job.sheets));
    EXPECT_EQ(printed.pages, PrintedDocument(print(job, "Edge").pages).pages);
    const auto texts = drawnTexts();
    for (std::size_t sheet = 0; sheet < job.sheets; ++sheet) {
      const PrintedDocument::Page& page = printed.pages[sheet];
      EXPECT_EQ(page.width, job.width);
      EXPECT_EQ(page.height, job.height);
      EXPECT_TRUE(lettersOf(page.texts()) == lettersOf(texts.at(sheet)))
          << sheet << ' ' << ::testing::PrintToString(page.texts());
    }
  }
  EXPECT_FALSE(server().hasMoreJobs());
}

TEST_F(PrintQueue, TheDotMatrixPrinterGetsItsFormAndLinesHalfAsThick) {
  server().addDefaultQueue("Lab", {.largestOfAnySize = kWideRoll});
  const QueueJob job{"k0", kKO, "k0", {"--pages", "1-1"}, 1, 595, 794, ""};
  const double thickness = PrintedDocument::thickestLine(print(job, "Lab").pages);
  const std::string stored = folder.read("app/qvb.sys");
  folder.write("app/qvb.sys", std::string(stored).replace(197, 1, "\x01"));
  const PrintServer::Job paper = print(job, "Lab");
  EXPECT_THAT(paper.options, HasSubstr("media=Custom.595.2x793.5"));
  EXPECT_DOUBLE_EQ(PrintedDocument::thickestLine(paper.pages), thickness / 2);
}

// ---- Queues that don't take a job

TEST_F(PrintQueue, ThatDoesntTakeAJobIsNamedAndTheProgramFails) {
  for (const char* const name : {"Stopped", "Closed", "Others"}) server().addDefaultQueue(name);
  server().stopQueue("Stopped");
  server().takeNoMoreJobsInto("Closed");
  server().keepForOthers("Others");
  const std::string before = folder.read("app/HSZS/KO2024K2.txt");
  const QueueJob job{"k0", kKO, "k0", {}, 0, 0, 0, ""};
  for (const auto& [printer, sentence] :
       {std::pair("Stopped", "打印机“Stopped”没有打印：这台打印机已停用，请先启用它。\n"),
        std::pair("Closed", "打印机“Closed”没有打印：这台打印机暂不接受打印任务。\n"),
        std::pair("Others", "打印机“Others”没有打印：没有使用这台打印机的权限。\n")}) {
    const ProgramRun ran = send(job, printer);
    EXPECT_EQ(ran.status, 1) << printer;
    EXPECT_EQ(ran.err, sentence);
  }
  EXPECT_FALSE(server().hasMoreJobs());
  EXPECT_TRUE(folder.read("app/HSZS/KO2024K2.txt") == before);
}

TEST_F(PrintQueue, GetsNoHalfDocumentFromAFullDisk) {
  if (std::system("unshare -m mount -t tmpfs none /mnt 2>/dev/null") != 0)
    GTEST_SKIP() << "no file system can be mounted here: no disk could be filled";
  server().addDefaultQueue("Lab");
  const std::filesystem::path full = folder.path() / "full", missing = folder.path() / "missing";
  std::filesystem::create_directory(full);
  const QueueJob job{"k0", kKO, "k0", {}, 0, 0, 0, ""};
  setShell("export TMPDIR='" + full.string() +
               "'; unshare -m sh -c 'mount -t tmpfs -o size=16k none \"$TMPDIR\"; exec \"$@\"' - ",
           "");
  const ProgramRun ran = send(job, "Lab");
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(ran.err, "打印机“Lab”没有打印：临时文件夹“" + full.string() + "”所在的磁盘已满。\n");
  setShell("TMPDIR='" + missing.string() + "' ", "");
  EXPECT_EQ(send(job, "Lab").status, 1);
  EXPECT_FALSE(server().hasMoreJobs());
}

}  // namespace
}  // namespace triaxlab::testing
