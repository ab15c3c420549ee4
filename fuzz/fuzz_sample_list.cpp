// Sample lists: whatever the texts and numbers are, sorting, moving and deleting keep every other row, and sorting by
// text sorts. The input is eight bytes for the steps, and behind them a line for each row: sample number, borehole and
// depth, parted by commas.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "common/gbk.h"
#include "store/project/sample_list_order.h"

namespace {

using namespace triaxlab;

constexpr std::size_t kSteps = 8;
constexpr std::array<SampleListKey, 3> kKeys{&SampleListRow::sampleNo, &SampleListRow::boreholeNo,
                                             &SampleListRow::samplingDepth};

void check(bool holds) {
  if (!holds) std::abort();
}

std::string_view takeUntil(std::string_view& text, char end) {
  const std::size_t at = std::min(text.find(end), text.size());
  const std::string_view part = text.substr(0, at);
  text.remove_prefix(std::min(at + 1, text.size()));
  return part;
}

SampleListTable rowsOf(std::string_view text) {
  SampleListTable rows;
  while (!text.empty() && rows.size() < 200) {
    std::string_view line = takeUntil(text, '\n');
    SampleListRow& row = rows.emplace_back();
    row.recordIndex = rows.size() - 1;
    // Lists come out of GBK records, so that any text of theirs is UTF-8.
    for (const SampleListKey key : kKeys) row.*key = gbkToUtf8(takeUntil(line, ','));
  }
  return rows;
}

std::vector<std::size_t> placesOf(const SampleListTable& rows) {
  std::vector<std::size_t> places;
  for (const SampleListRow& row : rows) places.push_back(row.recordIndex);
  std::sort(places.begin(), places.end());
  return places;
}

void sortAndCheck(SampleListTable& rows, ListRange range, SampleListKey key, SortMethod method,
                  SortDirection direction) {
  sortSampleList(rows, range, key, method, direction);
  SampleListTable again = rows;
  sortSampleList(again, range, key, method, direction);
  for (std::size_t i = 0; i < rows.size(); ++i) check(again[i].recordIndex == rows[i].recordIndex);
  if (method != SortMethod::ByText) return;
  for (int i = range.first; i < range.last; ++i) {
    const std::string one = utf8ToGbk(rows[static_cast<std::size_t>(i) - 1].*key);
    const std::string next = utf8ToGbk(rows[static_cast<std::size_t>(i)].*key);
    check(direction == SortDirection::Ascending ? one <= next : one >= next);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kSteps) return 0;
  SampleListTable rows = rowsOf({reinterpret_cast<const char*>(data) + kSteps, size - kSteps});
  const std::vector<std::size_t> places = placesOf(rows);
  const auto number = [data](std::size_t step) { return static_cast<std::int8_t>(data[step]); };

  const ListRange range = limitedListRange(number(0), number(1), rows.size());
  if (range.last >= range.first) {
    check(range.first >= 1 && range.last <= static_cast<int>(rows.size()));
    const SampleListKey key = kKeys[data[2] % kKeys.size()];
    for (const SortMethod method : {SortMethod::ByText, SortMethod::ByTextAndNumber})
      for (const SortDirection direction : {SortDirection::Ascending, SortDirection::Descending})
        sortAndCheck(rows, range, key, method, direction);
  }
  moveSample(rows, number(3), number(4));
  moveSampleBlock(rows, number(5), number(6), number(7));
  check(placesOf(rows) == places);

  markSamples(rows, range);
  const auto marked = static_cast<std::size_t>(
      std::count_if(rows.begin(), rows.end(), [](const SampleListRow& row) { return row.deleteMark; }));
  removeMarkedSamples(rows);
  check(rows.size() + marked == places.size());
  return 0;
}
