#include "importers/area_correction.h"

namespace triaxlab {
namespace {

std::optional<double> unlessZero(double stress) {
  if (stress == 0) return std::nullopt;
  return stress;
}

/// The stress on the section that a specimen has at a strain, from the stress on its initial section.
class SectionCorrection {
 public:
  SectionCorrection(const TriaxialSampleRecord& record, std::size_t slot, DrainedForm form)
      : m_method(record.testMethod),
        m_zeroStays(form == DrainedForm::CommonSet),
        m_initialArea(record.initialArea[slot].number()),
        m_consolidatedArea(record.consolidatedArea[slot].number()),
        m_height(record.consolidatedHeight[slot].number()),
        m_drainedNumerator(m_initialArea) {
    if (form == DrainedForm::OnInitialArea) return;
    if (record.shearMode == 2)
      m_height /= 100;
    else
      m_drainedNumerator = m_consolidatedArea;
  }

  /// Nothing: the reading stays as it is.
  std::optional<double> operator()(double x, double strain, double drained) const {
    switch (m_method) {
      case kUU:
        return unlessZero(x * (1 - strain));
      case kCU:
        if (m_consolidatedArea == 0) return std::nullopt;
        return unlessZero(x * (1 - strain) * m_initialArea / m_consolidatedArea);
      case kCD:
        return drainedStress(x, strain, drained);
      default:
        return std::nullopt;
    }
  }

 private:
  std::optional<double> drainedStress(double x, double strain, double drained) const {
    const auto section = drainedSection(m_consolidatedArea, m_height, drained, strain);
    if (!section) return std::nullopt;
    const double stress = x * m_drainedNumerator / *section;
    return m_zeroStays ? unlessZero(stress) : stress;
  }

  std::uint8_t m_method;
  bool m_zeroStays;
  double m_initialArea, m_consolidatedArea, m_height;
  double m_drainedNumerator;  // the area above the line of a CD test
};

}  // namespace

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

void correctStressOnInitialSection(TriaxialSampleRecord& record, std::size_t slot, DrainedForm form) {
  correctForArea(record, slot, SectionCorrection(record, slot, form));
}

}  // namespace triaxlab
