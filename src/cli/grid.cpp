#include "cli/grid.h"

#include <algorithm>

#include "cli/console_dialogs.h"

namespace triaxlab::cli {

void printLine(const GridLine& cells) {
  std::string line;
  for (std::string cell : cells) {
    std::replace_if(
        cell.begin(), cell.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    line += cell + '\t';
  }
  if (!line.empty()) line.back() = '\n';
  print(line);
}

}  // namespace triaxlab::cli
