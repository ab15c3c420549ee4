#pragma once

#include <string_view>

#include "platform/sheet_writer.h"

namespace triaxlab {

/// A text of a record, GBK, without the blanks at its ends.
SheetCell gbkTextCell(std::string_view gbk);

/// A value as it is stored or shown, GBK: a number with the decimals that it is written with, if it is nothing but a
/// sign, digits and a point; else the text that it is. A blank one is empty.
SheetCell valueCell(std::string_view gbk);

}  // namespace triaxlab
