#include "shell/command_table.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <vector>

#include "exports/columns.h"
#include "importers/importer.h"
#include "shell/document_kinds.h"
#include "shell/recent_projects.h"
#include "store/project/project_kinds.h"
#include "store/settings/source_folders.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

using Name = std::string_view;

constexpr Command submenu(Name name, Name caption, Name parent = {}) {
  return {.name = name, .caption = caption, .parent = parent, .kind = CommandKind::Submenu};
}
constexpr Command entry(Name name, Name caption, Name parent, Action action, std::int16_t argument = 0) {
  return {.name = name, .caption = caption, .parent = parent, .action = action, .argument = argument};
}
constexpr Command dialog(Name name, Name caption, Name parent, Action action, Name form) {
  return {.name = name, .caption = caption, .parent = parent, .action = action, .target = form};
}
/// Its caption is what Form5 asks for.
constexpr Command sourceFolder(Name name, std::int16_t kind) {
  constexpr Name kPleaseEnter = "请输入", kColon = ":";
  Name caption = sourceFolderOf(kind).prompt;
  caption.remove_prefix(kPleaseEnter.size());
  caption.remove_suffix(kColon.size());
  return entry(name, caption, "SET0", Action::SetSourceFolder, kind);
}
constexpr Command table(Name name, Name caption, TableContent content) {
  return entry(name, caption, "RZMFILE", Action::SaveAsTable, static_cast<std::int16_t>(content));
}
constexpr Command curvePage(Name name, Name caption, std::int16_t page, Name shortcut,
                            CommandKind kind = CommandKind::Entry) {
  return {.name = name,
          .caption = caption,
          .parent = "QUXIAN",
          .kind = kind,
          .action = Action::ShowCurvePage,
          .argument = page,
          .shortcut = shortcut};
}
constexpr Command toggle(Name name, Name caption) {
  return {.name = name,
          .caption = caption,
          .parent = "SETUPMIDU",
          .kind = CommandKind::Toggle,
          .action = Action::FlipToggle};
}
constexpr Command tool(Name name, Name caption, Name parent, Name program, Name windowTitle) {
  return {.name = name,
          .caption = caption,
          .parent = parent,
          .action = Action::StartTool,
          .target = program,
          .windowTitle = windowTitle};
}

constexpr Command withKey(Command command, Name shortcut) {
  command.shortcut = shortcut;
  return command;
}
constexpr Command belowLine(Command command) {
  command.lineAbove = true;
  return command;
}
constexpr Command doing(Command command, Action action) {
  command.action = action;
  return command;
}

/// Its entries are those of the sources of raw data.
constexpr Name kRawDataMenu = "RZMOPEN";

/// One for each of the projects that were worked on last; the caption is the file in its place.
constexpr Name kRecentMenu = "RECENT", kRecentCaption = "最近的工程";
constexpr std::array<Name, RecentProjects::kMost> kRecentCommands{
    "RECENT1", "RECENT2", "RECENT3", "RECENT4", "RECENT5", "RECENT6", "RECENT7", "RECENT8", "RECENT9", "RECENT10"};

constexpr std::int16_t dialogKind(ProjectKind kind) { return static_cast<std::int16_t>(kind); }

using A = Action;
using K = CommandKind;

