#include "sessions/dialogs/import_selection.h"

#include <fmt/core.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/text_number.h"
#include "platform/files.h"
#include "sessions/dialogs/workbook_saving.h"
#include "store/settings/settings_file.h"
#include "store/settings/source_folders.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

constexpr SourceColumn kNumberColumn{"序号", 930};
constexpr SourceColumn kMarkColumn{"处理选择", 1000};
constexpr const char* kMark = "处理";

/// The limit in effect is one less than the message says.
constexpr std::size_t kMostMarks = 999;
constexpr const char* kTooManyMarks = "对不起，你所选择的试样太多，最多只能处理1000个....";

/// A source whose files have no name of their own, but a mask, starts with no name.
FileQuestion questionFor(const Importer& importer, const std::filesystem::path& folder) {
  const bool isMask = importer.defaultFile.find('*') != std::string_view::npos;
  return {std::string(importer.fileDialogTitle.empty() ? importer.title : importer.fileDialogTitle),
          fmt::format("Log Files ({0})|{0}|All  Files (*.*)|*.*", importer.defaultFile),
          folder / (isMask ? std::string_view() : importer.defaultFile)};
}

}  // namespace

std::string importFolder(const Importer& importer, const Workspace& workspace) {
  if (importer.folderField.width != 0) {
    const std::string folder = sharedSettings(workspace).readText(importer.folderField);
    return folder.empty() ? std::string(kUsualSourceFolder) : gbkToUtf8(folder);
  }
  return importer.folderInUse != nullptr ? workspace.*importer.folderInUse : workspace.sourceFolder;
}

ImportSelection::ImportSelection(const Importer& importer, Workspace& workspace)
    : m_importer(importer), m_workspace(workspace), m_sortsAscending(importer.sorts.size(), false) {
  workspace.sourceFolder = importFolder(importer, workspace);
}

void ImportSelection::load(Dialogs& dialogs) {
  const std::filesystem::path folder = pathFromText(m_workspace.sourceFolder);
  if (const auto file = findFile(folder, m_importer.defaultFile)) return open(*file);
  choose(dialogs);
}

bool ImportSelection::choose(Dialogs& dialogs) {
  const std::filesystem::path folder = pathFromText(m_workspace.sourceFolder);
  const auto& start = folderIsAtHand(folder) ? folder : m_workspace.applicationFolder;
  const auto chosen = dialogs.chooseFile(questionFor(m_importer, start));
  if (chosen) open(*chosen);
  return chosen.has_value();
}

void ImportSelection::open(const std::filesystem::path& sourcePath) {
  m_source.reset();
  m_marked.clear();
  m_order.clear();
  m_markCount = 0;
  m_wasMarked = false;
  m_source = openRawSource(m_importer, sourcePath);
  m_path = sourcePath;
  m_marked.assign(m_source->rows().size(), false);
  m_order.resize(m_marked.size());
  std::iota(m_order.begin(), m_order.end(), std::size_t{0});
}

std::vector<SourceColumn> ImportSelection::columns() const {
  std::vector<SourceColumn> columns{kNumberColumn};
  columns.insert(columns.end(), m_importer.columns.begin(), m_importer.columns.end());
  columns.push_back(kMarkColumn);
  return columns;
}

std::string ImportSelection::cell(std::size_t row, std::size_t column) const {
  if (row == 0) return std::string(columns().at(column).heading);
  if (column == 0) return FormatPadded(static_cast<std::int64_t>(row), 3);
  if (column > m_importer.columns.size()) return isMarked(row) ? kMark : "";
  return m_source->rows()[m_order[row - 1]].cells.at(column - 1);
}

SelectionState ImportSelection::state() const {
  const std::string fileCount = m_source ? FormatPadded(static_cast<std::int64_t>(rowCount()), 2) : "";
  const bool saysWithoutMarks = m_wasMarked && !m_importer.marking.withoutMarks.empty();
  return {"文件总数: " + fileCount, markLabel(), m_markCount != 0 || saysWithoutMarks,
          m_importer.openTests == nullptr || isOpen()};
}

