#pragma once

#include "sessions/line_keys.h"
#include "sessions/working_copy.h"
#include "triaxial/charts/curve_chart.h"
#include "triaxial/record.h"

namespace triaxlab {

/// 干预 on the two envelope pages: Left and Right move C, Up and Down turn the line by a tenth of a degree.
class EnvelopePhase {
 public:
  /// A sample without an envelope begins with a line of C 0 and φ 0.
  EnvelopePhase(const TriaxialSampleRecord& sample, const Envelopes& shown);

  /// `cohesionStep` in kPa.
  bool key(ArrowKey key, double cohesionStep);
  bool undo() { return m_work.undo(); }
  bool redo() { return m_work.redo(); }
  void show(ChartOptions& options, PageResults& results) const;
  void accept(TriaxialSampleRecord& record, NumberFormat cohesionFormat) const;
  void drop(TriaxialSampleRecord& /*record*/) const {}

  /// Only CU has an effective envelope to choose.
  bool hasChoice() const { return m_hasChoice; }
  bool movesEffective() const { return m_movesEffective; }
  bool chooseEffective(bool effective);

 private:
  WorkingCopy<Envelopes> m_work;
  bool m_hasChoice;
  bool m_movesEffective = false;
};

}  // namespace triaxlab
