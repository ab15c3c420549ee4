#include "store/safety/file_update.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "common/in_memory.h"
#include "common/user_error.h"
#include "store/safety/passing_file.h"
#include "store/safety/save_journal.h"
#include "store/safety/save_journal_application.h"
#include "store/safety/save_recovery.h"

namespace triaxlab {
namespace {

/// Nothing was changed, and no journal will change anything.
[[noreturn]] void failUnchanged(const std::string& names, const UserError& cause) {
  throw UserError(fmt::format("数据没有保存，{}没有改动。{}", names, cause.what()));
}

[[noreturn]] void failUnfinished(const std::string& names, const std::filesystem::path& journal,
                                 const UserError& cause) {
  throw UserError(fmt::format(
      "要保存到{}的数据已完整记入“{}”，但还没有全部写入；{}请不要移动它，排除故障后，下次打开或保存时自动写完。", names,
      textOfPath(journal), cause.what()));
}

[[noreturn]] void failUncertain(const std::string& names, const std::filesystem::path& journal,
                                const UserError& cause) {
  throw UserError(fmt::format(
      "数据没有存好，{}还是原样；{}“{}”删不掉也读不出来，不能确定数据是否记全。请不要关闭窗口，排除故障后再保存"
      "一次。",
      names, cause.what(), textOfPath(journal)));
}

/// What stands under the name of a journal that could be neither written nor made void.
enum class Standing { Void, Complete, Unknown };

Standing standingOf(const std::filesystem::path& journal) {
  try {
    return FoundSaveJournal::open(journal) ? Standing::Complete : Standing::Void;
  } catch (const UserError&) {
    return Standing::Unknown;
  }
}

/// What is to be written to one file, by its place there. No two overlap.
using PendingWrites = std::map<std::uint64_t, std::span<const std::byte>>;

std::uint64_t endOf(const PendingWrites& writes) {
  return writes.empty() ? 0 : writes.rbegin()->first + writes.rbegin()->second.size();
}

/// Takes [begin, end) out of the writes; what one has on either side of it stays.
void cutOut(PendingWrites& writes, std::uint64_t begin, std::uint64_t end) {
  auto write = writes.upper_bound(begin);
  if (write != writes.begin()) --write;
  while (write != writes.end() && write->first < end) {
    const auto [at, bytes] = *write;
    const std::uint64_t itsEnd = at + bytes.size();
    if (itsEnd <= begin) {
      ++write;
      continue;
    }
    write = writes.erase(write);
    if (at < begin) writes[at] = bytes.first(inMemory(begin - at));
    if (itsEnd > end) writes[end] = bytes.subspan(inMemory(end - at));
  }
}

/// The writes as pieces of a journal, their bytes at the end of `data`. Neighbours in the file that are neighbours in
/// memory, as the rows of a table are, become one piece and so one write.
std::vector<SaveJournalPiece> piecesOf(const PendingWrites& writes, SaveJournalSpans& data) {
  std::vector<SaveJournalPiece> pieces;
  for (auto write = writes.begin(); write != writes.end();) {
    const auto [offset, first] = *write;
    std::size_t size = 0;
    while (write != writes.end() && write->first == offset + size && write->second.data() == first.data() + size) {
      size += write->second.size();
      ++write;
    }
    pieces.push_back({offset, size, data.append({first.data(), size})});
  }
  return pieces;
}

/// Keeps copies of bytes. They lie in large blocks one behind the other, so that what is written in order is one piece.
class KeptBytes {
 public:
  std::span<const std::byte> keep(std::span<const std::byte> bytes) {
    if (m_free.size() < bytes.size()) {
      const std::size_t size = std::max(kBlock, bytes.size());
      // Not a vector, which would fill the block with zeros first.
      m_blocks.push_back(std::make_unique_for_overwrite<Block>(size));
      m_free = {m_blocks.back().get(), size};
    }
    const std::span<std::byte> kept = m_free.first(bytes.size());
    std::ranges::copy(bytes, kept.begin());
    m_free = m_free.subspan(bytes.size());
    return kept;
  }

 private:
  using Block = std::byte[];  // NOLINT(modernize-avoid-c-arrays): its size is known at run time alone
  static constexpr std::size_t kBlock = std::size_t{1} << 20;
  std::vector<std::unique_ptr<Block>> m_blocks;
  std::span<std::byte> m_free;
};

/// One that a dead program left keeps nobody out, but lies about.
void takeAwayLockFile(const std::filesystem::path& dataFolder) {
  using std::chrono::milliseconds;
  try {
    if (fileExists(lockFileOf(dataFolder))) DataLock(dataFolder, milliseconds(0));
  } catch (const UserError&) {
    // Somebody holds it.
  }
}

}  // namespace

struct FileUpdate::State {
  State(std::filesystem::path folder, std::chrono::milliseconds patience)
      : dataFolder(std::move(folder)), lock(std::in_place, dataFolder, patience) {
    if (mayHoldRemains(dataFolder)) recovery = finishInterrupted(dataFolder, *lock);
  }

