#pragma once

#include "sessions/line_keys.h"
#include "sessions/working_copy.h"
#include "triaxial/charts/curve_chart.h"
#include "triaxial/record.h"

namespace triaxlab {

/// 干预 on the stress path page: Left and Right move the line by 1 kPa, Up and Down turn it by a tenth of a degree.
class PathPhase {
 public:
  explicit PathPhase(const PathLine& shown) : m_work(shown) {}

  bool key(ArrowKey key);
  bool undo() { return m_work.undo(); }
  bool redo() { return m_work.redo(); }
  void show(ChartOptions& options, PageResults& results) const;
  void accept(TriaxialSampleRecord& record, NumberFormat cohesionFormat) const;
  void drop(TriaxialSampleRecord& /*record*/) const {}

 private:
  WorkingCopy<PathLine> m_work;
};

}  // namespace triaxlab
