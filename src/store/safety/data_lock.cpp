#include "store/safety/data_lock.h"

#include <fmt/core.h>

#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "common/user_error.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

/// Makes the lock file where there is none. Every user of the laboratory may hold it.
void makeLockFile(const std::filesystem::path& path) {
  using std::filesystem::perms;
  try {
    File(path, File::Mode::Shared);
  } catch (const UserError& cause) {
    throw UserError(fmt::format("什么都没有保存，原有文件没有改动。{}", cause.what()));
  }
  constexpr perms kAll = perms::owner_read | perms::owner_write | perms::group_read | perms::group_write |
                         perms::others_read | perms::others_write;
  std::error_code isAnothers;  // who has seen to it himself
  std::filesystem::permissions(path, kAll, isAnothers);
}

}  // namespace

std::filesystem::path lockFileOf(const std::filesystem::path& dataFolder) {
  return dataFolder / std::string(kLockFileName);
}

DataLock::DataLock(const std::filesystem::path& dataFolder, std::chrono::milliseconds patience)
    : m_patience(patience),
      m_until(FileLock::Clock::now() + patience),
      m_dataFolder(dataFolder),
      m_folder(takeOrFail(fileOrNew(dataFolder, "HSZS"))),
      m_owner(takeOwnership()) {}

/// The lock file goes while it is still held, so that whoever waits for it finds that it is gone and makes another.
DataLock::~DataLock() {
  if (!m_owner) return;
  try {
    const std::filesystem::path file = lockFileOf(m_dataFolder);
    if (m_owner->isOn(file)) removeFile(file);
  } catch (const UserError&) {
    // A lock file that nobody holds keeps nobody out; the next start takes it away.
  }
}

void DataLock::take(const std::filesystem::path& file) {
  const auto held = m_files.find(file);
  if (held != m_files.end() && held->second.isOn(file)) return;
  m_files.insert_or_assign(file, takeOrFail(file));
}

FileLock DataLock::takeOrFail(const std::filesystem::path& path) const {
  std::optional<FileLock> lock = FileLock::take(path, m_until);
  if (!lock) failBusy(path);
  return std::move(*lock);
}

std::optional<FileLock> DataLock::takeOwnership() const {
  if (!folderExists(m_dataFolder) || !folderIsWritable(m_dataFolder)) return std::nullopt;
  const std::filesystem::path file = lockFileOf(m_dataFolder);
  for (;;) {
    makeLockFile(file);
    std::optional<FileLock> lock = FileLock::take(file, m_until);
    if (!lock) failBusy(m_dataFolder);
    if (lock->isOn(file)) return lock;
    // Its holder has ended and taken it along.
    if (FileLock::Clock::now() >= m_until) failBusy(m_dataFolder);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void DataLock::failBusy(const std::filesystem::path& path) const {
  const double seconds = std::chrono::duration<double>(m_patience).count();
  throw UserError(
      fmt::format("“{}”正被另一个程序写入，等了 {:g} 秒仍没有空出来；什么都没有保存，原有文件没有改动，请稍后再试。",
                  textOfPath(path), seconds));
}

}  // namespace triaxlab
