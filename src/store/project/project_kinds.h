#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "common/fixed_text.h"
#include "store/project/project_kind.h"

namespace triaxlab {

class FieldSink;
class NewSampleTable;
class ProjectSave;
struct K0SampleRecord;
struct OldFormat;
struct SummaryRecord;
struct TK0SampleRecord;
struct TriaxialSampleRecord;
struct UnconfinedSampleRecord;
struct Workspace;

/// The kind in whose table the records are.
template <class Record>
inline constexpr ProjectKind kTestsOf{};
template <>
inline constexpr ProjectKind kTestsOf<TriaxialSampleRecord> = ProjectKind::Triaxial;
template <>
inline constexpr ProjectKind kTestsOf<UnconfinedSampleRecord> = ProjectKind::Unconfined;
template <>
inline constexpr ProjectKind kTestsOf<K0SampleRecord> = ProjectKind::K0;
template <>
inline constexpr ProjectKind kTestsOf<TK0SampleRecord> = ProjectKind::TK0;

/// The bytes of one record.
using RecordBytes = std::span<const std::byte>;

/// A sample table of the workspace, whatever its records are.
struct SampleTableDoor {
  std::size_t (*usedRows)(const Workspace&);  // all behind them are blank
  RecordBytes (*record)(const Workspace&, std::size_t row);
  void (*clear)(Workspace&);
  /// A table that is to be filled from a file of the kind.
  std::unique_ptr<NewSampleTable> (*makeNew)();
};

/// What makes two records one sample, beside the project number of 15 places in front. The same in the table and in
/// all files of the kind, the old ones included.
struct IdentityFields {
  std::size_t sampleNoWidth;  // behind the project number
  std::optional<std::size_t> testMethodOffset = {};
};

/// What a save does with a sample's results. The record is one of the table.
struct SampleResults {
  /// The day that the record itself tells, trimmed; null: that of its project is the sample's.
  std::string_view (*testDate)(RecordBytes record);
  /// Into the summary record, which keeps what isn't this kind's.
  void (*put)(SummaryRecord& summary, RecordBytes record, std::string_view testDate);
  /// Out of it, as is done when the project file no longer holds the sample.
  void (*blank)(SummaryRecord& summary);
};

/// One row for each kind of project file: all that is true of its file, and of its samples once they are in the table.
struct ProjectKindInfo {
  ProjectKind kind;
  ProjectKind savedAs;           // as which its samples are shown and saved once they are read
  std::string_view id;           // on the command line
  std::string_view filePrefix;   // of the file name, before the project number
  std::uint32_t recordSize;      // bytes on file
  RecordBytes (*blankRecord)();  // of the file
  IdentityFields identity;
  bool hasEndText;              // a controlledDocNo of 100 places behind the last record
  bool boxesHoldDate;           // TextW(0) to TextW(2): the processing date; otherwise names that sign the report
  std::string_view versionTag;  // what a new file gets; empty: none
  const OldFormat* oldFormat;   // null: the files have had one format only
  SampleTableDoor table;
  SampleResults results;
  /// Into a record of the table that repeats the sampling depth of the summary file; null: the records have none.
  void (*takeDepth)(Workspace&, std::size_t row, const FixedText<15>& samplingDepth);
  void (*tellFields)(RecordBytes record, FieldSink& sink);  // of a record of the table
  std::unique_ptr<ProjectSave> (*makeSave)(Workspace&);     // null: its files are never written
  std::string_view rewriteTitle;                            // of what a rewrite of such a file asks and says
};

extern const std::array<ProjectKindInfo, 5> kProjectKinds;

/// std::out_of_range for a number that is none of the kinds.
const ProjectKindInfo& infoOf(ProjectKind kind);
std::optional<ProjectKind> projectKindOfId(std::string_view id);

}  // namespace triaxlab
