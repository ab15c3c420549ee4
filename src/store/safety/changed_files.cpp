#include "store/safety/changed_files.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace triaxlab {

void ChangedFiles::look(const std::filesystem::path& file) {
  const std::optional<FileStamp> now = stampOf(file);
  if (!m_memory.isChanged(m_use, file, now)) return;
  const auto agreed = m_agreed.find(file);
  if (agreed == m_agreed.end() || agreed->second != now) m_open.push_back({file, now});
}

std::string ChangedFiles::sentence(const Found& found) {
  return fmt::format("文件“{}”在打开以后被别的程序{}。", textOfPath(found.file), found.now ? "改动过" : "删除或移走了");
}

Remarks ChangedFiles::ask(const ChangeQuestion& question) {
  Remarks remarks;
  std::string lines;
  for (const Found& found : m_open) lines += sentence(found) + '\n';
  const bool someAreGone = std::any_of(m_open.begin(), m_open.end(), [](const Found& found) { return !found.now; });
  const bool someAreThere = std::any_of(m_open.begin(), m_open.end(), [](const Found& found) { return found.now; });
  if (someAreThere) lines += "继续保存会写在这些改动之上，写之前先留一份备份。\n";
  if (someAreGone) lines += "不见了的文件会用现在打开的数据重新建立。\n";
  if (question && !question(m_title, lines + "继续保存吗？"))
    throw UserError(m_title, fmt::format("{}没有保存，什么都没有写入。", sentence(m_open.front())));
  for (const Found& found : std::exchange(m_open, {})) {
    if (!question) remarks.push_back(sentence(found) + (found.now ? "保存写在了这些改动之上。" : "文件已重新建立。"));
    m_agreed[found.file] = found.now;
  }
  return remarks;
}

}  // namespace triaxlab
