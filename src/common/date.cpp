#include "common/date.h"

#include <charconv>
#include <chrono>
#include <ctime>

#include "common/text_number.h"

namespace triaxlab {

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
  const Date date{part(0, 4), part(5, 2), part(8, 2)};
  if (date.year < 0 || date.month < 0 || date.day < 0) return std::nullopt;
  const std::chrono::year_month_day day{std::chrono::year{date.year}, std::chrono::month{unsigned(date.month)},
                                        std::chrono::day{unsigned(date.day)}};
  if (!day.ok()) return std::nullopt;
  return date;
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
