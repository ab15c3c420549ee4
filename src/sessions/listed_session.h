#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sessions/document_fields.h"
#include "sessions/reading_grid.h"
#include "sessions/sample_list.h"
#include "sessions/typing.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// Lines of the sample list and of the readings beside it.
inline constexpr int kListedLines = 4;

/// What stands beside the lines of readings.
enum class LineNumbers : std::uint8_t { OfSamples, OfReadings };

/// What a listed document is by its test.
struct ListedForm {
  ProjectKind tests;
  std::span<const char* const> readingHeads;  // UTF-8, one a column
  int readingRows = 0;
  LineNumbers lineNumbers = LineNumbers::OfReadings;
};

/// What a person types in a listed window.
enum class ListedInputName : std::uint8_t {
  Number,           // project or sample number in a cell of the list
  Reading,          // a cell of the readings
  OwnField,         // a field that the test has of its own
  ProjectName,      //
  DateText,         // date of processing, or names that sign the report
  SecondTitleLine,  //
};
struct ListedInput {
  ListedInputName name;
  int index = 0;  // of the cell, of the own field, of the date's box
  bool operator==(const ListedInput&) const = default;
};

/// A cell: an edit box, and the label that lies over it while nobody types there. UTF-8.
struct CellTexts {
  std::string box, label;
  bool operator==(const CellTexts&) const = default;
};
struct CellBlockState {
  std::vector<CellTexts> cells;
  int chosen = 0;
  int top = 0, scrollMax = 0;  // from 0
};

/// What listed windows show alike, UTF-8. What is being typed in holds what was taken of the typing, all else the
/// stored text.
struct ListedState {
  CellBlockState list, readings;
  std::array<std::string, 2> listHeads;               // over project and sample
  std::array<std::string, kListedLines> lineNumbers;  //
  bool listEnabled = true;                            // the sample can be changed
  std::vector<std::string> ownFields;
  std::string projectName, secondTitleLine;
  std::array<std::string, DocumentFields::kDateTexts> dateTexts;
  std::array<std::string, 2> statusPanels;  // the second and the third

  /// What stands in an input.
  const std::string& text(ListedInput input) const;
};

/// What stands behind a listed window: a list of samples in four lines, a chart of the chosen one, four lines of its
/// readings, and the texts of the document. One method for each thing that a person does; after each the window shows
/// the state and, when `pictureNumber()` has changed, the chart. Works on the rows of the workspace in place; a new
/// table is shown by `load()`.
class ListedSession {
 public:
  /// The workspace outlives the session. A test's own session loads itself when it is made.
  ListedSession(Workspace& workspace, const ListedForm& form);
  virtual ~ListedSession() = default;
  ListedSession(const ListedSession&) = delete;
  ListedSession& operator=(const ListedSession&) = delete;

  /// Shows the table of the workspace as a window just opened: first sample, scroll bars at 0, no unsaved change.
  void load();
  /// No sample is there yet: typing begins in the first line.
  bool isEmpty() const;

  const ListedForm& form() const { return m_form; }
  ListedState listedState() const;
  /// Counts the showings of a sample; a canvas that has drawn this number is up to date.
  std::uint64_t pictureNumber() const { return m_pictureNumber; }
  /// Row of the sample tables that is on display, 0 to 1000.
  std::size_t sampleRow() const { return m_list.row(); }

  // The list
  /// A person goes to a cell of the list: its sample comes on display.
  void selectNumber(int cell);
  /// The chosen line stays, so another sample comes on display.
  void scrollList(int top);
  /// A key in the chosen cell. True when it was one that leaves the cell; otherwise it belongs to the text.
  bool keyInList(CellKey key, CursorPlace cursor);

  // The readings
  void selectReading(int cell);
  /// The chosen cell stays where it is on display.
  void scrollReadings(int top);
  bool keyInReadings(CellKey key, CursorPlace cursor);
  /// The readings as a spreadsheet takes them: a line of heads, then all rows down to the last with a value, cells
  /// parted by tabs; UTF-8.
  std::string tableText() const;

  // Typing
  /// The input now holds this text (UTF-8). What GBK doesn't have and control characters are not taken, nor what is
  /// beyond the field's width; the state tells what was taken. Every change goes into the record at once, and is seen
  /// in the chart when that is drawn anew.
  void edit(ListedInput input, std::string_view utf8);
  /// Bytes of GBK that the input takes.
  std::size_t width(ListedInput input) const { return fieldOf(input).width; }
  /// The typing is at an end: the input shows the stored text again.
  void finishTyping() { m_typing.finish(); }

  // Unsaved changes
  bool isChanged() const { return m_changed; }
  /// Also when another window has changed samples.
  void markChanged() { m_changed = true; }
  /// A save went well.
  virtual void markSaved();

 protected:
  // What the test has of its own.

  /// Project or sample number of a row of the table.
  virtual EditableField listField(std::size_t row, bool isProject) const = 0;
  /// A reading of the sample on display, and what its label shows.
  virtual EditableField readingField(std::size_t row, std::size_t column) const = 0;
  virtual std::string readingText(std::size_t row, std::size_t column) const = 0;
  virtual int ownFieldCount() const { return 0; }
  virtual EditableField ownField(int index) const;
  /// A window has just been opened; the first sample is shown next.
  virtual void begin() {}
  /// A sample has come on display, or is to be drawn anew.
  virtual void takePicture() = 0;
  /// Somebody works on the chart: until that is over the sample stays.
  virtual bool isHeld() const { return false; }

  Workspace& workspace() const { return m_workspace; }
  /// Draws the sample on display anew.
  void showSample();
  /// What is drawn over the sample has changed, the sample hasn't.
  void pictureChanged() { ++m_pictureNumber; }

 private:
  EditableField fieldOf(ListedInput input) const;
  std::string inputText(ListedInput input) const;
  CellBlockState listState() const;
  CellBlockState readingsState() const;

  Workspace& m_workspace;
  ListedForm m_form;
  DocumentFields m_document;
  SampleList m_list{{.lines = kListedLines}};
  ReadingGrid m_readings;
  Typing<ListedInput> m_typing;
  bool m_changed = false;
  std::uint64_t m_pictureNumber = 0;
};

}  // namespace triaxlab
