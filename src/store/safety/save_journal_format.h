#pragma once

#include <array>
#include <cstdint>
#include <tuple>

#include "common/little.h"
#include "common/record_fields.h"

namespace triaxlab {

// The parts of a journal as they lie on disk (see save_journal.h). Never change them: a journal may wait for the next
// start of another version.

inline constexpr std::array<char, 8> kSaveJournalBeginMark{'T', 'X', 'J', 'R', 'N', 'L', '1', '\n'};
inline constexpr std::array<char, 8> kSaveJournalEndMark{'E', 'N', 'D', 'T', 'X', 'J', '1', '\n'};

struct SaveJournalHead {
  std::array<char, 8> mark = kSaveJournalBeginMark;
  Little<std::uint64_t> indexSize;
  Little<std::uint64_t> dataSize;
};

struct SaveJournalIndexFile {
  Little<std::uint16_t> pathLength;
  std::uint8_t deed = 0;  // SaveJournalDeed
  Little<std::uint32_t> pieceCount;
};

struct SaveJournalIndexPiece {
  Little<std::uint64_t> offset;
  Little<std::uint64_t> size;
};

struct SaveJournalFoot {
  Little<std::uint64_t> checksum;
  std::array<char, 8> mark = kSaveJournalEndMark;
};

constexpr auto fieldsOf(RecordTag<SaveJournalHead> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SaveJournalHead, mark, "", "\"TXJRNL1\" and a line feed"),
      TRIAXLAB_FIELD(SaveJournalHead, indexSize, "bytes", "size of the index"),
      TRIAXLAB_FIELD(SaveJournalHead, dataSize, "bytes", "size of the data"),
  };
}
constexpr auto fieldsOf(RecordTag<SaveJournalIndexFile> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SaveJournalIndexFile, pathLength, "bytes", "length of the path"),
      TRIAXLAB_FIELD(SaveJournalIndexFile, deed, "",
                     "0 written to in pieces, 1 replaced by a file (one at most), 2 removed"),
      TRIAXLAB_FIELD(SaveJournalIndexFile, pieceCount, "",
                     "number of pieces; of deed 1 the name of the new content, without it journal.new; of deed 2 none"),
  };
}
constexpr auto fieldsOf(RecordTag<SaveJournalIndexPiece> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SaveJournalIndexPiece, offset, "", "where the piece belongs in the file"),
      TRIAXLAB_FIELD(SaveJournalIndexPiece, size, "bytes", "its size"),
  };
}
constexpr auto fieldsOf(RecordTag<SaveJournalFoot> /*record*/) {
  return std::tuple{
      TRIAXLAB_FIELD(SaveJournalFoot, checksum, "", "of everything before"),
      TRIAXLAB_FIELD(SaveJournalFoot, mark, "", "\"ENDTXJ1\" and a line feed"),
  };
}
static_assert(tiles<SaveJournalHead>(24) && tiles<SaveJournalIndexFile>(7));
static_assert(tiles<SaveJournalIndexPiece>(16) && tiles<SaveJournalFoot>(16));

}  // namespace triaxlab
