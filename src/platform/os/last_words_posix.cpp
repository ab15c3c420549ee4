#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <string>

#include "platform/last_words.h"
#include "platform/os/last_words_calls.h"

namespace triaxlab {
namespace {

struct FatalSignal {
  int number;
  const char* name;
};
constexpr std::array kFatalSignals{FatalSignal{SIGSEGV, "SIGSEGV"}, FatalSignal{SIGABRT, "SIGABRT"},
                                   FatalSignal{SIGFPE, "SIGFPE"}, FatalSignal{SIGBUS, "SIGBUS"},
                                   FatalSignal{SIGILL, "SIGILL"}};
std::array<struct sigaction, kFatalSignals.size()> usualActions;
/// A stack that has run over has no room for a handler.
alignas(16) std::array<char, 65536> handlerStack;

void put(int descriptor, const char* text) noexcept {
  std::size_t left = std::strlen(text);
  while (left > 0) {
    const ssize_t written = write(descriptor, text, left);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    text += written;
    left -= static_cast<std::size_t>(written);
  }
}

void sayAtSignal(int number) {
  const int error = errno;
  for (std::size_t i = 0; i < kFatalSignals.size(); ++i) {
    if (kFatalSignals.at(i).number != number) continue;
    sayLastWords(kFatalSignals.at(i).name);
    // The process ends as it would have without this handler.
    sigaction(number, &usualActions.at(i), nullptr);
    raise(number);
  }
  errno = error;
}

}  // namespace

std::string nameForSystem(const std::filesystem::path& file) { return file.native(); }

void addToFile(const char* file, std::uint64_t largestFile, std::span<const char* const> texts) noexcept {
  const int descriptor = open(file, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
  if (descriptor < 0) return;
  struct stat status {};
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    const bool isLarge = static_cast<std::uint64_t>(status.st_size) > largestFile;
    if (!isLarge || ftruncate(descriptor, 0) == 0)
      for (const char* const text : texts) put(descriptor, text);
  }
  close(descriptor);
}

void addToStandardError(std::span<const char* const> texts) noexcept {
  for (const char* const text : texts) put(STDERR_FILENO, text);
}

void listenForTheEnd() {
  stack_t stack{};
  stack.ss_sp = handlerStack.data();
  stack.ss_size = handlerStack.size();
  sigaltstack(&stack, nullptr);
  struct sigaction action {};
  action.sa_handler = sayAtSignal;
  action.sa_flags = SA_ONSTACK | SA_NODEFER;
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < kFatalSignals.size(); ++i)
    sigaction(kFatalSignals.at(i).number, &action, &usualActions.at(i));
}

}  // namespace triaxlab
