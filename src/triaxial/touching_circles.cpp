#include "triaxial/touching_circles.h"

#include <cmath>
#include <optional>

#include "common/conversions.h"
#include "triaxial/effective_curves.h"

namespace triaxlab {
namespace {

/// The factor by which a stage's curve has to grow to reach the diameter.
std::optional<double> factorToReach(const TriaxialSampleRecord& record, std::size_t stage, double diameter) {
  double peak = 0;
  std::size_t peakRow = 0;
  for (std::size_t row = 0; row < kShearRows; ++row) {
    const double q = record.deviatorStress[row][stage].number();
    if (!(q > peak)) continue;
    peak = q;
    peakRow = row;
  }
  if (peakRow == 0) return std::nullopt;
  return quotient(diameter, peak);
}

void scaleCurve(TriaxialSampleRecord& record, std::size_t stage, double factor) {
  for (auto& row : record.deviatorStress)
    if (const double q = row[stage].number(); q > 0) SetNumber(row[stage], factor * q, NumberFormat::Tenths);
}

}  // namespace

double touchingRadius(const Envelope& envelope, double sigma3) {
  const double k = envelope.tanPhi, b = sigma3 * k + envelope.cohesion, w = std::sqrt(k * k + 1);
  const double above = b / (w - k);
  // Where the envelope lies below the axis at sigma3, a circle touches it from the other side.
  return above > 0 ? above : b / (-w - k);
}

void rescaleToEnvelope(TriaxialSampleRecord& record, const Envelope& envelope) {
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const double sigma3 = record.cellPressure[stage].number();
    if (!(sigma3 > 0)) continue;
    const double radius = touchingRadius(envelope, sigma3);
    // Without cohesion and friction there is no circle, and the readings would all be wiped out.
    if (!(radius > 0)) continue;
    if (const auto factor = factorToReach(record, stage, 2 * radius)) scaleCurve(record, stage, *factor);
  }
  storeEffectiveCurves(record);
}

}  // namespace triaxlab
