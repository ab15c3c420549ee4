#include "triaxial/stress_path.h"

#include "common/conversions.h"

namespace triaxlab {
namespace {

/// Least squares through the effective failure points; 0 and 0 when they are fewer than two or lie above each other.
PathLine fit(const TriaxialSampleRecord& record) {
  LineSums<double> sums;
  int count = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double radius = record.failureRadiusEff[stage].number();
    if (radius == 0) continue;
    sums.add(record.failureCentreEff[stage].number(), radius);
    ++count;
  }
  return fittedLine(sums, count).value_or(PathLine{});
}

void store(TriaxialSampleRecord& record, const PathLine& line) {
  assignIf(record.pathSlope, toSingle(line.slope));
  assignIf(record.pathIntercept, toSingle(line.intercept));
}

}  // namespace

PathLine stressPathOfPage(TriaxialSampleRecord& record) {
  if (record.testMethod != kCU) return {};
  if (record.pathAdjustedFlag == 1) return {record.pathSlope, record.pathIntercept};
  const PathLine fitted = fit(record);
  store(record, fitted);
  return fitted;
}

void storeAdjustedPath(TriaxialSampleRecord& record, const PathLine& line) {
  record.pathAdjustedFlag = 1;
  store(record, line);
}

}  // namespace triaxlab
