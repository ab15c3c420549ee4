#include "triaxial/stress_path.h"

#include "common/conversions.h"

namespace triaxlab {
namespace {

/// Least squares through the effective failure points; 0 and 0 when they are fewer than two or lie above each other.
PathLine fit(const TriaxialSampleRecord& record) {
  double n = 0, sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double x = record.failureCentreEff[stage].number(), y = record.failureRadiusEff[stage].number();
    if (y == 0) continue;
    n += 1;
    sumX += x;
    sumY += y;
    sumXX += x * x;
    sumXY += x * y;
  }
  const auto slope = quotient(sumY * sumX - sumXY * n, sumX * sumX - n * sumXX);
  if (!slope) return {};
  return {*slope, sumY / n - *slope * sumX / n};
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
