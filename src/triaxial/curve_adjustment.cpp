#include "triaxial/curve_adjustment.h"

#include <algorithm>

#include "triaxial/effective_curves.h"
#include "triaxial/measures.h"

namespace triaxlab {
namespace {

/// The first rows take an addition even when they hold no stress, so that a curve can be given a beginning.
constexpr std::size_t kRowsAlwaysAddedTo = 10;
constexpr double kFactorTooLarge = 50;

/// Moves the rows of a stage up by `shift`; those left at the end become `blank`.
template <class T>
void moveUp(ShearRows<T>& rows, std::size_t stage, std::size_t shift, const T& blank) {
  for (std::size_t row = 0; row < kShearRows; ++row)
    rows[row][stage] = row + shift < kShearRows ? rows[row + shift][stage] : blank;
}

}  // namespace

CurveAdjustment adjustmentOf(const TriaxialSampleRecord& record) {
  CurveAdjustment adjustment{.workCurve = record.deviatorStress, .stageShift = {}, .selectedStage = 0};
  for (std::size_t stage = 0; stage < kStages; ++stage)
    if (StageUsed(record, stage)) {
      adjustment.selectedStage = stage;
      break;
    }
  return adjustment;
}

void slideCurve(CurveAdjustment& adjustment, int step) {
  std::int16_t& shift = adjustment.stageShift[adjustment.selectedStage];
  shift = static_cast<std::int16_t>(std::clamp<int>(shift + step, 0, kLargestShift));
}

bool multiplyCurve(CurveAdjustment& adjustment, double factor) {
  if (factor == 0 || !(factor < kFactorTooLarge)) return false;
  for (auto& row : adjustment.workCurve) {
    FixedText<6>& stress = row[adjustment.selectedStage];
    SetNumber(stress, factor * stress.number(), NumberFormat::Tenths);
  }
  return true;
}

bool addToCurve(CurveAdjustment& adjustment, double summand) {
  if (summand == 0) return false;
  for (std::size_t row = 0; row < kShearRows; ++row) {
    FixedText<6>& stress = adjustment.workCurve[row][adjustment.selectedStage];
    if (row < kRowsAlwaysAddedTo || stress.number() != 0)
      SetNumber(stress, summand + stress.number(), NumberFormat::Tenths);
  }
  return true;
}

void setReading(CurveAdjustment& adjustment, std::size_t row, double stress) {
  if (stress != 0) SetNumber(adjustment.workCurve.at(row)[adjustment.selectedStage], stress, NumberFormat::Tenths);
}

void storeAdjustment(TriaxialSampleRecord& record, const CurveAdjustment& adjustment) {
  record.deviatorStress = adjustment.workCurve;
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    const auto shift = static_cast<std::size_t>(adjustment.stageShift[stage]);
    if (shift == 0) continue;
    for (auto* const texts : {&record.deviatorStress, &record.sigma1Eff, &record.sigma3Eff, &record.porePressure})
      moveUp(*texts, stage, shift, {});
    moveUp(record.volumeChange, stage, shift, {});
  }
  storeEffectiveCurves(record);
}

}  // namespace triaxlab