  std::filesystem::path dataFolder;
  std::optional<DataLock> lock;
  Recovery recovery;
  std::map<std::string, PendingWrites> files;    // by the path below the data folder
  std::map<std::string, SaveJournalDeed> deeds;  // files that are replaced or removed
  std::optional<PassingFile> newContent;
  bool isUnfinished = false;  // the journal stands
  KeptBytes kept;
  /// What was asked for last: a save reads thousands of records of one file.
  std::filesystem::path lastPath;
  std::string lastKey;
  std::string openKey;
  std::optional<File> open;

  /// Its key, which is also its path in the journal.
  const std::string& keyOf(const std::filesystem::path& file) {
    if (file.native() == lastPath.native()) return lastKey;
    std::string key = file.lexically_relative(dataFolder).generic_string();
    if (!isSaveJournalPath(key))
      throw UserError(fmt::format("“{}”不在数据文件夹“{}”之内。", textOfPath(file), textOfPath(dataFolder)));
    if (const WaitingSave* const save = recovery.waitingFor(key)) throw UserError(save->sentence);
    lastPath = file;
    return lastKey = key;
  }

  std::vector<SaveJournalFile> journalFiles(SaveJournalSpans& data, const std::string& newContentName) const {
    std::vector<SaveJournalFile> journalFiles;
    for (const auto& [path, writes] : files) journalFiles.push_back({path, piecesOf(writes, data)});
    for (const auto& [path, deed] : deeds) {
      SaveJournalFile& file = journalFiles.emplace_back(SaveJournalFile{path, {}, deed, newContentName});
      if (deed != SaveJournalDeed::Replace) continue;
      file.pieces.push_back({0, newContentName.size(), data.append(std::as_bytes(std::span(newContentName)))});
    }
    return journalFiles;
  }

  const PendingWrites* pending(const std::string& key) const {
    const auto found = files.find(key);
    return found != files.end() ? &found->second : nullptr;
  }

