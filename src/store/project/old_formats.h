#pragma once

#include <cstddef>
#include <span>

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

extern const OldFormat kOldTriaxialFormat, kOldUnconfinedFormat;

}  // namespace triaxlab
