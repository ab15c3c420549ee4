#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "store/safety/data_lock.h"

namespace triaxlab {

/// Positioned writes to several files below one data folder, files replaced as a whole and files removed, that reach
/// the disk all together or not at all.
///
/// Writes are collected in memory; reads through the update see them. `commit` writes them to a save journal in the
/// data folder, syncs it, applies it to the files, syncs them, and removes the journal. A program killed at any point
/// leaves files that `recover` makes wholly old (incomplete journal) or wholly new (complete journal). Files are named
/// by their path, which leads into HSZS or ZMSJ of the data folder; any other is refused by UserError.
///
/// An update holds the lock of its data folder from beginning to end. Two at a time on one folder wait for each other,
/// also within one program.
class FileUpdate {
 public:
  /// Recovers first, so that an older save that was interrupted is complete before anything is read. A save that can't
  /// be finished keeps its files from this update, which refuses them by UserError, and no others. UserError also when
  /// another program doesn't give the lock free.
  explicit FileUpdate(std::filesystem::path dataFolder, std::chrono::milliseconds patience = kLockPatience);
  ~FileUpdate();  // what was not committed is dropped
  FileUpdate(const FileUpdate&) = delete;
  FileUpdate& operator=(const FileUpdate&) = delete;

  /// What the recovery, and later the commit, has to tell: a save that still waits for its files, a journal that can't
  /// be removed.
  Remarks remarks() const;

  /// For the files that the update reads and writes.
  DataLock& lock();
  /// Gives the lock back at once: for an update that won't be committed but has been read from.
  void unlock();

  /// UserError when a folder has the file's name.
  bool exists(const std::filesystem::path& file) const;
  std::uint64_t size(const std::filesystem::path& file) const;
  /// As File::readAt, with the pending writes in place.
  std::size_t readAt(const std::filesystem::path& file, std::uint64_t offset, std::span<std::byte> into) const;
  /// Keeps a copy of the bytes. The file is made by the commit when it doesn't exist.
  void writeAt(const std::filesystem::path& file, std::uint64_t offset, std::span<const std::byte> from);
  /// As writeAt, without the copy: the bytes must stay where and as they are until the commit has returned.
  void writeInPlace(const std::filesystem::path& file, std::uint64_t offset, std::span<const std::byte> from);
  /// Where the new content of a file that is to be replaced is put, finished and synced, before the commit. An update
  /// that isn't committed removes it.
  std::filesystem::path newContentPath();
  /// The commit puts the new content in the place of `file`; one file in an update. Reads still see the old file.
  void replace(const std::filesystem::path& file);
  /// The commit removes the file. Reads still see it.
  void remove(const std::filesystem::path& file);
  /// Bytes that are to be written so far.
  std::uint64_t pendingBytes() const;
  /// All or nothing. A failure while the journal is written or the files are lengthened, where a full disk shows, takes
  /// everything back; a later one leaves the journal, with which the next recover completes the files. Both are
  /// UserErrors whose sentence says which, as what stands on the disk then shows it.
  void commit();
  /// After a commit that failed: true when its journal stands and the files are to be completed later.
  bool isUnfinished() const;

  /// Applies the complete journals of the data folder, drops incomplete ones. Called at start and before an open. Waits
  /// for another program that is at it. A save that can't be finished is told, with the way out: by a remark, or by
  /// UserError when it concerns the `wanted` file, which must then not be read. UserError also when the waiting takes
  /// too long.
  static Remarks recover(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience = kLockPatience,
                         const std::optional<std::filesystem::path>& wanted = {});

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace triaxlab
