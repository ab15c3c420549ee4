#include "store/save_project.h"

#include <fmt/core.h>
#include <fmt/format.h>

#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "store/file_update.h"
#include "store/project_number.h"
#include "store/project_update.h"
#include "store/settings_file.h"
#include "store/specimens.h"
#include "store/summary_update.h"

namespace triaxlab {
namespace {

/// Rows of the table as a person counts them, from 1: "1、2、5"; a long list ends in "等".
std::string rowList(const std::vector<std::size_t>& rows) {
  constexpr std::size_t kNamed = 10;
  std::string text;
  for (std::size_t i = 0; i < rows.size() && i < kNamed; ++i)
    text += fmt::format("{}{}", i == 0 ? "" : "、", rows[i] + 1);
  return rows.size() > kNamed ? fmt::format("{} 等 {} ", text, rows.size()) : text + " ";
}

/// Gives the rows that a save sorts or merges their old content back, unless it came to its end.
class ChangedRows {
 public:
  explicit ChangedRows(SampleTable<TriaxialSampleRecord>& table) : m_table(table) {}
  ChangedRows(const ChangedRows&) = delete;
  ChangedRows& operator=(const ChangedRows&) = delete;
  ~ChangedRows() {
    for (const auto& [row, record] : m_before) m_table[row] = record;
  }

  TriaxialSampleRecord& change(std::size_t row) {
    m_before.emplace(row, m_table[row]);
    return m_table[row];
  }
  void keep() { m_before.clear(); }

 private:
  SampleTable<TriaxialSampleRecord>& m_table;
  std::map<std::size_t, TriaxialSampleRecord> m_before;
};

/// The two files of one project.
struct ProjectFiles {
  ProjectUpdate project;
  SummaryUpdate summary;
};

/// A project of the table: its files, or why it can't be saved, with the rows that are left out.
struct SavedProject {
  std::string projectNo;
  std::unique_ptr<ProjectFiles> files;
  std::string refusal;
  std::vector<std::size_t> refusedRows;
};

/// A live row whose project can be saved.
struct SaveableRow {
  std::size_t row;
  ProjectFiles* files;
};

class TriaxialSave {
 public:
  explicit TriaxialSave(Workspace& workspace)
      : m_workspace(workspace), m_update(workspace.dataFolder), m_changed(workspace.TriaxialSampleTable) {}

  void run(const OverwriteChooser& chooseOverwrites) {
    findFiles();
    if (m_rows.empty()) throw UserError(fmt::format("{}", fmt::join(m_errors, "")));
    if (m_workspace.rawImportPending) askOverwrites(chooseOverwrites);
    for (const SaveableRow& row : m_rows) saveRow(row);
    nameLeftOut(m_leftOut, "项目文件");
    for (const SaveableRow& row : m_rows)
      if (!row.files->summary.putTriaxial(row.row)) m_leftOutOfSummary.push_back(row.row);
    nameLeftOut(m_leftOutOfSummary, "汇总文件");
    for (const auto& [name, project] : m_projects) {
      if (!project.files) continue;
      project.files->project.finish(m_workspace.controlledDocNo);
      project.files->summary.finish();
    }
    m_update.commit();
    m_changed.keep();
    m_workspace.projectHeader = lastHeader();
  }

  std::vector<std::string> takeErrors() { return std::move(m_errors); }

 private:
  /// Loads the files of every live row; a project that can't be saved is named with its rows.
  void findFiles();
  void load(SavedProject& project);
  std::optional<std::uint32_t> positionOf(const SaveableRow& row) const;
  void askOverwrites(const OverwriteChooser& chooseOverwrites);
  void saveRow(const SaveableRow& row);
  void sortRow(std::size_t row);
  void mergeRow(const SaveableRow& row, std::uint32_t position);
  /// The header that was in use last; a new file begins as a copy of it.
  const ProjectHeader& lastHeader() const { return m_last ? m_last->header() : m_workspace.projectHeader; }
  ProjectHeader newHeader(std::string_view projectNo) const;
  void nameLeftOut(const std::vector<std::size_t>& rows, std::string_view where);

