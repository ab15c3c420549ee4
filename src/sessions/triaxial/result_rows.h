#pragma once

#include <cstddef>
#include <optional>

#include "sessions/triaxial/sample_fields.h"
#include "triaxial/record.h"
#include "triaxial/result_values.h"

namespace triaxlab {

/// One value of the results page.
struct ResultCell {
  std::size_t row = 0;  // of kResultValues
  std::size_t stage = 0;
};

/// The field behind a value; nothing where it isn't typed.
std::optional<EditableField> resultField(TriaxialSampleRecord& record, ResultCell cell);

}  // namespace triaxlab
