#include "sessions/triaxial/envelope_phase.h"

namespace triaxlab {
namespace {

Envelopes withLines(Envelopes envelopes) {
  envelopes.total.exists = envelopes.effective.exists = true;
  return envelopes;
}

}  // namespace

EnvelopePhase::EnvelopePhase(const TriaxialSampleRecord& sample, const Envelopes& shown)
    : m_work(withLines(shown)), m_hasChoice(sample.testMethod == kCU) {}

bool EnvelopePhase::key(ArrowKey key, double cohesionStep) {
  return m_work.change([&](Envelopes& work) {
    Envelope& line = m_movesEffective ? work.effective : work.total;
    moveLine(line.cohesion, line.tanPhi, key, cohesionStep);
  });
}

void EnvelopePhase::show(ChartOptions& options, PageResults& results) const {
  options.movedLine = m_movesEffective ? MovedLine::EffectiveEnvelope : MovedLine::TotalEnvelope;
  results.envelopes = *m_work;
}

void EnvelopePhase::accept(TriaxialSampleRecord& record, NumberFormat cohesionFormat) const {
  storeAdjustedEnvelopes(record, *m_work, cohesionFormat);
}

bool EnvelopePhase::chooseEffective(bool effective) {
  if (!m_hasChoice || effective == m_movesEffective) return false;
  m_movesEffective = effective;
  return true;
}

}  // namespace triaxlab
