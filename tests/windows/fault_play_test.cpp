// A fault in every window: it is told, the tables stay, a save is offered and is whole, the report is there, and the
// program goes on.

#include <fmt/core.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "played_program.h"
#include "shell/command_table.h"
#include "shell/help_topics.h"
#include "shell/lab.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kReport = "triaxlab-fault.txt";
constexpr const char* kTyped = "menu NEW\ntype Form1.Text1 P1\nkey Right\ntype Form1.Text1 S-77\n";

/// A window, what opens it over a document, and what leaves it and all that was opened on the way.
struct Place {
  std::string window, open, leave;
};

struct Desktop {
  std::string name;
  std::string document;  // brings a document to the front; with none no save is offered
  std::vector<Place> places;
  bool hasDocument() const { return !document.empty(); }
};

/// Most windows open without a database as well.
std::string databaseOf(std::string_view importer) {
  if (importer == "OPENFORMWINDAT") return "SZ1.DATX";
  return importer == "OPENFORMWINWCXDAT" ? "WCX1.DATX" : "cancel";
}

std::vector<Place> importerWindows() {
  std::vector<Place> places;
  for (const Command& command : commandTable())
    if (command.action == Action::Import)
      places.push_back({std::string(command.target),
                        fmt::format("file {}\nmenu {}\n", databaseOf(command.target), command.name),
                        fmt::format("close {}\n", command.target)});
  return places;
}

const std::vector<Desktop>& desktops() {
  static const std::string list = "menu ZMOPEN\nclick OPENFORM.Labelsize\n",
                           leaveList = "close Form14\nclose OPENFORM\n";
  static const std::vector<Desktop> all{
      {"Nothing",
       "",
       {{"MDIForm1", "", ""},
        {"About", "menu ABOUT\n", "key Enter\n"},
        {"Manual", "key F1\n", "close Manual\n"},
        {"HABITSFORM", "menu HABITS\n", "click HABITSFORM.Return\n"},
        {"Form5", "menu SHEZHI\n", "key Esc\n"},
        {"OPENFORM", "menu ZMOPEN\n", "close OPENFORM\n"},
        {"BACKUPFORM", "menu ZMOPEN\nclick OPENFORM.Backups\n", "click BACKUPFORM.Return\nclose OPENFORM\n"},
        {"Form13", "menu ZMOPEN0\nclick OPENFORM.Labelsize\n", "close Form13\nclose OPENFORM\n"},
        {"Form14", list, leaveList},
        {"Form16", list + "click Form14.Command4\n", "key Esc\n" + leaveList},
        {"Form17", list + "click Form14.Command8\n", "key Esc\n" + leaveList},
        {"Form21", "menu ZMOPEN\nclick OPENFORM.Labelcz\n", "close Form21\n"}}},
      {"Importers", "", importerWindows()},
      {"Triaxial",
       kTyped,
       {{"Form1", "", ""},
        {"Form2", "menu SHUJUBIAO\n", "close Form2\n"},
        {"FILLFORM", "menu FILLIN\n", "click FILLFORM.Return\n"},
        {"Form24", "menu PEXCEL\n", "close Form24\n"},
        {"SETPRINTFORM", "menu ZMPRINT\n", "close SETPRINTFORM\n"},
        {"SETPRINTFORM3", "menu RZMPRINT1\n", "close SETPRINTFORM3\n"},
        {"Form30", "menu SHUJUBIAO\nmenu ZMPRINT\n", "close Form30\nclose Form2\n"}}},
      {"Imported",
       "file HSZSJ.KU\nmenu NEWSZ\ndblcell OPENFORM0.Grid1 1\ndblcell OPENFORM0.Grid1 2\ndblcell OPENFORM0.Grid1 3\n"
       "click OPENFORM0.Command1\nclick Form1.Label1(7)\n",
       {{"Form7", "click Form1.Command5\n", "close Form7\n"},
        {"Form10", "menu RZMSAVE\n", "key Esc\n"},
        {"PrintPreview", "menu ZMPRINT\nclick SETPRINTFORM.Command3\n", "key Esc\nclose SETPRINTFORM\n"}}},
      {"Unconfined",
       "menu NEW1\ntype Form4.Text1(0) P1\ntype Form4.Text1(1) U-1\n",
       {{"Form4", "", ""}, {"Form3", "menu ZMPRINT\n", "close Form3\n"}}},
      {"K0", "file KGJSJ.KU\nmenu k0\ndblcell OPENFORM2.Grid1 1\nclick OPENFORM2.Command1\n", {{"Form6", "", ""}}},
      {"TK0",
       "file tk0/HGJSJ.KU\nmenu TXk0\ndblcell OPENFORM21.Grid1 1 1\nclick OPENFORM21.Command1\n",
       {{"Form9", "", ""}, {"SETPRINTFORM0", "menu PTK0\n", "close SETPRINTFORM0\n"}}},
  };
  return all;
}

