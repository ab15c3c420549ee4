#pragma once

#include <string>
#include <vector>

namespace triaxlab::cli {

using GridLine = std::vector<std::string>;

/// One line on standard output, cells parted by tabs. A control character inside a cell becomes a blank.
void printLine(const GridLine& cells);

}  // namespace triaxlab::cli
