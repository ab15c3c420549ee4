#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "sessions/triaxial/sample_fields.h"
#include "triaxial/record.h"

namespace triaxlab {

/// Values of the results page, from σ3 to Af.
inline constexpr std::size_t kResultRows = 15;

/// One value of the results page.
struct ResultCell {
  std::size_t row = 0;  // 0 to kResultRows - 1
  std::size_t stage = 0;
};

const char* resultLabel(std::size_t row);
/// GBK text as the record keeps it; B and Af "0.00".
std::string resultText(const TriaxialSampleRecord& record, ResultCell cell);
/// False for ⊙, R, ⊙′, R′, which follow from the curves.
bool isTyped(std::size_t row);
/// The field behind a value; nothing where it isn't typed.
std::optional<EditableField> resultField(TriaxialSampleRecord& record, ResultCell cell);

}  // namespace triaxlab
