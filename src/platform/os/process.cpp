// The names of programs, on every system.
#include "platform/process.h"

#include <fmt/core.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>

#include "platform/files.h"
#include "platform/os/calls.h"

namespace triaxlab {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f'); }
bool isLetterOrDigit(char c) { return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// Letters and digits of the machine's name.
std::string machineName() {
  std::string word;
  constexpr std::size_t kLongest = 24;
  for (const char c : nameOfMachine())
    if (word.size() < kLongest && isLetterOrDigit(c)) word += c;
  return word.empty() ? "pc" : word;
}

/// Takes what stands behind the last hyphen off `text`; empty when there is no hyphen.
std::string_view takeLastPart(std::string_view& text) {
  const std::size_t hyphen = text.rfind('-');
  if (hyphen == std::string_view::npos) return {};
  const std::string_view part = text.substr(hyphen + 1);
  text = text.substr(0, hyphen);
  return part;
}

bool consistsOf(std::string_view text, bool (*isRight)(char)) {
  return !text.empty() && std::all_of(text.begin(), text.end(), isRight);
}

constexpr std::size_t kLotDigits = 8;

}  // namespace

std::string ownName() {
  // The processes of two machines of one name may have one number. A source of chance may be a file, and fail.
  static const auto lot = static_cast<std::uint32_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  static const std::string ofThisRun = fmt::format("{}-{}-{:0{}x}", machineName(), numberOfProcess(), lot, kLotDigits);
  static std::atomic<unsigned> count = 0;
  return fmt::format("{}-{}", ofThisRun, ++count);
}

bool isOwnName(std::string_view text) {
  return consistsOf(takeLastPart(text), isDigit) &&  // the count, then the lot, the process, the machine
         [](std::string_view lot) {
           return lot.size() == kLotDigits && consistsOf(lot, isHexDigit);
         }(takeLastPart(text)) &&
         consistsOf(takeLastPart(text), isDigit) && consistsOf(text, isLetterOrDigit);
}

std::optional<std::filesystem::path> findProgram(std::span<const std::filesystem::path> folders,
                                                 std::string_view windowsName) {
  const std::string_view bare = windowsName.substr(0, windowsName.rfind('.'));
  for (const std::filesystem::path& folder : folders)
    for (const std::string_view name : {windowsName, bare})
      if (auto program = findFile(folder, name)) return program;
  return std::nullopt;
}

}  // namespace triaxlab
