#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "common/fixed_text.h"
#include "common/little.h"

namespace triaxlab {

inline constexpr std::size_t kUnconfinedRows = 51;
/// Two specimens side by side: [0] undisturbed, [1] remoulded.
template <class T>
using BothSpecimens = std::array<T, 2>;
using UnconfinedColumn = std::array<FixedText<6>, kUnconfinedRows>;

/// One sample of the unconfined-compression test; the bytes are those on file, numbers are text.
struct UnconfinedSampleRecord {                         // offset
  FixedText<15> projectNo;                              //    0
  FixedText<15> sampleNo;                               //   15
  UnconfinedColumn undisturbedStress;                   //   30  kPa
  UnconfinedColumn remouldedStress;                     //  336  kPa
  UnconfinedColumn undisturbedStrain;                   //  642  %
  UnconfinedColumn remouldedStrain;                     //  948  %
  UnconfinedColumn undisturbedReading;                  // 1254  0.01 mm
  UnconfinedColumn remouldedReading;                    // 1560  0.01 mm
  BothSpecimens<FixedText<6>> sampleHeight;             // 1866  cm
  BothSpecimens<FixedText<6>> sampleArea;               // 1878  cm2
  BothSpecimens<Little<std::int16_t>> ringCoefficient;  // 1890  0.001 N/0.01mm
  FixedText<6> qu;                                      // 1894  kPa
  FixedText<6> quRemoulded;                             // 1900  kPa
  FixedText<6> sensitivity;                             // 1906
  BothSpecimens<std::uint8_t> strainLimit{};            // 1912  0.1 %
  FixedText<10> spare;                                  // 1914
};                                                      // 1924

static_assert(sizeof(UnconfinedSampleRecord) == 1924 && alignof(UnconfinedSampleRecord) == 1);
static_assert(offsetof(UnconfinedSampleRecord, projectNo) == 0);
static_assert(offsetof(UnconfinedSampleRecord, sampleNo) == 15);
static_assert(offsetof(UnconfinedSampleRecord, undisturbedStress) == 30);
static_assert(offsetof(UnconfinedSampleRecord, remouldedStress) == 336);
static_assert(offsetof(UnconfinedSampleRecord, undisturbedStrain) == 642);
static_assert(offsetof(UnconfinedSampleRecord, remouldedStrain) == 948);
static_assert(offsetof(UnconfinedSampleRecord, undisturbedReading) == 1254);
static_assert(offsetof(UnconfinedSampleRecord, remouldedReading) == 1560);
static_assert(offsetof(UnconfinedSampleRecord, sampleHeight) == 1866);
static_assert(offsetof(UnconfinedSampleRecord, sampleArea) == 1878);
static_assert(offsetof(UnconfinedSampleRecord, ringCoefficient) == 1890);
static_assert(offsetof(UnconfinedSampleRecord, qu) == 1894);
static_assert(offsetof(UnconfinedSampleRecord, quRemoulded) == 1900);
static_assert(offsetof(UnconfinedSampleRecord, sensitivity) == 1906);
static_assert(offsetof(UnconfinedSampleRecord, strainLimit) == 1912);
static_assert(offsetof(UnconfinedSampleRecord, spare) == 1914);
static_assert(std::is_trivially_copyable_v<UnconfinedSampleRecord>);

}  // namespace triaxlab
