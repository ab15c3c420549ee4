#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "common/fixed_text.h"
#include "common/little.h"

namespace triaxlab {

inline constexpr std::size_t kLoadStages = 10;
inline constexpr std::size_t kTimeRows = 31;
template <class T>
using PerLoadStage = std::array<T, kLoadStages>;
/// A time series, [row][stage].
using TimeSeries = std::array<PerLoadStage<FixedText<7>>, kTimeRows>;

/// One sample of the K0 test; the bytes are those on file, numbers are text.
struct K0SampleRecord {                         // offset
  FixedText<15> projectNo;                      //    0
  FixedText<15> sampleNo;                       //   15
  std::uint8_t koAdjusted = 0;                  //   30  not 0: the line was set by hand
  PerLoadStage<FixedText<6>> axialDeformation;  //   31  mm
  PerLoadStage<FixedText<6>> axialPressure;     //   91  kPa
  PerLoadStage<FixedText<6>> lateralPressure;   //  151  kPa
  FixedText<6> koValue;                         //  211
  FixedText<6> koIntercept;                     //  217  kPa
  FixedText<15> samplingDepth;                  //  223
  FixedText<5> spare;                           //  238
};                                              //  243

/// One sample of the TK0 test: the whole of a K0 record, then the time series of each load stage.
struct TK0SampleRecord {                                       // offset
  K0SampleRecord k0;                                           //    0
  TimeSeries pressureSeries;                                   //  243  kPa
  TimeSeries deformationSeries;                                // 2413  mm
  PerLoadStage<Little<double>> t90Slope;                       // 4583  mm per square root of a minute
  PerLoadStage<Little<double>> t90Intercept;                   // 4663  mm
  PerLoadStage<std::uint8_t> t90Adjusted{};                    // 4743
  Little<std::int16_t> stageCount;                             // 4753
  Little<std::int16_t> timeRowCount;                           // 4755
  std::array<Little<std::int32_t>, kTimeRows> elapsedSeconds;  // 4757
};                                                             // 4881

// What is true of both records is said of the head that they share.
inline K0SampleRecord& headOf(K0SampleRecord& record) { return record; }
inline const K0SampleRecord& headOf(const K0SampleRecord& record) { return record; }
inline K0SampleRecord& headOf(TK0SampleRecord& record) { return record.k0; }
inline const K0SampleRecord& headOf(const TK0SampleRecord& record) { return record.k0; }

/// A stage without axial pressure was not run.
inline bool isLoaded(const K0SampleRecord& head, std::size_t stage) { return head.axialPressure[stage].number() != 0; }

/// A slot without project or sample number is empty.
inline bool isLive(const K0SampleRecord& record) { return !record.projectNo.isBlank() && !record.sampleNo.isBlank(); }
inline bool isLive(const TK0SampleRecord& record) { return isLive(record.k0); }

}  // namespace triaxlab
