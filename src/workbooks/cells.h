#pragma once

#include <cstdint>
#include <string_view>

#include "common/text_number.h"
#include "platform/sheet_writer.h"

namespace triaxlab {

/// A text of a record, GBK, without the blanks at its ends.
SheetCell gbkTextCell(std::string_view gbk);

/// A value as it is stored or shown, GBK: a number with the decimals that it is written with, if it is nothing but a
/// sign, digits and a point; else the text that it is. A blank one is empty.
SheetCell valueCell(std::string_view gbk);
/// The same of a UTF-8 text.
SheetCell valueCellOfUtf8(std::string_view text);

/// What the number is shown as is what it is.
SheetCell numberCell(double value, NumberFormat format);
/// Minutes; with a decimal if they aren't whole.
SheetCell minutesOfSeconds(std::int32_t seconds);

}  // namespace triaxlab
