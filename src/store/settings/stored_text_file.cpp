#include "store/settings/stored_text_file.h"

#include <fmt/core.h>

#include <span>

#include "common/user_error.h"
#include "store/settings/text_settings.h"

namespace triaxlab {

StoredTextFile::StoredTextFile(const std::filesystem::path& applicationFolder, const TextFile& file)
    : m_path(fileOrNew(applicationFolder, file.name)) {
  read();
}

void StoredTextFile::read() {
  m_content.clear();
  // Looked at first, so that a change while it is read shows at the write.
  m_stamp = stampOf(m_path);
  if (!m_stamp && !folderExists(m_path)) return;
  const Bytes bytes = readWholeFile(m_path, kLargestTextFile);
  m_content.assign(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

void StoredTextFile::write(std::string_view content) {
  if (content == m_content) return;
  if (stampOf(m_path) != m_stamp) {
    read();
    throw UserError("实验室习惯",
                    fmt::format("文件“{}”刚被别的程序改过，没有写入。现在显示的是它的新内容和您还没有保存的改动；"
                                "再按一次“保存”，就把改动写进新内容里。",
                                textOfPath(m_path)));
  }
  writeWholeFile(m_path, std::as_bytes(std::span(content)));
  read();
}

}  // namespace triaxlab
