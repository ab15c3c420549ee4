#include "shell/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/recent_projects.h"

namespace triaxlab {
namespace {

std::vector<std::string_view> entriesOf(std::string_view parent) {
  std::vector<std::string_view> names;
  for (const Command& command : commandTable())
    if (command.parent == parent) names.push_back(command.name);
  return names;
}

using Names = std::vector<std::string_view>;

TEST(CommandTable, TheMenuBarAndItsMenusStandInOrder) {
  EXPECT_EQ(entriesOf(""),
            (Names{"RZMFILE", "RZMOPEN", "RZMEDIT", "RZMVIEW", "RZMPRINT0", "SETUPMIDU", "RZMWINDOW", "RZMHELP"}));
  EXPECT_EQ(entriesOf("RZMFILE"), (Names{"NEW0", "DAKAI", "RECENT", "ZMPRINT", "SAVEASEXCEL", "SAVEASRESULTS",
                                         "SAVEASREADINGS", "ZMSAVE", "SET0", "ZMEXIT"}));
  EXPECT_EQ(entriesOf("NEW0"), (Names{"NEW", "NEW1", "NK0"}));
  EXPECT_EQ(entriesOf("DAKAI"), (Names{"ZMOPEN", "ZMOPENOLD", "ZMOPEN0", "OK0", "TK0", "OPENNJ"}));
  EXPECT_EQ(entriesOf("SET0"), (Names{"SHEZHI2", "SHEZHI", "XSHEZHI1", "SHEZHI1", "XSHEZHI2", "SHEZHI3", "XSHEZHI3",
                                      "TK0SZ", "WINSZ", "WINWCX", "WINSZDAT", "WINWCXDAT"}));
  EXPECT_EQ(entriesOf("RZMOPEN"), (Names{"OWINSZ", "OWINSZDAT", "OLDSZ", "OLDSZ1", "NEWSZ", "NEWSZ2", "RGSZ",
                                         "WUCEXIAN", "XWUCEXIAN", "OWINWCX", "OWINWCXDAT", "k0", "Xk0", "TXk0"}));
  EXPECT_EQ(entriesOf("RZMEDIT"), (Names{"RZMSAVE", "RZMGANYU", "RQUXIAN", "FILLIN"}));
  EXPECT_EQ(entriesOf("RZMVIEW"), (Names{"QUXIAN", "SHUJUBIAO"}));
  EXPECT_EQ(entriesOf("QUXIAN"), (Names{"QUXIAN1", "QUXIAN2", "QUXIAN3", "QUXIAN4", "QUXIAN5", "QUXIAN6"}));
  EXPECT_EQ(entriesOf("RZMPRINT0"), (Names{"RZMPRINT", "RZMPRINT1", "PTK0", "PEXCEL", "RZMYULAN"}));
  EXPECT_EQ(entriesOf("SETUPMIDU"), (Names{"SENGLISH", "MIDU", "DYQYDD", "WXCS", "WCX16", "PGCMC", "SAMETY", "HABITS",
                                           "SAZHOU8", "SAZHOU9", "YLLJ"}));
  EXPECT_EQ(entriesOf("RZMWINDOW"),
            (Names{"RZMWL", "RZMGJ", "RZMSZ", "RZMZJ", "RZMZB", "RZMLW", "TIJI", "RENGONG", "FITWINDOW"}));
  EXPECT_EQ(entriesOf("RZMHELP"), (Names{"MANUAL", "KEYS", "DEMO", "ABOUT"}));
}

TEST(CommandTable, CaptionsAreThoseThatTechniciansKnow) {
  const std::map<std::string_view, std::string_view> captions{{"RZMFILE", "文件"},
                                                              {"RZMOPEN", "打开"},
                                                              {"RZMEDIT", "编辑"},
                                                              {"RZMVIEW", "视图"},
                                                              {"RZMPRINT0", "打印"},
                                                              {"RZMYULAN", "预览"},
                                                              {"SETUPMIDU", "设置"},
                                                              {"RZMWINDOW", "窗口"},
                                                              {"RZMHELP", "帮助"},
                                                              {"MANUAL", "手册"},
                                                              {"DEMO", "演示"},
                                                              {"FITWINDOW", "占满空处"},
                                                              {"KEYS", "键盘"},
                                                              {"ABOUT", "关于"},
                                                              {"NEW0", "新建"},
                                                              {"DAKAI", "打开"},
                                                              {"SET0", "设置"},
                                                              {"NEW", "新建WKSZ（X）.TXT"},
                                                              {"NEW1", "新建KWCX（X）.TXT"},
                                                              {"NK0", "新建K0工程"},
                                                              {"ZMOPEN", "打开WKSZ（X）.TXT"},
                                                              {"ZMOPENOLD", "打开KSZ（X）.TXT"},
                                                              {"ZMOPEN0", "打开KWCX（X）.TXT"},
                                                              {"OK0", "打开K0（X）.TXT"},
                                                              {"TK0", "打开TK0（X）.TXT"},
                                                              {"OPENNJ", "打开南京数据文件*.SZD"},
                                                              {"RECENT", "最近的工程"},
                                                              {"ZMPRINT", "打印"},
                                                              {"SAVEASEXCEL", "另存为Excel文件"},
                                                              {"SAVEASRESULTS", "成果另存为数据表(CSV、JSON)"},
                                                              {"SAVEASREADINGS", "读数另存为数据表(CSV、JSON)"},
                                                              {"ZMSAVE", "保存"},
                                                              {"ZMEXIT", "退出"},
                                                              {"OWINSZ", "WIN版三轴"},
                                                              {"OWINSZDAT", "WIN版三轴SZ(X).DATX"},
                                                              {"OLDSZ", "QVB98 三轴"},
                                                              {"OLDSZ1", "全自动三轴(老版本)"},
                                                              {"NEWSZ", "全自动三轴"},
                                                              {"NEWSZ2", "新QVB三轴"},
                                                              {"RGSZ", "人工输入三轴"},
                                                              {"WUCEXIAN", "无侧限抗压强度"},
                                                              {"XWUCEXIAN", "新无侧限"},
                                                              {"OWINWCX", "WIN版无侧限"},
                                                              {"OWINWCXDAT", "WIN版无侧限WCX(X).DATX"},
                                                              {"k0", "K0"},
                                                              {"Xk0", "新K0"},
                                                              {"TXk0", "TK0"},
                                                              {"RZMSAVE", "保存"},
                                                              {"RZMPRINT", "打印"},
                                                              {"RZMPRINT1", "设置打印"},
                                                              {"PTK0", "打印TK0曲线"},
                                                              {"QUXIAN", "曲线"},
                                                              {"QUXIAN1", "主应力差与轴向应变曲线"},
                                                              {"QUXIAN2", "应力比强度包线"},
                                                              {"QUXIAN3", "应力差强度包线"},
                                                              {"QUXIAN4", "应力路径曲线"},
                                                              {"QUXIAN5", "孔隙压力与轴向应变曲线"},
                                                              {"QUXIAN6", "有效应力比与轴向应变曲线"},
                                                              {"SHUJUBIAO", "数据表"},
                                                              {"RZMGANYU", "干预"},
                                                              {"RQUXIAN", "重处理曲线"},
                                                              {"FILLIN", "填写土样资料"},
                                                              {"PEXCEL", "Excel模板输出/打印"},
                                                              {"SENGLISH", "英文版"},
                                                              {"MIDU", "提供密度"},
                                                              {"DYQYDD", "打印提供取样地点"},
                                                              {"WXCS", "调整时显示物性参数"},
                                                              {"WCX16", "采集含16台无侧限"},
                                                              {"PGCMC", "不打印工程名称"},
                                                              {"SAMETY", "相同试样保存时合并不同压力"},
                                                              {"HABITS", "实验室习惯"},
                                                              {"SAZHOU8", "邓肯模型"},
                                                              {"SAZHOU9", "三轴E-B"},
                                                              {"YLLJ", "三轴应力路径"},
                                                              {"RZMWL", "物理试验数据处理"},
                                                              {"RZMGJ", "固结(黄土压缩)试验数据处理"},
                                                              {"RZMSZ", "三轴试验数据处理"},
                                                              {"RZMZJ", "直接剪切试验数据处理"},
                                                              {"RZMZB", "土工试验成果总表处理"},
                                                              {"RZMLW", "试验数据文件管理"},
                                                              {"TIJI", "体积变形摸量"},
                                                              {"RENGONG", "试验数据人工输入"}};
  for (const auto& [name, caption] : captions) {
    ASSERT_NE(findCommand(name), nullptr) << name;
    EXPECT_EQ(findCommand(name)->caption, caption) << name;
  }
  // All others are the twelve source folders.
  EXPECT_EQ(commandTable().size(), captions.size() + 12 + RecentProjects::kMost);
}

TEST(CommandTable, ToolsHaveTheirProgramAndWindow) {
  const std::map<std::string_view, std::pair<std::string_view, std::string_view>> tools{
      {"SAZHOU8", {"ZMSZ8CS.exe", "QVB三轴试验数据处理邓肯模型参数"}},
      {"SAZHOU9", {"ZMSZEB.exe", "QVB三轴试验数据处理E-B模型参数"}},
      {"YLLJ", {"ZMSZyllj.exe", "三轴应力路径试验数据处理"}},
      {"RZMWL", {"zmwl.exe", "QVB物理试验数据处理"}},
      {"RZMGJ", {"zmgj.exe", "QVB固结（黄土压缩）试验数据处理"}},
      {"RZMZJ", {"zmzj.exe", "QVB直剪试验数据处理"}},
      {"RZMZB", {"zmzb.exe", "QVB成果总表处理"}},
      {"RZMLW", {"zmlw.exe", "QVB数据文件管理"}},
      {"TIJI", {"zmtj.exe", "QVB体积变形模量试验数据处理"}},
      {"RENGONG", {"zmlr.exe", "QVB三轴试验数据录入"}}};
  std::size_t count = 0;
  for (const Command& command : commandTable()) {
    if (command.action != Action::StartTool) continue;
    ++count;
    ASSERT_TRUE(tools.contains(command.name)) << command.name;
    EXPECT_EQ(std::pair(command.target, command.windowTitle), tools.at(command.name)) << command.name;
  }
  EXPECT_EQ(count, tools.size());
}

TEST(CommandTable, ArgumentsAreTheKindsThatDialogsKnow) {
  const std::map<std::string_view, int> kinds{
      {"ZMOPEN", 1},  {"ZMOPENOLD", 101}, {"ZMOPEN0", 2}, {"OK0", 10},      {"TK0", 20},      {"SHEZHI", 1},
      {"SHEZHI1", 2}, {"SHEZHI2", 3},     {"SHEZHI3", 4}, {"XSHEZHI1", 5},  {"XSHEZHI2", 6},  {"XSHEZHI3", 7},
      {"TK0SZ", 8},   {"WINSZ", 10},      {"WINWCX", 11}, {"WINSZDAT", 12}, {"WINWCXDAT", 13}};
  for (const auto& [name, kind] : kinds) EXPECT_EQ(findCommand(name)->argument, kind) << name;
}

TEST(CommandTable, NamesAreUniqueAndParentsStandInFront) {
  std::set<std::string_view> seen;
  for (const Command& command : commandTable()) {
    EXPECT_TRUE(command.parent.empty() || seen.contains(command.parent)) << command.name;
    EXPECT_TRUE(seen.insert(command.name).second) << command.name;
  }
}

TEST(CommandTable, ShortcutsAreUniqueAndLeaveTheDocumentsTheirKeys) {
  std::set<std::string_view> seen;
  for (const Command& command : commandTable()) {
    if (command.shortcut.empty()) continue;
    EXPECT_TRUE(command.shortcut.starts_with("Ctrl+") || command.shortcut.ends_with("F1")) << command.name;
    EXPECT_TRUE(seen.insert(command.shortcut).second) << command.name;
  }
  EXPECT_EQ(findCommand("ZMSAVE")->shortcut, "Ctrl+S");
}

TEST(CommandTable, NamesCountLetterForLetter) {
  EXPECT_EQ(findCommand("K0"), nullptr);
  EXPECT_EQ(findCommand(""), nullptr);
  EXPECT_EQ(findCommand("zmopen"), nullptr);
}

TEST(CommandTable, EveryCommandHasAHelpText) {
  for (const Command& command : commandTable()) EXPECT_FALSE(commandHelp(command).empty()) << command.name;
  EXPECT_EQ(commandHelp(*findCommand("QUXIAN3")), "显示应力差强度包线");
  EXPECT_EQ(commandHelp(*findCommand("RZMFILE")), "文件");
}

}  // namespace
}  // namespace triaxlab
