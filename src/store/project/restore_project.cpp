#include "store/project/restore_project.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <map>
#include <unordered_set>
#include <utility>

#include "platform/files.h"
#include "store/project/old_formats.h"
#include "store/project/project_file.h"
#include "store/project/project_frame.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"
#include "store/project/upgrade.h"
#include "store/safety/backup.h"
#include "store/safety/file_update.h"
#include "store/safety/own_changes.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_update.h"

namespace triaxlab {
namespace {

constexpr const char* kTitle = "恢复备份";

// ---- What differs

/// A project file of any format, as far as its samples tell.
class ReadSamples {
 public:
  ReadSamples(const File& file, const ProjectKindInfo& info)
      : m_file(file), m_head(readAnyProjectHead(readerOf(file), file.path())), m_info(info) {
    m_isOld = isOldFormat(m_head.header, info);
    if (m_isOld) m_info.recordSize = static_cast<std::uint32_t>(info.oldFormat->recordSize);
    std::uint32_t place = 0;
    for (const SampleIndexEntry& entry : loadSampleIndex(readerOf(file), file.size(), m_info, m_head.sampleCount))
      m_places.emplace(std::pair(std::string(entry.sampleNo.trimmed()), entry.testMethod), place++);
  }

  int count() const { return m_head.sampleCount; }
  bool isOld() const { return m_isOld; }
  /// By sample number (GBK) and test method.
  const std::map<std::pair<std::string, std::uint8_t>, std::uint32_t>& places() const { return m_places; }
  Bytes record(std::uint32_t place) const {
    Bytes bytes(m_info.recordSize);
    m_file.readAt(recordPosition(m_info.recordSize, place), bytes);
    return bytes;
  }

