#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "common/fixed_text.h"
#include "triaxial/record.h"

namespace triaxlab {

// What an apparatus measures is a load, or a stress on the section that the specimen had before the test. The importers
// turn it into the stress on the section that the specimen has at the strain of the reading. Strains are fractions
// here, heights cm, sections cm2, volumes ml; measures are taken from their texts, as everything that reads a record
// does.

/// Rows that are corrected. The last reading of the apparatus, number 51, lies outside and stays as it was read.
inline constexpr std::size_t kCorrectedRows = 50;

/// Strain from one row to the next: 0.2 % when several stages are sheared on one specimen, else 0.4 %. A record of
/// shearMode 3 has steps of 0.4 % here, although its strain column has steps of 0.2 %.
inline double shearStep(std::uint8_t shearMode) { return shearMode == 2 ? 0.002 : 0.004; }

/// Strain that the stages before this one have used up: 0.2 % for each row of theirs, up to the first row without
/// stress. An unused slot in front counts as one row.
double strainOfEarlierStages(const TriaxialSampleRecord& row, std::size_t stage);

/// What drainage in the consolidation leaves of a specimen's height and section, as fractions.
struct DrainedFactors {
  float height = 0, area = 0;
};

/// From words of hundredths: 1 - V / (3 h A) and 1 - 2 V / (3 h A), where V is the drainage. In single precision,
/// rounded at each step: the product h A, the factors. Nothing when the product is 0.
std::optional<DrainedFactors> drainedFactors(std::int16_t initialHeight, std::int16_t initialArea,
                                             std::int16_t drainage);

/// Section of a drained specimen: what is left of its volume over what is left of its height. Nothing when either comes
/// to 0.
std::optional<double> drainedSection(double consolidatedArea, double consolidatedHeight, double drained, double strain);

/// The strain of each row of a slot.
class RowStrains {
 public:
  /// Of a specimen by itself: it begins at 0.
  explicit RowStrains(std::uint8_t shearMode) : m_step(shearStep(shearMode)), m_used(0) {}
  /// It runs on from the earlier stages of the specimen, but not in a CU test.
  RowStrains(const TriaxialSampleRecord& record, std::size_t slot)
      : m_step(shearStep(record.shearMode)),
        m_used(record.shearMode == 2 && record.testMethod != kCU ? strainOfEarlierStages(record, slot) : 0) {}
  double of(std::size_t row) const { return static_cast<double>(row + 1) * m_step + m_used; }

 private:
  double m_step, m_used;
};

/// The volume that a reading has drained, whatever its sign.
inline double drainedVolume(std::int16_t hundredths) { return std::abs(hundredths / 100.0); }

/// How the generations of the apparatus differ in the correction of their CD tests.
enum class DrainedForm : std::uint8_t {
  OnInitialArea,  // the same for all shear modes
  ByShearMode,    // shearMode 2 takes the height in hundredths, the others put the consolidated area above the line
  CommonSet,      // ByShearMode, and a result of 0 leaves the row as it is
};

/// The correction of stresses that were worked out on the initial section, each before it goes into its row: no text is
/// written that would be read and written again.
class SectionCorrection {
 public:
  /// Pre: the slot has its measures, and the slots in front have their readings.
  SectionCorrection(const TriaxialSampleRecord& record, std::size_t slot, DrainedForm form)
      : SectionCorrection(record, slot, form, record.shearMode, RowStrains(record, slot)) {}
  /// Of a specimen by itself, whatever the slots in front of it hold and the record's own shear mode is.
  SectionCorrection(const TriaxialSampleRecord& record, std::size_t slot, DrainedForm form, std::uint8_t shearMode)
      : SectionCorrection(record, slot, form, shearMode, RowStrains(shearMode)) {}
  /// The stress of a row, kPa, from the reading and the volume that goes with it, 0.01 ml. A reading that can't be
  /// corrected stays as it is. Words of 16 bits give no stress that isn't finite.
  double stress(double reading, std::size_t row, std::int16_t volume) const;

 private:
  SectionCorrection(const TriaxialSampleRecord& record, std::size_t slot, DrainedForm form, std::uint8_t shearMode,
                    const RowStrains& strains);

  std::uint8_t m_method;
  bool m_zeroStays;
  double m_initialArea, m_consolidatedArea, m_height;
  double m_drainedNumerator;  // the area above the line of a CD test
  RowStrains m_strains;
};

}  // namespace triaxlab
