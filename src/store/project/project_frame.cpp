#include "store/project/project_frame.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "common/in_memory.h"
#include "common/small_letters.h"
#include "common/user_error.h"
#include "store/project/project_number.h"
#include "store/safety/file_update.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

/// The browser's mask of the kind.
bool hasNameOf(const ProjectKindInfo& info, std::string_view fileName) {
  const std::string name = caseless(fileName);
  return name.starts_with(caseless(info.filePrefix)) && name.ends_with(".txt");
}

constexpr std::size_t kSampleNoOffset = 15;

}  // namespace

ReadAt readerOf(const File& file) {
  return [&file](std::uint64_t offset, std::span<std::byte> into) { return file.readAt(offset, into); };
}

std::optional<int> claimedCount(std::string_view field) {
  const std::string_view text = Trim(field);
  const std::size_t digit = text.find_first_not_of("+.");
  if (digit == std::string_view::npos || text[digit] < '0' || text[digit] > '9') return std::nullopt;
  return static_cast<int>(std::nearbyint(std::min<double>(ParseNumber(text), kLargestSampleCount)));
}

std::uint32_t recordPosition(std::uint32_t recordSize, std::uint32_t index) {
  const std::uint64_t position = sizeof(ProjectHeader) + std::uint64_t{recordSize} * index;
  if (position > std::numeric_limits<std::int32_t>::max())
    throw UserError(fmt::format("第 {} 个试样的位置超出了文件的范围。", std::uint64_t{index} + 1));
  return static_cast<std::uint32_t>(position);
}

ProjectHead readAnyProjectHead(const ReadAt& readAt, const std::filesystem::path& file) {
  ProjectHead head;
  const std::size_t got = readAt(0, writableBytesOf(head.header));
  if (got < sizeof head.header)
    throw UserError(fmt::format("文件“{}”已损坏：只有 {} 字节，不足一个文件头（{} 字节）。", textOfPath(file), got,
                                sizeof head.header));
  const std::optional<int> count = claimedCount(head.header.sampleCount.view());
  if (!count) throw UserError(fmt::format("文件“{}”已损坏：文件头中没有试样总数。", textOfPath(file)));
  head.sampleCount = *count;
  return head;
}

bool isOldFormat(const ProjectHeader& header, const ProjectKindInfo& info) {
  return !info.versionTag.empty() && header.versionTag.view().substr(0, 4) != info.versionTag;
}

UserError notUpgraded(const std::filesystem::path& file) {
  return UserError(fmt::format("文件“{}”是旧格式的数据文件，还没有转换成新格式。", textOfPath(file)));
}

ProjectHead readProjectHead(const ReadAt& readAt, const ProjectKindInfo& info, const std::filesystem::path& file) {
  ProjectHead head = readAnyProjectHead(readAt, file);
  if (isOldFormat(head.header, info)) throw notUpgraded(file);
  return head;
}

HeldRecords heldRecords(std::uint64_t fileSize, std::size_t recordSize, int sampleCount) {
  const auto claimed = static_cast<std::uint64_t>(sampleCount);
  const std::uint64_t behindHeader = fileSize - std::min<std::uint64_t>(fileSize, sizeof(ProjectHeader));
  const std::uint64_t whole = std::min(claimed, behindHeader / recordSize);
  return {inMemory(whole), whole < claimed && behindHeader % recordSize != 0};
}

std::string missingSamplesRemark(const std::filesystem::path& file, std::size_t missing,
                                 std::optional<std::size_t> cut) {
  const std::string cutSample = cut ? fmt::format("（第 {} 个只剩一部分）", *cut + 1) : "";
  return fmt::format("文件“{}”比文件头所说的短，缺 {} 个试样{}，以空白记录代替。", textOfPath(file), missing,
                     cutSample);
}

std::optional<std::string> shortageOf(const std::filesystem::path& file, std::uint64_t fileSize, std::size_t recordSize,
                                      int sampleCount) {
  const HeldRecords held = heldRecords(fileSize, recordSize, sampleCount);
  const std::size_t missing = static_cast<std::size_t>(sampleCount) - held.whole;
  if (missing == 0) return std::nullopt;
  return missingSamplesRemark(file, missing, held.nextIsCut ? std::optional(held.whole) : std::nullopt);
}

std::vector<SampleIndexEntry> loadSampleIndex(const ReadAt& readAt, std::uint64_t fileSize, const ProjectKindInfo& info,
                                              int sampleCount) {
  std::vector<SampleIndexEntry> index(static_cast<std::size_t>(sampleCount));
  const std::size_t whole = heldRecords(fileSize, info.recordSize, sampleCount).whole;
  const auto [sampleNoWidth, testMethodOffset] = info.identity;
  std::string identity(testMethodOffset ? *testMethodOffset + 1 : kSampleNoOffset + sampleNoWidth, '\0');
  for (std::size_t i = 0; i < whole; ++i) {
    const std::uint32_t position = recordPosition(info.recordSize, static_cast<std::uint32_t>(i));
    if (readAt(position, std::as_writable_bytes(std::span(identity))) < identity.size()) break;
    const std::string_view sampleNo(identity.data() + kSampleNoOffset, sampleNoWidth);
    if (sampleNo.front() == '\0') continue;  // a hole that a write beyond the end left
    SetText(index[i].sampleNo, Trim(sampleNo));
    if (testMethodOffset) index[i].testMethod = static_cast<std::uint8_t>(identity.back());
  }
  return index;
}

std::optional<ProjectKind> kindOfProjectFile(const std::filesystem::path& file) {
  const std::string name = textOfPath(file.filename());
  const auto* const info =
      std::ranges::find_if(kProjectKinds, [&name](const ProjectKindInfo& row) { return hasNameOf(row, name); });
  if (info == kProjectKinds.end()) return std::nullopt;
  ProjectHeader header;
  const bool isWhole = File(file, File::Mode::Read).readAt(0, writableBytesOf(header)) == sizeof header;
  return isWhole && claimedCount(header.sampleCount.view()) ? std::optional(info->kind) : std::nullopt;
}

std::filesystem::path findProjectFile(const std::filesystem::path& folder, const ProjectKindInfo& info,
                                      std::string_view fileName) {
  if (!hasNameOf(info, fileName))
    throw UserError(fmt::format("“{}”不是这类试验的数据文件（{}*.TXT）。", fileName, info.filePrefix));
  const std::optional<std::filesystem::path> path = findFile(folder, fileName);
  if (!path) throw UserError(fmt::format("没有文件“{}”。", textOfPath(folder / pathFromText(fileName))));
  return *path;
}

std::filesystem::path findFinishedFile(const Workspace& workspace, const ProjectKindInfo& info,
                                       std::string_view fileName, Remarks& remarks) {
  const std::filesystem::path wanted = workspace.projectFolder() / pathFromText(fileName);
  const Remarks told = FileUpdate::recover(workspace.knownDataFolder(), workspace.lockPatience, wanted);
  remarks.insert(remarks.end(), told.begin(), told.end());
  return findProjectFile(workspace.projectFolder(), info, fileName);
}

}  // namespace triaxlab
