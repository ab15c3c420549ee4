#include "store/summary/summary_frame.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>

namespace triaxlab {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

constexpr bool sectionsLeaveNoHole() {
  std::size_t end = 0;
  for (const SummarySection& section : kSummarySections) {
    if (section.offset != end) return false;
    end += section.size;
  }
  return end == sizeof(SummaryRecord);
}
static_assert(sectionsLeaveNoHole());

}  // namespace

SummaryHead readSummaryHead(const ReadAt& readAt, const std::filesystem::path& file) {
  SummaryHead head;
  const std::size_t got = readAt(0, writableBytesOf(head.header));
  if (got < sizeof head.header)
    throw DamagedSummary(fmt::format("成果文件“{}”已损坏：只有 {} 字节，不足一个文件头（{} 字节）。", textOfPath(file),
                                     got, sizeof head.header));
  const std::optional<int> count = claimedCount(head.header.sampleCount.view());
  if (!count) throw DamagedSummary(fmt::format("成果文件“{}”已损坏：文件头中没有试样总数。", textOfPath(file)));
  head.sampleCount = *count;
  return head;
}

void visitSummaryRecords(const ReadAt& readAt, int count, const SummaryVisitor& visit) {
  constexpr std::size_t kBlockRecords = 256;  // about 700 KB
  const auto end = static_cast<std::size_t>(count);
  std::vector<SummaryRecord> block(std::min(end, kBlockRecords));
  for (std::size_t first = 0; first < end; first += block.size()) {
    const std::span<SummaryRecord> wanted = std::span(block).first(std::min(block.size(), end - first));
    const std::size_t got = readAt(summaryPosition(first), std::as_writable_bytes(wanted)) / sizeof(SummaryRecord);
    for (std::size_t i = 0; i < got; ++i) visit(first + i, block[i]);
    if (got < wanted.size()) return;
  }
}

SummaryHeader newSummaryHeader(std::string_view projectNo, const Date& today) {
  SummaryHeader header;
  SetText(header.sampleCount, "0");
  SetText(header.projectNo, projectNo);
  SetText(header.createdDate, slashed(today));
  SetText(header.fileState, "1");
  for (FixedText<10>& date : header.toolDates) SetText(date, slashed(today));
  SetText(header.reportNoMask, "____");
  SetText(header.textEnd, kLineEnd);
  SetText(header.layoutCode, "07");
  SetText(header.headerEnd, kLineEnd);
  return header;
}

SummaryRecord newSummaryRecord(const Date& today) {
  SummaryRecord record;
  const auto bytes = writableBytesOf(record);
  const auto put = [bytes](std::size_t offset, std::string_view text) {
    std::ranges::copy(std::as_bytes(std::span(text)), bytes.subspan(offset).begin());
  };
  for (const SummarySection& section : kSummarySections) {
    put(section.offset, section.tag);
    put(section.offset + section.size - kLineEnd.size(), kLineEnd);
  }
  SetText(record.sequenceNo, "0000");
  for (FixedText<1>& flag : record.noFlags) SetText(flag, "1");
  for (FixedText<1>& flag : record.gjFlags) SetText(flag, "1");
  for (FixedText<1>* flag : {&record.gjFlag3, &record.zjFlag}) SetText(*flag, "1");
  for (FixedText<10>* date : {&record.zjDates.front(), &record.zjDates.back(), &record.szDate, &record.testDateSz})
    SetText(*date, slashed(today));
  return record;
}

}  // namespace triaxlab