// Shortcuts leave alone what the documents use: letters and digits, arrows, End, Enter, PageUp, PageDown, F2, F4, F5.
constexpr std::array kCommands{
    submenu("RZMFILE", "文件"),
    submenu("NEW0", "新建", "RZMFILE"),
    withKey(entry("NEW", "新建WKSZ（X）.TXT", "NEW0", A::NewDocument, kForm1), "Ctrl+N"),
    entry("NEW1", "新建KWCX（X）.TXT", "NEW0", A::NewDocument, kForm4),
    entry("NK0", "新建K0工程", "NEW0", A::NewDocument, kForm6),
    submenu("DAKAI", "打开", "RZMFILE"),
    withKey(entry("ZMOPEN", "打开WKSZ（X）.TXT", "DAKAI", A::OpenProject, dialogKind(ProjectKind::Triaxial)), "Ctrl+O"),
    entry("ZMOPENOLD", "打开KSZ（X）.TXT", "DAKAI", A::OpenProject, dialogKind(ProjectKind::OldTriaxial)),
    entry("ZMOPEN0", "打开KWCX（X）.TXT", "DAKAI", A::OpenProject, dialogKind(ProjectKind::Unconfined)),
    entry("OK0", "打开K0（X）.TXT", "DAKAI", A::OpenProject, dialogKind(ProjectKind::K0)),
    entry("TK0", "打开TK0（X）.TXT", "DAKAI", A::OpenProject, dialogKind(ProjectKind::TK0)),
    belowLine(entry("OPENNJ", "打开南京数据文件*.SZD", "DAKAI", A::OpenNanjingFile)),
    submenu(kRecentMenu, kRecentCaption, "RZMFILE"),
    belowLine(withKey(entry("ZMPRINT", "打印", "RZMFILE", A::Print), "Ctrl+P")),
    entry("SAVEASEXCEL", "另存为Excel文件", "RZMFILE", A::SaveAsWorkbook),
    table("SAVEASRESULTS", "成果另存为数据表(CSV、JSON)", TableContent::Results),
    table("SAVEASREADINGS", "读数另存为数据表(CSV、JSON)", TableContent::Readings),
    withKey(entry("ZMSAVE", "保存", "RZMFILE", A::Save), "Ctrl+S"),
    belowLine(submenu("SET0", "设置", "RZMFILE")),
    sourceFolder("SHEZHI2", 3),
    sourceFolder("SHEZHI", 1),
    sourceFolder("XSHEZHI1", 5),
    sourceFolder("SHEZHI1", 2),
    sourceFolder("XSHEZHI2", 6),
    sourceFolder("SHEZHI3", 4),
    sourceFolder("XSHEZHI3", 7),
    sourceFolder("TK0SZ", 8),
    sourceFolder("WINSZ", 10),
    sourceFolder("WINWCX", 11),
    sourceFolder("WINSZDAT", 12),
    sourceFolder("WINWCXDAT", 13),
    belowLine(withKey(entry("ZMEXIT", "退出", "RZMFILE", A::Exit), "Ctrl+Q")),

    submenu(kRawDataMenu, "打开"),

    submenu("RZMEDIT", "编辑"),
    entry("RZMSAVE", "保存", "RZMEDIT", A::Save),
    belowLine(entry("RZMGANYU", "干预", "RZMEDIT", A::Intervene)),
    entry("RQUXIAN", "重处理曲线", "RZMEDIT", A::ReprocessCurves),
    belowLine(withKey(entry("FILLIN", "填写土样资料", "RZMEDIT", A::FillIn), "Ctrl+T")),

    submenu("RZMVIEW", "视图"),
    doing(submenu("QUXIAN", "曲线", "RZMVIEW"), A::ShowCurves),
    curvePage("QUXIAN1", "主应力差与轴向应变曲线", 1, "Ctrl+1"),
    curvePage("QUXIAN2", "应力比强度包线", 2, "Ctrl+2", K::ExclusiveCheck),
    curvePage("QUXIAN3", "应力差强度包线", 3, "Ctrl+3", K::ExclusiveCheck),
    curvePage("QUXIAN4", "应力路径曲线", 4, "Ctrl+4"),
    curvePage("QUXIAN5", "孔隙压力与轴向应变曲线", 5, "Ctrl+5"),
    curvePage("QUXIAN6", "有效应力比与轴向应变曲线", 6, "Ctrl+6"),
    entry("SHUJUBIAO", "数据表", "RZMVIEW", A::ShowDataTable),

    submenu("RZMPRINT0", "打印"),
    entry("RZMPRINT", "打印", "RZMPRINT0", A::Print),
    dialog("RZMPRINT1", "设置打印", "RZMPRINT0", A::PrintSheets, "SETPRINTFORM3"),
    dialog("PTK0", "打印TK0曲线", "RZMPRINT0", A::PrintTK0Curves, "SETPRINTFORM0"),
    belowLine(entry("PEXCEL", "Excel模板输出/打印", "RZMPRINT0", A::FillTemplates)),
    submenu("RZMYULAN", "预览", "RZMPRINT0"),

    submenu("SETUPMIDU", "设置"),
    toggle("SENGLISH", "英文版"),
    toggle("MIDU", "提供密度"),
    toggle("DYQYDD", "打印提供取样地点"),
    toggle("WXCS", "调整时显示物性参数"),
    toggle("WCX16", "采集含16台无侧限"),
    toggle("PGCMC", "不打印工程名称"),
    toggle("SAMETY", "相同试样保存时合并不同压力"),
    belowLine(entry("HABITS", "实验室习惯", "SETUPMIDU", A::SetHabits)),
    belowLine(tool("SAZHOU8", "邓肯模型", "SETUPMIDU", "ZMSZ8CS.exe", "QVB三轴试验数据处理邓肯模型参数")),
    tool("SAZHOU9", "三轴E-B", "SETUPMIDU", "ZMSZEB.exe", "QVB三轴试验数据处理E-B模型参数"),
    tool("YLLJ", "三轴应力路径", "SETUPMIDU", "ZMSZyllj.exe", "三轴应力路径试验数据处理"),

    submenu("RZMWINDOW", "窗口"),
    tool("RZMWL", "物理试验数据处理", "RZMWINDOW", "zmwl.exe", "QVB物理试验数据处理"),
    tool("RZMGJ", "固结(黄土压缩)试验数据处理", "RZMWINDOW", "zmgj.exe", "QVB固结（黄土压缩）试验数据处理"),
    doing(tool("RZMSZ", "三轴试验数据处理", "RZMWINDOW", "", "QVB三轴试验数据处理"), A::StartThisProgram),
    tool("RZMZJ", "直接剪切试验数据处理", "RZMWINDOW", "zmzj.exe", "QVB直剪试验数据处理"),
    tool("RZMZB", "土工试验成果总表处理", "RZMWINDOW", "zmzb.exe", "QVB成果总表处理"),
    tool("RZMLW", "试验数据文件管理", "RZMWINDOW", "zmlw.exe", "QVB数据文件管理"),
    tool("TIJI", "体积变形摸量", "RZMWINDOW", "zmtj.exe", "QVB体积变形模量试验数据处理"),
    tool("RENGONG", "试验数据人工输入", "RZMWINDOW", "zmlr.exe", "QVB三轴试验数据录入"),
    belowLine(entry("FITWINDOW", "占满空处", "RZMWINDOW", A::FitWindow)),

    submenu("RZMHELP", "帮助"),
    withKey(entry("MANUAL", "手册", "RZMHELP", A::ShowManual), "F1"),
    withKey(entry("KEYS", "键盘", "RZMHELP", A::ShowKeys), "Shift+F1"),
    entry("DEMO", "演示", "RZMHELP", A::StartDemonstration),
    belowLine(entry("ABOUT", "关于", "RZMHELP", A::ShowAbout)),
};

