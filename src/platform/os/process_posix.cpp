#include <fcntl.h>
#include <fmt/core.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>
#include <system_error>
#include <thread>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/process.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves its declaration to the program

namespace triaxlab {

std::filesystem::path executableFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

void takeFailuresAsErrors() {
  for (const int signal : {SIGXFSZ, SIGPIPE}) std::signal(signal, SIG_IGN);
  // Opened for the wrong direction, so that what is read or written there fails as it would have.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1 && open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
      return;
}

void startProgram(const std::filesystem::path& program) {
  // The tools are known by their Windows names; elsewhere the same name may stand without ".exe".
  std::filesystem::path file = program;
  if (!fileExists(file) || access(file.c_str(), X_OK) != 0) file.replace_extension();
  if (!fileExists(file) || access(file.c_str(), X_OK) != 0) return;
  std::string name = file.string();
  std::array<char*, 2> arguments{name.data(), nullptr};
  pid_t child = 0;
  if (posix_spawn(&child, name.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) return;
  // Nobody waits for the tool itself, but its ended process must be collected.
  std::thread([child] { waitpid(child, nullptr, 0); }).detach();
}

void becomeProgram(const std::filesystem::path& program, char* const* arguments) {
  std::fflush(nullptr);
  execv(program.c_str(), arguments);
  const int error = errno;
  throw UserError(fmt::format("不能启动“{}”：{}。", textOfPath(program), std::generic_category().message(error)));
}

}  // namespace triaxlab
