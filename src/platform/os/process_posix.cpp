#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/os/posix_calls.h"
#include "platform/process.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves its declaration to the program

namespace triaxlab {
namespace {

/// The signals that this program takes as errors.
constexpr std::array kErrorSignals{SIGXFSZ, SIGPIPE};

/// How a tool begins: with those signals as every program finds them, for a shell's tool that ends by SIGPIPE would
/// otherwise go on writing.
class OrdinarySignals {
 public:
  OrdinarySignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : kErrorSignals) sigaddset(&signals, signal);
    posix_spawnattr_init(&m_attributes);
    posix_spawnattr_setsigdefault(&m_attributes, &signals);
    posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF);
  }
  OrdinarySignals(const OrdinarySignals&) = delete;
  OrdinarySignals& operator=(const OrdinarySignals&) = delete;
  ~OrdinarySignals() { posix_spawnattr_destroy(&m_attributes); }
  const posix_spawnattr_t* get() const { return &m_attributes; }

 private:
  posix_spawnattr_t m_attributes{};
};

/// As the system takes arguments and variables: behind the last a null.
std::vector<char*> pointersTo(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// The variables of this program. A desktop gives a window the focus by the time at which the person started its
/// program, which stands in one of them; a time of 0 leaves the focus where it is.
std::vector<std::string> environmentFor(Showing showing) {
  constexpr std::string_view kStart = "DESKTOP_STARTUP_ID=";
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable)
    if (!std::string_view(*variable).starts_with(kStart)) variables.emplace_back(*variable);
  if (showing == Showing::Behind) variables.push_back(fmt::format("{}{}_TIME0", kStart, ownName()));
  return variables;
}

bool canBeRun(const std::filesystem::path& file) { return fileExists(file) && access(file.c_str(), X_OK) == 0; }

[[noreturn]] void failToStart(const std::filesystem::path& program, int error) {
  throw UserError(fmt::format("不能启动“{}”：{}。", textOfPath(program), causeOf(error)));
}

}  // namespace

std::filesystem::path executableFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

void takeFailuresAsErrors() {
  for (const int signal : kErrorSignals) std::signal(signal, SIG_IGN);
  // Opened for the wrong direction, so that what is read or written there fails as it would have.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (fcntl(stream, F_GETFD) == -1 && open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
      return;
}

CommandWords commandWords(int count, char** words) { return {count, words}; }

int startProgram(const std::filesystem::path& program, std::span<const std::string> arguments, Showing showing) {
  // The tools are known by their Windows names; elsewhere the same name may stand without ".exe".
  std::filesystem::path file = program;
  if (!canBeRun(file)) file.replace_extension();
  if (!canBeRun(file)) failToStart(program, fileExists(program) ? ENOEXEC : ENOENT);
  std::vector<std::string> words{file.string()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = environmentFor(showing);
  const OrdinarySignals signals;
  pid_t child = 0;
  if (const int error = posix_spawn(&child, file.c_str(), nullptr, signals.get(), pointersTo(words).data(),
                                    pointersTo(variables).data()))
    failToStart(file, error);
  // Nobody waits for the tool itself, but its ended process must be collected.
  std::thread([child] { waitpid(child, nullptr, 0); }).detach();
  return child;
}

void becomeProgram(const std::filesystem::path& program, char* const* arguments) {
  std::fflush(nullptr);
  execv(program.c_str(), arguments);
  failToStart(program, errno);
}

}  // namespace triaxlab
