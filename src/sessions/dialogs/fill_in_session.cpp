#include "sessions/dialogs/fill_in_session.h"

#include <fmt/core.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/gbk.h"
#include "sessions/dialogs/list_kinds.h"
#include "sessions/dialogs/pasted_cells.h"
#include "sessions/typing.h"
#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

constexpr int kNumberWidth = 600, kSampleNumberWidth = 1750;

/// What a paste had no room for.
struct LeftOut {
  int rows = 0, columns = 0;  // beyond the grid
  int cut = 0;                // cells that hold a part
  bool numbers = false;       // other numbers of projects or samples
};

std::string remarkOf(const LeftOut& left) {
  std::string remark;
  const auto add = [&remark](const std::string& sentence) { remark += (remark.empty() ? "" : " ") + sentence; };
  if (left.rows > 0 && left.columns > 0)
    add(fmt::format("表里放不下的 {} 行、{} 列没有贴入。", left.rows, left.columns));
  else if (left.rows > 0)
    add(fmt::format("表里放不下的 {} 行没有贴入。", left.rows));
  else if (left.columns > 0)
    add(fmt::format("表里放不下的 {} 列没有贴入。", left.columns));
  if (left.cut > 0) add(fmt::format("{} 格没有全部贴入：太长，或有 GBK 里没有的字。", left.cut));
  if (left.numbers) add("编号不在这里改，没有贴入。");
  return remark;
}

}  // namespace

FillInSession::FillInSession(Workspace& workspace, ProjectKind tests, std::size_t sampleOnDisplay,
                             std::function<void()> changed)
    : m_workspace(workspace), m_tests(tests), m_changed(std::move(changed)), m_texts(listKindOf(tests).sampleTexts()) {
  const SampleRows rows(workspace, tests);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!rows.isLive(row)) continue;
    m_rows.push_back(row);
    if (row == sampleOnDisplay) m_firstRow = rowCount();
  }
}

std::string FillInSession::heading() const {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  if (m_rows.empty())
    return fmt::format("还没有土样：请先在窗口的试样表里输入{}和{}。", habits.projectNoLabel, habits.sampleNoLabel);
  return fmt::format("共 {} 个土样。改动立即记入，关闭这个窗口以后再保存。", m_rows.size());
}

std::vector<GridColumn> FillInSession::columns() const {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  std::vector<GridColumn> columns{{"序号", kNumberWidth, true},
                                  {habits.projectNoLabel, kSampleNumberWidth},
                                  {habits.sampleNoLabel, kSampleNumberWidth}};
  for (const SampleText& text : m_texts) columns.push_back({text.heading(habits), text.width});
  return columns;
}

bool FillInSession::isTyped(int column) const {
  return column >= kNumberColumns && column < kNumberColumns + static_cast<int>(m_texts.size());
}

bool FillInSession::isInside(int row, int column) const {
  return row >= 1 && row <= rowCount() && column >= 0 && column < kNumberColumns + static_cast<int>(m_texts.size());
}

EditableField FillInSession::fieldAt(int row, int column) const {
  if (!isInside(row, column) || !isTyped(column)) throw std::out_of_range("no cell that is typed");
  const SampleText& text = m_texts[static_cast<std::size_t>(column - kNumberColumns)];
  return text.field(m_workspace, m_tests, m_rows[static_cast<std::size_t>(row - 1)]);
}

std::size_t FillInSession::width(int row, int column) const { return fieldAt(row, column).width; }

std::string FillInSession::cell(int row, int column) const {
  if (!isInside(row, column)) return {};
  if (isTyped(column)) return gbkToUtf8(fieldAt(row, column).text);
  if (column == 0) return std::to_string(row);
  const SampleRows rows(m_workspace, m_tests);
  const std::size_t tableRow = m_rows[static_cast<std::size_t>(row - 1)];
  return gbkToUtf8(column == 1 ? rows.projectNo(tableRow) : rows.sampleNo(tableRow));
}

// ---- what is put in

bool FillInSession::put(Step& step, int row, int column, std::string_view utf8) {
  const EditableField field = fieldAt(row, column);
  Typing<int> typing;
  if (typing.type(0, field, utf8)) step.push_back({row, column, field.text, fieldAt(row, column).text});
  return gbkToUtf8(takenText(utf8, field.width)) == utf8;
}

void FillInSession::finish(Step step) {
  if (step.empty()) return;
  m_steps.resize(m_stepsDone);
  m_steps.push_back(std::move(step));
  m_stepsDone = m_steps.size();
  m_changed();
}

void FillInSession::type(int row, int column, std::string_view utf8) {
  m_remark.clear();
  Step step;
  put(step, row, column, utf8);
  finish(std::move(step));
}

void FillInSession::copyDown(const GridBlock& block) {
  m_remark.clear();
  Step step;
  const bool fromAbove = block.top == block.bottom;
  const int source = fromAbove ? block.top - 1 : block.top;
  for (int column = block.left; column <= block.right; ++column)
    for (int row = source + 1; row <= block.bottom; ++row)
      if (isTyped(column) && isInside(source, column) && isInside(row, column))
        put(step, row, column, cell(source, column));
  finish(std::move(step));
}

void FillInSession::paste(const GridBlock& block, std::string_view utf8) {
  m_remark.clear();
  if (!isInside(block.top, block.left)) return;
  const std::vector<std::vector<std::string>> lines = pastedCells(utf8);
  Step step;
  LeftOut left;
  const auto putCell = [&](int row, int column, const std::string& text) {
    if (!isTyped(column))
      left.numbers = left.numbers || text != cell(row, column);
    else if (!put(step, row, column, text))
      ++left.cut;
  };
  if (lines.size() == 1 && lines[0].size() == 1) {
    for (int row = block.top; row <= std::min(block.bottom, rowCount()); ++row)
      for (int column = block.left; column <= block.right; ++column) putCell(row, column, lines[0][0]);
  } else {
    const int columnCount = kNumberColumns + static_cast<int>(m_texts.size());
    int row = block.top;
    for (const std::vector<std::string>& line : lines) {
      if (row > rowCount()) {
        ++left.rows;
        continue;
      }
      const int room = columnCount - block.left, given = static_cast<int>(line.size());
      for (int i = 0; i < std::min(room, given); ++i) putCell(row, block.left + i, line[static_cast<std::size_t>(i)]);
      left.columns = std::max(left.columns, given - room);
      ++row;
    }
  }
  m_remark = remarkOf(left);
  finish(std::move(step));
}

void FillInSession::clear(const GridBlock& block) {
  m_remark.clear();
  if (!isInside(block.top, block.left)) return;
  Step step;
  for (int row = block.top; row <= std::min(block.bottom, rowCount()); ++row)
    for (int column = block.left; column <= block.right; ++column)
      if (isTyped(column)) put(step, row, column, {});
  finish(std::move(step));
}

std::string FillInSession::text(const GridBlock& block) const {
  std::string text;
  for (int row = block.top; row <= block.bottom; ++row)
    for (int column = block.left; column <= block.right; ++column)
      text += cell(row, column) + (column == block.right ? '\n' : '\t');
  return text;
}

void FillInSession::undo() {
  if (!canUndo()) return;
  m_remark.clear();
  // A cell has at most one change in a step, so their order doesn't matter.
  for (const Change& change : m_steps[--m_stepsDone]) fieldAt(change.row, change.column).store(change.before);
  m_changed();
}

void FillInSession::redo() {
  if (!canRedo()) return;
  m_remark.clear();
  for (const Change& change : m_steps[m_stepsDone++]) fieldAt(change.row, change.column).store(change.after);
  m_changed();
}

}  // namespace triaxlab
