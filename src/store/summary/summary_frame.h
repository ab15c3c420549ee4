#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string_view>

#include "common/date.h"
#include "common/user_error.h"
#include "store/project/project_frame.h"
#include "store/summary/summary_record.h"

namespace triaxlab {

// How a summary file is put together: a header of 600 bytes, then a record of 2747 bytes for each sample number.

/// A section of the record; it begins with its tag and ends with CR LF.
struct SummarySection {
  std::string_view tag;
  std::size_t offset;
  std::size_t size;
};
inline constexpr std::array<SummarySection, 12> kSummarySections{{
    {"NO.", 0, 59},
    {"WS:", 59, 74},
    {"KF:", 133, 172},
    {"GJ:", 305, 1260},
    {"PC:", 1565, 33},
    {"CV:", 1598, 305},
    {"HT:", 1903, 42},
    {"PS:", 1945, 426},
    {"CB:", 2371, 138},
    {"ZJ:", 2509, 76},
    {"SZ:", 2585, 147},
    {"WC:", 2732, 15},
}};

inline constexpr std::size_t kMostSummaryRecords = 9999;

/// Offset of record k (from 0) in the file.
constexpr std::uint64_t summaryPosition(std::uint64_t k) { return sizeof(SummaryHeader) + k * sizeof(SummaryRecord); }

struct SummaryHead {
  SummaryHeader header;
  int sampleCount = 0;
};
/// What the head of a damaged file makes of it, in a sentence that names it.
class DamagedSummary : public UserError {
 public:
  using UserError::UserError;
};
/// DamagedSummary when the file is shorter than a header or sampleCount holds no number; another UserError when it
/// can't be read.
SummaryHead readSummaryHead(const ReadAt& readAt, const std::filesystem::path& file);

/// Calls `visit` with position and content of the first `count` records, as far as the file holds them whole. Many are
/// read in one call, so a visitor's writes to records behind its own aren't seen.
using SummaryVisitor = std::function<void(std::size_t k, const SummaryRecord& record)>;
void visitSummaryRecords(const ReadAt& readAt, int count, const SummaryVisitor& visit);

/// The header of a file without samples. `projectNo` is GBK.
SummaryHeader newSummaryHeader(std::string_view projectNo, const Date& today);
/// A record with tags and line ends and nothing else filled but the flags and dates with which sibling tools begin.
SummaryRecord newSummaryRecord(const Date& today);

}  // namespace triaxlab
