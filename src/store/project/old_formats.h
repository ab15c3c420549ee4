#pragma once

#include <cstddef>
#include <span>

#include "store/project/project_kinds.h"

namespace triaxlab {

/// Bytes of an old record and where they stand today.
struct FieldCopy {
  std::size_t from, to, size;
};

/// The shorter records that the files of a kind once had.
struct OldFormat {
  ProjectKind kind;
  std::size_t recordSize;
  std::span<const FieldCopy> copies;  // every byte of the old record, in order
  const char* temporaryName;  // of the upgraded file in the applicationFolder, until it takes the old one's place
};

/// Null for a kind that has had one format only.
const OldFormat* oldFormatOf(ProjectKind kind);

}  // namespace triaxlab
