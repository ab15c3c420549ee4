#include "shell/help_topics.h"

#include <algorithm>
#include <array>

namespace triaxlab {
namespace {

constexpr std::string_view kImporting = "importing.md", kPrinting = "printing.md", kLists = "lists.md";

constexpr std::array kTopics{
    HelpTopic{"MDIForm1", "start.md", "开始"},
    HelpTopic{"Form1", "curves.md", "三轴试验曲线窗口"},
    HelpTopic{"Form2", "curves.md", "6. 固结表和数据表"},
    HelpTopic{"Form7", "curves.md", "6. 固结表和数据表"},
    HelpTopic{"Form4", "unconfined.md", "无侧限抗压强度试验"},
    HelpTopic{"Form6", "k0.md", "2. 窗口"},
    HelpTopic{"Form9", "k0.md", "2. 窗口"},
    HelpTopic{"OPENFORM", kLists, "1. 工程列表"},
    HelpTopic{"BACKUPFORM", kLists, "1. 工程列表"},
    HelpTopic{"Form21", "triaxial.md", "4. 保存"},
    HelpTopic{"Form13", kLists, "2. 土样列表"},
    HelpTopic{"Form14", kLists, "2. 土样列表"},
    HelpTopic{"Form16", kLists, "2. 土样列表"},
    HelpTopic{"Form17", kLists, "2. 土样列表"},
    HelpTopic{"FILLFORM", kLists, "3. 填写土样资料"},
    HelpTopic{"Form10", "triaxial.md", "4. 保存"},
    HelpTopic{"Form5", "settings.md", "源文件目录"},
    HelpTopic{"HABITSFORM", "settings.md", "实验室习惯"},
    HelpTopic{"Form24", "templates.md", "Excel 模板"},
    HelpTopic{"OPENFORM0", kImporting, "2. 全自动三轴"},
    HelpTopic{"OPENFORM0OLD", kImporting, "3. 全自动三轴（老版本）"},
    HelpTopic{"OPENFORM1", kImporting, "4. QVB98 三轴"},
    HelpTopic{"OPENFORM10", kImporting, "5. 新 QVB 三轴"},
    HelpTopic{"OPENFORMZ", kImporting, "6. 人工输入三轴"},
    HelpTopic{"OPENFORMWIN", kImporting, "7. WIN 版三轴"},
    HelpTopic{"OPENFORMWINDAT", kImporting, "8. WIN 版三轴 DATX"},
    HelpTopic{"OPENFORM2", kImporting, "10. K0 和 TK0"},
    HelpTopic{"OPENFORM20", kImporting, "10. K0 和 TK0"},
    HelpTopic{"OPENFORM21", kImporting, "10. K0 和 TK0"},
    HelpTopic{"OPENFORM3", kImporting, "11. 无侧限抗压强度"},
    HelpTopic{"OPENFORM30", kImporting, "11. 无侧限抗压强度"},
    HelpTopic{"OPENFORMWINWCX", kImporting, "11. 无侧限抗压强度"},
    HelpTopic{"OPENFORMWINWCXDAT", kImporting, "11. 无侧限抗压强度"},
    HelpTopic{"SETPRINTFORM", kPrinting, "1. 三轴试验成果曲线"},
    HelpTopic{"SETPRINTFORM3", kPrinting, "2. 成果图表（设置打印）"},
    HelpTopic{"Form3", kPrinting, "3. 数据表、无侧限、K0 和 TK0 成果"},
    HelpTopic{"Form30", kPrinting, "3. 数据表、无侧限、K0 和 TK0 成果"},
    HelpTopic{"SETPRINTFORM0", kPrinting, "4. TK0 沉降曲线"},
    HelpTopic{"FaultReport", "safety.md", "数据安全"},
    HelpTopic{"PrintPreview", kPrinting, "5. 预览"},
};

}  // namespace

std::span<const HelpTopic> helpTopics() { return kTopics; }

const HelpTopic* helpTopicOf(std::string_view window) {
  const auto* const found = std::ranges::find(kTopics, window, &HelpTopic::window);
  return found == kTopics.end() ? nullptr : found;
}

}  // namespace triaxlab
