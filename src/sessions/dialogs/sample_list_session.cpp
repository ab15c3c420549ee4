#include "sessions/dialogs/sample_list_session.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

#include "sessions/dialogs/error_display.h"
#include "sessions/dialogs/list_range_dialog.h"
#include "sessions/dialogs/row_moves.h"

namespace triaxlab {
namespace {

constexpr std::string_view kMark = "×";
constexpr std::string_view kSorted = "排序完毕！";
constexpr int kNumberWidth = 700, kTextWidth = 1800;

/// What a button is called in titles: its caption without blanks.
std::string nameOf(const ListButton& button) {
  std::string name(button.caption);
  std::erase(name, ' ');
  return name;
}

std::vector<std::string> sampleNumbers(const SampleListTable& rows) {
  std::vector<std::string> numbers;
  numbers.reserve(rows.size());
  for (const SampleListRow& row : rows) numbers.push_back(row.sampleNo);
  return numbers;
}

}  // namespace

std::vector<SampleListColumn> sampleListColumns(ProjectKind kind, const LaboratoryHabits& habits) {
  std::vector<SampleListColumn> columns{{"序号", kNumberWidth, nullptr}};
  for (const ListedText& column : listKindOf(kind).sampleListForm.columns)
    columns.push_back({column.heading(habits), kTextWidth, column.text});
  return columns;
}

SampleListSession::SampleListSession(Workspace& workspace, Dialogs& dialogs, ProjectKind kind, std::string fileName,
                                     std::string projectNo, std::function<void()> saved)
    : m_workspace(workspace),
      m_dialogs(dialogs),
      m_kind(listKindOf(kind)),
      m_fileName(std::move(fileName)),
      m_projectNo(std::move(projectNo)),
      m_saved(std::move(saved)),
      m_columns(sampleListColumns(kind, workspace.settings.habits)),
      m_rows(listSamples(workspace, kind, m_fileName, &m_remarks)),
      m_numbersInFile(sampleNumbers(m_rows)) {}

std::string SampleListSession::projectLine() const {
  return fmt::format("{}:{}", m_workspace.settings.habits.projectNoLabel, m_projectNo);
}

// ---- the page

int SampleListSession::largestScroll() const { return std::max(0, rowCount() - kVisibleRows); }

void SampleListSession::setScroll(int value) { m_scroll = std::clamp(value, 0, largestScroll()); }

bool SampleListSession::isInList(int index) const {
  return index >= 0 && index < kVisibleRows && m_scroll + index < rowCount();
}

SampleListSession::Line SampleListSession::line(int index) const {
  Line line{std::vector<std::string>(m_columns.size()), false};
  if (!isInList(index)) return line;
  const int rowAt = m_scroll + index;
  const SampleListRow& row = m_rows[static_cast<std::size_t>(rowAt)];
  line.isMarked = row.deleteMark;
  for (std::size_t column = 0; column < m_columns.size(); ++column) {
    if (m_columns[column].text == nullptr)
      line.cells[column] = fmt::format("{}{}", line.isMarked ? kMark : "", rowAt + 1);
    else
      line.cells[column] = row.*m_columns[column].text;
  }
  return line;
}

void SampleListSession::flipMark(int index) {
  if (!isInList(index)) return;
  const int rowAt = m_scroll + index;
  SampleListRow& row = m_rows[static_cast<std::size_t>(rowAt)];
  row.deleteMark = !row.deleteMark;
}

// ---- the buttons

bool SampleListSession::press(const ListButton& button, SampleListView& view) {
  switch (button.action) {
    case ListAction::Sort:
      sort(button, view);
      break;
    case ListAction::Move:
      move(button, view);
      break;
    case ListAction::Delete:
      remove(button, view);
      break;
    case ListAction::Save:
      save(view);
      break;
    case ListAction::Return:
      return true;
  }
  return false;
}

void SampleListSession::remove(const ListButton& button, SampleListView& view) {
  ListRangeDialog dialog = ListRangeDialog::forDeletion(nameOf(button));
  view.askForRange(dialog);
  if (!dialog.isAccepted()) return;
  markSamples(m_rows, dialog.range(m_rows.size()));
  removeMarkedSamples(m_rows);
  setScroll(m_scroll);
  view.refresh();
}

void SampleListSession::sort(const ListButton& button, SampleListView& view) {
  ListRangeDialog dialog = ListRangeDialog::forSort(nameOf(button), m_rows.size());
  view.askForRange(dialog);
  if (!dialog.isAccepted()) return;
  sortSampleList(m_rows, dialog.range(m_rows.size()), button.key, dialog.method, button.direction);
  view.refresh();
  m_dialogs.message(nameOf(button), kSorted, MessageIcon::None);
}

void SampleListSession::move(const ListButton& button, SampleListView& view) {
  RowMoves moves(nameOf(button), m_rows, [&view] { view.refresh(); });
  view.showRowMoves(moves);
}

void SampleListSession::save(SampleListView& view) {
  runShowingErrors(m_dialogs, [&] {
    // An empty list whose file is gone already has nothing more to write.
    if (!m_isFileRemoved) rewrite();
    view.refresh();
    m_dialogs.message(m_report.title, m_report.message, MessageIcon::None);
    for (const std::string& error : m_report.errors) showError(m_dialogs, UserError(error));
    m_saved();
  });
}

// In a file with other samples the positions of the list are worth nothing: it would be scrambled.
void SampleListSession::requireListedSamples() const {
  if (!holdsSamples(m_workspace, m_kind.kind, m_fileName, m_numbersInFile))
    throw UserError(
        fmt::format("文件“{}”中的试样与列表打开时不同，这次没有保存。请返回后重新打开土样列表。", m_fileName));
}

void SampleListSession::rewrite() {
  requireListedSamples();
  std::vector<std::uint32_t> order;
  order.reserve(m_rows.size());
  for (const SampleListRow& row : m_rows) order.push_back(static_cast<std::uint32_t>(row.recordIndex));
  m_report = rewriteProject(m_workspace, m_kind.kind, m_fileName, order,
                            [this](std::string_view title, std::string_view question) {
                              requireListedSamples();
                              return m_dialogs.ask(title, question, MessageIcon::Exclamation);
                            });
  // From here on the list speaks of the new file.
  for (std::size_t i = 0; i < m_rows.size(); ++i) m_rows[i].recordIndex = i;
  m_numbersInFile = sampleNumbers(m_rows);
  m_isFileRemoved = m_rows.empty();
  m_remarks.insert(m_remarks.end(), m_report.remarks.begin(), m_report.remarks.end());
}

}  // namespace triaxlab