std::string ImportSelection::markLabel() const {
  const Marking& marking = m_importer.marking;
  if (marking.sameColumns.empty()) return fmt::format("{}{}", marking.label, m_markCount);
  const auto marked = std::ranges::find(m_marked, true);
  if (marked == m_marked.end()) return std::string(marking.label);
  const SourceRow& row = m_source->rows()[static_cast<std::size_t>(marked - m_marked.begin())];
  return fmt::format("{}{}", marking.label, row.cells.at(marking.sameColumns.front()));
}

bool ImportSelection::goesWithMarked(std::size_t place) const {
  const auto marked = std::ranges::find(m_marked, true);
  if (marked == m_marked.end()) return true;
  const SourceRow& first = m_source->rows()[static_cast<std::size_t>(marked - m_marked.begin())];
  const SourceRow& row = m_source->rows()[place];
  return std::ranges::all_of(m_importer.marking.sameColumns, [&](std::size_t column) {
    return Trim(row.cells.at(column)) == Trim(first.cells.at(column));
  });
}

Remarks ImportSelection::remarks() const { return m_source ? m_source->remarks() : Remarks{}; }

void ImportSelection::toggleMark(std::size_t row, Dialogs& dialogs) {
  if (row == 0 || row > rowCount()) return;
  const std::size_t place = m_order[row - 1];
  const bool mark = !m_marked[place];
  if (mark && m_markCount == kMostMarks)
    return dialogs.message(m_importer.messageTitle, kTooManyMarks, MessageIcon::Information);
  if (mark && !goesWithMarked(place))
    return dialogs.message(m_importer.messageTitle, m_importer.marking.refusal, MessageIcon::None);
  m_marked[place] = mark;
  m_markCount = mark ? m_markCount + 1 : m_markCount - 1;
  m_wasMarked = true;
}

void ImportSelection::markAll() {
  m_markCount = std::min(m_marked.size(), kMostMarks);
  std::fill_n(m_marked.begin(), m_markCount, true);
}

void ImportSelection::sort(std::size_t button) {
  const bool ascending = m_sortsAscending[button] = !m_sortsAscending[button];
  const std::size_t column = m_importer.sorts[button].column;
  const auto rows = m_source ? m_source->rows() : std::span<const SourceRow>{};
  std::vector<std::string> keys;
  for (const SourceRow& row : rows) keys.push_back(utf8ToGbk(row.cells.at(column)));
  std::ranges::stable_sort(
      m_order, [&](std::size_t a, std::size_t b) { return ascending ? keys[a] < keys[b] : keys[b] < keys[a]; });
}

void ImportSelection::pressThirdButton(Dialogs& dialogs, const Progress& progress) {
  if (m_importer.openTests == nullptr) return;
  constexpr std::string_view kDefaultName = "EXNSZ";
  const auto file = askForWorkbook(m_workspace, dialogs, kWorkbookDoneTitle, kDefaultName);
  if (!file) return;
  saveRawWorkbook(m_importer, m_path, *file, m_workspace, progress);
  dialogs.message(kWorkbookDoneTitle, kTriaxialWorkbookDone, MessageIcon::None);
}

std::optional<ImportReport> ImportSelection::read(Dialogs& dialogs, const Progress& progress) {
  if (m_markCount == 0) {
    dialogs.message(m_importer.messageTitle, m_importer.marking.withoutMarks, MessageIcon::None);
    return std::nullopt;
  }
  std::vector<std::size_t> marked;
  for (const std::size_t row : m_order)
    if (m_marked[row]) marked.push_back(row);
  ImportReport report = m_source->read(marked, m_workspace, progress);
  const ImportMessage& noSamples = m_importer.noSamples;
  if (report.samples == 0 && !noSamples.text.empty())
    dialogs.message(noSamples.title, noSamples.text, MessageIcon::None);
  else if (report.samples == 0 && report.remarks.empty())
    report.remarks.push_back(fmt::format("文件“{}”选中的数据中没有试样，没有读入任何内容。", textOfPath(m_path)));
  return report;
}

}  // namespace triaxlab
