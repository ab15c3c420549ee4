#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "common/fixed_text.h"
#include "common/little.h"

namespace triaxlab {

inline constexpr std::size_t kStages = 5;
inline constexpr std::size_t kShearRows = 212;
inline constexpr std::size_t kConsolidationRows = 151;

/// A field with one element a stage.
template <class T>
using PerStage = std::array<T, kStages>;
/// Readings of the shear and of the consolidation phase, [row][stage]: the stage varies fastest on file.
template <class T>
using ShearRows = std::array<PerStage<T>, kShearRows>;
template <class T>
using ConsolidationRows = std::array<PerStage<T>, kConsolidationRows>;

enum TestMethod : std::uint8_t { kUU = 1, kCU = 2, kCD = 3 };

/// One soil sample tested under up to five cell pressures, and all that is derived from it. The bytes are those on
/// file. Numbers that a person sees are text, reparsed at each use; a record with a blank number or project is an empty
/// slot. A default record is the blank template: texts blank, numbers 0.
struct TriaxialSampleRecord {                                         // offset
  FixedText<15> projectNo;                                            //     0
  FixedText<14> sampleNo;                                             //    15
  std::uint8_t uuAdjustFlag = 0;                                      //    29  acts with shearMode 2 only
  std::uint8_t recordCodeA = 0;                                       //    30  carried along from the automatic source
  std::uint8_t recordCodeB = 0;                                       //    31
  std::uint8_t testMethod = 0;                                        //    32  TestMethod
  std::uint8_t shearMode = 0;                                         //    33  2, 3: one specimen, several stages
  PerStage<Little<std::int16_t>> shearRate;                           //    34  1/1000 %/min
  Little<std::int16_t> cohesionTenths;                                //    44  0.1 kPa
  Little<float> frictionAngle;                                        //    46  degrees
  Little<std::int16_t> cohesionEffTenths;                             //    50  0.1 kPa
  Little<float> frictionAngleEff;                                     //    52  degrees
  PerStage<FixedText<6>> cellPressure;                                //    56  kPa, reads 0 for an unused stage
  PerStage<FixedText<6>> initialHeight;                               //    86  cm
  PerStage<FixedText<6>> consolidatedHeight;                          //   116  cm
  PerStage<FixedText<6>> initialArea;                                 //   146  cm2
  PerStage<FixedText<6>> consolidatedArea;                            //   176  cm2
  PerStage<FixedText<5>> failureRadius;                               //   206  kPa
  FixedText<5> density;                                               //   231  as typed
  PerStage<FixedText<4>> failureRadiusEff;                            //   236  kPa; narrower than its total-stress twin
  PerStage<FixedText<5>> failureCentre;                               //   256  kPa
  PerStage<FixedText<5>> failureCentreEff;                            //   281  kPa
  FixedText<15> soilName;                                             //   306
  PerStage<std::uint8_t> failureStrainLimit{};                        //   321  0.1 %
  PerStage<FixedText<6>> consolidationDrainage;                       //   326  ml
  PerStage<FixedText<6>> ringCoefficient;                             //   356  N/0.01mm
  PerStage<FixedText<6>> sigma1Failure;                               //   386  kPa
  PerStage<FixedText<6>> sigma1FailureEff;                            //   416  kPa
  PerStage<FixedText<6>> sigma3FailureEff;                            //   446  kPa
  ShearRows<FixedText<6>> deviatorStress;                             //   476  kPa
  ShearRows<FixedText<6>> sigma1Eff;                                  //  6836  kPa
  ShearRows<FixedText<6>> sigma3Eff;                                  // 13196  kPa
  ShearRows<FixedText<6>> porePressure;                               // 19556  kPa
  ConsolidationRows<Little<std::int32_t>> consolidationTime;          // 25916  s
  ConsolidationRows<Little<std::int16_t>> consolidationPorePressure;  // 28936  0.1 kPa
  ConsolidationRows<Little<std::int16_t>> consolidationVolume;        // 30446  0.01 ml
  ShearRows<Little<std::int16_t>> volumeChange;                       // 31956  0.01 ml
  ShearRows<Little<float>> axialStrain;                               // 34076  %
  std::uint8_t adjustedFlag = 0;                                      // 38316  1: C and phi were set by hand
  std::uint8_t pathAdjustedFlag = 0;                                  // 38317  1: the stress path line was set by hand
  Little<float> pathSlope;                                            // 38318
  Little<float> pathIntercept;                                        // 38322  kPa
  PerStage<Little<float>> coefficientB;                               // 38326
  PerStage<Little<float>> coefficientAf;                              // 38346
  FixedText<10> testDate;                                             // 38366
  FixedText<9> cohesionText;                                          // 38376  kPa, as shown
  FixedText<9> cohesionEffText;                                       // 38385  kPa, as shown
  FixedText<182> reserved;                                            // 38394  kept blank
};                                                                    // 38576

static_assert(sizeof(TriaxialSampleRecord) == 38576 && alignof(TriaxialSampleRecord) == 1);
static_assert(offsetof(TriaxialSampleRecord, projectNo) == 0);
static_assert(offsetof(TriaxialSampleRecord, sampleNo) == 15);
static_assert(offsetof(TriaxialSampleRecord, uuAdjustFlag) == 29);
static_assert(offsetof(TriaxialSampleRecord, recordCodeA) == 30);
static_assert(offsetof(TriaxialSampleRecord, recordCodeB) == 31);
static_assert(offsetof(TriaxialSampleRecord, testMethod) == 32);
static_assert(offsetof(TriaxialSampleRecord, shearMode) == 33);
static_assert(offsetof(TriaxialSampleRecord, shearRate) == 34);
static_assert(offsetof(TriaxialSampleRecord, cohesionTenths) == 44);
static_assert(offsetof(TriaxialSampleRecord, frictionAngle) == 46);
static_assert(offsetof(TriaxialSampleRecord, cohesionEffTenths) == 50);
static_assert(offsetof(TriaxialSampleRecord, frictionAngleEff) == 52);
static_assert(offsetof(TriaxialSampleRecord, cellPressure) == 56);
static_assert(offsetof(TriaxialSampleRecord, initialHeight) == 86);
static_assert(offsetof(TriaxialSampleRecord, consolidatedHeight) == 116);
static_assert(offsetof(TriaxialSampleRecord, initialArea) == 146);
static_assert(offsetof(TriaxialSampleRecord, consolidatedArea) == 176);
static_assert(offsetof(TriaxialSampleRecord, failureRadius) == 206);
static_assert(offsetof(TriaxialSampleRecord, density) == 231);
static_assert(offsetof(TriaxialSampleRecord, failureRadiusEff) == 236);
static_assert(offsetof(TriaxialSampleRecord, failureCentre) == 256);
static_assert(offsetof(TriaxialSampleRecord, failureCentreEff) == 281);
static_assert(offsetof(TriaxialSampleRecord, soilName) == 306);
static_assert(offsetof(TriaxialSampleRecord, failureStrainLimit) == 321);
static_assert(offsetof(TriaxialSampleRecord, consolidationDrainage) == 326);
static_assert(offsetof(TriaxialSampleRecord, ringCoefficient) == 356);
static_assert(offsetof(TriaxialSampleRecord, sigma1Failure) == 386);
static_assert(offsetof(TriaxialSampleRecord, sigma1FailureEff) == 416);
static_assert(offsetof(TriaxialSampleRecord, sigma3FailureEff) == 446);
static_assert(offsetof(TriaxialSampleRecord, deviatorStress) == 476);
static_assert(offsetof(TriaxialSampleRecord, sigma1Eff) == 6836);
static_assert(offsetof(TriaxialSampleRecord, sigma3Eff) == 13196);
static_assert(offsetof(TriaxialSampleRecord, porePressure) == 19556);
static_assert(offsetof(TriaxialSampleRecord, consolidationTime) == 25916);
static_assert(offsetof(TriaxialSampleRecord, consolidationPorePressure) == 28936);
static_assert(offsetof(TriaxialSampleRecord, consolidationVolume) == 30446);
static_assert(offsetof(TriaxialSampleRecord, volumeChange) == 31956);
static_assert(offsetof(TriaxialSampleRecord, axialStrain) == 34076);
static_assert(offsetof(TriaxialSampleRecord, adjustedFlag) == 38316);
static_assert(offsetof(TriaxialSampleRecord, pathAdjustedFlag) == 38317);
static_assert(offsetof(TriaxialSampleRecord, pathSlope) == 38318);
static_assert(offsetof(TriaxialSampleRecord, pathIntercept) == 38322);
static_assert(offsetof(TriaxialSampleRecord, coefficientB) == 38326);
static_assert(offsetof(TriaxialSampleRecord, coefficientAf) == 38346);
static_assert(offsetof(TriaxialSampleRecord, testDate) == 38366);
static_assert(offsetof(TriaxialSampleRecord, cohesionText) == 38376);
static_assert(offsetof(TriaxialSampleRecord, cohesionEffText) == 38385);
static_assert(offsetof(TriaxialSampleRecord, reserved) == 38394);
static_assert(std::is_trivially_copyable_v<TriaxialSampleRecord> && std::is_standard_layout_v<TriaxialSampleRecord>);

/// A record with a blank project or sample number is an empty slot, which all computation and saving passes over.
inline bool isLive(const TriaxialSampleRecord& record) {
  return !record.sampleNo.isBlank() && !record.projectNo.isBlank();
}

}  // namespace triaxlab
