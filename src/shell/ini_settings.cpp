#include "shell/ini_settings.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "common/conversions.h"
#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/text_number.h"
#include "platform/files.h"
#include "shell/ini_keys.h"

namespace triaxlab {
namespace {

constexpr double kTwipsPerMillimetre = 57.2;  // 1/25.4 inch is 56.7; the pages are laid out with this

// ---- Lines

constexpr char kFileEnd = 26;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kComment = ";", kChartComment = "';";

template <class Keys>
bool holdsAKey(std::string_view text, const Keys& keys) {
  return std::any_of(keys.begin(), keys.end(),
                     [&](const auto& key) { return text.find(key.key) != std::string_view::npos; });
}

/// The file as UTF-8. Laboratories have GBK files of many years, but today's editors write UTF-8, with or without its
/// mark, and a laboratory must not lose its settings in silence. Keys are searched in the UTF-8 text and never in GBK,
/// where the second byte of a character can be a "[".
template <class Keys>
std::string decoded(std::span<const std::byte> bytes, const Keys& keys) {
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  text = text.substr(0, text.find(kFileEnd));
  if (text.starts_with(kUtf8Mark)) return std::string(text.substr(kUtf8Mark.size()));
  std::string asGbk = gbkToUtf8(text);
  if (holdsAKey(asGbk, keys)) return asGbk;
  // A chart file may hold numbered texts alone; then its Chinese tells.
  if (holdsAKey(text, keys) || utf8ToGbkExactly(text)) return std::string(text);
  return asGbk;
}

/// Calls `take` with each trimmed line that is neither blank nor a comment, until it returns false.
template <class Take>
void forEachLine(std::string_view text, std::string_view commentMarks, Take take) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = Trim(line);
    if (line.empty() || commentMarks.find(line.front()) != std::string_view::npos) continue;
    if (!take(line)) return;
  }
}

/// What stands behind the key in a line; nothing when the line doesn't hold it.
std::optional<std::string_view> behind(std::string_view line, std::string_view key) {
  const std::size_t at = line.find(key);
  if (at == std::string_view::npos) return std::nullopt;
  return line.substr(at + key.size());
}

/// The trimmed text between the first "[" and the first "]", when they stand in this order; otherwise empty.
std::string_view bracketed(std::string_view rest) {
  const std::size_t open = rest.find('['), close = rest.find(']');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) return {};
  return Trim(rest.substr(open + 1, close - open - 1));
}

/// A whole number within its limits; nothing when it is past 16 bits, so that the setting keeps what it held.
std::optional<int> limitedNumber(std::string_view rest, int least, int most) {
  const std::optional<std::int16_t> number = toInt16(ParseNumber(rest));
  if (!number) return std::nullopt;
  return std::clamp<int>(*number, least, most);
}

bool setUnlessEmpty(std::string& target, std::string_view value) {
  if (value.empty()) return false;
  target = value;
  return true;
}

struct TakeHabit {
  LaboratoryHabits& habits;
  std::string_view rest;  // behind the key

  void operator()(const FlagValue& value) const { habits.*value.flag = true; }
  void operator()(const NumberValue& value) const {
    assignIf(habits.*value.number, limitedNumber(rest, value.least, value.most));
  }
  void operator()(const BracketedValue& value) const { setUnlessEmpty(habits.*value.text, bracketed(rest)); }
};

/// "[" two digits text "]": the text of a slot. The closing bracket may be missing.
void takeSlot(std::string_view line, ChartLayout& layout) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (line.size() < 3 || line[0] != '[' || !isDigit(line[1]) || !isDigit(line[2])) return;
  const auto value = [](char digit) { return static_cast<std::size_t>(digit - '0'); };
  const std::size_t slot = value(line[1]) * 10 + value(line[2]);
  if (slot < 1 || slot >= layout.slot.size()) return;
  const std::string_view text = line.substr(3);
  layout.slot[slot] = text.substr(0, text.find(']'));
}

