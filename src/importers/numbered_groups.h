#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/fixed_text.h"
#include "importers/ku_file.h"
#include "platform/files.h"

namespace triaxlab {

// The controllers of two sources keep their sample numbers as packed decimals, of which a short number alone has room.
// A long one stands in a text behind the groups of its block.

/// Two digits a byte, the high nibble first. 10 is a dash; what lies above adds no character.
std::string unpackedNumber(std::span<const std::uint8_t> packed);

/// Behind the groups: "zmgj", then ten places for each group.
using LongSampleNumbers = FixedText<644>;

/// The long number of a group is taken with the blanks around it, if it has more than six characters within them.
std::optional<std::string> longSampleNo(const LongSampleNumbers& numbers, std::size_t group);

/// A data block: a byte that counts its groups, the groups, their long sample numbers.
template <class Group>
struct NumberedGroups {
  RawRecords<Group> groups;
  LongSampleNumbers longSampleNumbers;
  bool isWhole = true;
};

/// The block of an index entry; what lies behind the end of the file is blank. A database without long numbers may end
/// behind its last group.
template <class Group, class Entry>
NumberedGroups<Group> readNumberedGroups(const File& file, const Entry& entry) {
  NumberedGroups<Group> block;
  block.isWhole = readCounted(file, entry, block.groups);
  const std::uint64_t behind = entry.entryDataOffset.value() + 1 + block.groups.size() * sizeof(Group);
  file.readAt(behind, writableBytesOf(block.longSampleNumbers));
  return block;
}

}  // namespace triaxlab
