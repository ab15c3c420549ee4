// The windows of K0 and TK0 as a person has them in hand.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "k0/record.h"
#include "k0/samples.h"
#include "played_program.h"
#include "store/project/project_header.h"

namespace triaxlab::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

constexpr const char* kOpenK0 = "menu OK0\nkey Enter\n";
constexpr const char* kOpenTK0 = "menu TK0\nkey Enter\n";
constexpr const char* kSave = "reply OK\nmenu RZMSAVE\n";

std::string times(int count, const std::string& statement) {
  std::string script;
  for (int i = 0; i < count; ++i) script += statement + "\n";
  return script;
}

template <class Record>
std::string projectFile(const std::vector<Record>& records) {
  ProjectHeader header;
  SetText(header.sampleCount, FormatPadded(static_cast<std::int64_t>(records.size()), 4));
  SetText(header.projectNo, "GC1");
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
  for (const Record& record : records) bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
  return bytes;
}

struct KoWindows : ::testing::Test {
  PlayedProgram program;

  KoWindows() {
    std::filesystem::create_directory(program.folder().path() / "HSZS");
    K0SampleRecord k0 = head("A1");
    for (std::size_t stage = 0; stage < 3; ++stage) {
      const double axial = 100.0 * static_cast<double>(stage + 1);
      SetNumber(k0.axialPressure[stage], axial, NumberFormat::Tenths);
      SetNumber(k0.lateralPressure[stage], 0.4 * axial, NumberFormat::Tenths);
    }
    program.folder().write("HSZS/KOGC1.TXT", projectFile<K0SampleRecord>({k0, head("A2")}));
    TK0SampleRecord tk0 = withRows(lineAndBend());
    tk0.k0 = head("B1");
    tk0.stageCount = std::int16_t{2};
    setRows(tk0, 1, lineAndBend());
    SetText(tk0.k0.axialPressure[0], "100.0");
    SetText(tk0.k0.axialPressure[1], "200.0");
    TK0SampleRecord second = tk0;
    SetText(second.k0.sampleNo, "B2");
    program.folder().write("HSZS/TKOGC1.TXT", projectFile<TK0SampleRecord>({tk0, second}));
  }
  static K0SampleRecord head(std::string_view sampleNo) {
    K0SampleRecord record;
    SetText(record.projectNo, "GC1");
    SetText(record.sampleNo, sampleNo);
    return record;
  }

  /// What the script prints; it runs to its end.
  std::string play(const std::string& script) const {
    const PlayResult result = program.play(script);
    EXPECT_EQ(result.errors, "");
    return result.out;
  }
  /// The texts that a chart wrote by an `ops` statement.
  std::vector<std::string> texts(const char* file) const {
    std::vector<std::string> found;
    const auto drawing = nlohmann::json::parse(program.folder().read(file));
    for (const auto& op : drawing.at("pages").at(0))
      if (op.at("op") == "text") found.push_back(op.at("text").get<std::string>());
    return found;
  }
  template <class Record>
  Record saved(const char* file) const {
    Record record;
    const std::string bytes = program.folder().read(std::string("HSZS/") + file);
    if (bytes.size() >= sizeof(ProjectHeader) + sizeof record)
      std::memcpy(&record, bytes.data() + sizeof(ProjectHeader), sizeof record);
    return record;
  }
  K0SampleRecord savedK0() const { return saved<K0SampleRecord>("KOGC1.TXT"); }
  TK0SampleRecord savedTK0() const { return saved<TK0SampleRecord>("TKOGC1.TXT"); }
};

// ---- Form6

TEST_F(KoWindows, ASampleIsTypedInFromNothing) {
  EXPECT_EQ(play("menu NK0\ntype Form6.Text1(0) P7\nkey Right\ntype Form6.Text1(1) K-1\nfocus Form6.Text2(1)\n"
                 "type Form6.Text2(1) 100\nkey Right\ntype Form6.Text2(2) 40\nkey Enter\ntype Form6.Text2(5) 80\n"
                 "key Up\nkey Down\nfocus Form6.Text2(4)\ntype Form6.Text2(4) 200\nget Form6.Text2(4)\n"
                 "click Form6.Command1\nget Form6.Label2(4)\nget Form6.Label1\nops Form6.Picture1 ko.json\n" +
                 std::string(kSave) + "messages\n"),
            "Form6.Text2(4)=200\nForm6.Label2(4)=200.0\nForm6.Label1=原始数据\n"
            "[保存数据] K0试验数据保存完毕\n");
  EXPECT_THAT(texts("ko.json"), Contains("Ko = 0.400"));
  EXPECT_EQ(saved<K0SampleRecord>("KOP7.txt").koValue.trimmed(), "0.400");
  EXPECT_EQ(saved<K0SampleRecord>("KOP7.txt").lateralPressure[1].trimmed(), "80.0");
}

