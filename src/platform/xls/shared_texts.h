#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/xls/records.h"

namespace triaxlab {

/// The texts of a workbook's cells, each kept once.
class SharedTexts {
 public:
  /// The number of the text among them, of a cell that shows it. UTF-8.
  std::uint32_t numberOf(const std::string& text);
  /// The records of all texts. `buffer` holds the stream of the workbook from its beginning.
  void addTo(RecordBuffer& buffer) const;

 private:
  std::unordered_map<std::string, std::uint32_t> m_numbers;
  std::vector<const std::string*> m_texts;  // the keys, in the order of their numbers
  std::uint32_t m_cells = 0;
};

}  // namespace triaxlab
