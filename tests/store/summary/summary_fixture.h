#pragma once

#include <string>

#include "store/store_fixture.h"

namespace triaxlab::testing {

inline constexpr std::size_t kSummaryHeaderSize = 600, kSummaryRecordSize = 2747;

/// The 600 bytes with which a summary file begins its life on the day of the tests.
inline std::string newSummaryHeaderBytes(const std::string& sampleCount, const std::string& projectNo) {
  std::string header(kSummaryHeaderSize, ' ');
  put(header, 0, field(sampleCount, 4) + field(projectNo, 15) + "2024/05/06" + "1");
  for (std::size_t i = 0; i < 5; ++i) put(header, 30 + 10 * i, "2024/05/06");
  put(header, 80, "____");
  put(header, 288, "\r\n");
  put(header, 596, "07\r\n");
  return header;
}

/// The 2747 bytes of a record in which nobody has written yet.
inline std::string newSummaryRecordBytes() {
  std::string record(kSummaryRecordSize, ' ');
  const auto section = [&record](std::size_t begin, std::size_t end, std::string_view tag) {
    put(record, begin, tag);
    put(record, end - 2, "\r\n");
  };
  section(0, 59, "NO.");
  section(59, 133, "WS:");
  section(133, 305, "KF:");
  section(305, 1565, "GJ:");
  section(1565, 1598, "PC:");
  section(1598, 1903, "CV:");
  section(1903, 1945, "HT:");
  section(1945, 2371, "PS:");
  section(2371, 2509, "CB:");
  section(2509, 2585, "ZJ:");
  section(2585, 2732, "SZ:");
  section(2732, 2747, "WC:");
  put(record, 3, "0000");
  put(record, 52, "11111");  // "NO." flags
  put(record, 308, "11");    // "GJ:" one-character fields
  put(record, 330, "1");
  put(record, 2512, "2024/05/062024/05/061");  // "ZJ:" two dates and a flag
  put(record, 2588, "2024/05/062024/05/06");   // "SZ:" two dates, method blank
  return record;
}

/// A record that sibling tools have filled: every byte is some letter, but for what a save reads.
inline std::string siblingRecordBytes(std::string_view sampleNo) {
  std::string record(kSummaryRecordSize, '?');
  for (std::size_t i = 0; i < record.size(); ++i) record[i] = static_cast<char>('a' + i % 23);
  put(record, 7, field(sampleNo, 15));
  return record;
}

}  // namespace triaxlab::testing
