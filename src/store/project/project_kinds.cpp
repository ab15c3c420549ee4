#include "store/project/project_kinds.h"

#include <algorithm>
#include <stdexcept>

#include "common/field_sink.h"
#include "k0/record_fields.h"
#include "platform/files.h"
#include "store/project/new_sample_table.h"
#include "store/project/old_formats.h"
#include "store/project/project_save.h"
#include "store/project/triaxial_save.h"
#include "store/summary/test_results.h"
#include "triaxial/old_record.h"
#include "triaxial/record_fields.h"
#include "unconfined/record_fields.h"

namespace triaxlab {
namespace {

template <class Record>
RecordBytes blank() {
  return bytesOf(SampleTable<Record>::blank());
}

template <class Record>
const Record& as(RecordBytes bytes) {
  static_assert(alignof(Record) == 1);
  return *reinterpret_cast<const Record*>(bytes.data());
}

template <class Record, auto put>
void putAs(SummaryRecord& summary, RecordBytes record, std::string_view testDate) {
  put(summary, as<Record>(record), testDate);
}

template <class Record>
void tellFieldsAs(RecordBytes record, FieldSink& sink) {
  tellFields(as<Record>(record), sink);
}

template <auto Table>
void takeDepthInto(Workspace& workspace, std::size_t row, const FixedText<15>& samplingDepth) {
  headOf((workspace.*Table)[row]).samplingDepth = samplingDepth;
}

/// A save that knows nothing of its kind's records.
template <ProjectKind kind>
std::unique_ptr<ProjectSave> plainSave(Workspace& workspace) {
  return std::make_unique<ProjectSave>(workspace, kind);
}

// ---- Triaxial: what files of today and the oldest ones share

/// Values that older programs kept in other fields of the record.
void takeOldValues(TriaxialSampleRecord& record, const OpenedHeader& opened) {
  if (record.cohesionText.isBlank() && record.cohesionTenths != 0)
    SetNumber(record.cohesionText, record.cohesionTenths / 10.0, opened.cohesionFormat);
  if (record.cohesionEffText.isBlank() && record.cohesionEffTenths != 0)
    SetNumber(record.cohesionEffText, record.cohesionEffTenths / 10.0, opened.cohesionFormat);
  // A text that begins with a year is a date; blanks and the short numbers of old files are none.
  const FixedText<10>& dateOfProject = opened.header.testDate;
  if (record.testDate.number() < 100 && dateOfProject.number() > 100) record.testDate = dateOfProject;
}

constexpr IdentityFields kTriaxialIdentity{14, offsetof(TriaxialSampleRecord, testMethod)};

constexpr SampleResults kTriaxialResults{
    .testDate = [](RecordBytes record) { return as<TriaxialSampleRecord>(record).testDate.trimmed(); },
    .put = putAs<TriaxialSampleRecord, putTriaxial>,
    .blank = blankTriaxial,
};

}  // namespace

// File names and some titles have the letter O where the menus speak of K0 with the digit.
constinit const std::array<ProjectKindInfo, 5> kProjectKinds{{
    {
        .kind = ProjectKind::Triaxial,
        .savedAs = ProjectKind::Triaxial,
        .id = "triaxial",
        .filePrefix = "WKSZ",
        .recordSize = sizeof(TriaxialSampleRecord),
        .blankRecord = blank<TriaxialSampleRecord>,
        .identity = kTriaxialIdentity,
        .hasEndText = true,
        .boxesHoldDate = true,
        .versionTag = "V2.0",
        .oldFormat = &kOldTriaxialFormat,
        .table = doorTo<&Workspace::TriaxialSampleTable, TriaxialSampleRecord, takeOldValues>(),
        .results = kTriaxialResults,
        .takeDepth = nullptr,
        .tellFields = tellFieldsAs<TriaxialSampleRecord>,
        .makeSave = [](Workspace& workspace) -> std::unique_ptr<ProjectSave> {
          return std::make_unique<TriaxialSave>(workspace);
        },
        .rewriteTitle = "保存三轴文件",
    },
    {
        .kind = ProjectKind::Unconfined,
        .savedAs = ProjectKind::Unconfined,
        .id = "unconfined",
        .filePrefix = "KWCX",
        .recordSize = sizeof(UnconfinedSampleRecord),
        .blankRecord = blank<UnconfinedSampleRecord>,
        .identity = {15},
        .hasEndText = false,
        .boxesHoldDate = false,
        .versionTag = "V2.0",
        .oldFormat = &kOldUnconfinedFormat,
        .table = doorTo<&Workspace::UnconfinedSampleTable, UnconfinedSampleRecord>(),
        .results = {nullptr, putAs<UnconfinedSampleRecord, putUnconfined>, blankUnconfined},
        .takeDepth = nullptr,
        .tellFields = tellFieldsAs<UnconfinedSampleRecord>,
        .makeSave = plainSave<ProjectKind::Unconfined>,
        .rewriteTitle = "保存无侧限文件",
    },
    {
        .kind = ProjectKind::K0,
        .savedAs = ProjectKind::K0,
        .id = "k0",
        .filePrefix = "KO",
        .recordSize = sizeof(K0SampleRecord),
        .blankRecord = blank<K0SampleRecord>,
        .identity = {15},
        .hasEndText = false,
        .boxesHoldDate = false,
        .versionTag = "",
        .oldFormat = nullptr,
        .table = doorTo<&Workspace::K0SampleTable, K0SampleRecord>(),
        .results = {nullptr, putAs<K0SampleRecord, putK0>, blankK0},
        .takeDepth = takeDepthInto<&Workspace::K0SampleTable>,
        .tellFields = tellFieldsAs<K0SampleRecord>,
        .makeSave = plainSave<ProjectKind::K0>,
        .rewriteTitle = "保存K0文件",
    },
    {
        .kind = ProjectKind::TK0,
        .savedAs = ProjectKind::TK0,
        .id = "tk0",
        .filePrefix = "TKO",
        .recordSize = sizeof(TK0SampleRecord),
        .blankRecord = blank<TK0SampleRecord>,
        .identity = {15},
        .hasEndText = false,
        .boxesHoldDate = false,
        .versionTag = "",
        .oldFormat = nullptr,
        .table = doorTo<&Workspace::TK0SampleTable, TK0SampleRecord>(),
        .results = {nullptr, putAs<TK0SampleRecord, putTK0>, blankK0},
        .takeDepth = takeDepthInto<&Workspace::TK0SampleTable>,
        .tellFields = tellFieldsAs<TK0SampleRecord>,
        .makeSave = plainSave<ProjectKind::TK0>,
        .rewriteTitle = "保存TK0文件",
    },
    {
        .kind = ProjectKind::OldTriaxial,
        .savedAs = ProjectKind::Triaxial,
        .id = "old-triaxial",
        .filePrefix = "KSZ",
        .recordSize = sizeof(OldTriaxialRecord),
        .blankRecord = blank<OldTriaxialRecord>,
        .identity = kTriaxialIdentity,
        .hasEndText = false,
        .boxesHoldDate = true,
        .versionTag = "",
        .oldFormat = nullptr,
        .table = doorTo<&Workspace::TriaxialSampleTable, OldTriaxialRecord, takeOldValues>(),
        .results = kTriaxialResults,
        .takeDepth = nullptr,
        .tellFields = tellFieldsAs<TriaxialSampleRecord>,
        .makeSave = nullptr,
        .rewriteTitle = "",
    },
}};

const ProjectKindInfo& infoOf(ProjectKind kind) {
  const auto row = std::ranges::find(kProjectKinds, kind, &ProjectKindInfo::kind);
  if (row == kProjectKinds.end()) throw std::out_of_range("no such kind of project file");
  return *row;
}

std::optional<ProjectKind> projectKindOfId(std::string_view id) {
  const auto row = std::ranges::find(kProjectKinds, id, &ProjectKindInfo::id);
  if (row == kProjectKinds.end()) return std::nullopt;
  return row->kind;
}

}  // namespace triaxlab