class FaultsOn : public ::testing::TestWithParam<Desktop> {
 protected:
  FaultsOn() {
    // More samples than are opened without asking which.
    write("HSZS/WKSZBIG.TXT", ProjectKind::Triaxial, 101);
    write("HSZS/KWCXP9.TXT", ProjectKind::Unconfined, 1);
  }
  void write(const std::string& file, ProjectKind kind, int samples) const {
    std::vector<std::string> numbers;
    for (int i = 1; i <= samples; ++i) numbers.push_back(fmt::format("S{}", i));
    program.folder().write(file, sampleFileBytes(kind, "BIG", numbers));
  }
  PlayedProgram program;
};

/// Everything that a person has to be asked; then the fault, and what was said of it.
std::string faultIn(const Place& place, bool hasDocument) {
  return fmt::format("{}reply OK\n{}fault throw {}\nmessages\n{}", place.open, hasDocument ? "reply No\n" : "",
                     place.window, place.leave);
}

TEST_P(FaultsOn, AreToldInEveryWindowAndTheProgramGoesOn) {
  const Desktop& desktop = GetParam();
  std::string script = desktop.document + "messages\n";
  for (const Place& place : desktop.places) script += faultIn(place, desktop.hasDocument());
  const PlayResult played = program.play(script + "get MDIForm1.StatusBar1(1)\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_EQ(played.status, 0);
  std::string expected;
  for (const Place& place : desktop.places) {
    expected += fmt::format(
        "[QVB三轴试验数据处理] 程序出现意外的错误（std::logic_error: a fault in "
        "{}），刚才的操作没有完成，数据没有丢失，已记入文件 {}。\n",
        place.window, (program.folder() / kReport).string());
    if (desktop.hasDocument()) expected += "[QVB三轴试验数据处理] 现在保存数据吗？\n";
  }
  EXPECT_THAT(played.out, StartsWith(expected));
  const std::string report = program.folder().read(kReport);
  for (const Place& place : desktop.places)
    EXPECT_NE(report.find("std::logic_error: a fault in " + place.window + "\n"), report.npos) << place.window;
}

INSTANTIATE_TEST_SUITE_P(Desktops, FaultsOn, ::testing::ValuesIn(desktops()),
                         [](const auto& desktop) { return desktop.param.name; });

TEST(Faults, AreThrownInEveryWindowOfWhichTheManualTells) {
  std::set<std::string_view> windows;
  for (const Desktop& desktop : desktops())
    for (const Place& place : desktop.places) windows.insert(place.window);
  for (const HelpTopic& topic : helpTopics())
    EXPECT_TRUE(topic.window == "FaultReport" || windows.contains(topic.window)) << topic.window;
}

// ---- what is left of it

const char* const kKinds[] = {"throw", "memory", "paint"};

class FaultOfKind : public ::testing::TestWithParam<const char*> {};

TEST_P(FaultOfKind, LeavesTheTablesAndTheSaveIsWhole) {
  const PlayedProgram undisturbed, disturbed;
  ASSERT_EQ(undisturbed.play(std::string(kTyped) + "reply OK\nmenu ZMSAVE\n").errors, "");
  const PlayResult played = disturbed.play(fmt::format(
      "{}reply OK\nreply Yes\nreply OK\nfault {} Form1\nget Form1\nget Form1.Text1\nmessages\n", kTyped, GetParam()));
  EXPECT_EQ(played.errors, "");
  EXPECT_THAT(played.out, HasSubstr("Form1.Text1=S-77\n"));
  EXPECT_THAT(played.out, HasSubstr("[保存数据] 三轴试验数据保存完毕\n"));
  EXPECT_TRUE(disturbed.folder().read("HSZS/WKSZP1.txt") == undisturbed.folder().read("HSZS/WKSZP1.txt"));
  EXPECT_THAT(disturbed.folder().read(kReport), Not(HasSubstr("S-77"))) << "no readings, no numbers of samples";
}

INSTANTIATE_TEST_SUITE_P(Kinds, FaultOfKind, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param); });

