#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "store/workspace.h"
#include "triaxial/failure.h"
#include "triaxial/reading_tables.h"

namespace triaxlab {

/// The list of stages and the scroll bar of a table window, UTF-8.
struct StageTableState {
  std::vector<std::string> stages;   // the used ones
  std::optional<std::size_t> entry;  // which of them; nothing is shown without one
  int top = 0, scrollMax = 0;        // the first reading shown and the last that can be
  bool operator==(const StageTableState&) const = default;
};

/// What the two windows of readings have in common: the row of the sample tables that they were opened for, the stage,
/// and the first reading shown. They keep the row while the curve window goes on to other samples; all else is read
/// from the record at each showing, so that what is on display is what is stored.
class StageTableSession {
 public:
  std::size_t sampleRow() const { return m_row; }
  /// An entry of the list. What is no entry is passed over.
  void chooseStage(int entry);
  /// Held within the range.
  void scroll(int top);
  /// Another window may have changed the record, or how the failure row is looked for; only CU has the row of the
  /// largest stress ratio. Where a save has put the specimens in another order the pressure on display stays.
  void followRecord(FailureMode mode);

  /// Second and third panel of the status bar.
  std::array<std::string, 2> statusPanels() const;

 protected:
  /// The workspace outlives the session.
  explicit StageTableSession(Workspace& workspace) : m_workspace(workspace) {}
  ~StageTableSession() = default;

  /// Opens for a row, with its first used stage from the first reading on.
  void load(std::size_t sampleRow, int scrollMax);

  TriaxialSampleRecord& record() const;
  /// The stage on display: the chosen one, which shows nothing while its cell pressure is taken away, or the first one
  /// used of a sample that had none when it was opened.
  std::optional<std::size_t> stage() const;
  std::size_t top() const;
  StageTableState stageState() const;
  TableHeading heading(std::size_t stage) const;
  TableFoot foot(std::size_t stage) const;

  Workspace& m_workspace;

 private:
  std::vector<std::size_t> usedStages() const;

  using Pressures = PerStage<FixedText<6>>;
  std::size_t m_row = 0;
  Pressures m_pressures;  // of the record when it was last looked at
  std::optional<std::size_t> m_chosen;
  int m_top = 0, m_scrollMax = 0;
  FailureMode m_failureMode = FailureMode::PeakStress;
};

}  // namespace triaxlab
