#include "platform/replaced_file.h"

#include <unistd.h>

#include "platform/os/posix_calls.h"

namespace triaxlab {
namespace {

/// A folder, or a device or pipe that a program has as a file: renaming would fail at the very end, or put a file in
/// the place of the device.
const std::filesystem::path& onlyOfFiles(const std::filesystem::path& place) {
  if (const auto old = statusOf(place); old && !S_ISREG(old->st_mode))
    failCall("写入文件", place, S_ISDIR(old->st_mode) ? EISDIR : kNoPlainFile);
  return place;
}

}  // namespace

ReplacedFile::ReplacedFile(const std::filesystem::path& place)
    : m_place(onlyOfFiles(place)),
      m_beside(place.string() + ".new"),
      m_file(File(m_beside, File::Mode::Create, place)) {}

ReplacedFile::~ReplacedFile() {
  if (m_waits) unlink(m_beside.c_str());
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
