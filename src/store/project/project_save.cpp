#include "store/project/project_save.h"

#include <fmt/core.h>
#include <fmt/format.h>

#include <algorithm>

#include "common/small_letters.h"
#include "store/project/project_number.h"
#include "store/project/upgrade.h"
#include "store/safety/backup.h"
#include "store/safety/own_changes.h"
#include "store/summary/summary_file.h"

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

/// Numbers of one file have one key. What is no text is shown alike and stays apart all the same.
std::string fileKey(std::string_view projectNo) {
  return isGbk(projectNo) ? caseless(gbkToUtf8(projectNo)) : std::string(projectNo);
}

}  // namespace

ProjectSave::ProjectSave(Workspace& workspace, ProjectKind kind)
    : m_workspace(workspace), m_info(infoOf(kind)), m_table(workspace, kind) {}

bool ProjectSave::begin(const OverwriteChooser& chooseOverwrites, const ChangesOfOthers& changes) {
  // A question is asked without the locks, so that no other program waits for a person; what was read before it is then
  // read again, and asked about again if it is no longer the same.
  ChangedFiles changed(m_workspace.fileMemory, FileUse::Document, changes.title);
  std::optional<std::vector<std::optional<FileStamp>>> askedFor;
  for (;;) {
    release();
    m_update.emplace(m_workspace.knownDataFolder(), m_workspace.lockPatience);
    findFiles(changed);
    if (changed.hasQuestion()) {
      release();
      for (const std::string& remark : changed.ask(changes.mayOverwrite)) m_remarks.push_back(remark);
      continue;
    }
    loadFiles();
    if (!m_workspace.dataOf(m_info.kind).rawImportPending || askedFor == stamps()) return true;
    askedFor = stamps();
    m_update->unlock();
    if (!askOverwrites(chooseOverwrites)) return false;
  }
}

bool ProjectSave::askOfEmptyTable(const OverwriteChooser& chooseOverwrites) {
  return !m_workspace.dataOf(m_info.kind).rawImportPending || askOverwrites(chooseOverwrites);
}

void ProjectSave::finish() {
  if (m_rows.empty()) throw UserError(fmt::format("{}", fmt::join(m_errors, "")));
  for (const SaveableRow& row : m_rows) saveRow(row);
  for (const std::string& error : leftOut(m_leftOut, "工程文件")) m_errors.push_back(error);
  putIntoSummaries();
  std::vector<std::filesystem::path> written;
  for (const auto& [name, saved] : m_projects) {
    if (!saved.project) continue;
    saved.project->finish(m_workspace.dataOf(m_info.kind).controlledDocNo);
    if (saved.summary) saved.summary->finish();
    if (saved.project->isWritten()) written.push_back(saved.path);
    for (const std::string& remark : saved.project->remarks()) m_remarks.push_back(remark);
  }
  keepCopies();
  commitOwnChanges(*m_update, m_workspace.fileMemory, written);
  for (const std::filesystem::path& file : written)
    if (const std::optional<FileStamp> stamp = stampAfterChange(file))
      m_workspace.fileMemory.remember(FileUse::Document, file, *stamp);
  for (const std::string& remark : m_update->remarks()) m_remarks.push_back(remark);
  committed();
  m_workspace.projectHeader = lastHeader();
}

/// Gives the locks back and drops what was read under them.
void ProjectSave::release() {
  m_last = nullptr;
  m_rows.clear();
  m_projects.clear();
  m_errors.clear();
  m_summaryErrors.clear();
  m_update.reset();
}

/// Finds the projects of the table and locks their files, so that a file that can't be had stops the save before
/// anything is changed.
void ProjectSave::findFiles(ChangedFiles& changed) {
  for (std::size_t row = 0; row < m_table.size(); ++row) {
    if (!m_table.isLive(row)) continue;
    const std::string_view projectNo = m_table.projectNo(row);
    const auto [found, isNew] = m_projects.try_emplace(fileKey(projectNo));
    SavedProject& saved = found->second;
    saved.tableRows.push_back(row);
    if (!isNew) continue;
    saved.projectNo = projectNo;
    if (const std::optional<std::string> why = whyNoFileName(saved.projectNo)) {
      saved.refusal = fmt::format("工程编号{}，不能作为文件名。", *why);
      continue;
    }
    saved.path = fileOrNew(m_workspace.projectFolder(), projectFileName(m_info.filePrefix, saved.projectNo));
    m_update->lock().take(saved.path);
    m_update->lock().take(summaryPath(m_workspace, saved.projectNo));
    changed.look(saved.path);
  }
}

void ProjectSave::loadFiles() {
  std::vector<SavedProject*> inTableOrder;
  for (auto& [name, saved] : m_projects) inTableOrder.push_back(&saved);
  std::ranges::sort(inTableOrder, {}, [](const SavedProject* saved) { return saved->tableRows.front(); });
  for (SavedProject* const saved : inTableOrder) {
    if (saved->refusal.empty()) load(*saved);
    if (!saved->project) {
      m_errors.push_back(fmt::format("工程“{}”（第 {}行）没有保存：{}", printableText(saved->projectNo),
                                     rowList(saved->tableRows), saved->refusal));
      continue;
    }
    for (const std::size_t row : saved->tableRows) m_rows.push_back({row, saved->project.get(), saved->summary.get()});
  }
  std::sort(m_rows.begin(), m_rows.end(), [](const SaveableRow& a, const SaveableRow& b) { return a.row < b.row; });
}

