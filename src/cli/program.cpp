#include "cli/program.h"

#include <fmt/core.h>

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/command_line.h"
#include "cli/console_dialogs.h"
#include "cli/grid.h"
#include "cli/page_devices.h"
#include "cli/print_job.h"
#include "cli/record_json.h"
#include "common/gbk.h"
#include "common/user_error.h"
#include "exports/export_file.h"
#include "platform/files.h"
#include "reports/document_info.h"
#include "reports/layouts.h"
#include "reports/send_report.h"
#include "sessions/dialogs/browser_session.h"
#include "sessions/dialogs/import_selection.h"
#include "sessions/dialogs/sample_list_session.h"
#include "sessions/dialogs/workbook_saving.h"
#include "shell/document_kinds.h"
#include "shell/document_operations.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/sample_rows.h"
#include "store/project/save_project.h"
#include "store/settings/text_settings.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab::cli {
namespace {

[[noreturn]] void refuseForThisVersion(std::string_view what) {
  throw UserError(fmt::format("本版本还没有{}的功能。", what));
}

/// A column of the document's row, which may be empty in this version. `what` is done with it.
template <class Column>
Column require(Column column, ProjectKind kind, std::string_view what) {
  if (column == nullptr) refuseForThisVersion(fmt::format("{} {} 类试样", what, infoOf(kind).id));
  return column;
}

constexpr std::string_view kShowing = "显示曲线：";

/// Where the pages of a file go: "{}" stands for its name without extension.
std::filesystem::path placeOf(const std::filesystem::path& out, std::string_view fileName) {
  std::string place = textOfPath(out);
  const std::string stem(fileName.substr(0, fileName.rfind('.')));
  for (std::size_t at = 0; (at = place.find(kNamePlace, at)) != std::string::npos; at += stem.size())
    place.replace(at, kNamePlace.size(), stem);
  return pathFromText(place);
}

class Program {
 public:
  explicit Program(Workspace& workspace) : m_workspace(workspace) {}

  int operator()(const Init& /*init*/) { return kDone; }

  int operator()(const Import& import) {
    const Importer& importer = *importerOfId(import.source);
    const DocumentKind& document = documentKindOf(importer.document);
    if (import.page) require(document.showPage, document.tests, kShowing);
    ImportSelection selection(importer, m_workspace);
    m_workspace.sourceFolder = textOfPath(std::filesystem::absolute(import.file).parent_path());
    selection.open(import.file);
    printRemarks(selection.remarks());
    markRows(selection, import);
    if (!selection.state().canRead) return kDone;  // a database without entries: nothing to import
    const std::optional<ImportReport> report = selection.read(m_dialogs);
    if (!report) return kDone;
    printRemarks(report->remarks);
    printRemarks(importedDocument(m_workspace, document));
    if (import.page) showPage(document.tests, *import.page);
    return import.save ? save(document.tests, import.keepExisting) : kDone;
  }

  int operator()(const Open& open) {
    const ProjectKind kind = open.files.kind;
    if (open.page) require(documentOfTests(kind).showPage, kind, kShowing);
    return eachFile(open.files, [&](const std::string& name) {
      openFile(open.files, name, rangeOf(open.first, open.last));
      if (open.page) showPage(kind, *open.page);
      return open.save ? save(kind, false) : kDone;
    });
  }

  int operator()(const List& list) {
    m_workspace.openDialogKind = static_cast<std::int16_t>(list.kind);
    const BrowserSession browser(m_workspace, m_dialogs, {});
    const int columns = static_cast<int>(browser.columns().size());
    GridLine headings;
    for (const auto& column : browser.columns()) headings.push_back(column.heading);
    printLine(headings);
    // The window shows an empty row when there is no file; only a row with a number is one.
    for (int row = 1; !browser.cell(row, 0).empty(); ++row) {
      GridLine cells;
      for (int column = 0; column < columns; ++column) cells.push_back(browser.cell(row, column));
      printLine(cells);
    }
    return kDone;
  }

  int operator()(const Samples& samples) {
    const auto columns = sampleListColumns(samples.kind, m_workspace.settings.habits);
    Remarks remarks;
    const SampleListTable rows = listSamples(m_workspace, samples.kind, samples.name, &remarks);
    GridLine headings;
    for (const SampleListColumn& column : columns) headings.push_back(column.heading);
    printLine(headings);
    for (const SampleListRow& row : rows) {
      GridLine cells;
      for (const SampleListColumn& column : columns)
        cells.push_back(column.text == nullptr ? std::to_string(row.recordIndex + 1) : row.*column.text);
      printLine(cells);
    }
    printRemarks(remarks);
    return kDone;
  }

