#pragma once

#include <cstdint>

#include "platform/sheet_writer.h"
#include "platform/xls/records.h"

namespace triaxlab {

// The numbers of the formats that cells have: 15 of styles, that of a usual cell, that of texts, then those of numbers
// by their decimals.
inline constexpr std::uint16_t kStyleFormats = 15, kUsualFormat = kStyleFormats, kTextFormat = kUsualFormat + 1,
                               kWholeFormat = kTextFormat + 1;

constexpr std::uint16_t formatOf(const SheetNumber& number) {
  return static_cast<std::uint16_t>(kWholeFormat + number.decimals);
}

/// Fonts, display formats, formats of cells and the one style, in the order that they must have.
void addCellFormats(RecordBuffer& buffer);

}  // namespace triaxlab
