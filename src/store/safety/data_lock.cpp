#include "store/safety/data_lock.h"

#include <fmt/core.h>

#include <optional>
#include <utility>

#include "common/user_error.h"
#include "platform/files.h"

namespace triaxlab {

DataLock::DataLock(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience)
    : m_patience(patience),
      m_until(FileLock::Clock::now() + patience),
      m_folder(takeOrFail(fileOrNew(dataFolder, "HSZS"))) {}

void DataLock::take(const std::filesystem::path& file) {
  const auto held = m_files.find(file);
  if (held != m_files.end() && held->second.isOn(file)) return;
  m_files.insert_or_assign(file, takeOrFail(file));
}

FileLock DataLock::takeOrFail(const std::filesystem::path& path) const {
  std::optional<FileLock> lock = FileLock::take(path, m_until);
  if (lock) return std::move(*lock);
  const double seconds = std::chrono::duration<double>(m_patience).count();
  throw UserError(
      fmt::format("“{}”正被另一个程序写入，等了 {:g} 秒仍没有空出来；什么都没有保存，原有文件没有改动，请稍后再试。",
                  textOfPath(path), seconds));
}

}  // namespace triaxlab
