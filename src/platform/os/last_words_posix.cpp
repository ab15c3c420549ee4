#include "platform/last_words.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

namespace triaxlab {
namespace {

/// A text of fixed room, which a signal handler may read.
template <std::size_t kRoom>
class KeptText {
 public:
  void set(std::string_view text) noexcept {
    m_size = std::min(text.size(), kRoom);
    // No character is cut in two.
    if (m_size < text.size())
      while (m_size > 0 && (static_cast<unsigned char>(text[m_size]) & 0xC0U) == 0x80U) --m_size;
    std::copy_n(text.data(), m_size, m_text.data());
    m_text.at(m_size) = '\0';
  }
  bool isEmpty() const { return m_size == 0; }
  const char* text() const { return m_text.data(); }

 private:
  std::array<char, kRoom + 1> m_text{};
  std::size_t m_size = 0;
};

struct FatalSignal {
  int number;
  const char* name;
};
constexpr std::array kFatalSignals{FatalSignal{SIGSEGV, "SIGSEGV"}, FatalSignal{SIGABRT, "SIGABRT"},
                                   FatalSignal{SIGFPE, "SIGFPE"}, FatalSignal{SIGBUS, "SIGBUS"},
                                   FatalSignal{SIGILL, "SIGILL"}};

// A handler of signals is handed nothing but the number, so what it knows stands here.
KeptText<4096> keptFile;
KeptText<1024> keptHead;
KeptText<2048> keptDeed;
std::uint64_t largestFile = 0;
volatile std::sig_atomic_t isSaid = 0;
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

void putInFile(const char* reason) noexcept {
  if (keptFile.isEmpty()) return;
  const int file = open(keptFile.text(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
  if (file < 0) return;
  struct stat status {};
  if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {
    const bool isLarge = static_cast<std::uint64_t>(status.st_size) > largestFile;
    if (!isLarge || ftruncate(file, 0) == 0)
      for (const char* const text : {keptHead.text(), "\n", reason, "\n命令: ", keptDeed.text(), "\n\n"})
        put(file, text);
  }
  close(file);
}

void sayAtSignal(int number) {
  const int error = errno;
  for (std::size_t i = 0; i < kFatalSignals.size(); ++i) {
    if (kFatalSignals[i].number != number) continue;
    sayLastWords(kFatalSignals[i].name);
    // The process ends as it would have without this handler.
    sigaction(number, &usualActions[i], nullptr);
    raise(number);
  }
  errno = error;
}

void listenToSignals() {
  stack_t stack{};
  stack.ss_sp = handlerStack.data();
  stack.ss_size = handlerStack.size();
  sigaltstack(&stack, nullptr);
  struct sigaction action {};
  action.sa_handler = sayAtSignal;
  action.sa_flags = SA_ONSTACK | SA_NODEFER;
  sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < kFatalSignals.size(); ++i) sigaction(kFatalSignals[i].number, &action, &usualActions[i]);
}

}  // namespace

void prepareLastWords(const LastWords& words) {
  keptFile.set(words.file.native());
  // A path that is cut names another file.
  if (words.file.native() != keptFile.text()) keptFile.set({});
  keptHead.set(words.head);
  largestFile = words.largestFile;
  static const bool isListening = (listenToSignals(), true);
  static_cast<void>(isListening);
}

void noteLastDeed(std::string_view deed) noexcept { keptDeed.set(deed); }

void sayLastWords(const char* reason) noexcept {
  if (isSaid != 0) return;
  isSaid = 1;
  putInFile(reason);
  for (const char* const text : {"程序意外中断（", reason, "）。\n"}) put(STDERR_FILENO, text);
}

void withholdLastWords() noexcept { isSaid = 1; }

}  // namespace triaxlab
