#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "triaxial/record.h"

namespace triaxlab {

/// One of the values that a stage has at failure or as a specimen: how tables show it, and how it is typed.
struct ResultValue {
  const char* label;
  std::string_view unit;  // as the record's field table has it; empty: none
  bool effective;         // of effective stress, which CU alone has
  std::size_t width;      // bytes that a box over it takes; 0: it follows from the curves and is not typed
  /// GBK text as the record keeps it, trimmed; B and Af "0.00".
  std::string (*text)(const TriaxialSampleRecord& record, std::size_t stage);
  /// Takes at most `width` bytes of GBK. A number that a coefficient can't hold leaves it.
  void (*store)(TriaxialSampleRecord& record, std::size_t stage, std::string_view gbk);

  bool isTyped() const { return width != 0; }
};

/// σ3, σ1f, σ3f′, σ1f′, ⊙, R, ⊙′, R′, h0, h1, A0, Ac, ΔV, B, Af.
extern const std::array<ResultValue, 15> kResultValues;

/// What the test was made for, as texts: cohesion (kPa) in the record's own words, GBK, trimmed, the angle (degrees) in
/// tenths. Both are empty for what was not found.
struct Strength {
  std::string cohesion, angle;
};
Strength totalStrength(const TriaxialSampleRecord& record);
/// Of CU alone.
Strength effectiveStrength(const TriaxialSampleRecord& record);

}  // namespace triaxlab