 private:
  const File& m_file;
  ProjectHead m_head;
  ProjectKindInfo m_info;
  bool m_isOld = false;
  std::map<std::pair<std::string, std::uint8_t>, std::uint32_t> m_places;
};

/// "多出 2 个：A-1、A-2", with the first few names; nothing of none.
void tell(std::vector<std::string>& sentence, std::string_view what, const std::vector<std::string>& numbers) {
  constexpr std::size_t kNamed = 3;
  if (numbers.empty()) return;
  const std::span<const std::string> named(numbers.data(), std::min(numbers.size(), kNamed));
  sentence.push_back(
      fmt::format("{} {} 个：{}{}", what, numbers.size(), fmt::join(named, "、"), numbers.size() > kNamed ? "…" : ""));
}

/// What a restore of `copy` changes of `present`.
std::string differenceOf(const ReadSamples& copy, const ReadSamples& present) {
  std::vector<std::string> added, changed, gone, sentence;
  for (const auto& [sample, place] : copy.places()) {
    const auto known = present.places().find(sample);
    if (known == present.places().end())
      added.push_back(printableText(sample.first));
    else if (!copy.isOld() && !present.isOld() && copy.record(place) != present.record(known->second))
      changed.push_back(printableText(sample.first));
  }
  for (const auto& [sample, place] : present.places())
    if (!copy.places().contains(sample)) gone.push_back(printableText(sample.first));
  tell(sentence, "多出", added);
  tell(sentence, "没有", gone);
  tell(sentence, "改变", changed);
  if (copy.isOld() != present.isOld()) sentence.emplace_back("旧格式，内容没有比较");
  return sentence.empty() ? "试样和现在一样" : fmt::format("{}", fmt::join(sentence, "；"));
}

ProjectCopy rowOf(const Workspace& workspace, const ProjectKindInfo& info, const std::filesystem::path& path,
                  const BackupCopy& copy, const ReadSamples& present) {
  ProjectCopy row{copy.name, copy.time, {}, {}};
  try {
    const File file = File::below(workspace.dataFolder, copyPath(path, copy.name), File::Mode::Read);
    const ReadSamples samples(file, info);
    row.sampleCount = std::to_string(samples.count());
    row.difference = differenceOf(samples, present);
  } catch (const UserError& error) {
    row.difference = error.what();
    row.isReadable = false;
  }
  return row;
}

// ---- The restore

/// The content of the copy, whole and on the disk, where the update takes it from.
void makeNewContent(FileUpdate& update, const File& copy, const ProjectKindInfo& info,
                    const std::filesystem::path& path, RestoreReport& report) {
  const std::filesystem::path target = update.newContentPath();
  File file(target, File::Mode::Create, path);
  if (const auto shortage = writeInTodaysFormat(copy, info, file)) report.remarks.push_back(*shortage);
  file.sync();
  syncFolder(target.parent_path());
}

/// Puts the results of all samples of the restored file into the summary file, a table full at a time.
void putResults(FileUpdate& update, const Workspace& workspace, ProjectKind kind, const File& restored, int sampleCount,
                std::string_view projectNo, RestoreReport& report) {
  Workspace own;  // the tables of the laboratory's work stay as they are
  own.applicationFolder = workspace.applicationFolder;
  own.dataFolder = workspace.dataFolder;
  own.settings = workspace.settings;
  own.fixedToday = workspace.fixedToday;
  SummaryUpdate summary(update, own, kind, projectNo);
  std::vector<std::string> leftOut;
  constexpr int kAtOnce = static_cast<int>(kTableRows);
  for (int first = 1; first <= sampleCount; first += kAtOnce) {
    takeSamples(own, kind, restored, [&](int count) {
      return SampleRange{first, std::min(first + kAtOnce - 1, count)};
    });
    for (const std::string& remark : readLocations(own, kind)) report.remarks.push_back(remark);
    const SampleRows rows(own, kind);
    for (std::size_t row = 0; row < rows.size(); ++row)
      if (rows.isLive(row) && !summary.put(rows, row)) leftOut.push_back(printableText(rows.sampleNo(row)));
  }
  summary.finish();
  if (!leftOut.empty())
    report.errors.push_back(fmt::format("成果文件已满（9999 个试样），下列试样没有写入：{}", fmt::join(leftOut, "、")));
}

/// A damaged summary file, which belongs to sibling tools as well, doesn't keep the project from being restored.
void followInSummary(FileUpdate& update, const Workspace& workspace, ProjectKind kind, const File& restored,
                     RestoreReport& report) {
  const ProjectHead head = readProjectHead(readerOf(restored), infoOf(kind), restored.path());
  const std::string_view projectNo = head.header.projectNo.trimmed();
  const std::filesystem::path path = summaryPath(workspace, projectNo);
  if (path.empty()) return;
  update.lock().take(path);
  std::unordered_set<std::string> numbers;
  for (const SampleIndexEntry& entry :
       loadSampleIndex(readerOf(restored), restored.size(), infoOf(kind), head.sampleCount))
    numbers.emplace(entry.sampleNo.trimmed());
  try {
    blankDeletedSamples(update, workspace, kind, projectNo, numbers);
    putResults(update, workspace, kind, restored, head.sampleCount, projectNo, report);
  } catch (const DamagedSummary& damage) {
    report.errors.push_back(std::string(damage.what()) + "它没有改动，工程文件已恢复。");
  }
}

/// The file as it was. Without it nothing is restored.
void keepPresent(Workspace& workspace, const std::filesystem::path& path, std::uint64_t room) {
  const Remarks failures = keepCopy(workspace, path, room, CopyOf::OwnStates);
  if (!failures.empty()) throw UserError(kTitle, failures.front() + "所以没有恢复，文件没有改动。");
}

}  // namespace

std::vector<ProjectCopy> listCopies(const Workspace& workspace, ProjectKind kind, std::string_view fileName) {
  const ProjectKindInfo& info = infoOf(kind);
  const std::filesystem::path path = findProjectFile(workspace.projectFolder(), info, fileName);
  refuseLinks(workspace.dataFolder, copyPath(path, ""));
  const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
  const ReadSamples present(file, info);
  std::vector<ProjectCopy> rows;
  for (const BackupCopy& copy : copiesOf(path)) rows.push_back(rowOf(workspace, info, path, copy, present));
  return rows;
}

RestoreReport restoreProject(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                             std::string_view copyName) {
  const ProjectKindInfo& info = infoOf(kind);
  if (info.makeSave == nullptr)
    throw UserError(kTitle, fmt::format("文件“{}”是旧三轴数据文件，只能读取，不能恢复。", fileName));
  RestoreReport report;
  FileUpdate update(workspace.knownDataFolder(), workspace.lockPatience);
  const std::filesystem::path path = findProjectFile(workspace.projectFolder(), info, fileName);
  update.lock().take(path);
  // Opened before the present file is copied, which may push out the oldest copy.
  const File copy = File::below(workspace.dataFolder, copyPath(path, copyName), File::Mode::Read);
  makeNewContent(update, copy, info, path, report);
  const File restored(update.newContentPath(), File::Mode::Read, path);
  followInSummary(update, workspace, kind, restored, report);
  keepPresent(workspace, path, 2 * update.pendingBytes());
  update.replace(path);
  commitOwnChanges(update, workspace.fileMemory, std::array{path});
  // A document that is open comes from a file that is no more.
  workspace.fileMemory.remember(FileUse::Document, path, FileStamp{});
  for (const std::string& remark : update.remarks()) report.remarks.push_back(remark);
  return report;
}

}  // namespace triaxlab
