#pragma once

#include <string>
#include <string_view>

#include "triaxial/opening_pass.h"
#include "triaxial/record.h"

namespace triaxlab::tests {

/// A live sample without stages.
inline TriaxialSampleRecord sampleOf(TestMethod method, std::uint8_t shearMode = 1) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, "P1");
  SetText(record.sampleNo, "T1");
  record.testMethod = method;
  record.shearMode = shearMode;
  return record;
}

/// One reading as its texts stand in the record.
inline void setRow(TriaxialSampleRecord& record, std::size_t stage, std::size_t row, float strain, std::string_view q,
                   std::string_view u = "") {
  record.axialStrain[row][stage] = strain;
  SetText(record.deviatorStress[row][stage], q);
  SetText(record.porePressure[row][stage], u);
}

inline void setStage(TriaxialSampleRecord& record, std::size_t stage, std::string_view cellPressure) {
  SetText(record.cellPressure[stage], cellPressure);
}

inline void open(TriaxialSampleRecord& record, NumberFormat cohesionFormat = NumberFormat::Whole) {
  runOpeningPass({&record, 1}, cohesionFormat);
}

/// A field as a person reads it.
template <std::size_t N>
std::string text(const FixedText<N>& field) {
  return std::string(field.trimmed());
}

}  // namespace triaxlab::tests
