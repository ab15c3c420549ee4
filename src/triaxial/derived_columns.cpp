#include "triaxial/derived_columns.h"

#include <optional>

#include "common/conversions.h"

namespace triaxlab {
namespace {

std::string stored(const FixedText<6>& text) { return text.number() != 0 ? std::string(text.trimmed()) : ""; }

std::string whole(double value) { return FormatNumber(value, NumberFormat::Whole); }

std::string wholeOrNone(std::optional<std::int16_t> value) { return value ? whole(*value) : ""; }

std::string effectiveText(const ShearReading& reading, DerivedColumn column) {
  const double sigma1 = reading.sigma1Eff.number(), sigma3 = reading.sigma3Eff.number();
  if (sigma1 == 0 || sigma3 == 0) return {};
  if (column == DerivedColumn::HalfDifferenceEff) return wholeOrNone(toInt16((sigma1 - sigma3) / 2));
  if (column == DerivedColumn::HalfSumEff) return whole((sigma1 + sigma3) / 2);
  return FormatNumber(sigma1 / sigma3, NumberFormat::Thousandths);
}

std::string totalText(double sigma3, double q, DerivedColumn column) {
  if (sigma3 == 0) return {};
  if (column == DerivedColumn::Sigma1) return wholeOrNone(toInt16(Int(sigma3 + q)));
  return whole((2 * sigma3 + q) / 2);
}

}  // namespace

ShearReading shearReadingOf(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row) {
  return {record.deviatorStress[row][stage], record.porePressure[row][stage], record.sigma1Eff[row][stage],
          record.sigma3Eff[row][stage],      record.axialStrain[row][stage],  record.volumeChange[row][stage]};
}

std::string derivedText(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row, DerivedColumn column) {
  return derivedText(shearReadingOf(record, stage, row), record.cellPressure[stage].number(), column);
}

std::string derivedText(const ShearReading& reading, double cellPressure, DerivedColumn column) {
  const double q = reading.deviatorStress.number();
  if (q == 0) return {};
  switch (column) {
    case DerivedColumn::Strain:
      return reading.axialStrain != 0 ? FormatNumber(reading.axialStrain, NumberFormat::Hundredths) : "";
    case DerivedColumn::VolumeChange:
      return reading.volumeChange != 0 ? FormatNumber(reading.volumeChange / 100.0, NumberFormat::Hundredths) : "";
    case DerivedColumn::DeviatorStress:
      return stored(reading.deviatorStress);
    case DerivedColumn::PorePressure:
      return stored(reading.porePressure);
    case DerivedColumn::Sigma1Eff:
      return stored(reading.sigma1Eff);
    case DerivedColumn::Sigma3Eff:
      return stored(reading.sigma3Eff);
    case DerivedColumn::HalfDifference:
      return whole(q / 2);
    case DerivedColumn::Sigma1:
    case DerivedColumn::HalfSum:
      return totalText(cellPressure, q, column);
    case DerivedColumn::HalfDifferenceEff:
    case DerivedColumn::HalfSumEff:
    case DerivedColumn::RatioEff:
      return effectiveText(reading, column);
  }
  return {};
}

}  // namespace triaxlab
