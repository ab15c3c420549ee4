#include "sessions/listed_session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "common/gbk.h"
#include "store/project/sample_rows.h"

namespace triaxlab {

ListedSession::ListedSession(Workspace& workspace, const ListedForm& form)
    : m_workspace(workspace),
      m_form(form),
      m_document(workspace, form.tests),
      m_readings(
          {.lines = kListedLines, .columns = static_cast<int>(form.readingHeads.size()), .rows = form.readingRows}) {}

void ListedSession::load() {
  m_list.reset();
  m_readings.reset();
  m_document.load();
  m_changed = false;
  begin();
  showSample();
}

bool ListedSession::isEmpty() const {
  const SampleRows rows(m_workspace, m_form.tests);
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (rows.isLive(row)) return false;
  return true;
}

void ListedSession::showSample() {
  finishTyping();
  takePicture();
  pictureChanged();
}

void ListedSession::markSaved() {
  m_changed = false;
  finishTyping();
}

// ---- the list

void ListedSession::selectNumber(int cell) {
  if (isHeld()) return;
  const std::size_t before = sampleRow();
  if (cell == m_list.cell() || !m_list.select(cell)) return;
  finishTyping();
  if (sampleRow() != before) showSample();
}

void ListedSession::scrollList(int top) {
  if (isHeld()) return;
  m_list.scroll(top);
  showSample();
}

bool ListedSession::keyInList(CellKey key, CursorPlace cursor) {
  const std::size_t before = sampleRow();
  if (isHeld() || !m_list.key(key, cursor)) return false;
  finishTyping();
  if (sampleRow() != before) showSample();
  return true;
}

CellBlockState ListedSession::listState() const {
  CellBlockState state{.cells = {}, .chosen = m_list.cell(), .top = m_list.top(), .scrollMax = m_list.scrollMax()};
  const SampleRows rows(m_workspace, m_form.tests);
  for (int cell = m_list.firstCell(); cell <= m_list.lastCell(); ++cell) {
    const std::size_t row = m_list.rowOfLine(cell / 2);
    const std::string_view stored = SampleList::isProject(cell) ? rows.projectNo(row) : rows.sampleNo(row);
    state.cells.push_back({m_typing.shown({ListedInputName::Number, cell}, stored), gbkToUtf8(stored)});
  }
  return state;
}

// ---- the readings

void ListedSession::selectReading(int cell) {
  if (cell == m_readings.cell() || !m_readings.select(cell)) return;
  finishTyping();
}

void ListedSession::scrollReadings(int top) {
  finishTyping();
  m_readings.scroll(top);
}

bool ListedSession::keyInReadings(CellKey key, CursorPlace cursor) {
  if (!m_readings.key(key, cursor)) return false;
  finishTyping();
  return true;
}

CellBlockState ListedSession::readingsState() const {
  CellBlockState state{
      .cells = {}, .chosen = m_readings.cell(), .top = m_readings.top(), .scrollMax = m_readings.scrollMax()};
  for (int cell = 0; cell < m_readings.cellCount(); ++cell)
    state.cells.push_back({inputText({ListedInputName::Reading, cell}),
                           gbkToUtf8(readingText(m_readings.rowOf(cell), m_readings.columnOf(cell)))});
  return state;
}

std::string ListedSession::tableText() const {
  const std::size_t columns = m_form.readingHeads.size();
  const auto end = [columns](std::size_t column) { return column + 1 == columns ? '\n' : '\t'; };
  std::string text;
  for (std::size_t column = 0; column < columns; ++column)
    text += m_form.readingHeads[column] + std::string(1, end(column));
  std::string pending;  // rows without a value, wanted only in front of one that has some
  for (std::size_t row = 0; row < static_cast<std::size_t>(m_form.readingRows); ++row) {
    bool hasValue = false;
    for (std::size_t column = 0; column < columns; ++column) {
      const std::string cell = gbkToUtf8(readingText(row, column));
      hasValue = hasValue || !cell.empty();
      pending += cell + end(column);
    }
    if (hasValue) text += std::exchange(pending, {});
  }
  return text;
}

// ---- typing

EditableField ListedSession::ownField(int /*index*/) const {
  throw std::out_of_range("this test has no fields of its own");
}

EditableField ListedSession::fieldOf(ListedInput input) const {
  switch (input.name) {
    case ListedInputName::Number:
      return listField(m_list.rowOfLine(input.index / 2), SampleList::isProject(input.index));
    case ListedInputName::Reading:
      return readingField(m_readings.rowOf(input.index), m_readings.columnOf(input.index));
    case ListedInputName::OwnField:
      return ownField(input.index);
    case ListedInputName::ProjectName:
      return m_document.projectName();
    case ListedInputName::DateText:
      return m_document.dateText(input.index);
    case ListedInputName::SecondTitleLine:
      return m_document.secondTitleLine();
  }
  throw std::out_of_range("no input of a listed window");
}

std::string ListedSession::inputText(ListedInput input) const { return m_typing.shown(input, fieldOf(input).text); }

void ListedSession::edit(ListedInput input, std::string_view utf8) {
  if (m_typing.type(input, fieldOf(input), utf8)) m_changed = true;
}

// ---- what is shown

ListedState ListedSession::listedState() const {
  const LaboratoryHabits& habits = m_workspace.settings.habits;
  ListedState state;
  state.list = listState();
  state.readings = readingsState();
  state.listHeads = {habits.projectNoLabel, habits.sampleNoLabel};
  state.listEnabled = !isHeld();
  state.projectName = inputText({ListedInputName::ProjectName});
  state.secondTitleLine = inputText({ListedInputName::SecondTitleLine});
  state.statusPanels = statusPanels(m_workspace, m_form.tests, sampleRow());
  const bool ofSamples = m_form.lineNumbers == LineNumbers::OfSamples;
  const int top = ofSamples ? m_list.top() : m_readings.top();
  for (std::size_t line = 0; line < state.lineNumbers.size(); ++line)
    state.lineNumbers.at(line) = std::to_string(top + static_cast<int>(line) + 1);
  for (int i = 0; i < ownFieldCount(); ++i) state.ownFields.push_back(inputText({ListedInputName::OwnField, i}));
  for (int box = 0; box < DocumentFields::kDateTexts; ++box)
    state.dateTexts.at(static_cast<std::size_t>(box)) = inputText({ListedInputName::DateText, box});
  return state;
}

const std::string& ListedState::text(ListedInput input) const {
  const auto at = static_cast<std::size_t>(input.index);
  switch (input.name) {
    case ListedInputName::Number:
      return list.cells.at(at).box;
    case ListedInputName::Reading:
      return readings.cells.at(at).box;
    case ListedInputName::OwnField:
      return ownFields.at(at);
    case ListedInputName::ProjectName:
      return projectName;
    case ListedInputName::DateText:
      return dateTexts.at(at);
    case ListedInputName::SecondTitleLine:
      return secondTitleLine;
  }
  throw std::out_of_range("no input of a listed window");
}

}  // namespace triaxlab
