#include "platform/last_words.h"

#include <algorithm>
#include <array>
#include <csignal>

#include "platform/os/last_words_calls.h"

namespace triaxlab {
namespace {

/// A text of fixed room, which a handler of signals may read.
template <class Character, std::size_t kRoom>
class KeptText {
 public:
  using Text = std::basic_string_view<Character>;
  void set(Text text) noexcept {
    m_size = std::min(text.size(), kRoom);
    // No character of UTF-8 is cut in two.
    if (m_size < text.size())
      while (m_size > 0 && (static_cast<unsigned>(text[m_size]) & 0xC0U) == 0x80U) --m_size;
    std::copy_n(text.data(), m_size, m_text.data());
    m_text.at(m_size) = Character();
  }
  bool isEmpty() const { return m_size == 0; }
  const Character* text() const { return m_text.data(); }

 private:
  std::array<Character, kRoom + 1> m_text{};
  std::size_t m_size = 0;
};

// A handler of signals is handed nothing but the number, so what it knows stands here.
KeptText<std::filesystem::path::value_type, 4096> keptFile;
KeptText<char, 1024> keptHead;
KeptText<char, 2048> keptDeed;
std::uint64_t largestKeptFile = 0;
volatile std::sig_atomic_t isSaid = 0;

}  // namespace

void prepareLastWords(const LastWords& words) {
  const std::filesystem::path::string_type file =
      words.file.empty() ? std::filesystem::path::string_type() : nameForSystem(words.file);
  keptFile.set(file);
  // A path that is cut names another file.
  if (file != keptFile.text()) keptFile.set({});
  keptHead.set(words.head);
  largestKeptFile = words.largestFile;
  static const bool isListening = (listenForTheEnd(), true);
  static_cast<void>(isListening);
}

void noteLastDeed(std::string_view deed) noexcept { keptDeed.set(deed); }

void sayLastWords(const char* reason) noexcept {
  if (isSaid != 0) return;
  isSaid = 1;
  if (!keptFile.isEmpty())
    addToFile(keptFile.text(), largestKeptFile,
              std::array{keptHead.text(), "\n", reason, "\n命令: ", keptDeed.text(), "\n\n"});
  addToStandardError(std::array{"程序意外中断（", reason, "）。\n"});
}

void withholdLastWords() noexcept { isSaid = 1; }

}  // namespace triaxlab
