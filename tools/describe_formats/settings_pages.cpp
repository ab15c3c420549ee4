#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <variant>

#include "format_pages.h"
#include "page.h"
#include "shell/command_table.h"

#include "store/settings/page_setup_fields.h"
#include "store/settings/settings_file.h"
#include "store/settings/source_folders.h"
#include "store/settings/text_settings.h"
#include "store/settings/toggles.h"

namespace triaxlab::formats {
namespace {

constexpr std::string_view kShared = "qvb.sys";

FieldRow placeOf(SettingsField field, std::string_view name, std::string content) {
  return {.offset = field.position - 1,
          .size = field.width,
          .name = std::string(name),
          .type = field.width == 1 ? "byte" : fmt::format("text {}", field.width),
          .unit = {},
          .content = std::move(content)};
}

/// The menu entry that asks for the folder.
const Command* commandOf(const SourceFolder& folder) {
  for (const Command& command : commandTable())
    if (command.action == Action::SetSourceFolder && command.argument == folder.kind) return &command;
  return nullptr;
}

FieldRows sourceFolderRows(std::string_view file) {
  FieldRows rows;
  for (const SourceFolder& folder : kSourceFolders) {
    if (folder.file != file) continue;
    const Command* const command = commandOf(folder);
    rows.push_back(placeOf(folder.field, command ? command->name : "",
                           fmt::format("{}: source folder of kind {}", command ? command->caption : "", folder.kind)));
  }
  return rows;
}

FieldRows sharedRows() {
  FieldRows rows = sourceFolderRows(kShared);
  for (const ToggleByte& byte : toggleBytes()) {
    const Command* const command = findCommand(byte.command);
    rows.push_back(
        placeOf({byte.position, 1}, byte.command,
                fmt::format("{}: {} on, {} off", command ? command->caption : byte.meaning, byte.on, byte.off)));
  }
  rows.push_back(placeOf(kYearField, "TextW(0)", "year of the processing date as last typed"));
  rows.push_back(placeOf(kMonthField, "TextW(1)", "month"));
  rows.push_back(placeOf(kDayField, "TextW(2)", "day"));
  rows.push_back(placeOf(kDataFolderField, "", "a mark of one character, written as 9, then the data folder"));
  return rows;
}

std::string kindOf(const TextKey& key) {
  if (std::holds_alternative<FlagValue>(key.value)) return "flag";
  const auto limits = limitsOf(key);
  if (!limits) return "text";
  const bool isMargin = std::holds_alternative<MarginValue>(key.value);
  return fmt::format("{} to {}{}", limits->least, limits->most, isMargin ? " mm" : "");
}

/// A key's value in settings that nobody changed.
std::string shownDefault(const TextKey& key) {
  if (std::holds_alternative<FlagValue>(key.value)) return "off";
  if (const auto* const margin = std::get_if<MarginValue>(&key.value))
    return fmt::format("{} twips", ChartLayout{}.*margin->twips);
  return defaultOf(key);
}

/// A column of a table of keys.
struct KeyColumn {
  std::string_view heading;
  std::string (*text)(const TextKey& key);
};
constexpr KeyColumn kKeyColumn{"key", [](const TextKey& key) { return fmt::format("`{}`", key.key); }};
constexpr KeyColumn kSlotColumn{"slot", [](const TextKey& key) { return std::string(key.key.substr(1)); }};
constexpr KeyColumn kKindColumn{"value", kindOf}, kDefaultColumn{"default", shownDefault};
constexpr KeyColumn kEffectColumn{"effect", [](const TextKey& key) { return std::string(key.effect); }};

bool isSlot(const TextKey& key) { return std::holds_alternative<SlotValue>(key.value); }
bool isNoSlot(const TextKey& key) { return !isSlot(key); }

void addKeys(Page& page, const TextFile& file, std::initializer_list<KeyColumn> columns,
             bool (*isMeant)(const TextKey&) = isNoSlot) {
  std::vector<std::string_view> headings;
  for (const KeyColumn& column : columns) headings.push_back(column.heading);
  std::vector<std::vector<std::string>> rows;
  for (const TextKey& key : file.keys) {
    if (!isMeant(key)) continue;
    rows.emplace_back();
    for (const KeyColumn& column : columns) rows.back().push_back(column.text(key));
  }
  page.table(headings, rows);
}

}  // namespace

std::string binarySettingsPage() {
  Page page("Binary settings");
  page.text(R"(
Files of fixed positions in the application folder, counted from 1. They are sparse: bytes that no table names are kept
and not used. Bytes beyond the end read as 0, and a write beyond it fills the gap with zero bytes, so a missing file is
one of zero bytes. A text ends at a zero byte, if there is one.
)");
  page.heading("qvb.sys");
  page.text(R"(
Made at the first start, up to the data folder. A folder that the settings menu asks for is kept without the backslash at
its end. Names are those of the menu commands and text boxes that write the field; those without a name belong to the
print dialogs and to the start. A toggle is on for its one value and off for every other.
)");
  page.places(sharedRows(), Count::FromOne);
  for (const std::string_view file : {"SZDATX.sys", "WCXDATX.sys"}) {
    page.heading(file);
    page.places(sourceFolderRows(file), Count::FromOne);
  }
  page.heading("zmsz.sys");
  page.text(R"(
The page setup of the chart sheets. Numbers are limited when they are read; what was typed is stored as typed. Another
code of paper prints as A4, and the dialog selects A3 for it.
)");
  FieldRows setup = fieldRows<PageSetupFile>();
  std::erase_if(setup, [](const FieldRow& row) { return row.name.starts_with("unused"); });
  page.places(setup, Count::FromOne);
  return page.markdown();
}

std::string textSettingsPage() {
  Page page("Text settings");
  page.text(fmt::format(R"(
Files in the application folder, all of them optional, edited by hand or in the window of the laboratory's habits, which
changes the line of a key and leaves every other byte as it is. They are GBK, or UTF-8 when they begin with its mark or a
key is found in them only so. Lines end with CR LF or LF; byte 26 ends the file. A line is trimmed, and one that then
begins with `;` is a comment (in `szshezhi.txt` also `'`). A key counts wherever it stands in a line; one spelled
differently is ignored. A file of more than {} bytes is named and not read.

A flag is on by its presence. A number stands directly behind its key; what is no number is 0, and then it is limited.
A text is what stands, trimmed, between the next `[` and `]` behind its key, when they stand in this order; an empty one
keeps the default.
)",
                        kLargestTextFile));
  page.heading("zmqvb.ini");
  page.text("Read at start, and again at each print command.");
  addKeys(page, kHabitsFile, {kKeyColumn, kKindColumn, kDefaultColumn, kEffectColumn});
  page.heading("sz.ini");
  page.text(
      "Read with zmqvb.ini. Of a key that stands twice the first counts, since reading ends when both are found.");
  addKeys(page, kListLabelsFile, {kKeyColumn, kDefaultColumn, kEffectColumn});
  page.heading("esz.ini");
  page.text("Labels of English reports, read when a triaxial document is loaded.");
  addKeys(page, kEnglishLabelsFile, {kKeyColumn, kDefaultColumn});
  page.heading("szshezhi.txt");
  page.text("Texts and margins of the result chart, read before it is printed.");
  addKeys(page, kChartFile, {kKeyColumn, kKindColumn, kDefaultColumn, kEffectColumn});
  page.text(R"(
Every other line has the form `[06text]`: two digits name a slot, what follows up to `]` (which may be missing) is its
text.
)");
  addKeys(page, kChartFile, {kSlotColumn, kDefaultColumn, kEffectColumn}, isSlot);
  return page.markdown();
}

}  // namespace triaxlab::formats
