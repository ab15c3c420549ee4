// The hand-edited text settings. The first byte chooses the file, the rest is its content.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <span>

#include "shell/ini_settings.h"

using namespace triaxlab;

namespace {

/// What every file must leave: numbers inside their limits, and no bracketed value empty that has a default.
void check(bool holds) {
  if (!holds) std::abort();
}

void readHabits(std::span<const std::byte> content) {
  LaboratoryHabits habits;
  applyHabits(content, habits);
  check(habits.unconfinedLargestStrain >= 10 && habits.unconfinedLargestStrain <= 50);
  check(habits.cohesionDecimals >= 0 && habits.cohesionDecimals <= 4);
  check(habits.sensitivityDecimals >= 0 && habits.sensitivityDecimals <= 4);
  check(!habits.pageLabel.empty() && !habits.projectNoLabel.empty());
}

void readListLabels(std::span<const std::byte> content) {
  LaboratoryHabits habits;
  applyListLabels(content, habits);
  check(!habits.sampleNoLabel.empty());
}

void readEnglishLabels(std::span<const std::byte> content) {
  EnglishLabels labels;
  applyEnglishLabels(content, labels);
  check(!labels.projectNo.empty() && !labels.apparatusNo.empty());
}

void readChartLayout(std::span<const std::byte> content) {
  ChartLayout layout = defaultChartLayout({});
  applyChartLayout(content, layout);
  for (const double margin : {layout.topMarginTwips, layout.bottomMarginTwips})
    check(margin >= 5 * 57.2 && margin <= 100 * 57.2);
  check(layout.slot[0].empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr void (*kReaders[])(std::span<const std::byte>) = {readHabits, readListLabels, readEnglishLabels,
                                                              readChartLayout};
  if (size == 0) return 0;
  const auto content = std::as_bytes(std::span(data, size)).subspan(1);
  kReaders[data[0] % std::size(kReaders)](content);
  return 0;
}
