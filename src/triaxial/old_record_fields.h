#pragma once

#include <tuple>

#include "common/record_fields.h"
#include "triaxial/old_record.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<OldTriaxialRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(OldTriaxialRecord, sampleAndSpecimens, "", "today's first fields, projectNo to sigma3FailureEff"),
      TRIAXLAB_FIELD(OldTriaxialRecord, deviatorStress, "kPa", "σ1 - σ3"),
      TRIAXLAB_FIELD(OldTriaxialRecord, sigma1Eff, "kPa", "σ1′"),
      TRIAXLAB_FIELD(OldTriaxialRecord, sigma3Eff, "kPa", "σ3′"),
      TRIAXLAB_FIELD(OldTriaxialRecord, porePressure, "kPa", "u"),
      TRIAXLAB_FIELD(OldTriaxialRecord, consolidationPorePressure, "0.1 kPa", "pore pressure in consolidation"),
      TRIAXLAB_FIELD(OldTriaxialRecord, consolidationVolume, "0.01 ml", "water drained until then"),
      TRIAXLAB_FIELD(OldTriaxialRecord, volumeChange, "0.01 ml", "ΔVi in shear"),
      TRIAXLAB_FIELD(OldTriaxialRecord, axialStrain, "0.1 %", "ε1"),
      TRIAXLAB_FIELD(OldTriaxialRecord, flagsAndCoefficients, "", "today's adjustedFlag to coefficientAf"),
  };
}
static_assert(tiles<OldTriaxialRecord>(5966));

}  // namespace triaxlab
