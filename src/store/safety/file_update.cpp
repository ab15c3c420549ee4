#include "store/safety/file_update.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "common/user_error.h"
#include "store/safety/save_journal.h"

namespace triaxlab {
namespace {

/// Brings what a journal carries into the files, in an order in which a full disk can still be taken back: first every
/// file is opened for writing and lengthened, which takes all the space that is needed and touches no old byte, then
/// files change places or go, and at last the bytes inside the old lengths are written.
class SaveJournalApplication {
 public:
  SaveJournalApplication(const std::filesystem::path& dataFolder, const std::vector<SaveJournalFile>& files,
                         const SaveJournalData& data)
      : m_dataFolder(dataFolder), m_files(files), m_data(data) {}

  /// What a failure leaves can be finished later, or undone by `shorten`.
  void lengthen() {
    m_before.reserve(m_files.size());
    for (const SaveJournalFile& file : m_files) {
      if (file.deed == SaveJournalDeed::Write)
        lengthenFile(file);
      else
        m_before.emplace_back();
    }
    for (const std::filesystem::path& folder : m_foldersWithNewFiles) syncFolder(folder);
  }

  /// Pre: `lengthen` has returned. A deed that was done already is only made durable.
  void exchange() {
    for (const SaveJournalFile& file : m_files)
      if (file.deed != SaveJournalDeed::Write) exchangeFile(file.deed, pathOf(file));
  }

  /// True as long as no file has been changed but in its length.
  bool canBeUndone() const { return !m_exchanged; }

  void shorten() {
    for (std::size_t i = 0; i < m_before.size(); ++i) {
      if (m_files[i].deed != SaveJournalDeed::Write) continue;
      const std::filesystem::path path = pathOf(m_files[i]);
      if (m_before[i].existed) {
        File file = File::below(m_dataFolder, path, File::Mode::Update);
        file.resize(m_before[i].size);
        file.sync();
      } else {
        removeFile(path);
      }
    }
    for (const std::filesystem::path& folder : m_foldersWithNewFiles) syncFolder(folder);
  }

  /// Pre: `exchange` has returned.
  void overwrite() {
    for (std::size_t i = 0; i < m_files.size(); ++i)
      if (reachesBelow(m_files[i], m_before[i].size)) overwriteFile(m_files[i], m_before[i].size);
  }

 private:
  struct Before {
    bool existed = false;
    std::uint64_t size = 0;
  };

  void exchangeFile(SaveJournalDeed deed, const std::filesystem::path& path) {
    const std::filesystem::path vanishing = deed == SaveJournalDeed::Replace ? m_dataFolder / kNewContentName : path;
    refuseLinks(m_dataFolder, path);
    refuseLinks(m_dataFolder, vanishing);
    if (fileExists(vanishing)) {
      if (deed == SaveJournalDeed::Replace)
        moveFile(vanishing, path);
      else
        removeFile(path);
      m_exchanged = true;
    }
    syncFolder(path.parent_path());
  }

  std::filesystem::path pathOf(const SaveJournalFile& file) const { return m_dataFolder / pathFromText(file.path); }

  static bool reachesBelow(const SaveJournalFile& file, std::uint64_t end) {
    return std::any_of(file.pieces.begin(), file.pieces.end(),
                       [end](const SaveJournalPiece& piece) { return piece.offset < end; });
  }

  void lengthenFile(const SaveJournalFile& journalFile) {
    const std::filesystem::path path = pathOf(journalFile);
    const bool existed = fileExists(path);
    if (!existed) {
      // Told before it is made: also one that can't be looked at afterwards must go again.
      m_before.push_back({false, 0});
      m_foldersWithNewFiles.insert(path.parent_path());
    }
    File file = File::below(m_dataFolder, path, File::Mode::Shared);
    const std::uint64_t size = file.size();
    if (existed) m_before.push_back({true, size});
    bool longer = !existed;
    for (const SaveJournalPiece& piece : journalFile.pieces) {
      const std::uint64_t inside = size > piece.offset ? std::min(size - piece.offset, piece.size) : 0;
      if (inside == piece.size) continue;
      write(file, {piece.offset + inside, piece.size - inside, piece.dataPosition + inside});
      longer = true;
    }
    if (longer) file.sync();
  }

  void overwriteFile(const SaveJournalFile& journalFile, std::uint64_t oldSize) {
    File file = File::below(m_dataFolder, pathOf(journalFile), File::Mode::Update);
    for (const SaveJournalPiece& piece : journalFile.pieces)
      if (piece.offset < oldSize)
        write(file, {piece.offset, std::min(piece.size, oldSize - piece.offset), piece.dataPosition});
    file.sync();
  }

  void write(File& file, const SaveJournalPiece& piece) {
    std::uint64_t at = piece.offset;
    m_data.read(piece.dataPosition, piece.size, [&](std::span<const std::byte> bytes) {
      file.writeAt(at, bytes);
      at += bytes.size();
    });
  }

