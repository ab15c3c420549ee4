#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "common/fixed_text.h"

namespace triaxlab {

/// A field that a person types into. Valid while the record that it was made of stays where it is.
struct EditableField {
  std::size_t width = 0;                                // bytes that the field takes
  std::string text;                                     // GBK, as it stands
  std::function<void(std::string_view gbkText)> store;  // takes at most `width` bytes
};

template <std::size_t N>
EditableField editable(FixedText<N>& field) {
  return {N, std::string(field.trimmed()), [&field](std::string_view gbk) { SetText(field, gbk); }};
}

}  // namespace triaxlab
