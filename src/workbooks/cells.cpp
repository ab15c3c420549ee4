#include "workbooks/cells.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "common/fixed_text.h"
#include "common/gbk.h"

namespace triaxlab {
namespace {

constexpr std::string_view kDigits = "0123456789";

/// Digits behind the point; nothing when the text isn't wholly a number.
std::optional<std::size_t> decimalsOf(std::string_view text) {
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = point == std::string_view::npos ? "" : text.substr(point + 1);
  const auto isNumeric = [](std::string_view part) {
    return part.find_first_not_of(kDigits) == std::string_view::npos;
  };
  if (whole.empty() && decimals.empty()) return std::nullopt;
  if (!isNumeric(whole) || !isNumeric(decimals)) return std::nullopt;
  return decimals.size();
}

std::optional<SheetNumber> numberIn(std::string_view text) {
  const std::optional<std::size_t> decimals = decimalsOf(text);
  if (!decimals || *decimals > kMostDecimals) return std::nullopt;
  const double value = ParseNumber(text);
  if (!std::isfinite(value)) return std::nullopt;
  constexpr double kWithoutMinus = 0;  // in front of a zero
  return SheetNumber{value + kWithoutMinus, static_cast<int>(*decimals)};
}

}  // namespace

SheetCell gbkTextCell(std::string_view gbk) { return textCell(gbkToUtf8(Trim(gbk))); }

SheetCell valueCell(std::string_view gbk) {
  if (const auto number = numberIn(Trim(gbk))) return *number;
  return gbkTextCell(gbk);
}

SheetCell numberCell(double value, NumberFormat format) { return valueCell(FormatNumber(value, format)); }

SheetCell minutesOfSeconds(std::int32_t seconds) {
  constexpr std::int32_t kSecondsPerMinute = 60;
  const bool isWhole = seconds % kSecondsPerMinute == 0;
  return numberCell(seconds / double{kSecondsPerMinute}, isWhole ? NumberFormat::Whole : NumberFormat::Tenths);
}

SheetCell valueCellOfUtf8(std::string_view text) {
  if (const auto number = numberIn(Trim(text))) return *number;
  return textCell(Trim(text));
}

}  // namespace triaxlab
