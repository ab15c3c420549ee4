#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/project/project_update.h"
#include "store/project/sample_rows.h"
#include "store/project/save_project.h"
#include "store/safety/file_update.h"
#include "store/summary/summary_update.h"

namespace triaxlab {

/// A save of one table into its project files and summary files: what all kinds of test have in common. A sample that
/// its file knows is written over, another is added behind the last. A project that can't be saved is left out and
/// named with its rows.
class ProjectSave {
 public:
  /// `kind` is one whose files are written.
  ProjectSave(Workspace& workspace, ProjectKind kind);
  virtual ~ProjectSave() = default;
  ProjectSave(const ProjectSave&) = delete;
  ProjectSave& operator=(const ProjectSave&) = delete;

  /// What to say of files that another program has changed.
  struct ChangesOfOthers {
    std::string title;
    const ChangeQuestion& mayOverwrite;
  };

  /// Takes the locks, reads what is on disk and asks what there is to ask. UserError when an interrupted save can't be
  /// finished first, another program is at its save, or the person doesn't want it; nothing was written then.
  /// False when the person drops the save of an import; nothing was written then either.
  bool begin(const OverwriteChooser& chooseOverwrites, const ChangesOfOthers& changes);
  /// All there is to a save without a live row. False as above.
  bool askOfEmptyTable(const OverwriteChooser& chooseOverwrites);
  /// Pre: `begin` has returned. All or nothing on disk. UserError when nothing was written.
  void finish();
  /// What was left out, and why; one sentence each.
  const std::vector<std::string>& errors() const { return m_errors; }
  /// The same of summary files, whose project files were written.
  const std::vector<std::string>& summaryErrors() const { return m_summaryErrors; }
  const Remarks& remarks() const { return m_remarks; }

 protected:
  /// A live row whose project can be saved.
  struct SaveableRow {
    std::size_t row;
    ProjectUpdate* project;
    SummaryUpdate* summary;  // null: the summary file is damaged and stays as it is
  };

  // What a kind does in its own way.

  /// Before the first row is saved, when the table holds an import. False drops the save.
  virtual bool askOverwrites(const OverwriteChooser&) { return true; }
  /// Writes a row in the place of a stored sample, or behind the last one. The record in the table stays as it is from
  /// here on to the end of the save.
  virtual void overwrite(const SaveableRow& saved, std::uint32_t position);
  virtual void append(const SaveableRow& saved);
  /// Everything is on disk.
  virtual void committed() {}

  Workspace& workspace() const { return m_workspace; }
  const SampleRows& table() const { return m_table; }
  const std::vector<SaveableRow>& rows() const { return m_rows; }
  std::optional<std::uint32_t> positionOf(const SaveableRow& saved) const;
  /// The header takes the processing date that the technician has set, if any.
  void setProcessedDate(ProjectHeader& header) const;

 private:
  /// A project of the table: its files, or why it can't be saved, with the rows that are left out.
  struct SavedProject {
    std::string projectNo;
    std::filesystem::path path;
    std::vector<std::size_t> tableRows;
    std::unique_ptr<ProjectUpdate> project;
    std::unique_ptr<SummaryUpdate> summary;
    std::string refusal;
  };

  void release();
  void findFiles(ChangedFiles& changed);
  void loadFiles();
  void load(SavedProject& saved);
  std::unique_ptr<SummaryUpdate> loadSummary(const std::string& projectNo);
  std::vector<std::optional<FileStamp>> stamps() const;
  void keepCopies();
  void saveRow(const SaveableRow& saved);
  const ProjectHeader& lastHeader() const;
  ProjectHeader newHeader(std::string_view projectNo) const;
  void putIntoSummaries();
  /// What is to be said of samples for which the files have no place; nothing of none.
  std::vector<std::string> leftOut(const std::vector<std::size_t>& rows, std::string_view where) const;

  Workspace& m_workspace;
  const ProjectKindInfo& m_info;
  SampleRows m_table;
  std::optional<FileUpdate> m_update;
  std::map<std::string, SavedProject> m_projects;  // by number without regard to case, as files are named
  std::vector<SaveableRow> m_rows;
  ProjectUpdate* m_last = nullptr;
  std::vector<std::size_t> m_leftOut;
  std::vector<std::string> m_errors, m_summaryErrors;
  Remarks m_remarks;
};

}  // namespace triaxlab
