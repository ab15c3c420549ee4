#include "store/settings/text_edit.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <vector>

#include "common/conversions.h"
#include "common/fixed_text.h"
#include "common/text_number.h"
#include "common/user_error.h"
#include "store/settings/text_lines.h"
#include "store/settings/text_settings.h"

namespace triaxlab {
namespace {

constexpr const char* kTitle = "实验室习惯";

/// The content after a change; nothing when it can't be made.
using Changed = std::optional<std::string>;

std::size_t indexOf(const TextFile& file, const TextKey& key) {
  return static_cast<std::size_t>(&key - file.keys.data());
}

/// Blanks in front of a line as it counts.
std::size_t indentOf(std::string_view text) { return std::min(text.find_first_not_of(' '), text.size()); }

// ---- A key in a line. Places count in the text of the whole line.

struct KeyPlace {
  std::size_t line;
  std::size_t behind;  // the key
};

/// All live lines with the key.
std::vector<KeyPlace> placesOf(const TextFile& file, const TextLines& lines, const TextKey& key) {
  std::vector<KeyPlace> places;
  for (std::size_t line = 0; line < lines.lines().size(); ++line) {
    const TextLine& whole = lines.lines()[line];
    const auto live = lines.live(whole);
    const auto behind = live ? placeBehind(file, key, *live) : std::nullopt;
    if (behind) places.push_back({line, indentOf(whole.text) + *behind});
  }
  return places;
}

/// What behind the key is taken for its number, "=" too, which people write there though it makes the number 0.
TextPlace numberPlace(std::string_view rest) {
  const std::size_t from = indentOf(rest);
  const std::size_t end = std::min(rest.find_first_not_of("0123456789.+-=", from), rest.size());
  return {from, end - from};
}

/// Where the value stands behind the key; nothing of a text without brackets.
std::optional<TextPlace> valuePlace(const TextKey& key, std::string_view rest) {
  if (std::holds_alternative<FlagValue>(key.value)) return TextPlace{0, 0};
  if (limitsOf(key)) return numberPlace(rest);
  return std::holds_alternative<SlotValue>(key.value) ? slotPlace(rest) : bracketedPlace(rest);
}

/// The value as it follows a key that has none yet.
std::string withBrackets(const TextKey& key, std::string_view value) {
  if (std::holds_alternative<SlotValue>(key.value)) return fmt::format("{}]", value);
  if (std::holds_alternative<FlagValue>(key.value) || limitsOf(key)) return std::string(value);
  return fmt::format("{}[{}]", key.key.ends_with('=') ? "" : "=", value);
}

/// Behind the value and what closes it.
std::size_t endOfValue(const TextKey& key, std::string_view rest) {
  const auto value = valuePlace(key, rest);
  if (!value) return 0;
  const std::size_t end = value->from + value->size;
  if (std::holds_alternative<FlagValue>(key.value) || limitsOf(key)) return end;
  const std::size_t close = rest.find(']', end);
  return close == std::string_view::npos ? rest.size() : close + 1;
}

// ---- The ways of giving a key a value

Changed withValueAt(TextLines lines, const TextKey& key, KeyPlace place, std::string_view value) {
  const std::string rest = lines.lines()[place.line].text.substr(place.behind);
  const auto old = valuePlace(key, rest);
  const bool isOpen = old && std::holds_alternative<SlotValue>(key.value) && rest.find(']') == std::string::npos;
  const bool done = old && !isOpen ? lines.replace(place.line, place.behind + old->from, old->size, value)
                    : old          ? lines.replace(place.line, place.behind, rest.size(), withBrackets(key, value))
                                   : lines.replace(place.line, place.behind, 0, withBrackets(key, value));
  return done ? Changed(lines.content()) : std::nullopt;
}

/// In the line that decides.
Changed inPlace(const TextFile& file, const TextLines& lines, const TextKey& key, std::string_view value) {
  const std::vector<KeyPlace> places = placesOf(file, lines, key);
  if (places.empty()) return std::nullopt;
  return withValueAt(lines, key, file.deciding == Deciding::First ? places.front() : places.back(), value);
}

/// True for a line of this key and its value with nothing else.
bool isLineOf(const TextFile& file, const TextKey& key, std::string_view line) {
  const auto behind = placeBehind(file, key, line);
  if (!behind || *behind != key.key.size()) return false;
  return *behind + endOfValue(key, line.substr(*behind)) == line.size();
}

/// In a line of the key that was commented out.
Changed revived(const TextFile& file, const TextLines& lines, const TextKey& key, std::string_view value) {
  if (!placesOf(file, lines, key).empty()) return std::nullopt;
  for (std::size_t line = lines.lines().size(); line-- > 0;) {
    const std::string_view text = lines.lines()[line].text, shown = Trim(text);
    if (lines.live(lines.lines()[line]) || shown.empty() || !isLineOf(file, key, Trim(shown.substr(1)))) continue;
    TextLines changed = lines;
    changed.replace(line, indentOf(text), 1, "");
    return withValueAt(changed, key, {line, text.find(key.key) + key.key.size() - 1}, value);
  }
  return std::nullopt;
}

Changed onOwnLine(const TextFile& file, const TextLines& lines, const TextKey& key, std::string_view value) {
  TextLines changed = lines;
  const std::size_t at = file.deciding == Deciding::First ? 0 : lines.lines().size();
  if (!changed.insert(at, std::string(key.key) + withBrackets(key, value))) return std::nullopt;
  return changed.content();
}

// ---- Without a value

bool holdsOnly(const TextFile& file, const TextKey& key, std::string_view line) {
  return std::ranges::none_of(
      file.keys, [&](const TextKey& other) { return &other != &key && placeBehind(file, other, line).has_value(); });
}

/// The key goes from the first line where it can; true when it stands nowhere any more.
bool takeOut(const TextFile& file, TextLines& lines, const TextKey& key) {
  const std::vector<KeyPlace> places = placesOf(file, lines, key);
  if (places.empty()) return true;
  const KeyPlace place = places.front();
  const std::string text = lines.lines()[place.line].text;
  if (holdsOnly(file, key, Trim(text))) {
    lines.replace(place.line, 0, 0, file.commentMarks.substr(0, 1));
  } else {
    const std::size_t size = key.key.size() + endOfValue(key, std::string_view(text).substr(place.behind));
    lines.replace(place.line, place.behind - key.key.size(), size, "");
  }
  return false;
}

Changed without(const TextFile& file, TextLines lines, const TextKey& key) {
  while (!takeOut(file, lines, key)) {
  }
  return lines.content();
}

// ---- What may be written

std::optional<std::string> checkedNumber(const TextFile& file, const TextKey& key, NumberLimits limits,
                                         std::string_view value) {
  const std::string_view typed = Trim(value);
  if (typed.empty()) return std::nullopt;
  const auto number = toInt16(ParseNumber(typed));
  if (!number || std::to_string(*number) != typed || *number < limits.least || *number > limits.most)
    throw UserError(kTitle, fmt::format("{} 的 {} 要写 {} 至 {} 的整数，不能是“{}”。", file.name, key.key, limits.least,
                                        limits.most, typed));
  return std::to_string(*number);
}

std::optional<std::string> checkedText(const TextFile& file, const TextKey& key, std::string_view value) {
  const bool isSlot = std::holds_alternative<SlotValue>(key.value);
  const std::string_view text = isSlot ? value : Trim(value);
  if (text.empty() && !isSlot) return std::nullopt;
  const std::string_view barred = isSlot ? "]\r\n\x1A" : "[]\r\n\x1A";
  if (text.find_first_of(barred) != std::string_view::npos)
    throw UserError(kTitle, fmt::format("{} 的 {} 里不能有方括号：“{}”。", file.name, key.key, text));
  return std::string(text);
}

/// The value as the file will have it; nothing for the default.
std::optional<std::string> checked(const TextFile& file, const TextKey& key, const std::optional<std::string>& value) {
  if (!value) return std::nullopt;
  if (std::holds_alternative<FlagValue>(key.value)) return "";
  if (const auto limits = limitsOf(key)) return checkedNumber(file, key, *limits, *value);
  return checkedText(file, key, *value);
}

}  // namespace

std::string withValue(const TextFile& file, std::string_view content, const TextKey& key,
                      const std::optional<std::string>& value) {
  TextValues wanted = textValues(file, content);
  std::optional<std::string>& own = wanted.at(indexOf(file, key));
  const auto written = checked(file, key, value);
  if (own == written) return std::string(content);
  own = written;
  const TextLines lines(file, content);
  const auto asWanted = [&](const Changed& changed) { return changed && textValues(file, *changed) == wanted; };
  if (!written) {
    if (const Changed changed = without(file, lines, key); asWanted(changed)) return *changed;
    throw UserError(kTitle,
                    fmt::format("{} 里 {} 和别的关键字写在一起，不能单独去掉，请用文本编辑器改。", file.name, key.key));
  }
  for (const auto way : {inPlace, revived, onOwnLine})
    if (const Changed changed = way(file, lines, key, *written); asWanted(changed)) return *changed;
  throw UserError(
      kTitle, fmt::format("“{}”不能写进 {}：文件的编码里没有其中的字，或者它和别的关键字相混。", *written, file.name));
}

}  // namespace triaxlab
