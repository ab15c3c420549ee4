#include "sessions/dialogs/template_session.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/small_letters.h"
#include "platform/files.h"
#include "platform/process.h"
#include "sessions/dialogs/error_display.h"
#include "store/project/project_kinds.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

constexpr std::string_view kFolder = "Excel模板";
/// Anywhere in the name, as the mask *.xls* finds it: it is in .xlsx and .xlsm, too.
constexpr std::string_view kExtension = ".xls";
constexpr std::string_view kProgram = "ExcelPrinter.exe";
constexpr std::string_view kNoTemplateTitle = "选择Excel模板文件", kNoTemplate = "请选择正确的Excel模板文件...";

std::vector<std::string> templatesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names = listFiles(folder, "", "");
  std::erase_if(names, [](const std::string& name) { return caseless(name).find(kExtension) == std::string::npos; });
  return names;
}

}  // namespace

/// Tests that have templates.
struct TemplateSession::Kind {
  ProjectKind tests;
  std::string_view folder;
  std::string_view code;  // what ExcelPrinter calls them
};

const TemplateSession::Kind* TemplateSession::kindOf(std::optional<ProjectKind> tests) {
  static constexpr std::array kKinds{Kind{ProjectKind::Triaxial, "三轴", "2"},
                                     Kind{ProjectKind::Unconfined, "无侧限", "4"}};
  const auto* const row = std::ranges::find_if(kKinds, [tests](const Kind& kind) { return kind.tests == tests; });
  return row != kKinds.end() ? row : nullptr;
}

TemplateSession::TemplateSession(const Workspace& workspace, Dialogs& dialogs, std::optional<ProjectKind> tests,
                                 std::function<void(int process)> started)
    : m_workspace(workspace), m_dialogs(dialogs), m_kind(kindOf(tests)), m_started(std::move(started)) {
  if (m_kind == nullptr) return;
  const std::string_view projectNo = SampleRows(workspace, m_kind->tests).projectNo(0);
  m_projectFile = fileOrNew(workspace.projectFolder(), projectFileName(infoOf(m_kind->tests).filePrefix, projectNo));
  m_folder = fileOrNew(fileOrNew(workspace.applicationFolder, kFolder), m_kind->folder);
  m_templates = templatesIn(m_folder);
}

std::string TemplateSession::projectFile() const { return textOfPath(m_projectFile); }

void TemplateSession::handOver(std::string_view what) {
  if (m_current >= m_templates.size()) return m_dialogs.message(kNoTemplateTitle, kNoTemplate, MessageIcon::None);
  runShowingErrors(m_dialogs, [&] {
    const std::filesystem::path& folder = m_workspace.applicationFolder;
    // The fourth place is a blank of no meaning.
    const std::array<std::string, 5> arguments{std::string(what), std::string(m_kind->code), projectFile(), " ",
                                               textOfPath(m_folder / m_templates[m_current])};
    const int process =
        startProgram(findProgram({&folder, 1}, kProgram).value_or(folder / kProgram), arguments, Showing::Behind);
    if (m_started) m_started(process);
  });
}

}  // namespace triaxlab