/// The content of a settings file; nothing when it is missing, or can't be used, which a remark then tells.
std::optional<Bytes> contentOf(const Workspace& workspace, std::string_view name, Remarks& remarks) {
  try {
    const auto path = findFile(workspace.applicationFolder, name);
    if (!path) return std::nullopt;
    return readWholeFile(*path, kLargestTextFile);
  } catch (const UserError& error) {
    remarks.push_back(fmt::format("{}这个设置文件没有读入，按默认设置运行。", error.what()));
    return std::nullopt;
  }
}

}  // namespace

void applyHabits(std::span<const std::byte> zmqvb, LaboratoryHabits& habits) {
  forEachLine(decoded(zmqvb, kHabitKeys), kComment, [&](std::string_view line) {
    for (const HabitKey& key : kHabitKeys)
      if (const auto rest = behind(line, key.key)) std::visit(TakeHabit{habits, *rest}, key.value);
    return true;
  });
}

void applyListLabels(std::span<const std::byte> sz, LaboratoryHabits& habits) {
  std::array<bool, kListLabelKeys.size()> found{};
  forEachLine(decoded(sz, kListLabelKeys), kComment, [&](std::string_view line) {
    for (std::size_t k = 0; k < found.size(); ++k)
      if (const auto rest = behind(line, kListLabelKeys[k].key); rest && !found[k])
        found[k] = setUnlessEmpty(habits.*kListLabelKeys[k].label, bracketed(*rest));
    return !std::all_of(found.begin(), found.end(), [](bool f) { return f; });
  });
}

void applyEnglishLabels(std::span<const std::byte> esz, EnglishLabels& labels) {
  forEachLine(decoded(esz, kEnglishLabelKeys), kComment, [&](std::string_view line) {
    for (const auto& key : kEnglishLabelKeys)
      if (const auto rest = behind(line, key.key)) setUnlessEmpty(labels.*key.label, bracketed(*rest));
    return true;
  });
}

void applyChartLayout(std::span<const std::byte> szshezhi, ChartLayout& layout) {
  forEachLine(decoded(szshezhi, kMarginKeys), kChartComment, [&](std::string_view line) {
    for (const MarginKey& key : kMarginKeys)
      if (const auto rest = behind(line, key.key))
        if (const auto millimetres = limitedNumber(*rest, kLeastChartMarginMm, kLargestChartMarginMm))
          layout.*key.twips = *millimetres * kTwipsPerMillimetre;
    if (!holdsAKey(line, kMarginKeys)) takeSlot(line, layout);
    return true;
  });
}

Remarks ReadIniSettings(Workspace& workspace) {
  Remarks remarks;
  LaboratoryHabits habits;
  if (const auto content = contentOf(workspace, "zmqvb.ini", remarks)) applyHabits(*content, habits);
  if (const auto content = contentOf(workspace, "sz.ini", remarks)) applyListLabels(*content, habits);
  workspace.settings.habits = habits;
  return remarks;
}

Remarks ReadEnglishLabels(Workspace& workspace) {
  Remarks remarks;
  EnglishLabels labels;
  if (const auto content = contentOf(workspace, "esz.ini", remarks)) applyEnglishLabels(*content, labels);
  workspace.settings.english = labels;
  return remarks;
}

Remarks ReadChartLayout(Workspace& workspace) {
  Remarks remarks;
  ChartLayout layout = defaultChartLayout(workspace.settings.habits);
  if (const auto content = contentOf(workspace, "szshezhi.txt", remarks)) applyChartLayout(*content, layout);
  workspace.settings.chart = layout;
  return remarks;
}

Remarks ReadPageSettings(Workspace& workspace) {
  Remarks remarks = ReadIniSettings(workspace);
  const Remarks more = ReadChartLayout(workspace);
  remarks.insert(remarks.end(), more.begin(), more.end());
  return remarks;
}

}  // namespace triaxlab
