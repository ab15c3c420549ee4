#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <variant>

#include "format_pages.h"
#include "page.h"
#include "shell/command_table.h"
#include "shell/ini_keys.h"
#include "shell/ini_settings.h"
#include "store/settings/page_setup_fields.h"
#include "store/settings/settings_file.h"
#include "store/settings/source_folders.h"
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

/// A key's value in settings that nobody changed.
std::string defaultOf(const HabitKey& key) {
  const LaboratoryHabits habits;
  if (std::holds_alternative<FlagValue>(key.value)) return "off";
  if (const auto* const number = std::get_if<NumberValue>(&key.value)) return fmt::format("{}", habits.*number->number);
  return habits.*std::get<BracketedValue>(key.value).text;
}
std::string kindOf(const HabitKey& key) {
  if (std::holds_alternative<FlagValue>(key.value)) return "flag";
  if (const auto* const number = std::get_if<NumberValue>(&key.value))
    return fmt::format("{} to {}", number->least, number->most);
  return "text";
}

template <class Owner, std::size_t N>
void addLabels(Page& page, const std::array<LabelKey<Owner>, N>& keys) {
  const Owner defaults;
  const bool hasEffects = !keys.front().effect.empty();
  std::vector<std::vector<std::string>> rows;
  for (const LabelKey<Owner>& key : keys) {
    rows.push_back({fmt::format("`{}`", key.key), defaults.*key.label});
    if (hasEffects) rows.back().emplace_back(key.effect);
  }
  constexpr std::array<std::string_view, 3> kHeadings{"key", "default", "effect"};
  page.table(std::span(kHeadings).first(hasEffects ? 3 : 2), rows);
}

void addHabits(Page& page) {
  std::vector<std::vector<std::string>> rows;
  for (const HabitKey& key : kHabitKeys)
    rows.push_back({fmt::format("`{}`", key.key), kindOf(key), defaultOf(key), std::string(key.effect)});
  page.table(std::array<std::string_view, 4>{"key", "value", "default", "effect"}, rows);
}

void addChart(Page& page) {
  const ChartLayout layout = defaultChartLayout({});
  std::vector<std::vector<std::string>> margins, slots;
  for (const MarginKey& key : kMarginKeys)
    margins.push_back({fmt::format("`{}`", key.key),
                       fmt::format("{} to {} mm", kLeastChartMarginMm, kLargestChartMarginMm),
                       fmt::format("{} twips", layout.*key.twips), std::string(key.effect)});
  page.table(std::array<std::string_view, 4>{"key", "value", "default", "effect"}, margins);
  page.text(fmt::format(R"(
Every other line has the form `[06text]`: two digits name one of the slots 1 to {}, what follows up to `]` (which may be
missing) is its text. The slots with a text of their own:
)",
                        layout.slot.size() - 1));
  for (std::size_t slot = 1; slot < layout.slot.size(); ++slot)
    if (!layout.slot[slot].empty()) slots.push_back({fmt::format("{:02}", slot), layout.slot[slot]});
  page.table(std::array<std::string_view, 2>{"slot", "default"}, slots);
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
Hand-edited files in the application folder, all of them optional; the program never writes them. They are GBK, or UTF-8
when they begin with its mark or a key is found in them only so. Lines end with CR LF or LF; byte 26 ends the file. A line
is trimmed, and one that then begins with `;` is a comment (in `szshezhi.txt` also `'`). A key counts wherever it stands
in a line; one spelled differently is ignored. A file of more than {} bytes is named and not read.

A flag is on by its presence. A number stands directly behind its key; what is no number is 0, and then it is limited.
A text is what stands, trimmed, between the next `[` and `]` behind its key, when they stand in this order; an empty one
keeps the default.
)",
                        kLargestTextFile));
  page.heading("zmqvb.ini");
  page.text("Read at start, and again at each print command.");
  addHabits(page);
  page.heading("sz.ini");
  page.text(
      "Read with zmqvb.ini. Of a key that stands twice the first counts, since reading ends when both are found.");
  addLabels(page, kListLabelKeys);
  page.heading("esz.ini");
  page.text("Labels of English reports, read when a triaxial document is loaded.");
  addLabels(page, kEnglishLabelKeys);
  page.heading("szshezhi.txt");
  page.text("Texts and margins of the result chart, read before it is printed.");
  addChart(page);
  return page.markdown();
}

}  // namespace triaxlab::formats
