#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "played_program.h"
#include "support/file_bytes.h"
#include "support/print_server.h"

namespace triaxlab::testing {
namespace {

// ---- every script of the folder: it runs to its end and prints what stands in the file of its name

std::vector<std::string> scriptNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(TRIAXLAB_SCRIPTS))
    if (entry.path().extension() == ".play") names.push_back(entry.path().stem().string());
  std::ranges::sort(names);
  return names;
}

class Script : public ::testing::TestWithParam<std::string> {};

TEST_P(Script, RunsToItsEnd) {
  const std::filesystem::path file = std::filesystem::path(TRIAXLAB_SCRIPTS) / GetParam();
  const PlayResult result = PlayedProgram().play(fileBytes(file.string() + ".play"));
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, fileBytes(file.string() + ".out"));
}

INSTANTIATE_TEST_SUITE_P(Windows, Script, ::testing::ValuesIn(scriptNames()),
                         [](const auto& script) { return script.param; });

// ---- what a script can't do

TEST(Play, AScriptThatFailsTellsItsLine) {
  const PlayResult result = PlayedProgram().play("# a comment\n\nmenu NEW\nexpect Form1.Label4 已经干预\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.errors.starts_with("line 4: ")) << result.errors;
}

TEST(Play, ACommandThatIsOffIsAnError) {
  const PlayResult result = PlayedProgram().play("menu RZMSAVE\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("RZMSAVE"), std::string::npos) << result.errors;
}

TEST(Play, AMessageBoxWithoutAReplyIsAnErrorThatNamesIt) {
  const PlayResult result = PlayedProgram().play("menu ZMSAVE\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("[保存数据] 三轴试验数据保存完毕"), std::string::npos) << result.errors;
}

TEST(Play, AFileDialogWithoutAnAnswerIsAnErrorInsideAModalWindowToo) {
  const PlayedProgram program;
  std::filesystem::remove(program.folder().path() / "HSZSJ.KU");
  const PlayResult result = program.play("menu NEWSZ\nget OPENFORM0.Label1\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.errors.starts_with("line 1: ")) << result.errors;
  EXPECT_NE(result.errors.find("HSZSJ.KU"), std::string::npos) << result.errors;
}

TEST(Play, NothingIsReachedBehindAModalWindow) {
  const PlayResult result = PlayedProgram().play("file HSZSJ.KU\nmenu NEWSZ\nmenu NEW\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.errors.starts_with("line 3: ")) << result.errors;
}

TEST(Play, AnUnknownStatementWindowOrControlIsAnError) {
  const PlayedProgram program;
  for (const char* const line :
       {"dance\n", "get Form1.Text3\n", "get MDIForm1.Text99\n", "menu NOTHING\n", "key Hop\n"})
    EXPECT_EQ(program.play(line).status, 1) << line;
}

TEST(Play, AScriptThatIsMissingGivesTwo) {
  const PlayResult result = PlayedProgram().start("--play nowhere.play");
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.errors.find("nowhere.play"), std::string::npos) << result.errors;
}

TEST(Play, AWrongCommandLineGivesTwoAndTheUsage) {
  const PlayResult result = PlayedProgram().start("--dance");
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.errors.find("Usage:"), std::string::npos) << result.errors;
}

TEST(Play, TheEndOfTheProgramStillTellsItsMessages) {
  const PlayResult result = PlayedProgram().play("menu NEW\ntype Form1.Text1 P1\nreply No\nmenu ZMEXIT\nmessages\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "[保存三轴数据]    数据已修改\\n保存修改后数据吗？\n");
}

// ---- what a script leaves

TEST(Play, OpsWritesTheCanvasAsOperations) {
  const PlayedProgram program;
  ASSERT_EQ(program.play("menu NEW\nops Form1.Picture1 page.json\n").status, 0);
  const auto drawing = nlohmann::json::parse(program.folder().read("page.json"));
  EXPECT_EQ(drawing.at("width"), 7050);
  EXPECT_EQ(drawing.at("height"), 4700);
  ASSERT_EQ(drawing.at("pages").size(), 1u);
  // 22 vertical and 14 horizontal lines, then the frame.
  const auto& operations = drawing.at("pages").at(0);
  EXPECT_EQ(std::ranges::count_if(operations, [](const auto& op) { return op.at("op") == "line"; }), 22 + 14);
  EXPECT_EQ(std::ranges::count_if(operations, [](const auto& op) { return op.at("op") == "box"; }), 1);
}

/// Where the numbers of the axes stand on the canvas of Form1, magnified or not, from the upper left.
std::vector<std::pair<int, int>> axisNumbers(const std::string& look) {
  const PlayedProgram program;
  const PlayResult result = program.play("menu NEW\n" + look + "ops Form1.Picture1 page.json\n");
  EXPECT_EQ(result.errors, "");
  std::vector<std::pair<int, int>> places;
  const auto drawing = nlohmann::json::parse(program.folder().read("page.json"));
  for (const auto& op : drawing.at("pages").at(0))
    if (op.at("op") == "text" && op.at("color") == 1) places.emplace_back(op.at("x"), op.at("y"));
  return places;
}

TEST(Play, AMagnifiedChartKeepsTheNumbersOfItsAxesAtTheEdges) {
  const auto isBelow = [](std::pair<int, int> place) { return place.second == 4700 - 210 - 30; };
  const auto isLeft = [](std::pair<int, int> place) { return place.first == 30; };
  const auto whole = axisNumbers("");
  EXPECT_FALSE(whole.empty());
  EXPECT_TRUE(std::ranges::none_of(whole, isBelow));
  EXPECT_TRUE(std::ranges::none_of(whole, isLeft));
  // About the lower right corner: neither axis is seen.
  const auto magnified = axisNumbers("wheel Form1.Picture1 7050 4700 4 Ctrl\n");
  EXPECT_TRUE(std::ranges::any_of(magnified, isLeft));
  const auto upper = axisNumbers("wheel Form1.Picture1 7050 0 4 Ctrl\n");
  EXPECT_TRUE(std::ranges::any_of(upper, isBelow));
  EXPECT_TRUE(std::ranges::any_of(upper, isLeft));
}

TEST(Play, ShotWritesThePictureOfAWindow) {
  const PlayedProgram program;
  ASSERT_EQ(program.play("menu NEW\nshot Form1 form1.png\nshot MDIForm1 main.png\n").status, 0);
  EXPECT_TRUE(program.folder().read("form1.png").starts_with("\x89PNG"));
  EXPECT_TRUE(program.folder().read("main.png").starts_with("\x89PNG"));
}

TEST(Play, PrintedPagesAreWhereTheyBelong) {
  const PlayedProgram program;
  // Two samples of two curves each, two curves to a page.
  const PlayResult result = program.play(
      "file HSZSJ.KU\nmenu NEWSZ\ndblcell OPENFORM0.Grid1 2\nclick OPENFORM0.Command1\nmenu ZMPRINT\nfile pages\n"
      "click SETPRINTFORM.Command1\nmenu ZMPRINT\ncheck SETPRINTFORM.Check11 on\nclick SETPRINTFORM.Command1\n");
  ASSERT_EQ(result.errors, "");
  const std::string document = program.folder().read("pages.pdf");
  EXPECT_TRUE(document.starts_with("%PDF-"));
  EXPECT_NE(document.find("/Count 2"), std::string::npos);
  const std::filesystem::path pictures = program.folder().path() / "PTU" / "2024-018";
  EXPECT_TRUE(std::filesystem::exists(pictures / "SZ1.BMP"));
  EXPECT_TRUE(std::filesystem::exists(pictures / "SZ2.BMP"));
  EXPECT_FALSE(std::filesystem::exists(pictures / "SZ3.BMP"));
}

TEST(Play, PagesGoToThePrinterThatIsChosen) {
  if (!PrintServer::isInstalled()) GTEST_SKIP() << "cups-daemon and cups-client are not installed: nothing was printed";
  PrintServer server;
  for (const char* const name : {"Closed", "Office", "Lab"}) server.addDefaultQueue(name);
  server.takeNoMoreJobsInto("Closed");
  PlayedProgram program;
  program.printServer = server.address();
  const PlayResult result = program.play(
      "file HSZSJ.KU\nmenu NEWSZ\ndblcell OPENFORM0.Grid1 2\nclick OPENFORM0.Command1\nmenu ZMPRINT\n"
      "get SETPRINTFORM.Combo3\nchoose SETPRINTFORM.Combo3 Office\nclick SETPRINTFORM.Command1\n"
      "get MDIForm1.StatusBar1(1)\nmenu ZMPRINT\nchoose SETPRINTFORM.Combo3 Closed\nreply OK\n"
      "click SETPRINTFORM.Command1\nmessages\nget MDIForm1.StatusBar1(1)\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out,
            "SETPRINTFORM.Combo3=Lab\nMDIForm1.StatusBar1(1)=2 张已送到打印机“Office”。\n"
            "[打印] 打印机“Closed”没有打印：这台打印机暂不接受打印任务。\nMDIForm1.StatusBar1(1)=就绪\n");
  EXPECT_THAT(server.nextJob().value_or(PrintServer::Job{}).options, ::testing::HasSubstr("queue=Office"));
  EXPECT_FALSE(server.hasMoreJobs());
}

/// A document of samples S1, S2 ... of one project, typed and saved.
std::string typedProject(int samples) {
  std::string script = "menu NEW\nclick Form1.Label1(2)\n";
  for (int i = 1; i <= samples; ++i)
    script += fmt::format("type Form1.Text1 BIG\nkey Right\ntype Form1.Text1 S{}\nkey Down\nkey Left\n", i);
  return script + "reply OK\nmenu ZMSAVE\nclose Form1\n";
}

TEST(Play, AProjectOfMoreThanAHundredSamplesAsksForTheRange) {
  const PlayedProgram program;
  const PlayResult typed = program.play(typedProject(101));
  ASSERT_EQ(typed.status, 0) << typed.errors;
  const PlayResult opened = program.play(
      "menu ZMOPEN\nget OPENFORM.MSFlexGrid1 1 2\nclick OPENFORM.Labelcz\nget Form21.Text1\nget Form21.Text2\n"
      "state Form21.Command1\nget Form21.Command1\nshot Form21 form21.png\n"
      "type Form21.Text1 5\ntype Form21.Text2 3\nkey Enter\nget Form1.Label1(3)\nget Form1.Label1(7)\n"
      "get Form1.Label1(9)\n");
  EXPECT_EQ(opened.errors, "");
  EXPECT_EQ(opened.out,
            "OPENFORM.MSFlexGrid1=0101\nForm21.Text1=1\nForm21.Text2=101\n"
            "Form21.Command1: visible enabled not checked\nForm21.Command1=确  定\n"
            "Form1.Label1(3)=S3\nForm1.Label1(7)=S5\nForm1.Label1(9)=\n");
}

TEST(Play, AProjectOfAHundredSamplesDoesNotAsk) {
  const PlayedProgram program;
  ASSERT_EQ(program.play(typedProject(100)).status, 0);
  const PlayResult opened =
      program.play("menu ZMOPEN\nclick OPENFORM.Labelcz\nscroll Form1.VScroll1 80\nget Form1.Label1(41)\n");
  EXPECT_EQ(opened.errors, "");
  EXPECT_EQ(opened.out, "Form1.Label1(41)=S100\n");
}

}  // namespace
}  // namespace triaxlab::testing
