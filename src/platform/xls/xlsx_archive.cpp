#include "platform/xls/xlsx_archive.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/little.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

using Half = Little<std::uint16_t>;
using Word = Little<std::uint32_t>;

/// The last record of a ZIP file; it tells where the directory is.
struct ArchiveEnd {
  Word signature;
  std::array<Half, 3> disks;
  Half entries;
  Word directorySize, directoryAt;
  Half commentSize;
};
static_assert(sizeof(ArchiveEnd) == 22);

struct DirectoryEntry {
  Word signature;
  std::array<Half, 8> versionToChecksum;
  Word packedSize, size;
  Half nameSize, extraSize, commentSize;
  std::array<Half, 4> disksAndAttributes;
  Word headAt;
};
static_assert(sizeof(DirectoryEntry) == 46);

/// In front of the bytes of a part.
struct PartHead {
  std::array<std::byte, 26> toldByTheDirectory;
  Half nameSize, extraSize;
};
static_assert(sizeof(PartHead) == 30);

struct Part {
  std::string name;
  std::uint64_t dataAt = 0;
  std::uint32_t packedSize = 0, size = 0;
};

template <class Record>
Record recordAt(const File& file, std::uint64_t offset) {
  Record record;
  file.readAt(offset, writableBytesOf(record));
  return record;
}

std::vector<Part> partsOf(const File& file) {
  const auto end = recordAt<ArchiveEnd>(file, file.size() - sizeof(ArchiveEnd));
  std::vector<Part> parts;
  std::uint64_t at = end.directoryAt;
  for (int i = 0; i < end.entries; ++i) {
    const auto entry = recordAt<DirectoryEntry>(file, at);
    Part& part = parts.emplace_back();
    part.name.resize(entry.nameSize);
    file.readAt(at + sizeof entry, std::as_writable_bytes(std::span(part.name)));
    const auto head = recordAt<PartHead>(file, entry.headAt);
    part.dataAt = std::uint64_t{entry.headAt} + sizeof head + head.nameSize + head.extraSize;
    part.packedSize = entry.packedSize;
    part.size = entry.size;
    at += sizeof entry + entry.nameSize + entry.extraSize + entry.commentSize;
  }
  return parts;
}

/// The last bytes of a part as it was before it was packed; nothing when it can't be unpacked.
std::optional<std::string> endOf(const File& file, const Part& part, std::size_t length) {
  constexpr std::size_t kBlock = std::size_t{1} << 16;
  std::vector<Bytef> packed(kBlock), plain(kBlock);
  std::string end;
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return std::nullopt;
  int state = Z_OK;
  for (std::uint32_t read = 0; state == Z_OK && read < part.packedSize;) {
    const std::size_t size = std::min<std::size_t>(kBlock, part.packedSize - read);
    read += static_cast<std::uint32_t>(
        file.readAt(part.dataAt + read, std::as_writable_bytes(std::span(packed).first(size))));
    stream.next_in = packed.data();
    stream.avail_in = static_cast<uInt>(size);
    do {
      stream.next_out = plain.data();
      stream.avail_out = static_cast<uInt>(kBlock);
      state = inflate(&stream, Z_NO_FLUSH);
      end.append(reinterpret_cast<const char*>(plain.data()), kBlock - stream.avail_out);
      end.erase(0, end.size() - std::min(end.size(), length));
    } while (state == Z_OK && stream.avail_out == 0);
  }
  inflateEnd(&stream);
  if (state != Z_STREAM_END || stream.total_out != part.size) return std::nullopt;
  return end;
}

}  // namespace

bool isWholeXlsx(const std::filesystem::path& file, std::span<const std::uint64_t> sheetSizes) {
  constexpr std::string_view kSheets = "xl/worksheets/", kSheetEnd = "</worksheet>";
  const File archive(file, File::Mode::Read);
  std::size_t sheets = 0;
  for (const Part& part : partsOf(archive)) {
    const std::optional<std::string> end = endOf(archive, part, kSheetEnd.size());
    if (!end || end->find('>') == std::string::npos) return false;
    if (!part.name.starts_with(kSheets)) continue;
    if (sheets == sheetSizes.size() || *end != kSheetEnd || part.size < sheetSizes[sheets]) return false;
    ++sheets;
  }
  return sheets == sheetSizes.size();
}

}  // namespace triaxlab
