#pragma once

#include <array>
#include <cstdint>
#include <tuple>

#include "common/little.h"
#include "common/record_fields.h"

namespace triaxlab {

// The parts of a journal as they lie on disk (see journal.h). Never change them: a journal may wait for the next start
// of another version.

inline constexpr std::array<char, 8> kJournalBeginMark{'T', 'X', 'J', 'R', 'N', 'L', '1', '\n'};
inline constexpr std::array<char, 8> kJournalEndMark{'E', 'N', 'D', 'T', 'X', 'J', '1', '\n'};

struct JournalHead {
  std::array<char, 8> mark = kJournalBeginMark;
  Little<std::uint64_t> indexSize;
  Little<std::uint64_t> dataSize;
};
static_assert(sizeof(JournalHead) == 24);

struct JournalIndexFile {
  Little<std::uint16_t> pathLength;
  std::uint8_t deed = 0;  // JournalDeed
  Little<std::uint32_t> pieceCount;
};
static_assert(sizeof(JournalIndexFile) == 7);

struct JournalIndexPiece {
  Little<std::uint64_t> offset;
  Little<std::uint64_t> size;
};
static_assert(sizeof(JournalIndexPiece) == 16);

struct JournalFoot {
  Little<std::uint64_t> checksum;
  std::array<char, 8> mark = kJournalEndMark;
};
static_assert(sizeof(JournalFoot) == 16);

constexpr auto fieldsOf(RecordTag<JournalHead> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(JournalHead, mark, "", "\"TXJRNL1\" and a line feed"),
      TRIAXLAB_FIELD(JournalHead, indexSize, "bytes", "size of the index"),
      TRIAXLAB_FIELD(JournalHead, dataSize, "bytes", "size of the data"),
  };
}
constexpr auto fieldsOf(RecordTag<JournalIndexFile> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(JournalIndexFile, pathLength, "bytes", "length of the path"),
      TRIAXLAB_FIELD(JournalIndexFile, deed, "",
                     "0 written to in pieces, 1 replaced by journal.new (one file at most), 2 removed"),
      TRIAXLAB_FIELD(JournalIndexFile, pieceCount, "", "number of pieces; 0 unless the deed is 0"),
  };
}
constexpr auto fieldsOf(RecordTag<JournalIndexPiece> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(JournalIndexPiece, offset, "", "where the piece belongs in the file"),
      TRIAXLAB_FIELD(JournalIndexPiece, size, "bytes", "its size"),
  };
}
constexpr auto fieldsOf(RecordTag<JournalFoot> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(JournalFoot, checksum, "", "of everything before"),
      TRIAXLAB_FIELD(JournalFoot, mark, "", "\"ENDTXJ1\" and a line feed"),
  };
}
static_assert(tellsEveryByte<JournalHead>() && tellsEveryByte<JournalIndexFile>());
static_assert(tellsEveryByte<JournalIndexPiece>() && tellsEveryByte<JournalFoot>());

}  // namespace triaxlab
