#include "triaxial/envelope.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "common/angles.h"
#include "common/conversions.h"
#include "common/straight_line.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

/// One of the two envelopes as the record keeps it.
template <std::size_t RadiusWidth>
struct EnvelopeFields {
  const PerStage<FixedText<5>>& centre;
  const PerStage<FixedText<RadiusWidth>>& radius;
  Little<float>& angle;
  Little<std::int16_t>& tenths;
  FixedText<9>& text;
};

EnvelopeFields<5> totalFields(TriaxialSampleRecord& record) {
  return {record.failureCentre, record.failureRadius, record.frictionAngle, record.cohesionTenths, record.cohesionText};
}
EnvelopeFields<4> effectiveFields(TriaxialSampleRecord& record) {
  return {record.failureCentreEff, record.failureRadiusEff, record.frictionAngleEff, record.cohesionEffTenths,
          record.cohesionEffText};
}

/// The line under which the circles lie: its slope is a regression of radius on centre, its height that of the largest
/// centre and the largest radius, each taken on its own. `count` is the number of failed stages, the sums run over the
/// stages under pressure; the two differ when a stage of negative pressure failed.
/// No value when the circles have one centre or the radius grows as fast as the centre.
template <std::size_t N>
std::optional<Envelope> fit(const TriaxialSampleRecord& record, const EnvelopeFields<N>& fields, int count) {
  LineSums<double> sums;
  double maxP = 0, maxQ = 0;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    if (!(record.cellPressure[stage].number() > 0)) continue;
    const double p = fields.centre[stage].number(), q = fields.radius[stage].number();
    sums.add(p, q);
    maxP = std::max(maxP, p);
    maxQ = std::max(maxQ, q);
  }
  const auto a = fittedSlope(sums, count);
  if (!a) return std::nullopt;
  const auto tanSquared = quotient(*a * *a, 1 - *a * *a);
  if (!tanSquared || *tanSquared < 0) return std::nullopt;
  const double tanPhi = std::sqrt(*tanSquared);
  const double phi = std::atan(tanPhi);
  return Envelope{tanPhi, (maxQ - maxP * std::sin(phi)) / std::cos(phi), true};
}

template <std::size_t N>
void store(const EnvelopeFields<N>& fields, const Envelope& envelope, NumberFormat cohesionFormat) {
  fields.angle = static_cast<float>(degreesOfTangent(envelope.tanPhi));
  assignIf(fields.tenths, toInt16(Int(envelope.cohesion * 10)));
  SetNumber(fields.text, envelope.cohesion, cohesionFormat);
}

template <std::size_t N>
Envelope readBack(const EnvelopeFields<N>& fields) {
  return {tangentOfDegrees(fields.angle), fields.text.number(), true};
}

template <std::size_t N>
Envelope envelopeOfPage(const TriaxialSampleRecord& record, const EnvelopeFields<N>& fields,
                        NumberFormat cohesionFormat) {
  if (record.adjustedFlag == 1) return readBack(fields);
  const auto failed = [](const FixedText<N>& radius) { return radius.number() != 0; };
  const auto count = std::count_if(fields.radius.begin(), fields.radius.end(), failed);
  if (count < 2) return {};
  const auto fitted = fit(record, fields, static_cast<int>(count));
  if (!fitted) return fields.text.isBlank() ? Envelope{} : readBack(fields);
  store(fields, *fitted, cohesionFormat);
  return *fitted;
}

}  // namespace

void fitTotalEnvelope(TriaxialSampleRecord& record, int failedStages, NumberFormat cohesionFormat) {
  const auto fields = totalFields(record);
  if (const auto fitted = fit(record, fields, failedStages)) store(fields, *fitted, cohesionFormat);
}

Envelopes envelopesOfPage(TriaxialSampleRecord& record, NumberFormat cohesionFormat) {
  Envelopes found;
  found.total = envelopeOfPage(record, totalFields(record), cohesionFormat);
  if (record.testMethod == kCU) found.effective = envelopeOfPage(record, effectiveFields(record), cohesionFormat);
  return found;
}

void storeAdjustedEnvelopes(TriaxialSampleRecord& record, const Envelopes& envelopes, NumberFormat cohesionFormat) {
  record.adjustedFlag = 1;
  store(totalFields(record), envelopes.total, cohesionFormat);
  if (record.testMethod == kCU) store(effectiveFields(record), envelopes.effective, cohesionFormat);
}

}  // namespace triaxlab
