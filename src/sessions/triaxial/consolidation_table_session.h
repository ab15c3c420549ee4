#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sessions/triaxial/stage_table_session.h"
#include "triaxial/charts/table_chart.h"

namespace triaxlab {

inline constexpr const char* kConsolidationTableCaption = "固  结  数  据  表";
/// The cells of the window, row by row.
inline constexpr int kConsolidationCells = static_cast<int>(kTableRowsShown * kConsolidationColumns);

/// Everything that Form7 shows.
struct ConsolidationTableState {
  StageTableState stage;
  std::optional<ConsolidationTable> table;
  std::optional<int> openCell;    // counted row by row
  std::string cellText;           // what is typed there
  std::string startPorePressure;  // 起始孔压, kPa
  bool editable = false;
  bool operator==(const ConsolidationTableState&) const = default;
};

/// Form7: the consolidation readings of a stage, which can be corrected while the curve window is there to ask about
/// them when it closes.
class ConsolidationTableSession : public StageTableSession {
 public:
  ConsolidationTableSession(Workspace& workspace, std::size_t sampleRow);

  /// Opens for a row. What is typed is dropped: the sample for which it was typed may be gone.
  void load(std::size_t sampleRow);
  void chooseStage(int entry);
  void scroll(int top);
  void setEditable(bool editable);

  /// A click on a cell: it is opened. What was typed in another is stored. 序号 opens nothing.
  void selectCell(int cell);
  /// Up and Down in the open cell: stores, and goes to the reading above or below, scrolling where the window ends.
  void moveCell(int rows);
  static constexpr std::size_t kNumberWidth = 10;  // bytes that the boxes take
  /// The open cell now holds this text (UTF-8); it is stored when the cell is left.
  void typeCell(std::string_view utf8);
  /// The start pore pressure now holds this text (UTF-8), which is stored at once.
  void typeStartPorePressure(std::string_view utf8);
  /// Its typing is at an end: it shows what is stored.
  void finishStartPorePressure() { m_typedStart.reset(); }
  /// The same, and the open cell is stored and closed.
  void finishTyping();
  /// Closes the cell as if nothing had been typed.
  void dropTyping() { m_open.reset(); }

  ConsolidationTableState state() const;
  /// Whether the record has changed since this was last asked.
  bool takeChange();

 private:
  struct OpenCell {
    std::size_t stage, row;
    ConsolidationColumn column;
    std::string before, text;  // UTF-8; as it was opened, as it stands
  };

  /// The start pore pressure while it is typed in.
  struct TypedStart {
    std::int16_t before;  // what the record held; it holds it again while the text is no number that it can
    std::string text;     // UTF-8
  };

  void open(std::size_t row, ConsolidationColumn column);
  int labelOf(const OpenCell& cell) const;

  bool m_editable = false;
  std::optional<OpenCell> m_open;
  std::optional<TypedStart> m_typedStart;
  bool m_changed = false;
};

}  // namespace triaxlab
