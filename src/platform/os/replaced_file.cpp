#include "platform/replaced_file.h"

#include <cerrno>

#include "platform/os/calls.h"

namespace triaxlab {
namespace {

/// A folder, or a device or pipe that a program has as a file: renaming would fail at the very end, or put a file in
/// the place of the device.
const std::filesystem::path& onlyOfFiles(const std::filesystem::path& place) {
  const PathKind old = kindOf(place);
  if (old == PathKind::Folder) failCall("写入文件", place, EISDIR);
  if (old == PathKind::Other) failCall("写入文件", place, kNoPlainFile);
  return place;
}

}  // namespace

ReplacedFile::ReplacedFile(const std::filesystem::path& place)
    : m_place(onlyOfFiles(place)),
      m_beside(std::filesystem::path(place) += ".new"),
      m_file(File(m_beside, File::Mode::Create, place)) {}

ReplacedFile::~ReplacedFile() {
  if (m_waits) dropFile(m_beside);
}

void ReplacedFile::write(std::span<const std::byte> bytes) {
  m_file->writeAt(m_written, bytes);
  m_written += bytes.size();
}

void ReplacedFile::copyContentOf(const File& from) { m_file->copyContentOf(from); }

void ReplacedFile::fail(int error) const { failCall("写入文件", m_place, error); }

void ReplacedFile::close() {
  m_file->sync();
  m_file.reset();
}

void ReplacedFile::finish() {
  if (m_file) close();
  takePermissions(m_beside, m_place);
  renameFile(m_beside, m_place);
  m_waits = false;
  syncFolder(m_place.parent_path());
}

}  // namespace triaxlab
