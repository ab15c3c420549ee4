// The hand-edited text settings. The first byte chooses the file and a key of it that is then changed,
// the rest is its content.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "store/settings/text_edit.h"
#include "store/settings/text_settings.h"

using namespace triaxlab;

namespace {

/// What every file must leave: numbers inside their limits, and no bracketed value empty that has a default.
void check(bool holds) {
  if (!holds) std::abort();
}

/// A change of one key leaves what all others mean.
void editOneKey(const TextFile& file, std::string_view content, std::size_t choice) {
  const TextKey& key = file.keys[choice % file.keys.size()];
  try {
    const std::string changed =
        withValue(file, content, key, choice % 2 == 0 ? std::optional<std::string>("20") : std::nullopt);
    TextValues before = textValues(file, content), after = textValues(file, changed);
    const std::size_t at = choice % file.keys.size();
    before[at] = after[at] = std::nullopt;
    check(before == after);
  } catch (const UserError&) {
    // A key that can't be parted from others.
  }
}

void readSettings(const TextFile& file, std::string_view content) {
  Settings settings;
  settings.chart = defaultChartLayout({});
  applyTextFile(file, content, settings);
  const LaboratoryHabits& habits = settings.habits;
  check(habits.unconfinedLargestStrain >= 10 && habits.unconfinedLargestStrain <= 50);
  check(habits.cohesionDecimals >= 0 && habits.cohesionDecimals <= 4);
  check(habits.sensitivityDecimals >= 0 && habits.sensitivityDecimals <= 4);
  check(!habits.pageLabel.empty() && !habits.projectNoLabel.empty() && !habits.sampleNoLabel.empty());
  check(!settings.english.projectNo.empty() && !settings.english.apparatusNo.empty());
  for (const double margin : {settings.chart.topMarginTwips, settings.chart.bottomMarginTwips})
    check(margin >= 5 * 57.2 && margin <= 100 * 57.2);
  check(settings.chart.slot[0].empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view content(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t files = textFiles().size();
  const TextFile& file = *textFiles()[data[0] % files];
  readSettings(file, content);
  editOneKey(file, content, data[0] / files);
  return 0;
}
