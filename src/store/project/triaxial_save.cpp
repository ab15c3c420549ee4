#include "store/project/triaxial_save.h"

#include <memory>

#include "common/gbk.h"
#include "store/project/specimens.h"

namespace triaxlab {
namespace {

SampleBrief briefOf(const TriaxialSampleRecord& record) {
  SampleBrief brief{{}, gbkToUtf8(record.soilName.trimmed())};
  for (const FixedText<6>& pressure : record.cellPressure)
    if (pressure.number() != 0)
      brief.cellPressures += (brief.cellPressures.empty() ? "" : "、") + gbkToUtf8(pressure.trimmed());
  return brief;
}

}  // namespace

TriaxialSave::~TriaxialSave() {
  for (const auto& [row, record] : m_before) workspace().TriaxialSampleTable[row] = record;
}

bool TriaxialSave::askOverwrites(const OverwriteChooser& chooseOverwrites) {
  workspace().dataOf(ProjectKind::Triaxial).keepExisting.reset();
  std::vector<KnownSample> known;
  const auto stored = std::make_unique<TriaxialSampleRecord>();
  for (const SaveableRow& row : rows())
    if (const std::optional<std::uint32_t> position = positionOf(row)) {
      row.project->read(*position, writableBytesOf(*stored));
      known.push_back({row.row, briefOf(*stored), briefOf(workspace().TriaxialSampleTable[row.row])});
    }
  return !chooseOverwrites || chooseOverwrites(workspace(), known);
}

void TriaxialSave::overwrite(const SaveableRow& saved, std::uint32_t position) {
  const DocumentData& data = workspace().dataOf(ProjectKind::Triaxial);
  if (data.rawImportPending && data.keepExisting[saved.row]) return;
  if (workspace().settings.toggles.mergePressures) {
    mergeRow(saved, position);
  } else {
    sortRow(saved.row);
    ProjectSave::overwrite(saved, position);
  }
  setProcessedDate(saved.project->header());
}

void TriaxialSave::append(const SaveableRow& saved) {
  sortRow(saved.row);
  ProjectSave::append(saved);
  setProcessedDate(saved.project->header());
}

TriaxialSampleRecord& TriaxialSave::change(std::size_t row) {
  TriaxialSampleRecord& record = workspace().TriaxialSampleTable[row];
  m_before.emplace(row, record);
  return record;
}

void TriaxialSave::sortRow(std::size_t row) {
  if (!specimensAreSorted(workspace().TriaxialSampleTable[row])) sortSpecimens(change(row));
}

/// On file a merged sample keeps its specimens in the order in which they came together; only the row is sorted.
void TriaxialSave::mergeRow(const SaveableRow& saved, std::uint32_t position) {
  TriaxialSampleRecord& record = change(saved.row);
  const auto stored = std::make_unique<TriaxialSampleRecord>();
  saved.project->read(position, writableBytesOf(*stored));
  mergeIntoStored(*stored, record);
  saved.project->overwriteWithCopy(position, bytesOf(*stored));
  record = *stored;
  sortSpecimens(record);
}

}  // namespace triaxlab
