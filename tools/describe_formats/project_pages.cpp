#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "format_pages.h"
#include "k0/record_fields.h"
#include "page.h"
#include "store/project/header_fields.h"
#include "store/project/old_formats.h"
#include "store/project/project_frame.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"
#include "triaxial/old_record_fields.h"
#include "triaxial/record_fields.h"
#include "unconfined/record_fields.h"

namespace triaxlab::formats {
namespace {

template <class Record>
std::string recordPage(std::string_view title, std::string_view introduction) {
  Page page(title);
  page.text(introduction);
  page.record(fieldRows<Record>(), sizeof(Record));
  return page.markdown();
}

/// Which page tells the record of a kind.
struct RecordPage {
  ProjectKind kind;
  std::string_view page;
};
constexpr std::array kRecordPages{
    RecordPage{ProjectKind::Triaxial, "triaxial-record.md"},
    RecordPage{ProjectKind::Unconfined, "unconfined-record.md"},
    RecordPage{ProjectKind::K0, "k0-record.md"},
    RecordPage{ProjectKind::TK0, "tk0-record.md"},
    RecordPage{ProjectKind::OldTriaxial, "old-project-files.md"},
};

void addKinds(Page& page) {
  constexpr std::array<std::string_view, 6> kHeadings{"kind",         "file",  "bytes of a record", "text at the end",
                                                      "`versionTag`", "record"};
  std::vector<std::vector<std::string>> rows;
  for (const RecordPage& entry : kRecordPages) {
    const ProjectKindInfo& info = infoOf(entry.kind);
    rows.push_back({std::string(info.id), fmt::format("`{}*.txt`", info.filePrefix), fmt::format("{}", info.recordSize),
                    info.hasEndText ? fmt::format("{}", kEndTextWidth) : "", std::string(info.versionTag),
                    fmt::format("[{0}]({0})", entry.page)});
  }
  page.table(kHeadings, rows);
}

/// "51 × text 6" with another count in front.
std::string typeOfRows(std::string_view type, std::size_t count) {
  return fmt::format("{}{}", count, type.substr(type.find(' ')));
}

/// Where today's fields stood in an old record. A column that had fewer rows is cut; a field that wasn't there is none.
FieldRows oldRows(const FieldRows& today, const OldFormat& format) {
  FieldRows rows;
  for (const FieldCopy& copy : format.copies)
    for (FieldRow row : today) {
      if (row.offset < copy.to || row.offset >= copy.to + copy.size) continue;
      const std::size_t size = std::min(row.size, copy.to + copy.size - row.offset);
      if (size < row.size) row.type = typeOfRows(row.type, size / sizeof(UnconfinedColumn::value_type));
      row.offset = copy.from + (row.offset - copy.to);
      row.size = size;
      rows.push_back(row);
    }
  return rows;
}

/// `rows` with the one of this name replaced by today's triaxial fields that begin at `begin`.
FieldRows expanded(const FieldRows& rows, std::string_view name, std::size_t begin) {
  FieldRows result;
  for (const FieldRow& row : rows) {
    if (row.name != name) {
      result.push_back(row);
      continue;
    }
    for (FieldRow field : fieldRows<TriaxialSampleRecord>()) {
      if (field.offset < begin || field.offset >= begin + row.size) continue;
      field.offset = row.offset + (field.offset - begin);
      result.push_back(field);
    }
  }
  return result;
}

FieldRows oldestTriaxialRows() {
  const FieldRows whole = expanded(fieldRows<OldTriaxialRecord>(), "sampleAndSpecimens", 0);
  return expanded(whole, "flagsAndCoefficients", offsetof(TriaxialSampleRecord, adjustedFlag));
}

}  // namespace

std::string projectFilesPage() {
  Page page("Project files");
  page.text(R"(
A project file holds the samples of one project number and one kind of test. It lies in the folder `HSZS` of the data
folder; its name is a prefix, the project number and `.txt`. The prefixes `KO` and `TKO` have the letter O.
)");
  addKinds(page);
  const std::size_t header = sizeof(ProjectHeader), triaxial = sizeof(TriaxialSampleRecord);
  page.text(fmt::format(R"(
With N samples of R bytes:

    0             head, {0} bytes
    {0} + k × R    record k, from 0
    {0} + N × R    text of {1} places: number of the controlled document (受控文件号); triaxial files only

A triaxial file of three samples has {0} + 3 × {2} + {1} = {3} bytes. The count has four places, so {4} samples is
the most that a save writes. A record keeps its position until the sample list is rewritten. All records begin with
`projectNo`, 15 places, and `sampleNo`; a record in which either is blank is an empty slot.
)",
                        header, kEndTextWidth, triaxial, header + 3 * triaxial + kEndTextWidth,
                        kLargestSampleCount - 1));
  page.heading("Head");
  page.record(fieldRows<ProjectHeader>(), sizeof(ProjectHeader));
  page.heading("Damage");
  page.text(fmt::format(R"(
A file shorter than its head, or without a number in `sampleCount`, is refused. A count above {} reads as that.
Records that the file doesn't hold whole are blank; so are records that begin with zero bytes, which a write beyond the
end left.
)",
                        kLargestSampleCount));
  return page.markdown();
}

