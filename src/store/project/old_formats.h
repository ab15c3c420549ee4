#pragma once

#include <cstddef>
#include <span>

#include "platform/files.h"
#include "store/safety/passing_file.h"

namespace triaxlab {

/// Bytes of an old record and where they stand today.
struct FieldCopy {
  std::size_t from, to, size;
};

/// The shorter records that the files of a kind once had.
struct OldFormat {
  std::size_t recordSize;
  std::span<const FieldCopy> copies;  // every byte of the old record, in order
  PassingName temporaryName;  // of the upgraded file in the applicationFolder, until it takes the old one's place
};

/// An old record in the places of today; what it doesn't have is as in the blank record of today.
Bytes recordOfToday(const OldFormat& format, std::span<const std::byte> blank, std::span<const std::byte> old);

extern const OldFormat kOldTriaxialFormat, kOldUnconfinedFormat;

}  // namespace triaxlab
