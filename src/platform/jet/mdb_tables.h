#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/jet/row_stream.h"

namespace triaxlab::jet {

/// A table that is asked for, by names in any case.
struct AskedTable {
  std::string name;
  std::vector<std::string> columns;
};

/// Why a database can't be read: part of a sentence, UTF-8.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the asked tables of a Jet database whole, the end mark included. `content` is all of the file: of a file that
/// it reads itself the library takes a failed read for other contents. Refusal when one of them, or a column, isn't
/// there or isn't whole. A damaged file may do worse: this runs in a process of its own.
void readTables(std::span<std::byte> content, const std::vector<AskedTable>& tables, StreamWriter& into);

}  // namespace triaxlab::jet
