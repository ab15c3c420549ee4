#include "common/short_number.h"

namespace triaxlab::detail {
namespace {

constexpr std::uint64_t shortText(int number) {
  std::uint64_t text = kEachByte * ' ';
  do {
    text = text << 8 | static_cast<std::uint64_t>('0' + number % 10);
    number /= 10;
  } while (number != 0);
  return text;
}

constexpr auto shortTexts() {
  std::array<std::uint64_t, kBeyondShort> texts{};
  for (int number = 0; number < kBeyondShort; ++number) texts[static_cast<std::size_t>(number)] = shortText(number);
  return texts;
}

}  // namespace

constinit const std::array<std::uint64_t, kBeyondShort> kShortTexts = shortTexts();

}  // namespace triaxlab::detail
