#include "importers/recognition.h"

#include <algorithm>

#include "importers/ku_file.h"

namespace triaxlab {

bool isPlainText(std::string_view text) {
  constexpr unsigned char kFirstPrinted = ' ';
  const std::string_view shown = shownText(text);
  return std::all_of(shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) >= kFirstPrinted; });
}

bool isSizeOfSpecimen(int height, int area) {
  constexpr int kLowest = 400, kHighest = 4000, kSmallest = 500, kLargest = 32000;
  return height >= kLowest && height <= kHighest && area >= kSmallest && area <= kLargest;
}

Likeness likenessOfSpecimen(std::uint8_t testMethod, std::int16_t height, std::int16_t area) {
  constexpr std::uint8_t kFirstMethod = 1, kLastMethod = 3;
  const bool fits = testMethod >= kFirstMethod && testMethod <= kLastMethod && isSizeOfSpecimen(height, area);
  return fits ? Likeness::Sure : Likeness::Possible;
}

Likeness likenessOfSpecimen(std::string_view projectNo, std::string_view sampleNo, std::uint8_t testMethod,
                            std::int16_t height, std::int16_t area) {
  if (shownText(sampleNo).empty()) return Likeness::Unused;
  if (!isPlainText(sampleNo) || !isPlainText(projectNo)) return Likeness::Impossible;
  return likenessOfSpecimen(testMethod, height, area);
}

}  // namespace triaxlab
