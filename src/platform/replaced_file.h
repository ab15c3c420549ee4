#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "platform/files.h"

namespace triaxlab {

/// A file that is written anew, piece by piece, beside its place as "NAME.new". In its place stands the old one until
/// the new one is complete; one that is dropped before leaves nothing behind. Errors name the place, for nobody knows
/// the other name.
class ReplacedFile {
 public:
  explicit ReplacedFile(const std::filesystem::path& place);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  ~ReplacedFile();

  const std::filesystem::path& place() const { return m_place; }
  /// Where it waits: for a library that writes files by their names. The content is then that library's alone.
  const std::filesystem::path& beside() const { return m_beside; }

  /// Behind what was written so far.
  void write(std::span<const std::byte> bytes);
  void copyContentOf(const File& from);
  /// What to say when a library could not write it, with the cause that the system told it.
  [[noreturn]] void fail(int error) const;
  /// Syncs and closes the file, which is complete now and still waits beside its place: one of many that are to come
  /// there together.
  void close();
  /// Closes the file and puts it into its place, with the permissions of the old one.
  void finish();

 private:
  std::filesystem::path m_place, m_beside;
  std::optional<File> m_file;  // until it is closed
  bool m_waits = true;         // beside its place
  std::uint64_t m_written = 0;
};

}  // namespace triaxlab
