#include "store/project/sample_list_order.h"

#include <algorithm>
#include <deque>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "common/fixed_text.h"
#include "common/text_number.h"

namespace triaxlab {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// What a row is sorted by. By text alone `text` is all of it; by text and number it ends in front of the first digit.
struct SortKey {
  std::string_view text, rest;
  double number = -1;  // a key that ends with its text goes before those that go on
  std::size_t row = 0;
};

SortKey splitKey(std::string_view key, std::size_t row = 0) {
  SortKey split{.text = key, .rest = {}, .number = -1, .row = row};
  const auto* const digit = std::find_if(key.begin(), key.end(), isDigit);
  if (digit == key.end()) return split;
  const auto* end = std::find_if_not(digit, key.end(), isDigit);
  if (end != key.end() && *end == '.') end = std::find_if_not(end + 1, key.end(), isDigit);
  split.text = {key.begin(), digit};
  split.number = ParseNumber({digit, end});
  split.rest = {end, key.end()};
  return split;
}

bool goesBefore(const SortKey& a, const SortKey& b) {
  if (const int order = a.text.compare(b.text); order != 0) return order < 0;
  if (a.number != b.number) return a.number < b.number;
  if (a.rest.empty() || b.rest.empty()) return a.rest.size() < b.rest.size();
  return goesBefore(splitKey(a.rest), splitKey(b.rest));
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isAnyRow(const SampleListTable& rows, ListRange range) { return !rows.empty() && range.first <= range.last; }

auto rowAt(SampleListTable& rows, int number) { return rows.begin() + (number - 1); }

}  // namespace

ListRange limitedListRange(int first, int last, std::size_t count) {
  const int highest = static_cast<int>(count);
  first = std::min(first, highest);
  last = std::min(last, highest);
  if (first > last) std::swap(first, last);
  if (last < 1) return {};
  return {std::max(first, 1), last};
}

void sortSampleList(SampleListTable& rows, ListRange range, SampleListKey key, SortMethod method,
                    SortDirection direction) {
  if (!isAnyRow(rows, range)) return;
  const std::span<SampleListRow> sorted(rowAt(rows, range.first), rowAt(rows, range.last) + 1);
  std::deque<std::string> converted;  // the keys' GBK, where it differs
  std::vector<SortKey> keys;
  keys.reserve(sorted.size());
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    std::string_view text = Trim(sorted[i].*key);
    if (!isAscii(text)) text = converted.emplace_back(utf8ToGbk(text));
    keys.push_back(method == SortMethod::ByText ? SortKey{.text = text, .rest = {}, .number = -1, .row = i}
                                                : splitKey(text, i));
  }
  if (direction == SortDirection::Ascending)
    std::stable_sort(keys.begin(), keys.end(), goesBefore);
  else
    std::stable_sort(keys.begin(), keys.end(), [](const SortKey& a, const SortKey& b) { return goesBefore(b, a); });

  SampleListTable inOrder;
  inOrder.reserve(keys.size());
  for (const SortKey& next : keys) inOrder.push_back(std::move(sorted[next.row]));
  std::ranges::move(inOrder, sorted.begin());
}

void markSamples(SampleListTable& rows, ListRange range) {
  if (isAnyRow(rows, range))
    std::for_each(rowAt(rows, range.first), rowAt(rows, range.last) + 1, [](auto& row) { row.deleteMark = true; });
}

void removeMarkedSamples(SampleListTable& rows) {
  std::erase_if(rows, [](const SampleListRow& row) { return row.deleteMark; });
}

void moveSample(SampleListTable& rows, int from, int to) { moveSampleBlock(rows, from, from, to); }

void moveSampleBlock(SampleListTable& rows, int first, int last, int to) {
  if (rows.empty() || std::min({first, last, to}) < 1) return;
  const ListRange block = limitedListRange(first, last, rows.size());
  to = std::min(to, static_cast<int>(rows.size()));
  const auto begin = rowAt(rows, block.first), end = rowAt(rows, block.last) + 1;
  if (to < block.first)
    std::rotate(rowAt(rows, to), begin, end);
  else if (to > block.last)
    std::rotate(begin, end, rowAt(rows, to) + 1);
}

}  // namespace triaxlab