  /// The file on the disk, or nothing.
  const File* onDisk(const std::string& key, const std::filesystem::path& path) {
    if (open && openKey == key) return &*open;
    if (!fileExists(path)) return nullptr;
    open = File::below(dataFolder, path, File::Mode::Read);
    openKey = key;
    return &*open;
  }
};

FileUpdate::FileUpdate(std::filesystem::path dataFolder, std::chrono::milliseconds patience)
    : m_state(std::make_unique<State>(std::move(dataFolder), patience)) {}

FileUpdate::~FileUpdate() = default;

Remarks FileUpdate::remarks() const {
  Remarks remarks = m_state->recovery.remarks;
  for (const WaitingSave& save : m_state->recovery.waiting) remarks.push_back(save.sentence);
  return remarks;
}

DataLock& FileUpdate::lock() { return *m_state->lock; }

void FileUpdate::unlock() {
  m_state->newContent.reset();
  m_state->lock.reset();
}

std::filesystem::path FileUpdate::newContentPath() {
  if (!m_state->newContent) m_state->newContent.emplace(m_state->dataFolder, kNewContent);
  return m_state->newContent->path();
}

bool FileUpdate::exists(const std::filesystem::path& file) const {
  if (folderExists(file)) throw UserError(fmt::format("“{}”应为文件，却是一个文件夹。", textOfPath(file)));
  return m_state->pending(m_state->keyOf(file)) || fileExists(file);
}

std::uint64_t FileUpdate::size(const std::filesystem::path& file) const {
  const std::string key = m_state->keyOf(file);
  const File* const disk = m_state->onDisk(key, file);
  const PendingWrites* const writes = m_state->pending(key);
  return std::max(disk ? disk->size() : 0, writes ? endOf(*writes) : 0);
}

std::size_t FileUpdate::readAt(const std::filesystem::path& file, std::uint64_t offset,
                               std::span<std::byte> into) const {
  const std::string key = m_state->keyOf(file);
  const File* const disk = m_state->onDisk(key, file);
  const std::size_t got = disk ? disk->readAt(offset, into) : 0;
  const PendingWrites* const writes = m_state->pending(key);
  if (!writes) return got;
  const std::uint64_t end = std::min(offset + into.size(), std::max(offset + got, endOf(*writes)));
  if (end <= offset) return 0;
  std::ranges::fill(into.subspan(got), std::byte{0});
  auto write = writes->upper_bound(offset);
  if (write != writes->begin()) --write;
  for (; write != writes->end() && write->first < end; ++write) {
    const auto& [at, bytes] = *write;
    const std::uint64_t from = std::max(at, offset), to = std::min(at + bytes.size(), end);
    if (from >= to) continue;
    const auto part = bytes.subspan(inMemory(from - at), inMemory(to - from));
    std::ranges::copy(part, into.subspan(inMemory(from - offset)).begin());
  }
  return inMemory(end - offset);
}

void FileUpdate::writeAt(const std::filesystem::path& file, std::uint64_t offset, std::span<const std::byte> from) {
  writeInPlace(file, offset, m_state->kept.keep(from));
}

void FileUpdate::writeInPlace(const std::filesystem::path& file, std::uint64_t offset,
                              std::span<const std::byte> from) {
  if (from.empty()) return;
  PendingWrites& writes = m_state->files[m_state->keyOf(file)];
  cutOut(writes, offset, offset + from.size());
  writes[offset] = from;
}

void FileUpdate::replace(const std::filesystem::path& file) {
  m_state->deeds[m_state->keyOf(file)] = SaveJournalDeed::Replace;
  if (m_state->newContent) m_state->newContent->hold();
}

void FileUpdate::remove(const std::filesystem::path& file) {
  m_state->deeds[m_state->keyOf(file)] = SaveJournalDeed::Remove;
}

std::uint64_t FileUpdate::pendingBytes() const {
  std::uint64_t size = 0;
  for (const auto& [path, writes] : m_state->files)
    for (const auto& [at, bytes] : writes) size += bytes.size();
  return size;
}

bool FileUpdate::isUnfinished() const { return m_state->isUnfinished; }

void FileUpdate::commit() {
  State& state = *m_state;
  if (state.files.empty() && state.deeds.empty()) return;
  state.open.reset();
  SaveJournalSpans data;
  const std::string newContent = textOfPath(newContentPath().filename());
  const std::vector<SaveJournalFile> files = state.journalFiles(data, newContent);
  const std::filesystem::path journal = journalForSave(state.dataFolder, state.recovery);
  const std::string names = namesOf(state.dataFolder, files);
  const auto failLater = [&](const UserError& cause) {
    state.isUnfinished = true;
    state.newContent->leave();
    failUnfinished(names, journal, cause);
  };
  // No file has changed. What is said depends on whether the journal is going to change them.
  const auto fail = [&](const UserError& cause) {
    if (!dropSaveJournal(journal)) failUnchanged(names, cause);
    const Standing standing = standingOf(journal);
    if (standing == Standing::Void) failUnchanged(names, cause);
    if (standing == Standing::Complete) failLater(cause);
    state.isUnfinished = true;
    state.newContent->leave();
    failUncertain(names, journal, cause);
  };
  try {
    writeSaveJournal(journal, files, data);
  } catch (const UserError& cause) {
    failUnchanged(names, cause);
  }
  try {
    syncFolder(state.dataFolder);
  } catch (const UserError& cause) {
    fail(cause);
  }
  SaveJournalApplication application(state.dataFolder, files, data);
  try {
    application.lengthen();
    application.exchange();
  } catch (const UserError& cause) {
    if (!application.canBeUndone()) failLater(cause);
    try {
      application.shorten();
    } catch (const UserError&) {
      failLater(cause);
    }
    fail(cause);
  }
  try {
    application.overwrite();
  } catch (const UserError& cause) {
    failLater(cause);
  }
  if (const auto cause = dropSaveJournal(journal))
    state.recovery.remarks.push_back(leftJournalRemark("这次", journal, *cause));
  state.newContent.reset();
  state.deeds.clear();
  state.files.clear();
  state.kept = {};
}

Remarks FileUpdate::recover(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience,
                            const std::optional<std::filesystem::path>& wanted) {
  if (!mayHoldRemains(dataFolder)) {
    takeAwayLockFile(dataFolder);
    return {};
  }
  const FileUpdate update(dataFolder, patience);
  if (wanted) {
    const std::string path = wanted->lexically_relative(dataFolder).generic_string();
    const WaitingSave* const save = update.m_state->recovery.waitingFor(path);
    if (save && !save->isWritten) throw UserError(save->sentence);
  }
  return update.remarks();
}

}  // namespace triaxlab
