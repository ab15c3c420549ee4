#include "store/project/project_file.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/files.h"
#include "store/project/project_frame.h"
#include "store/project/upgrade.h"
#include "store/safety/file_update.h"
#include "triaxial/old_record.h"

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
template <class Record>
bool isHole(const Record& record) {
  const std::span<const std::byte> bytes = bytesOf(record);
  return bytes[0] == std::byte{0} && bytes[sizeof ProjectHeader{}.projectNo] == std::byte{0};
}

/// Values that older programs kept in other fields of the record.
void adjustOldValues(TriaxialSampleRecord& record, const ProjectHeader& header, NumberFormat cohesionFormat) {
  if (record.cohesionText.isBlank() && record.cohesionTenths != 0)
    SetNumber(record.cohesionText, record.cohesionTenths / 10.0, cohesionFormat);
  if (record.cohesionEffText.isBlank() && record.cohesionEffTenths != 0)
    SetNumber(record.cohesionEffText, record.cohesionEffTenths / 10.0, cohesionFormat);
  // A text that begins with a year is a date; blanks and the short numbers of old files are none.
  if (record.testDate.number() < 100 && header.testDate.number() > 100) record.testDate = header.testDate;
}

template <class Record>
void adjustOldValues(Record& /*record*/, const ProjectHeader& /*header*/, NumberFormat /*cohesionFormat*/) {}

/// A record of today is read as it stands.
template <class Record>
const Record& currentRecord(const Record& record) {
  return record;
}

/// A project file between its reading and the moment when it becomes the workspace's.
struct OpenedFile {
  const File& file;
  const ProjectKindInfo& info;
  ProjectHead head;
  Span span;
  FixedText<kEndTextWidth> endText;
  Remarks remarks;
};

/// Reads the records of the span into a table of their own; what the file lacks is blank. A read fills many records at
/// once, and only rows that nothing was read into are made blank.
template <class FileRecord, class Record>
SampleTable<Record> readRecords(OpenedFile& opened, NumberFormat cohesionFormat) {
  const HeldRecords held = heldRecords(opened.file.size(), sizeof(FileRecord), opened.head.sampleCount);
  const std::size_t first = opened.span.first;
  const std::size_t wanted = std::min(opened.span.count, held.whole - std::min(held.whole, first));
  SampleTable<Record> table;
  table.reserve(kTableRows);
  const std::size_t mostInBlock = std::max<std::size_t>(1, kReadBlock / sizeof(FileRecord));
  std::vector<FileRecord> block(std::clamp<std::size_t>(wanted, 1, mostInBlock));
  while (table.size() < wanted) {
    const std::size_t count = std::min(block.size(), wanted - table.size());
    const std::uint32_t position =
        recordPosition(sizeof(FileRecord), opened.span.first + static_cast<std::uint32_t>(table.size()));
    const std::size_t got =
        opened.file.readAt(position, std::as_writable_bytes(std::span(block).first(count))) / sizeof(FileRecord);
    for (const FileRecord& record : std::span(block).first(got)) {
      if (isHole(record))
        table.emplace_back();
      else
        table.push_back(currentRecord(record));
      adjustOldValues(table.back(), opened.head.header, cohesionFormat);
    }
    if (got < count) break;
  }
  if (const std::size_t missing = opened.span.count - table.size(); missing > 0) {
    const bool cutIsWanted = held.nextIsCut && held.whole >= first;
    opened.remarks.push_back(
        missingSamplesRemark(opened.file.path(), missing, cutIsWanted ? std::optional(held.whole) : std::nullopt));
  }
  table.resize(kTableRows, Record{});
  return table;
}

/// Reads the records and returns the step that puts them into the workspace, which can't fail.
using Installer = std::function<void(Workspace&)>;
template <auto Table, class FileRecord, class Record = FileRecord>
Installer readInto(OpenedFile& opened, NumberFormat cohesionFormat) {
  auto table = std::make_shared<SampleTable<Record>>(readRecords<FileRecord, Record>(opened, cohesionFormat));
  return [table](Workspace& workspace) { (workspace.*Table).swap(*table); };
}

