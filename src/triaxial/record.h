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

/// A record with a blank project or sample number is an empty slot, which all computation and saving passes over.
inline bool isLive(const TriaxialSampleRecord& record) {
  return !record.sampleNo.isBlank() && !record.projectNo.isBlank();
}

}  // namespace triaxlab
