#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/captured_run.h"
#include "platform/os/posix_calls.h"

extern char** environ;  // NOLINT(readability-redundant-declaration): POSIX leaves its declaration to the program

namespace triaxlab {
namespace {

using Clock = std::chrono::steady_clock;
using End = CapturedRun::End;

/// A descriptor that is closed at the end of its scope.
class Descriptor {
 public:
  explicit Descriptor(int number) : m_number(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { reset(); }
  int number() const { return m_number; }
  void reset() {
    if (m_number >= 0) close(std::exchange(m_number, -1));
  }

 private:
  int m_number;
};

/// What the child finds as its standard streams.
class Streams {
 public:
  explicit Streams(int output) {
    posix_spawn_file_actions_init(&m_actions);
    posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
  }
  Streams(const Streams&) = delete;
  Streams& operator=(const Streams&) = delete;
  ~Streams() { posix_spawn_file_actions_destroy(&m_actions); }
  const posix_spawn_file_actions_t* get() const { return &m_actions; }

 private:
  posix_spawn_file_actions_t m_actions{};
};

/// The error with which it could not be started; 0 when it runs.
int start(const std::filesystem::path& program, std::span<const std::string> arguments, int output, pid_t& child) {
  std::vector<std::string> words{program.string()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers(words.size() + 1);  // the last one stays empty: the end
  std::ranges::transform(words, pointers.begin(), [](std::string& word) { return word.data(); });
  const Streams streams(output);
  return posix_spawn(&child, words[0].c_str(), streams.get(), nullptr, pointers.data(), environ);
}

CapturedRun notStarted(int error) {
  CapturedRun run;
  run.cause = causeOf(error);
  return run;
}

int millisecondsUntil(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
}

/// How a run ends whose child this program can't follow any more; errno tells why.
End lose(CapturedRun& run) {
  run.cause = causeOf(errno);
  return End::Lost;
}

/// Reads to the end of the output; Done when it came.
End readAll(int from, const RunLimits& limits, Clock::time_point deadline, CapturedRun& run) {
  constexpr std::size_t kPiece = std::size_t{256} << 10;
  while (true) {
    pollfd waited{from, POLLIN, 0};
    const int ready = poll(&waited, 1, millisecondsUntil(deadline));
    if (ready < 0 && errno != EINTR) return lose(run);
    if (ready <= 0) {
      if (Clock::now() >= deadline) return End::TimedOut;
      continue;
    }
    const std::size_t held = run.output.size();
    run.output.resize(held + kPiece);
    const ssize_t got = read(from, run.output.data() + held, kPiece);
    run.output.resize(held + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    if (got == 0) return End::Done;
    if (got < 0 && errno != EINTR) return lose(run);
    if (run.output.size() > limits.outputBytes) return End::TooMuch;
  }
}

/// Waits for the child's end; one that doesn't come in time is brought about. `end` is how the reading ended.
End collect(pid_t child, End end, Clock::time_point deadline, CapturedRun& run) {
  int status = 0;
  pid_t ended = 0;
  while (end == End::Done && (ended = waitpid(child, &status, WNOHANG)) == 0) {
    if (Clock::now() >= deadline) end = End::TimedOut;
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  if (ended < 0) end = lose(run);
  if (ended != child) {
    kill(child, SIGKILL);
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    return end;
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? End::Done : End::Failed;
}

}  // namespace

CapturedRun captureProgram(const std::filesystem::path& program, std::span<const std::string> arguments,
                           const RunLimits& limits) {
  const auto deadline = Clock::now() + limits.time;
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return notStarted(errno);
  const Descriptor reading(ends[0]);
  Descriptor writing(ends[1]);
  pid_t child = 0;
  if (const int error = start(program, arguments, writing.number(), child); error != 0) return notStarted(error);
  writing.reset();
  CapturedRun run;
  const End end = readAll(reading.number(), limits, deadline, run);
  run.end = collect(child, end, deadline, run);
  return run;
}

}  // namespace triaxlab