/// Help by action; "{}" is the caption.
struct Help {
  Action action;
  const char* text;
};
constexpr std::array kHelp{
    Help{A::NewDocument, "新建一个空的试验数据文件，用键盘录入"},
    Help{A::OpenProject, "从列表中选择一个试验数据文件打开"},
    Help{A::OpenRecent, "打开最近处理过的工程"},
    Help{A::OpenNanjingFile, "读入南京三轴仪的原始数据文件"},
    Help{A::Print, "打印当前窗口的试验成果"},
    Help{A::PrintSheets, "设置版面并打印三轴试验成果图表"},
    Help{A::PrintTK0Curves, "打印TK0试验的沉降时间曲线"},
    Help{A::SaveAsWorkbook, "把当前窗口的试验数据另存为Excel文件"},
    Help{A::SaveAsTable, "{}，供别的程序读入"},
    Help{A::Save, "把当前窗口的试验数据保存到工程文件"},
    Help{A::SetSourceFolder, "设置{}"},
    Help{A::SetHabits, "查看和修改实验室的报告习惯，选择数据文件夹"},
    Help{A::Exit, "结束程序"},
    Help{A::Import, "从原始数据库读入选中的试样：{}"},
    Help{A::ShowCurves, "显示三轴试验曲线窗口"},
    Help{A::ShowCurvePage, "显示{}"},
    Help{A::ShowDataTable, "显示三轴试验数据表"},
    Help{A::Intervene, "用键盘或鼠标修正当前曲线、包线"},
    Help{A::ReprocessCurves, "取消人工干预，重新计算当前土样"},
    Help{A::FillIn, "在一张表里填写全部土样的名称、密度、钻孔、深度和地点，打开工程以后能用"},
    Help{A::FillTemplates, "用Excel模板输出或打印"},
    Help{A::FlipToggle, "打开或关闭：{}"},
    Help{A::StartTool, "启动{}"},
    Help{A::StartThisProgram, "本程序正在运行"},
    Help{A::ShowManual, "打开使用手册，翻到当前窗口的一节"},
    Help{A::ShowKeys, "列出当前窗口的全部按键"},
    Help{A::FitWindow, "让当前的试验窗口占满主窗口里的空处，以后也这样打开"},
    Help{A::StartDemonstration, "打开演示数据的副本，实验室的文件不动"},
    Help{A::ShowAbout, "版本、正在使用的文件夹、许可"},
};

void addImporters(std::vector<Command>& table) {
  for (const Importer* importer : importers()) {
    if (importer->menuCaption.empty()) continue;
    Command command =
        dialog(importer->menuCommand, importer->menuCaption, kRawDataMenu, Action::Import, importer->form);
    command.lineAbove = importer->lineAbove;
    table.push_back(command);
  }
}

void addRecentProjects(std::vector<Command>& table) {
  for (std::size_t i = 0; i < kRecentCommands.size(); ++i)
    table.push_back(
        entry(kRecentCommands.at(i), kRecentCaption, kRecentMenu, A::OpenRecent, static_cast<std::int16_t>(i)));
}

std::vector<Command> wholeTable() {
  std::vector<Command> table;
  for (const Command& command : kCommands) {
    table.push_back(command);
    if (command.name == kRawDataMenu) addImporters(table);
    if (command.name == kRecentMenu) addRecentProjects(table);
  }
  return table;
}

}  // namespace

std::string commandHelp(const Command& command) {
  const auto* const row =
      std::find_if(kHelp.begin(), kHelp.end(), [&](const Help& help) { return help.action == command.action; });
  if (row == kHelp.end()) return std::string(command.caption);
  return fmt::format(fmt::runtime(row->text), command.caption);
}

std::span<const Command> commandTable() {
  static const std::vector<Command> kTable = wholeTable();
  return kTable;
}

const Command* findCommand(std::string_view name) {
  const std::span<const Command> table = commandTable();
  const auto found =
      std::find_if(table.begin(), table.end(), [&](const Command& command) { return command.name == name; });
  return found == table.end() ? nullptr : &*found;
}

}  // namespace triaxlab
