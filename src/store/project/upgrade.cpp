#include "store/project/upgrade.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>

#include "store/project/old_formats.h"
#include "store/project/project_frame.h"
#include "store/safety/backup.h"
#include "store/safety/own_changes.h"
#include "store/safety/passing_file.h"

namespace triaxlab {
namespace {

/// Writes the file that takes the old one's place.
class Conversion {
 public:
  Conversion(const File& old, const ProjectKindInfo& info, const OldFormat& format, const ProjectHead& head)
      : m_old(old), m_info(info), m_format(format), m_head(head) {
    // What the old file doesn't hold whole stays as in the blank template.
    m_oldBlank.resize(format.recordSize);
    for (const FieldCopy& copy : format.copies)
      std::memcpy(&m_oldBlank[copy.from], &info.blankRecord()[copy.to], copy.size);
  }

  void writeTo(File& file) const {
    ProjectHeader header = m_head.header;
    SetText(header.versionTag, m_info.versionTag);
    file.writeAt(0, bytesOf(header));
    for (std::size_t first = 0; first < count(); first += kBlockRecords)
      writeBlock(file, first, std::min(kBlockRecords, count() - first));
    if (!m_info.hasEndText) return;
    FixedText<kEndTextWidth> endText;
    m_old.readAt(oldPosition(count()), writableBytesOf(endText));
    file.writeAt(recordPosition(m_info.recordSize, static_cast<std::uint32_t>(count())), bytesOf(endText));
  }

  /// What the old file lacks.
  std::optional<std::string> shortage() const {
    return shortageOf(m_old.path(), m_old.size(), m_format.recordSize, m_head.sampleCount);
  }

 private:
  static constexpr std::size_t kBlockRecords = 32;  // about 1 MB of triaxial records

  std::size_t count() const { return static_cast<std::size_t>(m_head.sampleCount); }
  std::uint64_t oldPosition(std::size_t index) const { return sizeof(ProjectHeader) + index * m_format.recordSize; }

  void writeBlock(File& file, std::size_t first, std::size_t records) const {
    Bytes old, converted;
    for (std::size_t i = 0; i < records; ++i) old.insert(old.end(), m_oldBlank.begin(), m_oldBlank.end());
    const std::size_t whole = heldRecords(m_old.size(), m_format.recordSize, m_head.sampleCount).whole;
    const std::size_t readable = std::min(records, whole - std::min(whole, first));
    m_old.readAt(oldPosition(first), std::span(old).first(readable * m_format.recordSize));
    for (std::size_t i = 0; i < records; ++i) {
      const Bytes record = recordOfToday(m_format, m_info.blankRecord(),
                                         std::span(old).subspan(i * m_format.recordSize, m_format.recordSize));
      converted.insert(converted.end(), record.begin(), record.end());
    }
    file.writeAt(recordPosition(m_info.recordSize, static_cast<std::uint32_t>(first)), converted);
  }

  const File& m_old;
  const ProjectKindInfo& m_info;
  const OldFormat& m_format;
  const ProjectHead& m_head;
  Bytes m_oldBlank;
};

/// The head of the file if it has the old format.
std::optional<ProjectHead> oldHead(const File& file, const ProjectKindInfo& info) {
  const ProjectHead head = readAnyProjectHead(readerOf(file), file.path());
  if (!isOldFormat(head.header, info)) return std::nullopt;
  return head;
}

/// Space for the temporary file, and for another beside the old one where the application folder is on another disk.
std::uint64_t roomFor(const ProjectKindInfo& info, const ProjectHead& head) {
  return std::uint64_t{2} *
         (recordPosition(info.recordSize, static_cast<std::uint32_t>(head.sampleCount)) + kEndTextWidth);
}

/// After a power cut either file may stand; they hold the same samples, so a disk that can't say is no error here.
void makeDurable(const std::filesystem::path& folder) {
  try {
    syncFolder(folder);
  } catch (const UserError&) {
  }
}

}  // namespace

Remarks upgradeProject(Workspace& workspace, DataLock& lock, const ProjectKindInfo& info,
                       const std::filesystem::path& file) {
  const OldFormat* const format = info.oldFormat;
  if (format == nullptr || !fileExists(file)) return {};
  const File old = File::below(workspace.dataFolder, file, File::Mode::Read);
  const std::optional<ProjectHead> head = oldHead(old, info);
  if (!head) return {};
  lock.take(file);
  const Conversion conversion(old, info, *format, *head);
  PassingFile temporary(workspace.applicationFolder, format->temporaryName);
  const std::optional<std::string> shortage = conversion.shortage();
  Remarks remarks = keepCopy(workspace, file, roomFor(info, *head));
  const FileStamp before = old.stamp();  // a file that loses its name gets another
  try {
    File converted = temporary.make();
    conversion.writeTo(converted);
    converted.sync();
    temporary.moveTo(file);
  } catch (const UserError& cause) {
    throw UserError(fmt::format("文件“{}”是旧格式的数据文件，没有转换成新格式，原文件没有改动。{}", textOfPath(file),
                                cause.what()));
  }
  makeDurable(file.parent_path());
  workspace.fileMemory.noteOwnChange(file, before, stampAfterChange(file));
  if (shortage) remarks.push_back(*shortage);
  return remarks;
}

Remarks upgradeProject(Workspace& workspace, const ProjectKindInfo& info, const std::filesystem::path& file) {
  if (info.oldFormat == nullptr || !fileExists(file)) return {};
  if (!oldHead(File::below(workspace.dataFolder, file, File::Mode::Read), info)) return {};
  DataLock lock(workspace.knownDataFolder(), workspace.lockPatience);
  lock.take(file);  // and whoever held it may have upgraded the file
  return upgradeProject(workspace, lock, info, file);
}

std::optional<std::string> writeInTodaysFormat(const File& from, const ProjectKindInfo& info, File& to) {
  const std::optional<ProjectHead> head = info.oldFormat != nullptr ? oldHead(from, info) : std::nullopt;
  if (!head) {
    to.copyContentOf(from);
    return std::nullopt;
  }
  const Conversion conversion(from, info, *info.oldFormat, *head);
  conversion.writeTo(to);
  return conversion.shortage();
}

}  // namespace triaxlab