struct TableOfKind {
  ProjectKind kind;
  Installer (*read)(OpenedFile&, NumberFormat);
};
constexpr std::array kTables{
    TableOfKind{ProjectKind::Triaxial, readInto<&Workspace::TriaxialSampleTable, TriaxialSampleRecord>},
    TableOfKind{ProjectKind::Unconfined, readInto<&Workspace::UnconfinedSampleTable, UnconfinedSampleRecord>},
    TableOfKind{ProjectKind::K0, readInto<&Workspace::K0SampleTable, K0SampleRecord>},
    TableOfKind{ProjectKind::TK0, readInto<&Workspace::TK0SampleTable, TK0SampleRecord>},
    TableOfKind{ProjectKind::OldTriaxial,
                readInto<&Workspace::TriaxialSampleTable, OldTriaxialRecord, TriaxialSampleRecord>},
};

void readEndText(OpenedFile& opened) {
  if (!opened.info.hasEndText) return;
  const auto count = static_cast<std::uint32_t>(opened.head.sampleCount);
  opened.file.readAt(recordPosition(opened.info.recordSize, count), writableBytesOf(opened.endText));
}

void installDates(Workspace& workspace, const ProjectHeader& header) {
  const std::string_view processed = header.processedDate.view();
  SetText(workspace.processingDate.year, processed.substr(0, 4));
  SetText(workspace.processingDate.month, processed.substr(5, 2));
  SetText(workspace.processingDate.day, processed.substr(8, 2));
  workspace.clearProjectDates();
  std::string_view testDate = header.testDate.trimmed();
  testDate = testDate.substr(0, testDate.find(' '));  // behind the blank stands a time of day
  SetText(workspace.ProjectDateTable[0].projectNo, header.projectNo.trimmed());
  SetText(workspace.ProjectDateTable[0].testDate, testDate);
}

}  // namespace

SampleRange limitedRange(SampleRange wanted) {
  SampleRange range{std::clamp(wanted.first, 1, kLargestSampleCount), std::clamp(wanted.last, 1, kLargestSampleCount)};
  if (range.first > range.last) std::swap(range.first, range.last);
  range.last = std::min(range.last, range.first + kLargestSpan - 1);
  return range;
}

Remarks openProject(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                    const RangeChooser& chooseRange) {
  FileUpdate::recover(workspace.dataFolder, workspace.lockPatience);
  const ProjectKindInfo& info = infoOf(kind);
  const std::filesystem::path path = findProjectFile(workspace.projectFolder(), info, fileName);
  Remarks remarks = upgradeProject(workspace, info, path);
  const File file(path, File::Mode::Read);
  const FileStamp stamp = file.stamp();
  OpenedFile opened{file, info, readProjectHead(readerOf(file), info, path), {}, {}, std::move(remarks)};
  opened.span = askedSpan(opened.head.sampleCount, chooseRange);
  const auto* const table =
      std::find_if(kTables.begin(), kTables.end(), [kind](const TableOfKind& row) { return row.kind == kind; });
  const Installer install = table->read(opened, workspace.settings.habits.cohesionFormat());
  readEndText(opened);

  if (file.stamp() != stamp)
    throw UserError(fmt::format("文件“{}”在读取时被别的程序改动，没有打开，请再打开一次。", textOfPath(path)));

  // Everything is read: from here on nothing fails.
  workspace.fileMemory.remember(FileUse::Document, path, stamp);
  install(workspace);
  installDates(workspace, opened.head.header);
  workspace.clearLocations();
  workspace.projectHeader = opened.head.header;
  workspace.controlledDocNo = opened.endText;
  workspace.projectName = {};
  workspace.secondTitleLine = {};
  workspace.rawImportPending = false;
  return opened.remarks;
}

}  // namespace triaxlab
