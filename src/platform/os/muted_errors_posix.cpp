#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/muted_errors.h"

namespace triaxlab {

MutedErrors::MutedErrors() {
  std::fflush(stderr);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  if (nowhere < 0) return;
  m_standardError = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (m_standardError >= 0) dup2(nowhere, STDERR_FILENO);
  close(nowhere);
}

MutedErrors::~MutedErrors() {
  if (m_standardError < 0) return;
  const int error = errno;
  std::fflush(stderr);
  dup2(m_standardError, STDERR_FILENO);
  close(m_standardError);
  errno = error;
}

}  // namespace triaxlab
