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

/// A slot without project or sample number is empty.
inline bool isLive(const UnconfinedSampleRecord& record) {
  return !record.projectNo.isBlank() && !record.sampleNo.isBlank();
}

enum class Specimen : std::uint8_t { Undisturbed, Remoulded };
inline constexpr std::array kSpecimens{Specimen::Undisturbed, Specimen::Remoulded};
/// Place in a BothSpecimens.
constexpr std::size_t indexOf(Specimen specimen) { return static_cast<std::size_t>(specimen); }

// The columns and the strength of a specimen; of a record that may be changed or of one that may not.
template <class Record>
auto& stressOf(Record& record, Specimen specimen) {
  return specimen == Specimen::Undisturbed ? record.undisturbedStress : record.remouldedStress;
}
template <class Record>
auto& strainOf(Record& record, Specimen specimen) {
  return specimen == Specimen::Undisturbed ? record.undisturbedStrain : record.remouldedStrain;
}
template <class Record>
auto& readingOf(Record& record, Specimen specimen) {
  return specimen == Specimen::Undisturbed ? record.undisturbedReading : record.remouldedReading;
}
template <class Record>
auto& strengthOf(Record& record, Specimen specimen) {
  return specimen == Specimen::Undisturbed ? record.qu : record.quRemoulded;
}

}  // namespace triaxlab
