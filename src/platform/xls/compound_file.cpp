// A compound file is a small file system of sectors. With one stream that is known whole, all of it stands in order:
//
//     header    512 bytes, as a sector before the first
//     stream    padded to whole sectors
//     directory one sector: the root and the stream
//     FAT       for each sector the number of the next of its chain
//     DIFAT     where the FAT's sectors are, beyond the 109 that the header tells
#include "platform/xls/compound_file.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <vector>

#include "common/in_memory.h"
#include "common/little.h"
#include "common/user_error.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

using Word = Little<std::uint32_t>;
using Half = Little<std::uint16_t>;

constexpr std::size_t kSectorSize = 512, kWordsOfSector = kSectorSize / sizeof(Word);
constexpr std::size_t kFatSectorsInHeader = 109;
/// A shorter stream would have to lie in sectors of another kind.
constexpr std::size_t kLeastStream = 4096;
constexpr std::uint64_t kMostBytes = 0x7FFFFFFF;

constexpr std::uint32_t kFree = 0xFFFFFFFF, kChainEnd = 0xFFFFFFFE, kFatSector = 0xFFFFFFFD, kDifatSector = 0xFFFFFFFC;
constexpr std::uint32_t kNoEntry = 0xFFFFFFFF;

struct Header {
  std::array<std::uint8_t, 8> signature{0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
  std::array<std::uint8_t, 16> classId{};
  Half minorVersion = 0x3E, majorVersion = 3, byteOrder = 0xFFFE, sectorShift = 9, miniSectorShift = 6;
  std::array<std::uint8_t, 6> reserved{};
  Word directorySectors, fatSectors, firstDirectorySector, transaction, miniStreamCutoff = std::uint32_t{kLeastStream};
  Word firstMiniFatSector = kChainEnd, miniFatSectors, firstDifatSector = kChainEnd, difatSectors;
  std::array<Word, kFatSectorsInHeader> difat;
};
static_assert(sizeof(Header) == kSectorSize);

enum EntryType : std::uint8_t { kUnused = 0, kStream = 2, kRoot = 5 };

struct DirectoryEntry {
  std::array<Little<std::uint16_t>, 32> name;
  Half nameSize;  // with the zero behind it, bytes
  std::uint8_t type = kUnused, colour = 0;
  Word leftSibling = kNoEntry, rightSibling = kNoEntry, child = kNoEntry;
  std::array<std::uint8_t, 36> classStateAndTimes{};
  Word firstSector, size, sizeHigh;
};
static_assert(sizeof(DirectoryEntry) == 128);
using Directory = std::array<DirectoryEntry, kSectorSize / sizeof(DirectoryEntry)>;

constexpr std::size_t sectorsFor(std::size_t count, std::size_t ofSector) { return (count + ofSector - 1) / ofSector; }

/// Where everything stands, in numbers of sectors.
struct Places {
  explicit Places(std::size_t size) : stream(sectorsFor(size, kSectorSize)) {
    // The table of sectors has entries for its own sectors as well.
    for (;;) {
      const std::size_t all = stream + 1 + fat + difat;
      const std::size_t fatNeeded = sectorsFor(all, kWordsOfSector);
      const std::size_t beyond = fatNeeded - std::min(fatNeeded, kFatSectorsInHeader);
      const std::size_t difatNeeded = sectorsFor(beyond, kWordsOfSector - 1);
      if (fatNeeded == fat && difatNeeded == difat) return;
      fat = fatNeeded;
      difat = difatNeeded;
    }
  }
  std::uint32_t directory() const { return static_cast<std::uint32_t>(stream); }
  std::uint32_t firstFat() const { return directory() + 1; }
  std::uint32_t firstDifat() const { return firstFat() + static_cast<std::uint32_t>(fat); }

  std::size_t stream, fat = 0, difat = 0;
};

DirectoryEntry entryOf(EntryType type, std::u16string_view name) {
  DirectoryEntry entry;
  std::copy(name.begin(), name.end(), entry.name.begin());
  entry.nameSize = static_cast<std::uint16_t>(2 * (name.size() + 1));
  entry.type = type;
  entry.colour = 1;  // black: the tree of names has no other node
  return entry;
}

Directory directoryOf(std::u16string_view streamName, std::size_t size) {
  Directory directory;
  directory[0] = entryOf(kRoot, u"Root Entry");
  directory[0].child = 1U;
  directory[0].firstSector = kChainEnd;
  directory[1] = entryOf(kStream, streamName);
  directory[1].size = static_cast<std::uint32_t>(size);
  return directory;
}

std::vector<Word> fatOf(const Places& places) {
  std::vector<Word> fat(places.fat * kWordsOfSector, kFree);
  std::iota(fat.begin(), fat.begin() + static_cast<std::ptrdiff_t>(places.stream), 1U);
  fat[places.stream - 1] = kChainEnd;
  fat[places.directory()] = kChainEnd;
  std::fill_n(fat.begin() + places.firstFat(), places.fat, kFatSector);
  std::fill_n(fat.begin() + places.firstDifat(), places.difat, kDifatSector);
  return fat;
}

Header headerOf(const Places& places) {
  Header header;
  header.fatSectors = static_cast<std::uint32_t>(places.fat);
  header.firstDirectorySector = places.directory();
  header.difatSectors = static_cast<std::uint32_t>(places.difat);
  if (places.difat > 0) header.firstDifatSector = places.firstDifat();
  header.difat.fill(kFree);
  std::iota(header.difat.begin(),
            header.difat.begin() + static_cast<std::ptrdiff_t>(std::min(places.fat, kFatSectorsInHeader)),
            places.firstFat());
  return header;
}

/// Each of its sectors ends with the number of the next.
std::vector<Word> difatOf(const Places& places) {
  std::vector<Word> difat(places.difat * kWordsOfSector, kFree);
  std::uint32_t fatSector = places.firstFat() + kFatSectorsInHeader;
  const std::uint32_t fatEnd = places.firstDifat();
  for (std::size_t sector = 0; sector < places.difat; ++sector) {
    Word* const words = difat.data() + sector * kWordsOfSector;
    for (std::size_t i = 0; i + 1 < kWordsOfSector && fatSector < fatEnd; ++i) words[i] = fatSector++;
    const bool isLast = sector + 1 == places.difat;
    words[kWordsOfSector - 1] = isLast ? kChainEnd : places.firstDifat() + static_cast<std::uint32_t>(sector + 1);
  }
  return difat;
}

}  // namespace

void writeCompoundFile(ReplacedFile& file, std::u16string_view streamName,
                       std::span<const std::span<const std::byte>> parts) {
  std::uint64_t written = 0;
  for (const auto& part : parts) written += part.size();
  if (written > kMostBytes)
    throw UserError(fmt::format("数据太多，文件“{}”放不下。请改用 .xlsx，或分几次输出。", textOfPath(file.place())));
  // Behind the end of the stream's content stand zeros, which nobody reads.
  const std::size_t size = std::max(inMemory(written), kLeastStream);
  const Places places(size);
  const Header header = headerOf(places);
  file.write(bytesOf(header));
  for (const auto& part : parts) file.write(part);
  file.write(Bytes(places.stream * kSectorSize - inMemory(written)));
  const Directory directory = directoryOf(streamName, size);
  file.write(bytesOf(directory));
  const std::vector<Word> fat = fatOf(places), difat = difatOf(places);
  file.write(std::as_bytes(std::span(fat)));
  file.write(std::as_bytes(std::span(difat)));
}

}  // namespace triaxlab
