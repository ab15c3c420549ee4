// What is done with files in the same way on every system.
#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "common/in_memory.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/os/calls.h"
#include "platform/replaced_file.h"

namespace triaxlab {

File::File(const std::filesystem::path& path, Mode mode) : File(path, mode, path) {}

File::File(File&& other) noexcept
    : m_path(std::move(other.m_path)), m_descriptor(std::exchange(other.m_descriptor, -1)) {}

File& File::operator=(File&& other) noexcept {
  std::swap(m_path, other.m_path);
  std::swap(m_descriptor, other.m_descriptor);
  return *this;
}

Bytes readWholeFile(const std::filesystem::path& path, std::uint64_t limit) {
  const File file(path, File::Mode::Read);
  const std::uint64_t size = file.size(), most = std::min<std::uint64_t>(limit, Bytes().max_size());
  if (size > most) throw UserError(fmt::format("文件“{}”太大：{} 字节，最多 {} 字节。", textOfPath(path), size, most));
  Bytes content(inMemory(size));
  content.resize(file.readAt(0, content));
  return content;
}

void writeWholeFile(const std::filesystem::path& path, std::span<const std::byte> content) {
  ReplacedFile file(behindLinks(path));
  file.write(content);
  file.finish();
}

void renameFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (!renameOver(from, to)) failCall("写入文件", to, EXDEV);
}

void moveFile(const std::filesystem::path& from, const std::filesystem::path& to) {
  takePermissions(from, to);
  if (renameOver(from, to)) return;
  const File source(from, File::Mode::Read);
  ReplacedFile copy(to);
  copy.copyContentOf(source);
  copy.finish();
  dropFile(from);
}

}  // namespace triaxlab
