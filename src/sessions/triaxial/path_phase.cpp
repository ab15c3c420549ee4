#include "sessions/triaxial/path_phase.h"

namespace triaxlab {
namespace {

constexpr double kInterceptAStep = 1;  // kPa

}  // namespace

bool PathPhase::key(ArrowKey key) {
  return m_work.change([key](PathLine& line) { moveLine(line.intercept, line.slope, key, kInterceptAStep); });
}

void PathPhase::show(ChartOptions& options, PageResults& results) const {
  options.movedLine = MovedLine::StressPath;
  results.pathLine = *m_work;
}

void PathPhase::accept(TriaxialSampleRecord& record, NumberFormat /*cohesionFormat*/) const {
  storeAdjustedPath(record, *m_work);
}

}  // namespace triaxlab
