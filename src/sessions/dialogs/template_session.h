#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"
#include "store/project/project_kind.h"
#include "store/workspace.h"

namespace triaxlab {

/// The session behind Form24: the laboratory keeps report forms of its own as spreadsheet templates in the application
/// folder, and a program of its own there, ExcelPrinter, fills them from a project file. The person picks the template;
/// which project, the document in front says. All texts are UTF-8.
class TemplateSession {
 public:
  static constexpr std::string_view kCaption = "Excel模板输出/打印";
  static constexpr std::string_view kPrompt = "选择Excel模板文件...";  // Label1
  static constexpr std::string_view kPrint = "打印预览";               // Command1
  static constexpr std::string_view kToFile = "输出到文件";            // Command2

  /// For the tests of the document in front. Without a document, or with one of tests for which there are no templates,
  /// the form is empty.
  /// `started` is told the process of each program that was started.
  TemplateSession(const Workspace& workspace, Dialogs& dialogs, std::optional<ProjectKind> tests,
                  std::function<void(int process)> started = {});

  // Combo1
  const std::vector<std::string>& templates() const { return m_templates; }
  std::size_t currentTemplate() const { return m_current; }
  void choose(std::size_t index) { m_current = index; }

  /// Label2: the file of the document's first sample. It may not have been saved yet.
  std::string projectFile() const;

  // The program is started, and nobody waits for it. What keeps it from being started is shown.
  void print() { handOver("TOPRINT"); }
  void writeToFile() { handOver("TOFILE"); }

 private:
  struct Kind;
  static const Kind* kindOf(std::optional<ProjectKind> tests);
  void handOver(std::string_view what);

  const Workspace& m_workspace;
  Dialogs& m_dialogs;
  const Kind* m_kind;  // null: an empty form
  std::function<void(int process)> m_started;
  std::filesystem::path m_folder, m_projectFile;
  std::vector<std::string> m_templates;
  std::size_t m_current = 0;
};

}  // namespace triaxlab
