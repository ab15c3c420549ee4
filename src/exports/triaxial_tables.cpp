// A line of the readings is one of the consolidation or of the shear of a stage: the phases of a Reading, in this
// order.
#include <type_traits>

#include "exports/column_texts.h"
#include "triaxial/method_names.h"
#include "triaxial/record.h"
#include "triaxial/result_values.h"

namespace triaxlab {
namespace {

using R = TriaxialSampleRecord;
using F = NumberFormat;

enum Phase : std::uint8_t { kConsolidation, kShear };

std::string methodText(const TableLine& line, std::size_t /*number*/) {
  return std::string(methodNames(recordOf<R>(line)).abbreviation);
}

// ---- Results

std::string cohesionText(const TableLine& line, std::size_t /*number*/) {
  return gbkToUtf8(totalStrength(recordOf<R>(line)).cohesion);
}
std::string angleText(const TableLine& line, std::size_t /*number*/) { return totalStrength(recordOf<R>(line)).angle; }
std::string cohesionEffText(const TableLine& line, std::size_t /*number*/) {
  return gbkToUtf8(effectiveStrength(recordOf<R>(line)).cohesion);
}
std::string angleEffText(const TableLine& line, std::size_t /*number*/) {
  return effectiveStrength(recordOf<R>(line)).angle;
}

constexpr TableColumn kMethod{"testMethod", "", "UU, CU or CD", methodText};

constexpr std::array kResults{
    kProjectNo,
    kSample,
    kSampleNo,
    kMethod,
    column<&R::shearMode>("shearMode", "", "2 and 3: one specimen, several stages"),
    kTestDate,
    kBoreholeNo,
    kSamplingDepth,
    kSamplingSpot,
    column<&R::soilName>("soilName", "", "土样名称"),
    column<&R::density>("density", "", "密度, as typed"),
    TableColumn{"cohesion", "kPa", "C", cohesionText},
    TableColumn{"frictionAngle", "deg", "φ, as the windows show it", angleText},
    TableColumn{"cohesionEff", "kPa", "C′, of CU alone", cohesionEffText},
    TableColumn{"frictionAngleEff", "deg", "φ′, of CU alone", angleEffText},
    column<&R::adjustedFlag>("adjusted", "", "1: C and φ were set by hand"),
    column<&R::cellPressure>("cellPressure", "kPa", "σ3 of each stage; blank or 0: not run"),
    column<&R::sigma1Failure>("sigma1Failure", "kPa", "σ1f"),
    column<&R::sigma3FailureEff>("sigma3FailureEff", "kPa", "σ3f′"),
    column<&R::sigma1FailureEff>("sigma1FailureEff", "kPa", "σ1f′"),
    column<&R::failureCentre>("failureCentre", "kPa", "⊙, centre of the circle"),
    column<&R::failureRadius>("failureRadius", "kPa", "R, its radius"),
    column<&R::failureCentreEff>("failureCentreEff", "kPa", "⊙′"),
    column<&R::failureRadiusEff>("failureRadiusEff", "kPa", "R′"),
    column<&R::initialHeight>("initialHeight", "cm", "h0"),
    column<&R::consolidatedHeight>("consolidatedHeight", "cm", "h1"),
    column<&R::initialArea>("initialArea", "cm2", "A0"),
    column<&R::consolidatedArea>("consolidatedArea", "cm2", "Ac"),
    column<&R::consolidationDrainage>("consolidationDrainage", "ml", "ΔV"),
    column<&R::coefficientB, UnlessZero<Rounded<F::Hundredths>>>("coefficientB", "", "B, as the windows show it"),
    column<&R::coefficientAf, UnlessZero<Rounded<F::Hundredths>>>("coefficientAf", "", "Af"),
    column<&R::shearRate, UnlessZero<Counting<F::Thousandths>>>("shearRate", "percent_per_min", "剪切速率"),
};

// ---- Readings

/// What a column shows of the two phases; null: nothing.
template <auto ofConsolidation, auto ofShear>
std::string byPhase(const TableLine& line, std::size_t number) {
  if (line.reading.phase == kShear) {
    if constexpr (!std::is_null_pointer_v<decltype(ofShear)>) return ofShear(line, number);
  } else {
    if constexpr (!std::is_null_pointer_v<decltype(ofConsolidation)>) return ofConsolidation(line, number);
  }
  return {};
}

std::string phaseText(const TableLine& line, std::size_t /*number*/) {
  return line.reading.phase == kShear ? "shear" : "consolidation";
}
std::string pressureText(const TableLine& line, std::size_t /*number*/) {
  return AsItStands()(recordOf<R>(line).cellPressure[line.reading.stage]);
}

constexpr std::array kReadings{
    kProjectNo,
    kSample,
    kSampleNo,
    kMethod,
    TableColumn{"phase", "", "consolidation or shear", phaseText},
    kStage,
    TableColumn{"cellPressure", "kPa", "σ3 of the stage", pressureText},
    kReading,
    TableColumn{"time", "s", "of the consolidation alone", byPhase<ofReading<&R::consolidationTime>, nullptr>},
    TableColumn{"axialStrain", "percent", "of the shear alone", byPhase<nullptr, ofReading<&R::axialStrain>>},
    TableColumn{"deviatorStress", "kPa", "σ1-σ3, of the shear alone", byPhase<nullptr, ofReading<&R::deviatorStress>>},
    TableColumn{"porePressure", "kPa", "u",
                byPhase<ofReading<&R::consolidationPorePressure, Counting<F::Tenths>>, ofReading<&R::porePressure>>},
    TableColumn{"volumeChange", "ml", "water that was drained",
                byPhase<ofReading<&R::consolidationVolume, Counting<F::Hundredths>>,
                        ofReading<&R::volumeChange, Counting<F::Hundredths>>>},
    TableColumn{"sigma1Eff", "kPa", "σ1′, of the shear alone", byPhase<nullptr, ofReading<&R::sigma1Eff>>},
    TableColumn{"sigma3Eff", "kPa", "σ3′, of the shear alone", byPhase<nullptr, ofReading<&R::sigma3Eff>>},
};

/// The first row stands for the beginning of a stage that has other readings, whatever it holds.
void addConsolidation(std::vector<Reading>& readings, const R& record, std::size_t stage) {
  const std::size_t before = readings.size();
  addReading(readings, 0, stage, kConsolidation);
  for (std::size_t row = 1; row < kConsolidationRows; ++row)
    if (record.consolidationTime[row][stage] != 0 || record.consolidationPorePressure[row][stage] != 0 ||
        record.consolidationVolume[row][stage] != 0)
      addReading(readings, row, stage, kConsolidation);
  if (readings.size() == before + 1) readings.pop_back();
}

/// A strain alone is no reading: apparatus of a fixed step have it in all rows.
void addShear(std::vector<Reading>& readings, const R& record, std::size_t stage) {
  for (std::size_t row = 0; row < kShearRows; ++row)
    if (!record.deviatorStress[row][stage].isBlank() || !record.porePressure[row][stage].isBlank() ||
        record.volumeChange[row][stage] != 0)
      addReading(readings, row, stage, kShear);
}

std::vector<Reading> readingsOf(const TableLine& sample) {
  const R& record = recordOf<R>(sample);
  std::vector<Reading> readings;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    addConsolidation(readings, record, stage);
    addShear(readings, record, stage);
  }
  return readings;
}

}  // namespace

const ExportTables kTriaxialTables{ProjectKind::Triaxial, kResults, kReadings, readingsOf};

}  // namespace triaxlab
