#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/dialogs.h"
#include "sessions/line_keys.h"
#include "sessions/working_copy.h"
#include "triaxial/charts/curve_chart.h"
#include "triaxial/record.h"

namespace triaxlab {

/// 干预 on the stress-strain page: a stage's curve is slid by keys, multiplied, added to, or drawn with the mouse.
class CurvePhase {
 public:
  explicit CurvePhase(const TriaxialSampleRecord& sample);

  // What all phases have. The edits return whether the picture has changed.
  bool key(ArrowKey key);
  bool undo();
  bool redo();
  void show(ChartOptions& options, PageResults& results) const;
  void accept(TriaxialSampleRecord& record, NumberFormat cohesionFormat) const;
  /// The sample as it was when the phase began, with whatever has been typed since.
  void drop(TriaxialSampleRecord& record) const { record = m_sampleBackup; }

  bool isUsed(std::size_t stage) const;
  std::size_t selectedStage() const { return m_work->selectedStage; }
  /// P1 to P5; an unused stage is not selected.
  bool selectStage(std::size_t stage);

  /// What the boxes beside 所有数据乘以值： and 所有数据加值： hold, UTF-8.
  std::string factor = "1", summand = "0";
  /// A value that makes no sense is refused with a message.
  bool multiply(Dialogs& dialogs);
  bool add(Dialogs& dialogs);

  /// Where the mouse stands, as values of the axes; as it last stood in the plot.
  const std::string& readout() const { return m_readout; }
  /// The mouse stands at a place of the canvas (twips); with the button down the curve is drawn there. Outside the plot
  /// nothing happens.
  bool mouseAt(Point place, bool buttonDown);
  /// The button was let go: what was drawn since it went down is one step to undo.
  void endStroke() { m_strokeGoesOn = false; }

  /// A save has put the specimens into another order or has added some: each curve follows its specimen, and the sample
  /// as it is now is what a dropped phase goes back to. Undo begins anew, for its steps speak of the old order.
  bool rearrange(const TriaxialSampleRecord& saved);

 private:
  TriaxialSampleRecord m_sampleBackup;
  WorkingCopy<CurveAdjustment> m_work;
  std::string m_readout;
  bool m_strokeGoesOn = false;
};

}  // namespace triaxlab
