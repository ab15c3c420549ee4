#pragma once

#include <map>

#include "store/project/project_save.h"

namespace triaxlab {

/// A save of the triaxial table. An import first asks which known samples it may write over; the specimens of each
/// saved row are put in order of their pressures, or with the toggle for merging joined to those that the file holds.
class TriaxialSave final : public ProjectSave {
 public:
  explicit TriaxialSave(Workspace& workspace) : ProjectSave(workspace, ProjectKind::Triaxial) {}
  /// Gives the rows that the save has changed their old content back, unless it came to its end.
  ~TriaxialSave() override;

 private:
  bool askOverwrites(const OverwriteChooser& chooseOverwrites) override;
  void overwrite(const SaveableRow& saved, std::uint32_t position) override;
  void append(const SaveableRow& saved) override;
  void committed() override { m_before.clear(); }

  TriaxialSampleRecord& change(std::size_t row);
  void sortRow(std::size_t row);
  void mergeRow(const SaveableRow& saved, std::uint32_t position);

  std::map<std::size_t, TriaxialSampleRecord> m_before;  // changed rows
};

}  // namespace triaxlab
