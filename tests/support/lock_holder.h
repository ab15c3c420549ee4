#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace triaxlab::testing {

enum class LockWay { Flock, RecordLock };

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

}  // namespace triaxlab::testing
