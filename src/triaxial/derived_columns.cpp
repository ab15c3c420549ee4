#include "triaxial/derived_columns.h"

#include <optional>

#include "common/conversions.h"

namespace triaxlab {
namespace {

/// The values of a row that the columns are made of, and the texts of those that are shown as they are stored.
struct Row {
  const FixedText<6>& deviatorStress;
  const FixedText<6>& porePressure;
  const FixedText<6>& sigma1Eff;
  const FixedText<6>& sigma3Eff;
  double sigma3, q;
};

std::string stored(const FixedText<6>& text) { return text.number() != 0 ? std::string(text.trimmed()) : ""; }

std::string whole(double value) { return FormatNumber(value, NumberFormat::Whole); }

std::string wholeOrNone(std::optional<std::int16_t> value) { return value ? whole(*value) : ""; }

std::string effectiveText(const Row& row, DerivedColumn column) {
  const double sigma1 = row.sigma1Eff.number(), sigma3 = row.sigma3Eff.number();
  if (sigma1 == 0 || sigma3 == 0) return {};
  if (column == DerivedColumn::HalfDifferenceEff) return wholeOrNone(toInt16((sigma1 - sigma3) / 2));
  if (column == DerivedColumn::HalfSumEff) return whole((sigma1 + sigma3) / 2);
  return FormatNumber(sigma1 / sigma3, NumberFormat::Thousandths);
}

std::string totalText(const Row& row, DerivedColumn column) {
  if (row.sigma3 == 0) return {};
  if (column == DerivedColumn::Sigma1) return wholeOrNone(toInt16(Int(row.sigma3 + row.q)));
  return whole((2 * row.sigma3 + row.q) / 2);
}

}  // namespace

std::string derivedText(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row, DerivedColumn column) {
  const Row of{record.deviatorStress[row][stage],   record.porePressure[row][stage],
               record.sigma1Eff[row][stage],        record.sigma3Eff[row][stage],
               record.cellPressure[stage].number(), record.deviatorStress[row][stage].number()};
  if (of.q == 0) return {};
  switch (column) {
    case DerivedColumn::Strain: {
      const float strain = record.axialStrain[row][stage];
      return strain != 0 ? FormatNumber(strain, NumberFormat::Hundredths) : "";
    }
    case DerivedColumn::VolumeChange: {
      const std::int16_t hundredths = record.volumeChange[row][stage];
      return hundredths != 0 ? FormatNumber(hundredths / 100.0, NumberFormat::Hundredths) : "";
    }
    case DerivedColumn::DeviatorStress:
      return stored(of.deviatorStress);
    case DerivedColumn::PorePressure:
      return stored(of.porePressure);
    case DerivedColumn::Sigma1Eff:
      return stored(of.sigma1Eff);
    case DerivedColumn::Sigma3Eff:
      return stored(of.sigma3Eff);
    case DerivedColumn::HalfDifference:
      return whole(of.q / 2);
    case DerivedColumn::Sigma1:
    case DerivedColumn::HalfSum:
      return totalText(of, column);
    case DerivedColumn::HalfDifferenceEff:
    case DerivedColumn::HalfSumEff:
    case DerivedColumn::RatioEff:
      return effectiveText(of, column);
  }
  return {};
}

}  // namespace triaxlab