  const std::filesystem::path& m_dataFolder;
  const std::vector<SaveJournalFile>& m_files;
  const SaveJournalData& m_data;
  std::vector<Before> m_before;
  bool m_exchanged = false;
  std::set<std::filesystem::path> m_foldersWithNewFiles;
};

/// Makes a journal void; false when it stands as it was. A journal that can't be removed is emptied.
bool dropSaveJournal(const std::filesystem::path& journal) {
  bool isVoid = false;
  try {
    if (!fileExists(journal)) return true;
    removeFile(journal);
    isVoid = true;
    syncFolder(journal.parent_path());
  } catch (const UserError&) {
    // What is said about this save doesn't depend on it: a journal that stays, or comes back after a power cut, holds
    // what the files hold already, or else the caller is told by the result.
    if (isVoid) return true;
    try {
      File::below(journal.parent_path(), journal, File::Mode::Update).resize(0);
      isVoid = true;
    } catch (const UserError&) {
    }
  }
  return isVoid;
}

/// Removes a new content that no journal stands for. One that can't be removed does no harm: the next is written over
/// it.
void dropNewContent(const std::filesystem::path& dataFolder) {
  try {
    removeFile(dataFolder / kNewContentName);
  } catch (const UserError&) {
  }
}

[[noreturn]] void failUnchanged(const UserError& cause) {
  throw UserError(fmt::format("数据没有保存，原有文件没有改动。{}", cause.what()));
}

[[noreturn]] void failUnfinished(const std::filesystem::path& journal, const UserError& cause) {
  throw UserError(
      fmt::format("保存的数据已完整记入“{}”，但还没有全部写入各文件；排除故障后，下次打开或保存时自动写完。{}",
                  textOfPath(journal), cause.what()));
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
    if (at < begin) writes[at] = bytes.first(begin - at);
    if (itsEnd > end) writes[end] = bytes.subspan(end - at);
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

/// Asked without the lock: true also while another program is at its save.
bool mayHoldRemains(const std::filesystem::path& dataFolder) {
  return fileExists(dataFolder / kSaveJournalName) || fileExists(dataFolder / kNewContentName);
}

void applyFound(const std::filesystem::path& dataFolder, const FoundSaveJournal& journal, DataLock& lock) {
  for (const SaveJournalFile& file : journal.files()) lock.take(dataFolder / pathFromText(file.path));
  SaveJournalApplication application(dataFolder, journal.files(), journal);
  try {
    application.lengthen();
    application.exchange();
    application.overwrite();
  } catch (const UserError& cause) {
    failUnfinished(dataFolder / kSaveJournalName, cause);
  }
}

/// Brings a save to its end that a dead program began, or drops what it left.
void finishInterrupted(const std::filesystem::path& dataFolder, DataLock& lock) {
  const std::filesystem::path journal = dataFolder / kSaveJournalName;
  if (fileExists(journal)) {
    if (const std::optional<FoundSaveJournal> found = FoundSaveJournal::open(journal))
      applyFound(dataFolder, *found, lock);
    dropSaveJournal(journal);
  }
  if (fileExists(dataFolder / kNewContentName)) dropNewContent(dataFolder);
}

}  // namespace

struct FileUpdate::State {
  State(std::filesystem::path folder, std::chrono::milliseconds patience)
      : dataFolder(std::move(folder)), lock(std::in_place, dataFolder, patience) {}

  std::filesystem::path dataFolder;
  std::optional<DataLock> lock;
  std::map<std::string, PendingWrites> files;    // by the path below the data folder
  std::map<std::string, SaveJournalDeed> deeds;  // files that are replaced or removed
  bool isCommitted = false;
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
    std::string key = textOfPath(file.lexically_relative(dataFolder).generic_string());
    if (!isSaveJournalPath(key))
      throw UserError(fmt::format("“{}”不在数据文件夹“{}”之内。", textOfPath(file), textOfPath(dataFolder)));
    lastPath = file;
    return lastKey = key;
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
    : m_state(std::make_unique<State>(std::move(dataFolder), patience)) {
  if (mayHoldRemains(m_state->dataFolder)) finishInterrupted(m_state->dataFolder, *m_state->lock);
}

FileUpdate::~FileUpdate() {
  if (m_state->lock && !m_state->isCommitted && !m_state->isUnfinished) dropNewContent(m_state->dataFolder);
}

DataLock& FileUpdate::lock() { return *m_state->lock; }

void FileUpdate::unlock() { m_state->lock.reset(); }

std::filesystem::path FileUpdate::newContentPath() const { return m_state->dataFolder / kNewContentName; }

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
    if (from < to) std::ranges::copy(bytes.subspan(from - at, to - from), into.subspan(from - offset).begin());
  }
  return end - offset;
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
  std::vector<SaveJournalFile> files;
  SaveJournalSpans data;
  for (const auto& [path, writes] : state.files) files.push_back({path, piecesOf(writes, data)});
  for (const auto& [path, deed] : state.deeds) files.push_back({path, {}, deed});
  const std::filesystem::path journal = state.dataFolder / kSaveJournalName;
  const auto failLater = [&](const UserError& cause) {
    state.isUnfinished = true;
    failUnfinished(journal, cause);
  };
  try {
    writeSaveJournal(journal, files, data);
  } catch (const UserError& cause) {
    if (!dropSaveJournal(journal)) failLater(cause);
    failUnchanged(cause);
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
    if (!dropSaveJournal(journal)) failLater(cause);
    failUnchanged(cause);
  }
  try {
    application.overwrite();
  } catch (const UserError& cause) {
    failLater(cause);
  }
  dropSaveJournal(journal);
  state.isCommitted = true;
  state.deeds.clear();
  state.files.clear();
  state.kept = {};
}

void FileUpdate::recover(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience) {
  if (!mayHoldRemains(dataFolder)) return;
  DataLock lock(dataFolder, patience);
  finishInterrupted(dataFolder, lock);
}

}  // namespace triaxlab
