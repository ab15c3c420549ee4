#include "store/settings/text_settings.h"

#include <fmt/core.h>

#include <algorithm>
#include <variant>

#include "common/conversions.h"
#include "common/text_number.h"
#include "platform/files.h"
#include "store/settings/text_lines.h"

namespace triaxlab {
namespace {

/// A whole number within its limits; nothing when it is past 16 bits, so that the setting keeps what it held.
std::optional<std::string> limitedNumber(std::string_view rest, NumberLimits limits) {
  const std::optional<std::int16_t> number = toInt16(ParseNumber(rest));
  if (!number) return std::nullopt;
  return std::to_string(std::clamp<int>(*number, limits.least, limits.most));
}

std::optional<std::string> valueBehind(const TextKey& key, std::string_view rest) {
  if (std::holds_alternative<FlagValue>(key.value)) return "";
  if (const auto limits = limitsOf(key)) return limitedNumber(rest, *limits);
  const bool isSlot = std::holds_alternative<SlotValue>(key.value);
  const std::optional<TextPlace> place = isSlot ? slotPlace(rest) : bracketedPlace(rest);
  if (!place) return std::nullopt;
  const std::string_view text = rest.substr(place->from, place->size);
  const bool isBlank = text.find_first_not_of(' ') == std::string_view::npos;
  if (isBlank && !isSlot) return std::nullopt;
  return std::string(text);
}

struct TakeValue {
  Settings& settings;
  const std::string& value;

  int whole() const { return static_cast<int>(ParseNumber(value)); }

  void operator()(const FlagValue& key) const { settings.habits.*key.flag = true; }
  void operator()(const NumberValue& key) const { settings.habits.*key.number = whole(); }
  void operator()(const BracketedValue<LaboratoryHabits>& key) const { settings.habits.*key.text = value; }
  void operator()(const BracketedValue<EnglishLabels>& key) const { settings.english.*key.text = value; }
  void operator()(const MarginValue& key) const { settings.chart.*key.twips = whole() * kTwipsPerMillimetre; }
  void operator()(const SlotValue& key) const { settings.chart.slot.at(key.slot) = value; }
};

/// Reads a file into the settings. One that can't be used is told in a remark.
void readTextFile(Workspace& workspace, const TextFile& file, Remarks& remarks) {
  if (workspace.applicationFolder.empty()) return;
  try {
    const auto path = findFile(workspace.applicationFolder, file.name);
    if (!path) return;
    const Bytes content = readWholeFile(*path, kLargestTextFile);
    applyTextFile(file, {reinterpret_cast<const char*>(content.data()), content.size()}, workspace.settings);
  } catch (const UserError& error) {
    remarks.push_back(fmt::format("{}这个设置文件没有读入，按默认设置运行。", error.what()));
  }
}

}  // namespace

TextValues textValues(const TextFile& file, std::string_view content) {
  const TextLines lines(file, content);
  TextValues values(file.keys.size());
  for (const TextLine& line : lines.lines()) {
    const auto live = lines.live(line);
    if (!live) continue;
    for (std::size_t k = 0; k < values.size(); ++k) {
      if (file.deciding == Deciding::First && values[k]) continue;
      const auto behind = placeBehind(file, file.keys[k], *live);
      if (!behind) continue;
      if (auto value = valueBehind(file.keys[k], live->substr(*behind))) values[k] = std::move(value);
    }
  }
  return values;
}

void applyTextValues(const TextFile& file, const TextValues& values, Settings& settings) {
  for (std::size_t k = 0; k < values.size(); ++k)
    if (values[k]) std::visit(TakeValue{settings, *values[k]}, file.keys[k].value);
}

void applyTextFile(const TextFile& file, std::string_view content, Settings& settings) {
  applyTextValues(file, textValues(file, content), settings);
}

Remarks ReadIniSettings(Workspace& workspace) {
  Remarks remarks;
  workspace.settings.habits = {};
  readTextFile(workspace, kHabitsFile, remarks);
  readTextFile(workspace, kListLabelsFile, remarks);
  return remarks;
}

Remarks ReadEnglishLabels(Workspace& workspace) {
  Remarks remarks;
  workspace.settings.english = {};
  readTextFile(workspace, kEnglishLabelsFile, remarks);
  return remarks;
}

Remarks ReadChartLayout(Workspace& workspace) {
  Remarks remarks;
  workspace.settings.chart = defaultChartLayout(workspace.settings.habits);
  readTextFile(workspace, kChartFile, remarks);
  return remarks;
}

Remarks ReadPageSettings(Workspace& workspace) {
  Remarks remarks = ReadIniSettings(workspace);
  const Remarks more = ReadChartLayout(workspace);
  remarks.insert(remarks.end(), more.begin(), more.end());
  return remarks;
}

}  // namespace triaxlab
