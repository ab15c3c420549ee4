#include "shell/table_export.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <vector>

#include "exports/export_file.h"
#include "exports/table_formats.h"
#include "platform/files.h"
#include "store/project/project_kinds.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

constexpr std::string_view kFilter = "数据表 (*.csv *.jsonl)|*.csv *.jsonl|All  Files (*.*)|*.*";
constexpr std::string_view kTitle = "另存为数据表";

/// Beside the project's own files, under the name of its project file.
std::filesystem::path firstPlace(const Workspace& workspace, ProjectKind tests, TableContent content) {
  const std::string_view projectNo = SampleRows(workspace, tests).projectNo(0);
  return workspace.dataFolder / projectFileName(infoOf(tests).filePrefix, whyNoFileName(projectNo) ? "" : projectNo,
                                                content == TableContent::Results ? "成果.csv" : "读数.csv");
}

const TableFormat& formatOf(const std::filesystem::path& file) {
  if (const TableFormat* const format = tableFormatOfExtension(textOfPath(file.extension()))) return *format;
  std::vector<std::string_view> extensions;
  for (const TableFormat& format : tableFormats()) extensions.push_back(format.extension);
  throw UserError(
      fmt::format("不能写成数据表“{}”：名称要以 {} 结尾。", textOfPath(file), fmt::join(extensions, " 或 ")));
}

}  // namespace

Remarks saveAsTable(const Workspace& workspace, const DocumentKind& document, TableContent content, Dialogs& dialogs,
                    const Progress& progress) {
  auto file = dialogs.chooseFileToSave({.title = std::string(kTitle),
                                        .filter = std::string(kFilter),
                                        .initial = firstPlace(workspace, document.tests, content)});
  if (!file) return {};
  if (!file->has_extension()) *file += tableFormats().front().extension;
  ExportFile table(*file, formatOf(*file), exportTablesOf(document.tests), content);
  table.add(workspace, progress);
  if (table.lineCount() == 0)
    throw UserError(fmt::format("没有可以写出的试样或读数，数据表“{}”没有写。", textOfPath(*file)));
  table.finish();
  return {fmt::format("数据表“{}”已写好，共 {} 行。", textOfPath(*file), table.lineCount())};
}

}  // namespace triaxlab
