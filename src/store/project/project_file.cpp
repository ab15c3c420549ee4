#include "store/project/project_file.h"

#include <fmt/core.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/files.h"
#include "store/project/new_sample_table.h"
#include "store/project/old_formats.h"
#include "store/project/project_frame.h"
#include "store/project/upgrade.h"
#include "store/safety/file_update.h"

namespace triaxlab {
namespace {

constexpr int kLargestUnaskedCount = 100;
constexpr int kLargestSpan = 2000;

/// About how much is read in one call.
constexpr std::size_t kReadBlock = std::size_t{1} << 20;

/// What of an open file goes into the table: `count` records from `first` on (from 0).
struct Span {
  std::uint32_t first = 0;
  std::size_t count = 0;
};

Span askedSpan(int sampleCount, const RangeChooser& chooseRange) {
  SampleRange range{1, sampleCount};
  if (sampleCount > kLargestUnaskedCount && chooseRange) range = limitedRange(chooseRange(sampleCount));
  range.last = std::min(range.last, sampleCount);
  if (range.first > range.last) return {};
  const Span span{static_cast<std::uint32_t>(range.first - 1), static_cast<std::size_t>(range.last - range.first + 1)};
  if (span.count > kTableRows) throw UserError("一次最多只能打开1001个试样");
  return span;
}

/// A record that a write beyond the end of its file left behind holds zero bytes and no sample.
bool isHole(RecordBytes record) {
  return record[0] == std::byte{0} && record[sizeof ProjectHeader{}.projectNo] == std::byte{0};
}

/// A project file between its reading and the moment when it becomes the workspace's.
struct OpenedFile {
  const File& file;
  const ProjectKindInfo& info;
  const OldFormat* oldFormat;  // of the records that it holds; null: today's
  ProjectHead head;
  Span span;
  FixedText<kEndTextWidth> endText;
  Remarks remarks;