TEST_F(KoWindows, ReadingsScrollToTheTenthStage) {
  EXPECT_EQ(play(std::string(kOpenK0) + "get Form6.Label1(0)\nfocus Form6.Text2(9)\n" + times(7, "key Down") +
                 "get Form6.VScroll2\nget Form6.Label1(3)\ntype Form6.Text2(9) 1.25\nkey Up\nget Form6.Label2(9)\n"),
            "Form6.Label1(0)=1\nForm6.VScroll2=6\nForm6.Label1(3)=10\nForm6.Label2(9)=1.250\n");
}

TEST_F(KoWindows, KeptByF4TheLineIsSavedAndStaysUntilItIsFittedAgain) {
  EXPECT_EQ(play(std::string(kOpenK0) + "key F4\n" + times(12, "key Right") + "key Up\nkey Up\nkey Down\n" +
                 "ops Form6.Picture1 moved.json\nreply Yes\nkey F4\nget Form6.Label1\nmessages\n" + kSave +
                 "type Form6.Text2(2) 90\nclick Form6.Command1\nget Form6.Label1\nops Form6.Picture1 kept.json\n"
                 "click Form6.Command2\nget Form6.Label1\nops Form6.Picture1 fitted.json\n"),
            "Form6.Label1=已经调整\n[K0曲线调整]    曲线已经调整\\n保存修改后数据吗？\nForm6.Label1=已经调整\n"
            "Form6.Label1=原始数据\n");
  EXPECT_THAT(texts("moved.json"), Contains("Ko = 0.402"));
  EXPECT_EQ(savedK0().koAdjusted, 1);
  EXPECT_EQ(savedK0().koValue.trimmed(), "0.402");
  EXPECT_EQ(savedK0().koIntercept.trimmed(), "12.0");
  EXPECT_THAT(texts("kept.json"), Contains("Ko = 0.402"));
  EXPECT_THAT(texts("fitted.json"), Contains("Ko = 0.150"));
}

TEST_F(KoWindows, TheTurnsEndAt89_9AndAtOneDegree) {
  play(std::string(kOpenK0) + "key F4\n" + times(690, "key Up") + "ops Form6.Picture1 steep.json\n" +
       times(895, "key Down") + "ops Form6.Picture1 flat.json\nreply No\nkey F4\n");
  EXPECT_THAT(texts("steep.json"), Contains("Ko = 572.948"));  // 89.9 degrees by the shorter pi
  EXPECT_THAT(texts("flat.json"), Contains("Ko = 0.017"));
  EXPECT_EQ(savedK0().koAdjusted, 0);
}

TEST_F(KoWindows, WhileTheLineIsMovedTheTablesGiveWay) {
  EXPECT_EQ(
      play(std::string(kOpenK0) +
           "menu RZMGANYU\nstate Form6.Text1(0)\nstate Form6.VScroll2\nstate Form6.Command2\nstate Form6.Frame1\n"
           "get Form6.PhaseSubject\nstate OK0\nreply Yes\nmenu RZMGANYU\nstate Form6.Text1(0)\nstate Form6.Frame1\n"
           "state Form6.Command2\n"),
      "Form6.Text1(0): not visible not enabled not checked\nForm6.VScroll2: not visible enabled not checked\n"
      "Form6.Command2: visible not enabled not checked\nForm6.Frame1: visible enabled not checked\n"
      "Form6.PhaseSubject=土样编号:A1    截距:0.0 kPa    角度:21.8 度\nOK0: visible not enabled not checked\n"
      "Form6.Text1(0): visible enabled not checked\nForm6.Frame1: not visible enabled not checked\n"
      "Form6.Command2: visible enabled not checked\n");
}

TEST_F(KoWindows, KeysBelongToTheLineWhereverTheFocusIs) {
  play(std::string(kOpenK0) + "focus Form6.Text2(4)\nkey F4\nkey Right\nfocus Form6.Text5\nkey Right\n" +
       "click Form6.Picture1\nkey Right\nkey Ctrl+Z\nkey Ctrl+Z\nkey Ctrl+Y\nreply Yes\nkey F4\n" + kSave);
  EXPECT_EQ(savedK0().koIntercept.trimmed(), "2.0");
}

