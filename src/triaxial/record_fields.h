#pragma once

#include <tuple>

#include "common/record_fields.h"
#include "triaxial/record.h"

namespace triaxlab {

constexpr auto fieldsOf(RecordTag<TriaxialSampleRecord> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(TriaxialSampleRecord, projectNo, "", "工程编号, project number; blank in an empty slot"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, sampleNo, "", "试样编号, sample number; blank in an empty slot"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, uuAdjustFlag, "",
                     "acts with a shearMode of 2 only; End in the curve window turns it over"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, recordCodeA, "", "carried along from the automatic source"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, recordCodeB, "", "carried along from the automatic source"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, testMethod, "", "1 UU, 2 CU, 3 CD"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, shearMode, "",
                     "2 or 3: one specimen in several stages; else a specimen for each stage"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, shearRate, "1/1000 %/min", "shear rate"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionTenths, "0.1 kPa", "total-stress cohesion"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, frictionAngle, "degrees", "total-stress friction angle"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionEffTenths, "0.1 kPa", "effective-stress cohesion"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, frictionAngleEff, "degrees", "effective-stress friction angle"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, cellPressure, "kPa", "σ3; reads 0 in an unused stage"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, initialHeight, "cm", "h0, before consolidation"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, consolidatedHeight, "cm", "h1, after consolidation"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, initialArea, "cm²", "A0, before consolidation"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, consolidatedArea, "cm²", "Ac, after consolidation"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, failureRadius, "kPa", "R = (σ1 - σ3) / 2 at failure"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, density, "", "密度, density as typed"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, failureRadiusEff, "kPa",
                     "R′ = (σ1′ - σ3′) / 2 at failure, CU only; a place narrower than R"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, failureCentre, "kPa", "⊙ = (σ1 + σ3) / 2 at failure"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, failureCentreEff, "kPa", "⊙′ = (σ1′ + σ3′) / 2 at failure, CU only"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, soilName, "", "土样名称, name of the soil as typed"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, failureStrainLimit, "0.1 %",
                     "strain up to which failure is looked for: 35 to 220, any other value counts as 150"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationDrainage, "ml", "ΔV, water drained in consolidation"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, ringCoefficient, "N/0.01mm", "测力计系数, coefficient of the load ring"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, sigma1Failure, "kPa", "σ1f"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, sigma1FailureEff, "kPa", "σ1f′, CU only"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, sigma3FailureEff, "kPa", "σ3f′, CU only"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, deviatorStress, "kPa", "σ1 - σ3; a row that reads 0 is empty"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, sigma1Eff, "kPa", "σ1′, CU only"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, sigma3Eff, "kPa", "σ3′, CU only"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, porePressure, "kPa", "u; blank when the source has none"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationTime, "s", "time since the consolidation began"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationPorePressure, "0.1 kPa",
                     "pore pressure in consolidation; row 0 is the one at its start"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, consolidationVolume, "0.01 ml", "water drained until then"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, volumeChange, "0.01 ml", "ΔVi in shear"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, axialStrain, "%", "ε1; a row that isn't above 0.0001 is empty"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, adjustedFlag, "",
                     "1: c and φ were set by hand, and the envelope isn't fitted any more"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, pathAdjustedFlag, "", "1: the line of the stress path was set by hand"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, pathSlope, "", "slope of that line"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, pathIntercept, "kPa", "intercept of that line"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, coefficientB, "", "pore pressure coefficient B"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, coefficientAf, "", "pore pressure coefficient Af at failure"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, testDate, "", "试验日期, day of the test"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionText, "kPa", "total-stress c as shown"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, cohesionEffText, "kPa", "effective-stress c′ as shown"),
      TRIAXLAB_FIELD(TriaxialSampleRecord, reserved, "", "kept blank: room for later versions"),
  };
}
static_assert(tiles<TriaxialSampleRecord>(38576));

}  // namespace triaxlab