void ProjectSave::load(SavedProject& saved) {
  try {
    for (const std::string& remark : upgradeProject(m_workspace, m_update->lock(), m_info, saved.path))
      m_remarks.push_back(remark);
    m_update->lock().take(saved.path);  // an upgrade has put another file there
    auto project = std::make_unique<ProjectUpdate>(*m_update, m_info, saved.path);
    saved.summary = loadSummary(saved.projectNo);
    saved.project = std::move(project);
  } catch (const UserError& error) {
    saved.refusal = error.what();
  }
}

/// A damaged summary file, which belongs to sibling tools as well, doesn't keep the project from being saved.
std::unique_ptr<SummaryUpdate> ProjectSave::loadSummary(const std::string& projectNo) {
  try {
    return std::make_unique<SummaryUpdate>(*m_update, m_workspace, m_info.kind, projectNo);
  } catch (const DamagedSummary& damage) {
    m_summaryErrors.push_back(std::string(damage.what()) + "它没有改动，试样已存入工程文件。");
    return nullptr;
  }
}

/// The states of the project files that are to be written.
std::vector<std::optional<FileStamp>> ProjectSave::stamps() const {
  std::vector<std::optional<FileStamp>> stamps;
  for (const auto& [name, saved] : m_projects) stamps.push_back(stampOf(saved.path));
  return stamps;
}

/// An import that replaces known samples drops what was typed for them: then also what this run wrote is copied.
void ProjectSave::keepCopies() {
  // The journal, and behind it the files.
  const std::uint64_t room = 2 * m_update->pendingBytes();
  for (const auto& [name, saved] : m_projects) {
    if (!saved.project || !saved.project->isWritten()) continue;
    const bool replaces = m_workspace.dataOf(m_info.kind).rawImportPending && saved.project->replacesStored();
    for (const std::string& remark :
         keepCopy(m_workspace, saved.path, room, replaces ? CopyOf::OwnStates : CopyOf::OthersStates))
      m_remarks.push_back(remark);
  }
}

void ProjectSave::saveRow(const SaveableRow& saved) {
  ProjectUpdate& file = *saved.project;
  if (!file.exists()) file.create(newHeader(m_table.projectNo(saved.row)));
  m_last = &file;
  if (const std::optional<std::uint32_t> position = positionOf(saved))
    overwrite(saved, *position);
  else if (file.isFull())
    m_leftOut.push_back(saved.row);
  else
    append(saved);
}

void ProjectSave::overwrite(const SaveableRow& saved, std::uint32_t position) {
  saved.project->overwrite(position, m_table.record(saved.row));
}

void ProjectSave::append(const SaveableRow& saved) {
  saved.project->append(m_table.record(saved.row), m_table.sampleNo(saved.row), m_table.testMethod(saved.row));
}

std::optional<std::uint32_t> ProjectSave::positionOf(const SaveableRow& saved) const {
  return saved.project->find(m_table.sampleNo(saved.row), m_table.testMethod(saved.row));
}

void ProjectSave::setProcessedDate(ProjectHeader& header) const {
  const ProcessingDate& date = m_workspace.processingDate;
  if (date.isSet())
    SetText(header.processedDate, fmt::format("{}-{}-{}", date.year.view(), date.month.view(), date.day.view()));
}

/// The header that was in use last; a new file begins as a copy of it.
const ProjectHeader& ProjectSave::lastHeader() const { return m_last ? m_last->header() : m_workspace.projectHeader; }

ProjectHeader ProjectSave::newHeader(std::string_view projectNo) const {
  const std::string today = slashed(m_workspace.today());
  ProjectHeader header = lastHeader();
  SetText(header.projectNo, projectNo);
  SetText(header.createdDate, today);
  SetText(header.processedDate, today);
  setProcessedDate(header);
  SetText(header.testDate, m_workspace.dataOf(m_info.kind).projectTestDate(projectNo).value_or(today));
  // A kind without a tag leaves the one of the header that it began as.
  if (!m_info.versionTag.empty()) SetText(header.versionTag, m_info.versionTag);
  return header;
}

void ProjectSave::putIntoSummaries() {
  std::vector<std::size_t> withoutPlace;
  for (const SaveableRow& row : m_rows)
    if (row.summary != nullptr && !row.summary->put(m_table, row.row)) withoutPlace.push_back(row.row);
  for (const std::string& error : leftOut(withoutPlace, "成果文件")) m_summaryErrors.push_back(error);
}

std::vector<std::string> ProjectSave::leftOut(const std::vector<std::size_t>& rows, std::string_view where) const {
  if (rows.empty()) return {};
  std::string samples;
  for (const std::size_t row : rows) samples += (samples.empty() ? "" : "、") + printableText(m_table.sampleNo(row));
  return {fmt::format("{}已满（9999 个试样），下列试样没有写入：{}", where, samples)};
}

}  // namespace triaxlab