  std::uint32_t recordSize() const {
    return oldFormat != nullptr ? static_cast<std::uint32_t>(oldFormat->recordSize) : info.recordSize;
  }
};

/// Reads the records of the span into a table of their own; what the file lacks is blank. A read fills many records at
/// once.
std::unique_ptr<NewSampleTable> readRecords(OpenedFile& opened, NumberFormat cohesionFormat) {
  const std::uint32_t recordSize = opened.recordSize();
  const HeldRecords held = heldRecords(opened.file.size(), recordSize, opened.head.sampleCount);
  const std::size_t first = opened.span.first;
  const std::size_t wanted = std::min(opened.span.count, held.whole - std::min(held.whole, first));
  const OpenedHeader header{opened.head.header, cohesionFormat};
  std::unique_ptr<NewSampleTable> table = opened.info.table.makeNew();
  const std::size_t mostInBlock = std::max<std::size_t>(1, kReadBlock / recordSize);
  Bytes converted, block(std::clamp<std::size_t>(wanted, 1, mostInBlock) * recordSize);
  while (table->rowCount() < wanted) {
    const auto at = static_cast<std::uint32_t>(table->rowCount());
    const std::span<std::byte> part = std::span(block).first(std::min(block.size(), (wanted - at) * recordSize));
    const std::size_t got = opened.file.readAt(recordPosition(recordSize, opened.span.first + at), part) / recordSize;
    for (std::size_t i = 0; i < got; ++i) {
      RecordBytes record = part.subspan(i * recordSize, recordSize);
      if (isHole(record))
        record = {};
      else if (opened.oldFormat != nullptr)
        record = converted = recordOfToday(*opened.oldFormat, opened.info.blankRecord(), record);
      table->add(record, header);
    }
    if (got * recordSize < part.size()) break;
  }
  if (const std::size_t missing = opened.span.count - table->rowCount(); missing > 0) {
    const bool cutIsWanted = held.nextIsCut && held.whole >= first;
    opened.remarks.push_back(
        missingSamplesRemark(opened.file.path(), missing, cutIsWanted ? std::optional(held.whole) : std::nullopt));
  }
  return table;
}

void readEndText(OpenedFile& opened) {
  if (!opened.info.hasEndText) return;
  const auto count = static_cast<std::uint32_t>(opened.head.sampleCount);
  opened.file.readAt(recordPosition(opened.recordSize(), count), writableBytesOf(opened.endText));
}

void installDates(Workspace& workspace, DocumentData& document, const ProjectHeader& header) {
  const std::string_view processed = header.processedDate.view();
  SetText(workspace.processingDate.year, processed.substr(0, 4));
  SetText(workspace.processingDate.month, processed.substr(5, 2));
  SetText(workspace.processingDate.day, processed.substr(8, 2));
  document.clearProjectDates();
  std::string_view testDate = header.testDate.trimmed();
  testDate = testDate.substr(0, testDate.find(' '));  // behind the blank stands a time of day
  SetText(document.ProjectDateTable[0].projectNo, header.projectNo.trimmed());
  SetText(document.ProjectDateTable[0].testDate, testDate);
}

/// The file, finished and in today's format.
std::filesystem::path fileToWorkOn(Workspace& workspace, const ProjectKindInfo& info, std::string_view fileName,
                                   Remarks& remarks) {
  std::filesystem::path path = findFinishedFile(workspace, info, fileName, remarks);
  const Remarks more = upgradeProject(workspace, info, path);
  remarks.insert(remarks.end(), more.begin(), more.end());
  return path;
}

}  // namespace

SampleRange limitedRange(SampleRange wanted) {
  SampleRange range{std::clamp(wanted.first, 1, kLargestSampleCount), std::clamp(wanted.last, 1, kLargestSampleCount)};
  if (range.first > range.last) std::swap(range.first, range.last);
  range.last = std::min(range.last, range.first + kLargestSpan - 1);
  return range;
}

Remarks openProject(Workspace& workspace, ProjectKind kind, std::string_view fileName, const RangeChooser& chooseRange,
                    OpenFor purpose) {
  const ProjectKindInfo& info = infoOf(kind);
  Remarks remarks;
  const std::filesystem::path path = purpose == OpenFor::Work
                                         ? fileToWorkOn(workspace, info, fileName, remarks)
                                         : findProjectFile(workspace.projectFolder(), info, fileName);
  const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
  const FileStamp stamp = file.stamp();
  if (purpose == OpenFor::Work) readProjectHead(readerOf(file), info, path);  // refuses what could not be upgraded
  for (std::string& remark : takeSamples(workspace, kind, file, chooseRange)) remarks.push_back(std::move(remark));
  if (purpose == OpenFor::Work) workspace.fileMemory.remember(FileUse::Document, path, stamp);
  return remarks;
}

Remarks takeSamples(Workspace& workspace, ProjectKind kind, const File& file, const RangeChooser& chooseRange) {
  const ProjectKindInfo& info = infoOf(kind);
  const FileStamp stamp = file.stamp();
  const ProjectHead head = readAnyProjectHead(readerOf(file), file.path());
  OpenedFile opened{file, info, isOldFormat(head.header, info) ? info.oldFormat : nullptr, head, {}, {}, {}};
  opened.span = askedSpan(opened.head.sampleCount, chooseRange);
  const std::unique_ptr<NewSampleTable> table = readRecords(opened, workspace.settings.habits.cohesionFormat());
  readEndText(opened);

  if (file.stamp() != stamp)
    throw UserError(fmt::format("文件“{}”在读取时被别的程序改动，没有打开，请再打开一次。", textOfPath(file.path())));

  // Everything is read: from here on nothing fails.
  table->install(workspace);
  DocumentData& data = workspace.dataOf(kind);
  installDates(workspace, data, opened.head.header);
  workspace.projectHeader = opened.head.header;
  data.clearLocations();
  data.controlledDocNo = opened.endText;
  data.projectName = {};
  data.secondTitleLine = {};
  data.rawImportPending = false;
  return opened.remarks;
}

}  // namespace triaxlab