TEST(Faults, AnUnwritableWorkspaceIsNoFurtherOne) {
  const PlayedProgram program;
  std::filesystem::create_directories(program.folder() / kReport);
  const PlayResult played =
      program.play(std::string(kTyped) + "reply OK\nreply No\nfault throw Form1\nmessages\nget Form1.Text1\n");
  EXPECT_EQ(played.errors, "");
  EXPECT_THAT(played.out, HasSubstr("刚才的操作没有完成，数据没有丢失。\n"));
  EXPECT_THAT(played.out, HasSubstr("Form1.Text1=S-77\n"));
}

// ---- the next start

constexpr const char* kTold = "程序以前运行时出过意外的错误，或者意外中断过。请点“查看”看报告。";
constexpr const char* kBarGone = "MDIForm1.WarningBar: not visible enabled not checked\n";

class AfterACrash : public ::testing::Test {
 protected:
  AfterACrash() {
    const PlayResult crashed = program.play(std::string(kTyped) + "reply OK\nmenu ZMSAVE\nfault crash Form1\n");
    EXPECT_NE(crashed.status, 0);
    EXPECT_THAT(crashed.errors, HasSubstr("程序意外中断（SIGSEGV）"));
  }
  PlayedProgram program;
};

TEST_F(AfterACrash, TheNoteIsThereAndTheSavedProjectWhole) {
  const std::string note = program.folder().read(kReport);
  EXPECT_THAT(note, HasSubstr("意外中断\nSIGSEGV\n命令: NEW ZMSAVE\n"));
  const PlayResult next = program.play("menu ZMOPEN\nkey Enter\nclick Form1.Label1(3)\nget Form1.Text1\n");
  EXPECT_EQ(next.out, "Form1.Text1=S-77\n") << next.errors;
}

TEST_F(AfterACrash, TheNextStartShowsTheReportOnce) {
  const PlayResult next = program.play(
      "get MDIForm1.WarningText\nclick MDIForm1.WarningReport\nget FaultReport.Report\nget FaultReport.Heading\n"
      "click FaultReport.Return\nstate MDIForm1.WarningBar\n");
  EXPECT_EQ(next.errors, "");
  EXPECT_THAT(next.out, StartsWith(fmt::format("MDIForm1.WarningText={}\n", kTold)));
  EXPECT_THAT(next.out, HasSubstr("意外中断\\nSIGSEGV\\n命令: NEW ZMSAVE\\n"));
  EXPECT_THAT(next.out, HasSubstr("triaxlab-fault-seen.txt。\n"));
  EXPECT_THAT(next.out, HasSubstr(kBarGone));
  EXPECT_EQ(program.play("state MDIForm1.WarningBar\n").out, kBarGone);
}

TEST_F(AfterACrash, WhoHasTakenNoteIsNotToldAgain) {
  EXPECT_EQ(program.play("click MDIForm1.WarningClose\nstate MDIForm1.WarningBar\n").out, kBarGone);
  EXPECT_EQ(program.play("state MDIForm1.WarningBar\n").out, kBarGone);
  EXPECT_TRUE(fileExists(program.folder() / "triaxlab-fault-seen.txt"));
}

TEST_F(AfterACrash, WhoOverlooksItIsToldUntilHeLooks) {
  EXPECT_EQ(program.play("menu NEW\nget MDIForm1.WarningText\n").out, fmt::format("MDIForm1.WarningText={}\n", kTold));
  EXPECT_EQ(program.play("get MDIForm1.WarningText\n").out, fmt::format("MDIForm1.WarningText={}\n", kTold));
}

}  // namespace
}  // namespace triaxlab::testing
