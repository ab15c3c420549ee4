#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace triaxlab::testing {

enum class LockWay { Flock, RecordLock };

#ifdef _WIN32

/// What another program does that holds a file or folder: a lock belongs to the open file there, not to the program.
class LockHolder {
 public:
  LockHolder(const std::filesystem::path& path, LockWay way) : m_file(opened(path, way)) {
    m_holds = m_file != INVALID_HANDLE_VALUE && (way == LockWay::Flock || lockAll());
  }
  LockHolder(const LockHolder&) = delete;
  LockHolder& operator=(const LockHolder&) = delete;
  ~LockHolder() { kill(); }

  bool holds() const { return m_holds; }
  void kill() {
    if (m_file != INVALID_HANDLE_VALUE) CloseHandle(m_file);
    m_file = INVALID_HANDLE_VALUE;
  }

 private:
  /// Of a folder the hidden file that stands for the right to change it.
  static HANDLE opened(const std::filesystem::path& path, LockWay way) {
    const bool isFolder = std::filesystem::is_directory(path);
    const std::filesystem::path file = isFolder ? path / ".triaxlab-lock" : path;
    const DWORD shared = way == LockWay::Flock ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, shared, nullptr,
                       isFolder ? OPEN_ALWAYS : OPEN_EXISTING, isFolder ? FILE_FLAG_DELETE_ON_CLOSE : 0, nullptr);
  }
  bool lockAll() const {
    OVERLAPPED begin{};
    return LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD, MAXDWORD, &begin) != 0;
  }

  HANDLE m_file;
  bool m_holds = false;
};

#else

/// Another program that holds a lock on a file or folder until it is killed, which the destructor does. It knows
/// nothing of our code.
class LockHolder {
 public:
  LockHolder(const std::filesystem::path& path, LockWay way) {
    int channel[2];
    if (pipe(channel) != 0) std::abort();
    m_child = fork();
    if (m_child == 0) {
      const bool isLocked = lock(path, way);
      const char word = isLocked ? '+' : '-';
      if (write(channel[1], &word, 1) != 1 || !isLocked) _exit(1);
      for (;;) pause();
    }
    close(channel[1]);
    char word = '-';
    m_holds = read(channel[0], &word, 1) == 1 && word == '+';
    close(channel[0]);
  }
  LockHolder(const LockHolder&) = delete;
  LockHolder& operator=(const LockHolder&) = delete;
  ~LockHolder() { kill(); }

  bool holds() const { return m_holds; }
  void kill() {
    if (m_child <= 0) return;
    ::kill(m_child, SIGKILL);
    waitpid(m_child, nullptr, 0);
    m_child = -1;
  }

 private:
  static bool lock(const std::filesystem::path& path, LockWay way) {
    if (way == LockWay::Flock) return flock(open(path.c_str(), O_RDONLY), LOCK_EX | LOCK_NB) == 0;
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    return fcntl(open(path.c_str(), O_RDWR), F_SETLK, &range) == 0;
  }

  pid_t m_child = -1;
  bool m_holds = false;
};

#endif

}  // namespace triaxlab::testing
