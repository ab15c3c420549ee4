#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "store/project/project_list.h"

namespace triaxlab {

// What a technician does with a sample list before it is saved: sorting, moving, deleting. The rows carry their place
// in the file and their mark along. Sequence numbers count from 1 and come from text boxes, so they may be anything.

/// Rows by sequence number, first to last. Empty when last is below first.
struct ListRange {
  int first = 1, last = 0;
  bool operator==(const ListRange&) const = default;
};
/// What two typed numbers come to in a list of `count` rows: cut to the count, exchanged if reversed, and a first below
/// 1 counts as 1. Empty when both are below 1.
ListRange limitedListRange(int first, int last, std::size_t count);

enum class SortMethod : std::uint8_t {
  ByText,          // 方法一: the texts as they are, so A-10 goes before A-9
  ByTextAndNumber  // 方法二: the text up to the first digit, then the number behind it, so A-9 goes before A-10
};
enum class SortDirection : std::uint8_t { Ascending, Descending };
/// The column that is sorted by: &SampleListRow::sampleNo, boreholeNo or samplingDepth.
using SampleListKey = std::string SampleListRow::*;

/// Sorts the rows of the range. Texts compare by the bytes of their GBK form. By text and number a key whose first text
/// and number are equal is compared in the same way behind them (ZK1-9 before ZK1-10); a number may have decimals. Rows
/// of equal keys keep their order in either direction. Pre: the range lies in the list.
void sortSampleList(SampleListTable& rows, ListRange range, SampleListKey key, SortMethod method,
                    SortDirection direction);

/// Marks the rows of the range to be removed.
void markSamples(SampleListTable& rows, ListRange range);
/// Removes the marked rows; the others close up.
void removeMarkedSamples(SampleListTable& rows);

/// Moves the row to the place of another, the rows between closing up. Numbers beyond the list mean its last row; a
/// number below 1 does nothing.
void moveSample(SampleListTable& rows, int from, int to);
/// Moves the rows `first` to `last`, in either order, to the place of another: when moved up, the first comes to stand
/// there, when moved down, the last. A target inside the block does nothing; numbers as above.
void moveSampleBlock(SampleListTable& rows, int first, int last, int to);

}  // namespace triaxlab
