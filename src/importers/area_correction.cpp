#include "importers/area_correction.h"

namespace triaxlab {

double strainOfEarlierStages(const TriaxialSampleRecord& row, std::size_t stage) {
  double strain = 0;
  for (std::size_t earlier = 0; earlier < stage; ++earlier) {
    std::size_t rows = 1;
    while (rows < kCorrectedRows && row.deviatorStress[rows][earlier].number() != 0) ++rows;
    strain += static_cast<double>(rows) * 0.002;
  }
  return strain;
}

std::optional<DrainedFactors> drainedFactors(std::int16_t initialHeight, std::int16_t initialArea,
                                             std::int16_t drainage) {
  const auto volume = static_cast<float>(initialArea / 100.0 * initialHeight / 100);
  if (volume == 0) return std::nullopt;
  return DrainedFactors{.height = static_cast<float>(1 - drainage / 100.0 / (3.0 * volume)),
                        .area = static_cast<float>(1 - 2.0 * drainage / 100 / (3.0 * volume))};
}

std::optional<double> drainedSection(double consolidatedArea, double consolidatedHeight, double drained,
                                     double strain) {
  const double volume = consolidatedArea * consolidatedHeight - drained;
  const double height = consolidatedHeight - strain * consolidatedHeight;
  if (volume == 0 || height == 0) return std::nullopt;
  return volume / height;
}

SectionCorrection::SectionCorrection(const TriaxialSampleRecord& record, std::size_t slot, DrainedForm form,
                                     std::uint8_t shearMode, const RowStrains& strains)
    : m_method(record.testMethod),
      m_zeroStays(form == DrainedForm::CommonSet),
      m_initialArea(record.initialArea[slot].number()),
      m_consolidatedArea(record.consolidatedArea[slot].number()),
      m_height(record.consolidatedHeight[slot].number()),
      m_drainedNumerator(m_initialArea),
      m_strains(strains) {
  if (form == DrainedForm::OnInitialArea) return;
  if (shearMode == 2)
    m_height /= 100;
  else
    m_drainedNumerator = m_consolidatedArea;
}

double SectionCorrection::stress(double reading, std::size_t row, std::int16_t volume) const {
  if (reading == 0 || row >= kCorrectedRows) return reading;
  const double strain = m_strains.of(row);
  const auto unlessZero = [reading](double stress) { return stress != 0 ? stress : reading; };
  switch (m_method) {
    case kUU:
      return unlessZero(reading * (1 - strain));
    case kCU:
      if (m_consolidatedArea == 0) return reading;
      return unlessZero(reading * (1 - strain) * m_initialArea / m_consolidatedArea);
    case kCD: {
      const auto section = drainedSection(m_consolidatedArea, m_height, drainedVolume(volume), strain);
      if (!section) return reading;
      const double stress = reading * m_drainedNumerator / *section;
      return m_zeroStays ? unlessZero(stress) : stress;
    }
    default:
      return reading;
  }
}

}  // namespace triaxlab
