#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/gbk.h"
#include "common/short_number.h"
#include "common/text_number.h"

namespace triaxlab {

/// `text` without the blanks (byte 32 and no other) at both ends.
constexpr std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A text field of a record: N places of GBK, left-justified, blank-padded, never terminated. Blank to begin with.
/// Bytes that came from a file stay as they are until the field is set.
template <std::size_t N>
class FixedText {
 public:
  static constexpr std::size_t kWidth = N;

  constexpr FixedText() { m_places.fill(' '); }

  /// All N places.
  constexpr std::string_view view() const { return {m_places.data(), N}; }
  constexpr std::string_view trimmed() const { return Trim(view()); }
  constexpr bool isBlank() const { return trimmed().empty(); }
  /// What ParseNumber makes of the text.
  double number() const {
    if constexpr (detail::kFitsAWord<N>)
      if (double number = 0; detail::readShortNumber<N>(m_places.data(), number)) return number;
    return ParseNumber(view());
  }
  constexpr void clear() { m_places.fill(' '); }

  constexpr bool operator==(const FixedText&) const = default;

  /// Stores GBK text, cut at the width in front of the character that doesn't fit whole.
  friend constexpr void SetText(FixedText& field, std::string_view gbk) {
    const std::string_view kept = cutWhole(gbk, N);
    std::copy(kept.begin(), kept.end(), field.m_places.begin());
    std::fill(field.m_places.begin() + kept.size(), field.m_places.end(), ' ');
  }

  /// Stores a number through its format and the field's width. A value that is not finite is not stored, as the
  /// statement that would have stored it is abandoned.
  friend void SetNumber(FixedText& field, double value, NumberFormat format) {
    if (double written = 0; field.setShort(value, format, written)) return;
    if (std::isfinite(value)) SetText(field, FormatNumber(value, format));
  }

  /// SetNumber of a whole number, which nothing has to round.
  friend void SetWhole(FixedText& field, std::int32_t value) {
    if constexpr (detail::kFitsAWord<N>)
      if (detail::storeWhole<N>(field.m_places.data(), value)) return;
    SetNumber(field, value, NumberFormat::Whole);
  }

  /// SetNumber, and the number that the field reads as afterwards: rounded, and cut at the width.
  friend double SetAndRead(FixedText& field, double value, NumberFormat format) {
    if (double written = 0; field.setShort(value, format, written)) return written;
    SetNumber(field, value, format);
    return field.number();
  }

  /// SetAndRead of a float, which is rendered to its own seven digits; as a double it would have fifteen.
  friend double SetAndReadSingle(FixedText& field, float value, NumberFormat format) {
    if (double written = 0; field.setShort(value, format, written)) return written;
    if (std::isfinite(value)) SetText(field, FormatNumber(value, format));
    return field.number();
  }

 private:
  /// False when the number isn't of the short form, and then nothing is stored.
  bool setShort(double value, NumberFormat format, double& written) {
    if constexpr (detail::kFitsAWord<N>) {
      if (format == NumberFormat::Whole) return detail::writeWholeNumber<N>(m_places.data(), value, written);
      if (format == NumberFormat::Tenths) return detail::writeDecimals<N, 10>(m_places.data(), value, written);
      if (format == NumberFormat::Hundredths) return detail::writeDecimals<N, 100>(m_places.data(), value, written);
    }
    return false;
  }

  std::array<char, N> m_places;
};

}  // namespace triaxlab
