#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {

/// What a spreadsheet hands out as text: lines of cells parted by tabs. A cell in quotation marks may hold tabs, line
/// ends and doubled quotation marks. The end of the last line begins no further one.
std::vector<std::vector<std::string>> pastedCells(std::string_view text);

}  // namespace triaxlab
