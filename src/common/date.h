#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace triaxlab {

struct Date {
  int year = 1970, month = 1, day = 1;
  bool operator==(const Date&) const = default;
};

/// "yyyy/mm/dd", the form of every date that this system writes itself.
std::string slashed(const Date& date);

/// The day of a text "yyyy-mm-dd", or nothing when it is no such day of the calendar.
std::optional<Date> parseIsoDate(std::string_view text);

/// The day of a text as people and other programs write it: year, month and day as numbers, parted by "-", "/" or
/// 年, 月, 日. A year of two digits is of 1930 to 2029. Nothing when it is no day of the calendar.
std::optional<Date> parseWrittenDate(std::string_view utf8);

/// The day by the system's clock, local time.
Date systemToday();

}  // namespace triaxlab
