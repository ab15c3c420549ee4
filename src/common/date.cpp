#include "common/date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <ctime>
#include <system_error>

#include "common/text_number.h"

namespace triaxlab {
namespace {

std::optional<Date> ofCalendar(const Date& date) {
  if (date.year < 0 || date.month < 0 || date.day < 0) return std::nullopt;
  const std::chrono::year_month_day day{std::chrono::year{date.year}, std::chrono::month{unsigned(date.month)},
                                        std::chrono::day{unsigned(date.day)}};
  if (!day.ok()) return std::nullopt;
  return date;
}

}  // namespace

std::string slashed(const Date& date) {
  return FormatPadded(date.year, 4) + "/" + FormatPadded(date.month, 2) + "/" + FormatPadded(date.day, 2);
}

std::optional<Date> parseIsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto part = [text](std::size_t from, std::size_t size) {
    int value = -1;
    const char* const end = text.data() + from + size;
    return std::from_chars(text.data() + from, end, value).ptr == end ? value : -1;
  };
  return ofCalendar({part(0, 4), part(5, 2), part(8, 2)});
}

std::optional<Date> parseWrittenDate(std::string_view utf8) {
  constexpr std::array<std::string_view, 5> kSeparators{"-", "/", "年", "月", "日"};
  std::array<int, 3> parts{};
  for (int& part : parts) {
    const auto [end, error] = std::from_chars(utf8.data(), utf8.data() + utf8.size(), part);
    if (error != std::errc{} || part < 0) return std::nullopt;
    utf8.remove_prefix(static_cast<std::size_t>(end - utf8.data()));
    const bool isLast = &part == &parts.back();
    const auto* const separator =
        std::ranges::find_if(kSeparators, [&](std::string_view text) { return utf8.starts_with(text); });
    if (separator != kSeparators.end()) utf8.remove_prefix(separator->size());
    if (separator == kSeparators.end() ? !isLast : isLast && *separator != "日") return std::nullopt;
  }
  if (!utf8.empty()) return std::nullopt;
  constexpr int kShortYears = 100, kFirstShortYear = 30;
  if (parts[0] < kShortYears) parts[0] += parts[0] < kFirstShortYear ? 2000 : 1900;
  return ofCalendar({parts[0], parts[1], parts[2]});
}

Date systemToday() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

}  // namespace triaxlab
