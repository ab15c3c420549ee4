#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "common/settings.h"

namespace triaxlab {

// The keys of the laboratory's text settings (see text_settings.h), one table a file. Reader and editor, the window of
// the habits, the pages about the files and the manual take from here what a key means and its limits; its default is
// that of the member which it sets.

/// On by its presence alone; what follows it does not matter.
struct FlagValue {
  bool LaboratoryHabits::*flag;
};
/// The number directly behind the key.
struct NumberValue {
  int LaboratoryHabits::*number;
  int least, most;
};
/// The text between the next brackets.
template <class Owner>
struct BracketedValue {
  std::string Owner::*text;
};
/// The millimetres directly behind the key.
struct MarginValue {
  double ChartLayout::*twips;
};
/// The text behind the key, which begins its line, up to "]".
struct SlotValue {
  std::size_t slot;
};
using TextKeyValue = std::variant<FlagValue, NumberValue, BracketedValue<LaboratoryHabits>,
                                  BracketedValue<EnglishLabels>, MarginValue, SlotValue>;

struct TextKey {
  std::string_view key;  // as it is written
  TextKeyValue value;
  std::string_view meaning;      // what it does, Chinese; empty of an English label, whose key says it
  std::string_view effect = {};  // the same in English, for the page about the files
};

/// Which of two lines with the same key counts.
enum class Deciding { First, Last };

struct TextFile {
  std::string_view name;  // in the application folder
  std::string_view subject;
  std::string_view isRead;  // when, Chinese
  std::span<const TextKey> keys;
  std::string_view commentMarks = ";";  // each of them
  Deciding deciding = Deciding::Last;
};

inline constexpr int kLeastChartMarginMm = 5, kLargestChartMarginMm = 100;
inline constexpr double kTwipsPerMillimetre = 57.2;  // 1/25.4 inch is 56.7; the pages are laid out with this

extern const TextFile kHabitsFile;         // zmqvb.ini
extern const TextFile kListLabelsFile;     // sz.ini
extern const TextFile kEnglishLabelsFile;  // esz.ini
extern const TextFile kChartFile;          // szshezhi.txt
std::span<const TextFile* const> textFiles();

/// What the key does, in words for a person.
std::string meaningOf(const TextKey& key);

struct NumberLimits {
  int least, most;
};
/// Of a number or of the millimetres of a margin; nothing for the other keys.
std::optional<NumberLimits> limitsOf(const TextKey& key);

/// What holds without the key: empty of a flag, the number, the text; of a margin its millimetres with one decimal.
/// Some texts of the chart file speak the laboratory's own words for project and sample.
std::string defaultOf(const TextKey& key, const LaboratoryHabits& habits = {});

}  // namespace triaxlab
