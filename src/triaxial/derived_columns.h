#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "triaxial/record.h"

namespace triaxlab {

/// What the tables of readings show beside each other; none but the stored columns are kept in the record.
enum class DerivedColumn : std::uint8_t {
  Strain,             // εi, %
  DeviatorStress,     // σ1-σ3, kPa, as stored
  Sigma1,             // σ1, kPa
  HalfSum,            // (σ1+σ3)/2, kPa
  HalfDifference,     // (σ1-σ3)/2, kPa
  PorePressure,       // u, kPa, as stored
  VolumeChange,       // ΔVi, ml
  Sigma1Eff,          // σ1′, kPa, as stored
  Sigma3Eff,          // σ3′, kPa, as stored
  HalfDifferenceEff,  // (σ1′-σ3′)/2, kPa
  HalfSumEff,         // (σ1′+σ3′)/2, kPa
  RatioEff,           // σ1′/σ3′
};

/// A row of the shear phase, as a record holds it.
struct ShearReading {
  FixedText<6> deviatorStress, porePressure, sigma1Eff, sigma3Eff;  // kPa
  float axialStrain = 0;                                            // %
  std::int16_t volumeChange = 0;                                    // 0.01 ml
};
ShearReading shearReadingOf(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row);

/// The column's text (GBK) of a reading under a cell pressure, kPa. Empty when the row has no stress, when one of the
/// values that go into the column reads as 0, and when the result does not fit the 16-bit integer through which two of
/// the columns pass.
std::string derivedText(const ShearReading& reading, double cellPressure, DerivedColumn column);
/// The same in a row of a stage.
std::string derivedText(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row, DerivedColumn column);

}  // namespace triaxlab