TEST_F(KoWindows, TheMouseDragsTheLine) {
  // 300 kPa, divisions of 15: (120, 48) lies at 4682, 3247, and 182 twips are 10 kPa.
  play(std::string(kOpenK0) +
       "key F4\nmouse Form6.Picture1 4682 3247 press\nmouse Form6.Picture1 4700 3000 move\n"
       "mouse Form6.Picture1 4682 3065 move\nmouse Form6.Picture1 4682 3065 release\n"
       "mouse Form6.Picture1 4682 2000 move\nreply Yes\nkey F4\n" +
       kSave);
  EXPECT_EQ(savedK0().koIntercept.trimmed(), "10.0");
}

TEST_F(KoWindows, ClosingEndsTheModeWithItsQuestionFirst) {
  EXPECT_EQ(play(std::string(kOpenK0) + "key F4\nkey Right\nreply Yes\nreply Yes\nreply OK\nclose Form6\nmessages\n"),
            "[K0曲线调整]    曲线已经调整\\n保存修改后数据吗？\n"
            "[保存Ko试验数据] 保存修改后数据吗？\\n\\n   数据已修改\n[保存数据] K0试验数据保存完毕\n");
  EXPECT_EQ(savedK0().koIntercept.trimmed(), "1.0");
}

TEST_F(KoWindows, ASaveMeanwhileTakesTheSampleAsItStands) {
  play(std::string(kOpenK0) + "key F4\nkey Right\n" + kSave + "reply No\nkey F4\n");
  EXPECT_EQ(savedK0().koAdjusted, 0);
  EXPECT_EQ(savedK0().koIntercept.trimmed(), "0.0");
}

TEST_F(KoWindows, ItsCommandsAreOn) {
  EXPECT_EQ(play(std::string(kOpenK0) + "state RZMPRINT\nstate ZMPRINT\nstate RZMSAVE\nstate RZMGANYU\n"),
            "RZMPRINT: visible enabled not checked\nZMPRINT: visible enabled not checked\n"
            "RZMSAVE: visible enabled not checked\nRZMGANYU: visible enabled not checked\n");
}

// ---- Form9

TEST_F(KoWindows, TheBarChoosesTheStage) {
  EXPECT_EQ(play(std::string(kOpenTK0) +
                 "get Form9.StageNumber\nscroll Form9.VScroll3 1\nget Form9.StageNumber\nops Form9.Picture2 two.json\n"
                 "click Form9.Label3(3)\nget Form9.VScroll3\nget Form9.Label2(2)\n"),
            "Form9.StageNumber=第1级\nForm9.StageNumber=第2级\nForm9.VScroll3=0\nForm9.Label2(2)=59.8\n");
  EXPECT_THAT(texts("two.json"), Contains("压力：200.0kPa"));
  EXPECT_THAT(texts("two.json"), Contains("T90 = 35.8 min"));
}

TEST_F(KoWindows, F5MovesTheConstructionOfTheStage) {
  EXPECT_EQ(play(std::string(kOpenTK0) + "scroll Form9.VScroll3 1\nstate RZMGANYU\nkey F5\nstate RZMGANYU\nkey Left\n" +
                 "get Form9.Label2(5)\nstate Form9.VScroll3\nops Form9.Picture2 moved.json\nreply Yes\nkey F5\n"
                 "messages\nstate Form9.VScroll3\n" +
                 kSave),
            "RZMGANYU: visible not enabled not checked\nRZMGANYU: visible enabled not checked\nForm9.Label2(5)=58.9\n"
            "Form9.VScroll3: visible not enabled not checked\n"
            "[K0曲线调整]    曲线已经调整\\n保存修改后数据吗？\nForm9.VScroll3: visible enabled not checked\n");
  EXPECT_THAT(texts("moved.json"), Contains("T90 = 34.6 min"));
  EXPECT_EQ(savedTK0().t90Adjusted[1], 1);
  EXPECT_NEAR(savedTK0().t90Intercept[1], 0.01, 1e-6);
  EXPECT_EQ(savedTK0().k0.lateralPressure[1].trimmed(), "58.9");
  EXPECT_EQ(savedTK0().t90Adjusted[0], 0);
}

TEST_F(KoWindows, EachModeIsLeftByItsOwnKey) {
  EXPECT_EQ(
      play(std::string(kOpenTK0) +
           "key F4\nkey F5\nget Form9.KeyHelp(2)\nreply No\nkey F4\nstate Form9.Frame1\nkey F5\nkey F4\n"
           "get Form9.KeyHelp(2)\nreply No\nmenu RZMGANYU\nstate Form9.Frame1\nmessages\n"),
      "Form9.KeyHelp(2)=Ctrl+Z 撤销    Ctrl+Y 重做    F4 退出干预\nForm9.Frame1: not visible enabled not checked\n"
      "Form9.KeyHelp(2)=Ctrl+Z 撤销    Ctrl+Y 重做    F5 退出干预\nForm9.Frame1: not visible enabled not checked\n"
      "[K0曲线调整]    曲线已经调整\\n保存修改后数据吗？\n[K0曲线调整]    曲线已经调整\\n保存修改后数据吗？\n");
}