  Workspace& m_workspace;
  FileUpdate m_update;
  ChangedRows m_changed;
  std::map<std::string, SavedProject> m_projects;  // by number without regard to case, as files are named
  std::vector<SaveableRow> m_rows;
  ProjectUpdate* m_last = nullptr;
  std::vector<std::size_t> m_leftOut, m_leftOutOfSummary;
  std::vector<std::string> m_errors;
};

void TriaxialSave::findFiles() {
  for (std::size_t row = 0; row < m_workspace.TriaxialSampleTable.size(); ++row) {
    const TriaxialSampleRecord& record = m_workspace.TriaxialSampleTable[row];
    if (!isLive(record)) continue;
    const std::string_view projectNo = record.projectNo.trimmed();
    const auto [found, isNew] = m_projects.try_emplace(caseless(gbkToUtf8(projectNo)));
    SavedProject& project = found->second;
    if (isNew) {
      project.projectNo = projectNo;
      load(project);
    }
    if (project.files)
      m_rows.push_back({row, project.files.get()});
    else
      project.refusedRows.push_back(row);
  }
  for (const auto& [name, project] : m_projects)
    if (!project.files)
      m_errors.push_back(fmt::format("工程“{}”（第 {}行）没有保存：{}", printableText(project.projectNo),
                                     rowList(project.refusedRows), project.refusal));
}

void TriaxialSave::load(SavedProject& project) {
  if (const std::optional<std::string> why = whyNoFileName(project.projectNo)) {
    project.refusal = fmt::format("工程编号{}，不能作为文件名。", *why);
    return;
  }
  const ProjectKindInfo& info = infoOf(ProjectKind::Triaxial);
  try {
    ProjectUpdate file(m_update, info,
                       fileOrNew(m_workspace.projectFolder(), projectFileName(info.filePrefix, project.projectNo)));
    SummaryUpdate summary(m_update, m_workspace, project.projectNo);
    project.files = std::make_unique<ProjectFiles>(ProjectFiles{std::move(file), std::move(summary)});
  } catch (const UserError& error) {
    project.refusal = error.what();
  }
}

std::optional<std::uint32_t> TriaxialSave::positionOf(const SaveableRow& row) const {
  const TriaxialSampleRecord& record = m_workspace.TriaxialSampleTable[row.row];
  return row.files->project.find(record.sampleNo.trimmed(), record.testMethod);
}

void TriaxialSave::askOverwrites(const OverwriteChooser& chooseOverwrites) {
  m_workspace.keepExisting.reset();
  std::vector<KnownSample> known;
  for (const SaveableRow& row : m_rows)
    if (positionOf(row)) known.push_back({row.row});
  if (chooseOverwrites) chooseOverwrites(m_workspace, known);
}

void TriaxialSave::saveRow(const SaveableRow& saved) {
  const TriaxialSampleRecord& record = m_workspace.TriaxialSampleTable[saved.row];
  ProjectUpdate& file = saved.files->project;
  if (!file.exists()) file.create(newHeader(record.projectNo.trimmed()));
  m_last = &file;
  const std::optional<std::uint32_t> position = positionOf(saved);
  if (position && m_workspace.rawImportPending && m_workspace.keepExisting[saved.row]) return;
  if (!position && file.isFull()) {
    m_leftOut.push_back(saved.row);
    return;
  }
  if (position && m_workspace.settings.toggles.mergePressures) {
    mergeRow(saved, *position);
  } else {
    sortRow(saved.row);
    if (position)
      file.overwrite(*position, bytesOf(record));
    else
      file.append(bytesOf(record), record.sampleNo.trimmed(), record.testMethod);
  }
  const ProcessingDate& date = m_workspace.processingDate;
  if (date.isSet())
    SetText(file.header().processedDate, fmt::format("{}-{}-{}", date.year.view(), date.month.view(), date.day.view()));
}

void TriaxialSave::sortRow(std::size_t row) {
  if (!specimensAreSorted(m_workspace.TriaxialSampleTable[row])) sortSpecimens(m_changed.change(row));
}

/// On file a merged sample keeps its specimens in the order in which they came together; only the row is sorted.
void TriaxialSave::mergeRow(const SaveableRow& saved, std::uint32_t position) {
  TriaxialSampleRecord& record = m_changed.change(saved.row);
  const auto stored = std::make_unique<TriaxialSampleRecord>();
  saved.files->project.read(position, writableBytesOf(*stored));
  mergeSpecimens(*stored, record);
  saved.files->project.overwriteWithCopy(position, bytesOf(*stored));
  record = *stored;
  sortSpecimens(record);
}

ProjectHeader TriaxialSave::newHeader(std::string_view projectNo) const {
  const std::string today = slashed(m_workspace.today());
  ProjectHeader header = lastHeader();
  SetText(header.projectNo, projectNo);
  SetText(header.createdDate, today);
  SetText(header.processedDate, today);
  SetText(header.testDate, m_workspace.projectTestDate(projectNo).value_or(today));
  SetText(header.versionTag, infoOf(ProjectKind::Triaxial).versionTag);
  return header;
}

void TriaxialSave::nameLeftOut(const std::vector<std::size_t>& rows, std::string_view where) {
  if (rows.empty()) return;
  std::string samples;
  for (const std::size_t row : rows)
    samples += (samples.empty() ? "" : "、") + printableText(m_workspace.TriaxialSampleTable[row].sampleNo.trimmed());
  m_errors.push_back(fmt::format("{}已满（9999 个试样），下列试样没有写入：{}", where, samples));
}

/// The texts of the date boxes go into the settings at each save. The samples don't depend on it.
Remarks storeProcessingDate(const Workspace& workspace) {
  const ProcessingDate& date = workspace.processingDate;
  try {
    SettingsFile settings = sharedSettings(workspace);
    settings.writeText(kYearField, date.year.trimmed());
    settings.writeText(kMonthField, date.month.trimmed());
    settings.writeText(kDayField, date.day.trimmed());
  } catch (const UserError& error) {
    return {fmt::format("处理日期没有记入设置文件。{}", error.what())};
  }
  return {};
}

bool hasLiveRow(const Workspace& workspace) {
  for (const TriaxialSampleRecord& record : workspace.TriaxialSampleTable)
    if (isLive(record)) return true;
  return false;
}

}  // namespace

SaveReport saveTriaxial(Workspace& workspace, const OverwriteChooser& chooseOverwrites) {
  SaveReport report{"保存数据", std::string(infoOf(ProjectKind::Triaxial).saveMessage), {}, {}};
  if (!hasLiveRow(workspace)) return report;
  report.remarks = storeProcessingDate(workspace);
  TriaxialSave save(workspace);
  save.run(chooseOverwrites);
  report.errors = save.takeErrors();
  return report;
}

}  // namespace triaxlab