  int operator()(const Rewrite& rewrite) {
    std::vector<std::uint32_t> order;
    for (const std::size_t number : rewrite.order) {
      if (number < 1 || number > kLargestSampleCount)
        throw UserError(fmt::format("文件“{}”中没有第 {} 个试样，文件没有改动。", rewrite.name, number));
      order.push_back(static_cast<std::uint32_t>(number - 1));
    }
    const RewriteReport report = rewriteProject(m_workspace, rewrite.kind, rewrite.name, order);
    m_dialogs.message(report.title, report.message, MessageIcon::None);
    printRemarks(report.remarks);
    printRemarks(report.errors);
    return report.errors.empty() ? kDone : kFailed;
  }

  int operator()(const Show& show) {
    // Of a large file the one sample alone is read; it then stands in the first row.
    std::size_t firstRow = 0;
    openFile(show.kind, show.name, [&](int sampleCount) {
      if (!show.sample || *show.sample < 1 || *show.sample > sampleCount) return SampleRange{1, sampleCount};
      firstRow = static_cast<std::size_t>(*show.sample - 1);
      return SampleRange{*show.sample, *show.sample};
    });
    printDocument(show, firstRow);
    return kDone;
  }

  int operator()(const Results& results) {
    const ProjectKind kind = results.files.kind;
    const auto linesOf = require(documentOfTests(kind).results, kind, "列出成果：");
    bool isHeaded = false;
    return eachFile(results.files, [&](const std::string& name) {
      openFile(results.files, name, {});
      const ResultLines lines = linesOf(m_workspace);
      for (std::size_t i = std::exchange(isHeaded, true) ? 1 : 0; i < lines.size(); ++i) printLine(lines[i]);
      return kDone;
    });
  }

  int operator()(const Export& written) {
    ExportFile table(written.out, *written.format, exportTablesOf(written.files.kind), written.content);
    bool isEmpty = true;
    const int status = eachFile(written.files, [&](const std::string& name) {
      openFile(written.files, name, {});
      table.add(m_workspace);
      isEmpty = false;
      return kDone;
    });
    // When no file could be read, the table that stands there may still be right.
    if (!isEmpty) table.finish();
    return status;
  }

  int operator()(const Print& print) {
    const Layout* const layout = layoutOfId(print.layout);
    if (layout == nullptr) refuseForThisVersion(fmt::format("打印 {} 版式", print.layout));
    if (layout->kind != infoOf(print.files.kind).savedAs)
      throw UserError(fmt::format("{} 类试样不能用 {} 版式打印。", infoOf(print.files.kind).id, print.layout));
    if (layout->picturePrefix.empty() && isPictureFolder(print.out))
      throw UserError(fmt::format("{} 版式的页面不能存成图片，--out 请给 .pdf 或 .json 文件。", print.layout));
    return eachFile(print.files, [&](const std::string& name) {
      printFile(print, *layout, name);
      return kDone;
    });
  }

  int operator()(const WriteWorkbook& work) {
    openFile(work.kind, work.name, rangeOf(work.first, work.last));
    const WorkbookForm& form = workbookFormOf(work.kind);
    writeSamples(m_workspace, form, work.out);
    m_dialogs.message(kWorkbookDoneTitle, form.done, MessageIcon::None);
    return kDone;
  }

  int operator()(const WriteRawWorkbook& work) {
    saveRawWorkbook(*importerOfId(work.source), work.file, work.out, m_workspace);
    m_dialogs.message(kWorkbookDoneTitle, kTriaxialWorkbookDone, MessageIcon::None);
    return kDone;
  }

 private:
  void markRows(ImportSelection& selection, const Import& import) {
    std::vector<std::size_t> rows = import.rows;
    if (import.allRows)
      for (std::size_t row = 1; row <= selection.rowCount(); ++row) rows.push_back(row);
    for (const std::size_t row : rows) {
      if (row == 0 || row > selection.rowCount())
        throw UserError(fmt::format("文件“{}”中没有第{}行，数据没有读入。", textOfPath(import.file), row));
      if (!selection.isMarked(row)) selection.toggleMark(row, m_dialogs);
      if (!selection.isMarked(row))
        throw UserError(fmt::format("文件“{}”的第{}行不能与前面的行一起读入，数据没有读入。请用 --rows 分几次读入。",
                                    textOfPath(import.file), row));
    }
  }