TEST_F(KoWindows, OneWindowAtATimeIsWorkedOn) {
  // The F4 of Form9 leaves the 干预 of the window behind it, its F5 does nothing meanwhile.
  EXPECT_EQ(play(std::string(kOpenTK0) + kOpenK0 +
                 "key F4\nfocus Form9.Picture1\nclick Form9.Picture1\nkey F5\n"
                 "state Form9.Frame1\nstate Form6.Frame1\nreply No\nkey F4\nstate Form9.Frame1\nstate Form6.Frame1\n"),
            "Form9.Frame1: not visible enabled not checked\nForm6.Frame1: visible enabled not checked\n"
            "Form9.Frame1: not visible enabled not checked\nForm6.Frame1: not visible enabled not checked\n");
}

TEST_F(KoWindows, F4InFrontOfAnotherWindowLeavesTheModeAndBringsItsWindowForward) {
  EXPECT_EQ(play("menu NEW\n" + std::string(kOpenTK0) +
                 "key F5\nkey Left\nclick Form1.Picture1\nreply Yes\nkey F4\nget Form9.Label2(2)\nkey F5\n"
                 "get Form9.KeyHelp(2)\nreply No\nkey F5\n"),
            "Form9.Label2(2)=58.9\nForm9.KeyHelp(2)=Ctrl+Z 撤销    Ctrl+Y 重做    F5 退出干预\n");
}

TEST_F(KoWindows, WhereThereIsNoConstructionF5SaysWhy) {
  EXPECT_EQ(
      play(std::string(kOpenTK0) + "type Form9.Text2(1) 0\nkey F5\nstate Form9.Frame1\nget MDIForm1.StatusBar1(1)\n"
                                   "key F4\nkey F5\nstate Form9.Frame1\nreply No\nkey F4\n"),
      "Form9.Frame1: not visible enabled not checked\n"
      "MDIForm1.StatusBar1(1)=这一级没有轴向压力，没有T90直线可以调整。\n"
      "Form9.Frame1: visible enabled not checked\n");
}

TEST_F(KoWindows, ConstructionsSetByHandAreKeptWhenTheKoLineIsFittedAgain) {
  play(std::string(kOpenTK0) + "key F5\nkey Left\nreply Yes\nkey F5\nkey F4\nkey Right\nreply Yes\nkey F4\n" +
       "click Form9.Command2\n" + kSave);
  EXPECT_EQ(savedTK0().k0.koAdjusted, 0);
  EXPECT_EQ(savedTK0().t90Adjusted[0], 1);
}

TEST_F(KoWindows, TheMouseDragsTheFirstLine) {
  // 2916.67 twips a mm: 61 are 0.0209 mm.
  play(std::string(kOpenTK0) +
       "key F5\nmouse Form9.Picture2 1900 1175 press\nmouse Form9.Picture2 1900 1236 move\n"
       "mouse Form9.Picture2 1900 1236 release\nreply Yes\nkey F5\n" +
       kSave);
  EXPECT_NEAR(savedTK0().t90Intercept[0], 0.02, 1e-6);
}

TEST_F(KoWindows, ClosingForm9AsksUnderItsTitle) {
  const std::string out = play(std::string(kOpenTK0) + "type Form9.Text2(1) 110\nreply No\nclose Form9\nmessages\n");
  EXPECT_THAT(out, HasSubstr("[保存TKo试验数据] 保存修改后数据吗？\\n\\n   数据已修改"));
  EXPECT_EQ(savedTK0().k0.axialPressure[0].trimmed(), "100.0");
}

TEST_F(KoWindows, TheMouseReadsTheCharts) {
  EXPECT_EQ(play(std::string(kOpenTK0) + "mouse Form9.Picture1 5500 2210 move\nget MDIForm1.StatusBar1(1)\n"
                                         "mouse Form9.Picture2 1700 2050 move\nget MDIForm1.StatusBar1(1)\n"),
            "MDIForm1.StatusBar1(1)=x:110.0kPa   y:70.0kPa\n"
            "MDIForm1.StatusBar1(1)=√t:2.50   t:6.3min   D:0.600mm   P:75.0kPa\n");
}

}  // namespace
}  // namespace triaxlab::testing
