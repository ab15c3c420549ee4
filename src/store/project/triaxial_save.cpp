#include "store/project/triaxial_save.h"

#include "store/project/specimens.h"

namespace triaxlab {

TriaxialSave::~TriaxialSave() {
  for (const auto& [row, record] : m_before) workspace().TriaxialSampleTable[row] = record;
}

void TriaxialSave::askOverwrites(const OverwriteChooser& chooseOverwrites) {
  workspace().keepExisting.reset();
  std::vector<KnownSample> known;
  for (const SaveableRow& row : rows())
    if (positionOf(row)) known.push_back({row.row});
  if (chooseOverwrites) chooseOverwrites(workspace(), known);
}

void TriaxialSave::overwrite(const SaveableRow& saved, std::uint32_t position) {
  if (workspace().rawImportPending && workspace().keepExisting[saved.row]) return;
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