  void printFile(const Print& print, const Layout& layout, const std::string& name) {
    openFile(print.files, name, {});
    printRemarks(ReadPageSettings(m_workspace));
    const PrintJob job = jobOf(print, layout, m_workspace);
    const auto report = layout.make(job, m_workspace);
    if (report->pagesOf(job).isEmpty()) throw UserError(fmt::format("“{}”中没有可打印的试样或曲线。", name));
    if (!print.out.empty()) {
      const DocumentInfo information = documentInfo(layout, *report, job, m_workspace);
      sendReport(*report, job, *makePageDevice(placeOf(print.out, name), layout.picturePrefix, information));
    }
    if (!print.printer.empty()) sendToPrinter(layout, *report, job, print.printer);
  }

  void sendToPrinter(const Layout& layout, Report& report, PrintJob job, std::string_view printer) {
    job.printToPicture = false;
    const PrinterJob printed{
        .title = layout.title, .size = sheetSize(report, job), .copies = job.copies, .name = printer};
    if (const auto device = makePrinter(printed, m_dialogs)) sendReport(report, job, *device);
  }

  void showPage(ProjectKind kind, CurvePage page) {
    require(documentOfTests(kind).showPage, kind, kShowing)(m_workspace, page);
  }

  /// As the range dialog answers for a large file.
  static RangeChooser rangeOf(std::optional<int> first, std::optional<int> last) {
    return [=](int sampleCount) { return SampleRange{first.value_or(1), last.value_or(sampleCount)}; };
  }

  void openFile(ProjectKind kind, std::string_view name, const RangeChooser& chooseRange,
                OpenFor purpose = OpenFor::Work) {
    printRemarks(openDocument(m_workspace, kind, name, chooseRange, purpose));
  }
  void openFile(const ProjectFiles& files, std::string_view name, const RangeChooser& chooseRange) {
    openFile(files.kind, name, chooseRange, files.dataFolder ? OpenFor::Reading : OpenFor::Work);
  }

  int save(ProjectKind kind, bool keepExisting) {
    const DocumentKind& document = documentOfTests(kind);
    const SaveReport report =
        saveDocument(m_workspace, document, [=](Workspace& workspace, const std::vector<KnownSample>& known) {
          for (const KnownSample& sample : known) workspace.dataOf(kind).keepExisting[sample.row] = keepExisting;
          return true;
        });
    m_dialogs.message(kSaveTitle, document.savedMessage, MessageIcon::None);
    printRemarks(report.remarks);
    const std::vector<std::string> failures = report.failures();
    printRemarks(failures);
    return failures.empty() ? kDone : kFailed;
  }

  /// Written sample by sample: a full table as one tree would take gigabytes.
  void printDocument(const Show& show, std::size_t firstRow) {
    const SampleRows table(m_workspace, show.kind);
    if (show.sample && !hasSample(table, *show.sample, firstRow))
      throw UserError(fmt::format("文件“{}”中没有第{}个试样。", show.name, *show.sample));
    std::cout << R"({"kind": )" << nlohmann::json(infoOf(show.kind).id).dump() << R"(, "file": )"
              << nlohmann::json(show.name).dump() << R"(, "header": )" << jsonOf(m_workspace.projectHeader).dump()
              << R"(, "controlledDocNo": )"
              << nlohmann::json(jsonText(m_workspace.dataOf(show.kind).controlledDocNo.view())).dump()
              << ", \"samples\": [";
    const char* separator = "";
    for (std::size_t row = 0; row < table.size(); ++row) {
      const std::size_t fileRow = firstRow + row;
      if (!table.isLive(row) || (show.sample && fileRow + 1 != static_cast<std::size_t>(*show.sample))) continue;
      std::cout << separator << '\n' << jsonOf(fileRow, m_workspace, show.kind, row).dump();
      separator = ",";
    }
    std::cout << "]}\n";
  }

  static bool hasSample(const SampleRows& table, int number, std::size_t firstRow) {
    if (number < 1) return false;
    const std::size_t row = static_cast<std::size_t>(number) - 1 - firstRow;
    return row < table.size() && table.isLive(row);
  }

  Workspace& m_workspace;
  ConsoleDialogs m_dialogs;
};

}  // namespace

int run(Workspace& workspace, const Command& command) { return std::visit(Program(workspace), command); }

}  // namespace triaxlab::cli
