#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {

using Bytes = std::vector<std::byte>;

/// Tells whether a file is still the one that was read: a change of its content, or another file in its place, gives
/// another stamp.
struct FileStamp {
  std::uint64_t size = 0;
  std::int64_t modifiedNs = 0;
  std::int64_t changedNs = 0;  // which no program sets: it tells a change that kept size and time too
  std::uint64_t node = 0;      // the file system's own number of the file
  bool operator==(const FileStamp&) const = default;
};

/// An open file at byte positions. Every failure is a UserError whose sentence names the file and the cause.
class File {
 public:
  enum class Mode : std::uint8_t {
    Read,    // must exist
    Update,  // read and write; must exist
    Create,  // read and write; made, or emptied if it exists; not through a link
    Shared,  // read and write; made if it doesn't exist, its content kept
  };
  File(const std::filesystem::path& path, Mode mode);
  /// Errors name the file that the person knows instead.
  File(const std::filesystem::path& path, Mode mode, std::filesystem::path knownAs);
  /// A file below a folder that a person chose. The folder may be reached through links, but no link leads on from it:
  /// a file that is one, or lies behind one, is refused by UserError.
  static File below(const std::filesystem::path& root, std::filesystem::path path, Mode mode);
  File(File&& other) noexcept;
  File& operator=(File&& other) noexcept;
  ~File();

  const std::filesystem::path& path() const { return m_path; }
  std::uint64_t size() const;
  FileStamp stamp() const;
  /// Fills `into` from `offset`; returns how many bytes there were before the end of the file.
  std::size_t readAt(std::uint64_t offset, std::span<std::byte> into) const;
  /// Writes all of `from`; a gap beyond the end fills with zero bytes.
  void writeAt(std::uint64_t offset, std::span<const std::byte> from);
  void resize(std::uint64_t size);
  /// Takes the content of `from` by sharing its blocks, which costs neither time nor space until one of the two files
  /// is written to. False where the file system can't do that; nothing has happened then.
  bool shareContentOf(const File& from);
  /// Writes the content of `from` over this one's beginning.
  void copyContentOf(const File& from);
  /// Returns when the content is on the disk.
  void sync();

 private:
  File(std::filesystem::path path, int descriptor);

  std::filesystem::path m_path;
  int m_descriptor = -1;
};

// What stands under a name. "No" and "nothing" mean that the system has said so; when it can't say, on a disk that
// breaks or without the right to look, each of these is a UserError that names the file. An existing file that counted
// as missing would be written anew.

bool fileExists(const std::filesystem::path& path);
bool folderExists(const std::filesystem::path& path);
/// Nothing when there is no such file.
std::optional<FileStamp> stampOf(const std::filesystem::path& path);
/// The file that a link stands for, through all links on the way; the path itself where no file is yet.
std::filesystem::path behindLinks(const std::filesystem::path& path);
/// UserError when `path`, or a part of it behind `root`, is a link.
void refuseLinks(const std::filesystem::path& root, const std::filesystem::path& path);
/// Bytes that this program can still write in the folder; nothing when the system doesn't say.
std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder);
/// True when files can be made in the folder. UserError when the system doesn't say.
bool folderIsWritable(const std::filesystem::path& folder);
/// For a place where a person may begin to look: false also for a folder that can't be reached at the moment.
bool folderIsAtHand(const std::filesystem::path& path);

/// The whole file, refused by UserError when it is larger than `limit`.
Bytes readWholeFile(const std::filesystem::path& path, std::uint64_t limit);
/// Writes beside the file, syncs, and renames over it: the old content stays until the new one stands.
void writeWholeFile(const std::filesystem::path& path, std::span<const std::byte> content);

void renameFile(const std::filesystem::path& from, const std::filesystem::path& to);
/// Puts the finished and synced file `from` in the place of `to`, with the permissions of the old one. At every moment
/// `to` is wholly old or wholly new. From another disk it is first copied beside `to` as "NAME.new". When it fails,
/// `to` is the old one and `from` still there.
void moveFile(const std::filesystem::path& from, const std::filesystem::path& to);
void removeFile(const std::filesystem::path& path);
/// Makes the names in a folder durable: call after a file in it was made, renamed or removed.
void syncFolder(const std::filesystem::path& folder);
/// Makes one folder and no missing parents. False when that can't be done; true also when it is there already.
bool makeFolder(const std::filesystem::path& folder);

/// The file of that name in the folder: as spelled, else the first in byte order that is equal but for the case of
/// A to Z. Nothing when there is none. UserError when the folder can't be searched.
std::optional<std::filesystem::path> findFile(const std::filesystem::path& folder, std::string_view name);
/// findFile, or the path as spelled for a file that is yet to be made.
std::filesystem::path fileOrNew(const std::filesystem::path& folder, std::string_view name);
/// Names of the files in a folder that begin with `prefix` and end with `suffix`, both without regard to the case of
/// A to Z, in ascending order without regard to case. None when there is no such folder; UserError when it can't be
/// read. A name that can't be looked at is listed: whoever opens it hears why.
std::vector<std::string> listFiles(const std::filesystem::path& folder, std::string_view prefix,
                                   std::string_view suffix);

/// A stored path text in the system's own spelling: "\" parts folders, a drive alone is its root. The text is UTF-8.
std::filesystem::path pathFromText(std::string_view utf8);
/// UTF-8, in the system's own spelling.
std::string textOfPath(const std::filesystem::path& path);

/// The bytes of a trivially copyable object, for reading and writing records whole.
template <class T>
std::span<const std::byte> bytesOf(const T& object) {
  return std::as_bytes(std::span<const T, 1>(&object, 1));
}
template <class T>
std::span<std::byte> writableBytesOf(T& object) {
  return std::as_writable_bytes(std::span<T, 1>(&object, 1));
}

}  // namespace triaxlab
