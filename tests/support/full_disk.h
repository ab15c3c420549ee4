#pragma once

#include <sys/resource.h>

#include <csignal>

namespace triaxlab::testing {

/// For as long as it lives no file may grow beyond `limit`: a full disk in the small.
class FullDisk {
 public:
  explicit FullDisk(rlim_t limit) : m_before(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_limit);
    const rlimit small{limit, m_limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_limit);
    std::signal(SIGXFSZ, m_before);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_limit{};
  void (*m_before)(int);
};

}  // namespace triaxlab::testing
