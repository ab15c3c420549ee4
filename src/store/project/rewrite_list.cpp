#include "store/project/rewrite_list.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>
#include <vector>

#include "store/project/project_frame.h"
#include "store/project/project_number.h"
#include "store/project/upgrade.h"
#include "store/safety/backup.h"
#include "store/safety/file_update.h"
#include "store/safety/leftovers.h"
#include "store/safety/own_changes.h"
#include "store/safety/passing_file.h"
#include "store/summary/summary_update.h"

namespace triaxlab {
namespace {

/// About how much is copied at a time.
constexpr std::size_t kCopyBlock = std::size_t{1} << 20;

void checkOrder(std::span<const std::uint32_t> order, int sampleCount, const std::filesystem::path& path) {
  std::vector<bool> isTaken(static_cast<std::size_t>(sampleCount));
  for (const std::uint32_t index : order) {
    const std::uint64_t number = std::uint64_t{index} + 1;
    if (index >= isTaken.size())
      throw UserError(fmt::format("文件“{}”中没有第 {} 个试样，文件没有改动。", textOfPath(path), number));
    if (isTaken[index])
      throw UserError(fmt::format("新的顺序中第 {} 个试样出现了两次，文件“{}”没有改动。", number, textOfPath(path)));
    isTaken[index] = true;
  }
}

/// How many positions at the front of `order` follow each other in the file.
std::size_t lengthOfRun(std::span<const std::uint32_t> order, std::size_t longest) {
  std::size_t length = 1;
  while (length < std::min(order.size(), longest) && order[length] == order[0] + length) ++length;
  return length;
}

/// Copies the records in the new order behind each other. One that the file doesn't hold whole is the blank template.
void copyRecords(const File& from, File& to, const ProjectKindInfo& info, int sampleCount,
                 std::span<const std::uint32_t> order) {
  const std::size_t whole = heldRecords(from.size(), info.recordSize, sampleCount).whole;
  const std::size_t blockRecords = std::max<std::size_t>(1, kCopyBlock / info.recordSize);
  Bytes blanks;
  for (std::size_t i = 0; i < std::min(blockRecords, order.size()); ++i)
    blanks.insert(blanks.end(), info.blankRecord().begin(), info.blankRecord().end());
  Bytes block;
  for (std::size_t written = 0; written < order.size();) {
    const std::size_t records = std::min(blockRecords, order.size() - written);
    block.assign(blanks.begin(), blanks.begin() + static_cast<std::ptrdiff_t>(records * info.recordSize));
    for (std::size_t i = 0; i < records;) {
      const std::size_t first = order[written + i], run = lengthOfRun(order.subspan(written + i), records - i);
      const std::size_t readable = std::min(run, whole - std::min(whole, first));
      from.readAt(recordPosition(info.recordSize, order[written + i]),
                  std::span(block).subspan(i * info.recordSize, readable * info.recordSize));
      i += run;
    }
    to.writeAt(recordPosition(info.recordSize, static_cast<std::uint32_t>(written)), block);
    written += records;
  }
}

/// Makes the new content, whole and on the disk, and puts it at `target`.
void makeNewContent(const Workspace& workspace, const File& old, const ProjectKindInfo& info, ProjectHead head,
                    std::span<const std::uint32_t> order, const std::filesystem::path& target) {
  PassingFile temporary(workspace.applicationFolder, kReorderedFile);
  SetText(head.header.sampleCount, FormatPadded(static_cast<std::int64_t>(order.size()), 4));
  try {
    File file = temporary.make();
    file.writeAt(0, bytesOf(head.header));
    copyRecords(old, file, info, head.sampleCount, order);
    file.sync();
    temporary.moveTo(target);
    syncFolder(target.parent_path());
  } catch (const UserError& cause) {
    throw UserError(fmt::format("文件“{}”没有重排，原文件没有改动。{}", textOfPath(old.path()), cause.what()));
  }
}

/// The sample numbers that stay.
std::unordered_set<std::string> numbersOf(const File& file, const ProjectKindInfo& info, int sampleCount,
                                          std::span<const std::uint32_t> order) {
  const std::vector<SampleIndexEntry> samples = loadSampleIndex(readerOf(file), file.size(), info, sampleCount);
  std::unordered_set<std::string> numbers;
  for (const std::uint32_t index : order) numbers.emplace(samples[index].sampleNo.trimmed());
  return numbers;
}

/// A damaged summary file, which belongs to sibling tools as well, doesn't keep the project from being saved.
void blankInSummary(FileUpdate& update, const Workspace& workspace, const ProjectKindInfo& info, const File& file,
                    const ProjectHead& head, std::span<const std::uint32_t> order, RewriteReport& report) {
  try {
    blankDeletedSamples(update, workspace, info.kind, head.header.projectNo.trimmed(),
                        numbersOf(file, info, head.sampleCount, order));
  } catch (const DamagedSummary& damage) {
    report.errors.push_back(std::string(damage.what()) + "它没有改动，土样列表已保存。");
  }
}

/// The rewrite of one file with the right to do it.
void rewriteLocked(Workspace& workspace, FileUpdate& update, const ProjectKindInfo& info,
                   const std::filesystem::path& path, std::span<const std::uint32_t> order, RewriteReport& report) {
  const File file = File::below(workspace.dataFolder, path, File::Mode::Read);
  const ProjectHead head = readProjectHead(readerOf(file), info, path);
  checkOrder(order, head.sampleCount, path);
  if (const auto shortage = shortageOf(path, file.size(), info.recordSize, head.sampleCount))
    report.remarks.push_back(*shortage);
  blankInSummary(update, workspace, info, file, head, order, report);
  // Beside the new file there may be one more on the way from the application folder.
  const std::uint64_t room = 2 * (file.size() + update.pendingBytes());
  for (const std::string& remark : keepCopy(workspace, path, room)) report.remarks.push_back(remark);
  if (order.empty()) {
    update.remove(path);
  } else {
    makeNewContent(workspace, file, info, head, order, update.newContentPath());
    update.replace(path);
  }
  const std::array paths{path};
  commitOwnChanges(update, workspace.fileMemory, paths);
  for (const std::string& remark : update.remarks()) report.remarks.push_back(remark);
  if (const std::optional<FileStamp> stamp = stampAfterChange(path))
    workspace.fileMemory.remember(FileUse::List, path, *stamp);
}

}  // namespace

RewriteReport rewriteProject(Workspace& workspace, ProjectKind kind, std::string_view fileName,
                             std::span<const std::uint32_t> order, const ChangeQuestion& mayOverwriteChanges) {
  const ProjectKindInfo& info = infoOf(kind);
  if (info.makeSave == nullptr)
    throw UserError(fmt::format("文件“{}”是旧三轴数据文件，只能读取，不能重排。", fileName));
  RewriteReport report{
      .title = std::string(info.rewriteTitle), .message = "数据保存完毕!", .errors = {}, .remarks = {}};
  ChangedFiles changed(workspace.fileMemory, FileUse::List, report.title);
  for (;;) {
    {
      FileUpdate update(workspace.knownDataFolder(), workspace.lockPatience);
      const std::filesystem::path path = findProjectFile(workspace.projectFolder(), info, fileName);
      update.lock().take(path);
      changed.look(path);
      if (!changed.hasQuestion()) {
        for (const std::string& remark : upgradeProject(workspace, update.lock(), info, path))
          report.remarks.push_back(remark);
        rewriteLocked(workspace, update, info, path, order, report);
        return report;
      }
    }
    // Nobody else waits for the answer; afterwards everything is looked at anew.
    report.remarks = changed.ask(mayOverwriteChanges);
  }
}

}  // namespace triaxlab