std::string triaxialRecordPage() {
  return recordPage<TriaxialSampleRecord>("Triaxial sample record", R"(
One soil sample tested under up to five cell pressures, its five stages, with all that is derived from it
(`src/triaxial/record.h`). `5 ×` is a value for each stage; of `212 × 5 ×` and `151 × 5 ×`, the readings of shear and
consolidation, the stage varies fastest. ′ marks effective stresses.
)");
}

std::string unconfinedRecordPage() {
  return recordPage<UnconfinedSampleRecord>("Unconfined sample record", R"(
One sample of the unconfined-compression test with two specimens side by side, undisturbed (原状) and remoulded (重塑)
(`src/unconfined/record.h`). Columns have 51 rows.
)");
}

std::string k0RecordPage() {
  return recordPage<K0SampleRecord>("K0 sample record", R"(
One sample of the K0 test: up to ten load stages and the straight line of lateral over axial pressure
(`src/k0/record.h`).
)");
}

std::string tk0RecordPage() {
  return recordPage<TK0SampleRecord>("TK0 sample record", R"(
One sample of the TK0 test: the fields of a [K0 record](k0-record.md), in which a load stage's `lateralPressure` is that
at T90, and behind them the time series of each load stage (`src/k0/record.h`). Of `31 × 10 ×` the stage varies fastest.
)");
}

std::string oldProjectFilesPage() {
  Page page("Project files of former versions");
  page.text(R"(
Triaxial and unconfined files once had shorter records. The first four places of `versionTag` tell: a file of these kinds
in which they aren't `V2.0` is an old one, whatever its size. Before such a file is opened, saved to or rewritten it is
brought into today's format in place. A file with today's records and without the tag would be misread.
)");
  const OldFormat& triaxial = kOldTriaxialFormat;
  const OldFormat& unconfined = kOldUnconfinedFormat;
  page.heading("Triaxial, WKSZ");
  page.text(fmt::format(R"(
A record has {} bytes: the fields of [today's](triaxial-record.md) up to `coefficientAf`, at the same offsets. The last
four are missing and become blank. The head and the text at the end are those of today.
)",
                        triaxial.recordSize));
  page.heading("Unconfined, KWCX");
  page.text(fmt::format("A record has {} bytes; each column has 23 rows. The other rows become blank.",
                        unconfined.recordSize));
  page.record(oldRows(fieldRows<UnconfinedSampleRecord>(), unconfined), unconfined.recordSize);
  page.heading("Oldest triaxial, KSZ");
  page.text(R"(
Read and never written: a save of what was read makes a `WKSZ` file. A record holds five specimens with fewer rows and
narrower texts, the strain as a whole number, and no times; these become k² minutes, the last a day. The table is the
whole of what is known; no file of a laboratory has settled it yet. There is no text at the end.
)");
  page.record(oldestTriaxialRows(), sizeof(OldTriaxialRecord));
  return page.markdown();
}

}  // namespace triaxlab::formats
