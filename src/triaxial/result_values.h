#pragma once

#include <array>
#include <string>

#include "triaxial/record.h"

namespace triaxlab {

/// One of the values that a stage has at failure or as a specimen, as tables show it.
struct ResultValue {
  const char* label;
  bool effective;  // of effective stress, which CU alone has
  /// GBK text as the record keeps it, trimmed; B and Af "0.00".
  std::string (*text)(const TriaxialSampleRecord& record, std::size_t stage);
};

/// σ3, σ1f, σ3f′, σ1f′, ⊙, R, ⊙′, R′, h0, h1, A0, Ac, ΔV, B, Af.
extern const std::array<ResultValue, 15> kResultValues;

}  // namespace triaxlab
