#include "importers/unconfined_import.h"

#include <optional>

#include "common/conversions.h"

namespace triaxlab {
namespace {

void clearSide(UnconfinedSampleRecord& row, Specimen specimen) {
  stressOf(row, specimen) = {};
  strainOf(row, specimen) = {};
  readingOf(row, specimen) = {};
}

/// The load of the ring over the area that the specimen has at the beginning, kPa; the reduction corrects it. Nothing
/// where it isn't above 0.
std::optional<double> firstStress(const UnconfinedSampleRecord& row, Specimen specimen, double divisions) {
  constexpr double kKpaOfNewtonsPerCm2 = 10;
  const std::size_t side = indexOf(specimen);
  if (row.sampleHeight[side].number() == 0) return std::nullopt;
  const double load = divisions * row.ringCoefficient[side] / 1000;
  const std::optional<double> stress = quotient(load * kKpaOfNewtonsPerCm2, row.sampleArea[side].number());
  return stress && *stress > 0 ? stress : std::nullopt;
}

}  // namespace

void fillSide(UnconfinedSampleRecord& row, Specimen specimen, const RawUnconfinedSide& raw) {
  clearSide(row, specimen);
  SetNumber(row.sampleHeight[indexOf(specimen)], raw.height, NumberFormat::Hundredths);
  SetNumber(row.sampleArea[indexOf(specimen)], raw.area, NumberFormat::Hundredths);
  row.ringCoefficient[indexOf(specimen)] = raw.ringCoefficient;
  for (std::size_t i = 0; i < raw.reading.size(); ++i) {
    if (raw.reading[i] == kNoReading) continue;
    const double divisions = raw.reading[i] / 10.0;
    SetNumber(readingOf(row, specimen)[i], divisions, NumberFormat::Tenths);
    SetNumber(strainOf(row, specimen)[i], static_cast<double>(i + 1) * raw.strainStep, NumberFormat::Tenths);
    if (const std::optional<double> stress = firstStress(row, specimen, divisions))
      SetNumber(stressOf(row, specimen)[i], *stress, NumberFormat::Tenths);
  }
}

}  // namespace triaxlab
