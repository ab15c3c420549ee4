#include "importers/unconfined_import.h"

#include <optional>

namespace triaxlab {
namespace {

void clearSide(UnconfinedSampleRecord& row, Specimen specimen) {
  stressOf(row, specimen) = {};
  strainOf(row, specimen) = {};
  readingOf(row, specimen) = {};
}

/// What a reading leaves as a first stress: the load of the ring over the area that the specimen has at the beginning,
/// kPa; the reduction corrects it. Nothing where it isn't above 0.
class FirstStress {
 public:
  FirstStress(const UnconfinedSampleRecord& row, Specimen specimen)
      : m_ringCoefficient(row.ringCoefficient[indexOf(specimen)]),
        m_area(row.sampleArea[indexOf(specimen)].number()),
        m_hasSize(m_area != 0 && row.sampleHeight[indexOf(specimen)].number() != 0) {}

  std::optional<double> of(double divisions) const {
    constexpr double kKpaOfNewtonsPerCm2 = 10;
    if (!m_hasSize) return std::nullopt;
    const double stress = divisions * m_ringCoefficient / 1000 * kKpaOfNewtonsPerCm2 / m_area;
    return stress > 0 ? std::optional(stress) : std::nullopt;
  }

 private:
  double m_ringCoefficient, m_area;
  bool m_hasSize;
};

UnconfinedColumn evenStrains(double step) {
  UnconfinedColumn strains;
  for (std::size_t i = 0; i < strains.size(); ++i)
    SetNumber(strains[i], static_cast<double>(i + 1) * step, NumberFormat::Tenths);
  return strains;
}

}  // namespace

const UnconfinedColumn& strainsEachPercent() {
  static const UnconfinedColumn kStrains = evenStrains(1);
  return kStrains;
}

const UnconfinedColumn& strainsEachHalfPercent() {
  static const UnconfinedColumn kStrains = evenStrains(0.5);
  return kStrains;
}

void fillSide(UnconfinedSampleRecord& row, Specimen specimen, const RawUnconfinedSide& raw) {
  clearSide(row, specimen);
  SetNumber(row.sampleHeight[indexOf(specimen)], raw.height, NumberFormat::Hundredths);
  SetNumber(row.sampleArea[indexOf(specimen)], raw.area, NumberFormat::Hundredths);
  row.ringCoefficient[indexOf(specimen)] = raw.ringCoefficient;
  const FirstStress firstStress(row, specimen);
  for (std::size_t i = 0; i < raw.reading.size(); ++i) {
    if (raw.reading[i] == kNoReading) continue;
    const double divisions = raw.reading[i] / 10.0;
    SetNumber(readingOf(row, specimen)[i], divisions, NumberFormat::Tenths);
    strainOf(row, specimen)[i] = raw.strain[i];
    if (const std::optional<double> stress = firstStress.of(divisions))
      SetNumber(stressOf(row, specimen)[i], *stress, NumberFormat::Tenths);
  }
}

}  // namespace triaxlab
