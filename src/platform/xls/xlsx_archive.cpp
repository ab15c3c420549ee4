#include "platform/xls/xlsx_archive.h"

#include <unzip.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {
namespace {

struct CloseArchive {
  void operator()(unzFile archive) const { unzClose(archive); }
};
using Archive = std::unique_ptr<void, CloseArchive>;

/// What the archive stands at.
struct Part {
  std::string name;
  std::uint64_t size = 0;
};

Part currentPart(unzFile archive) {
  unz_file_info64 told{};
  std::array<char, 256> name{};
  unzGetCurrentFileInfo64(archive, &told, name.data(), name.size() - 1, nullptr, 0, nullptr, 0);
  return {name.data(), told.uncompressed_size};
}

/// The last bytes of the current part as it was before it was packed; nothing when it can't be unpacked whole.
std::optional<std::string> endOfPart(unzFile archive, std::size_t length) {
  std::vector<char> block(std::size_t{1} << 16);
  std::string end;
  if (unzOpenCurrentFile(archive) != UNZ_OK) return std::nullopt;
  int read = 0;
  while ((read = unzReadCurrentFile(archive, block.data(), static_cast<unsigned>(block.size()))) > 0) {
    end.append(block.data(), static_cast<std::size_t>(read));
    end.erase(0, end.size() - std::min(end.size(), length));
  }
  const bool isAsSummed = unzCloseCurrentFile(archive) == UNZ_OK;
  if (read < 0 || !isAsSummed) return std::nullopt;
  return end;
}

}  // namespace

bool isWholeXlsx(const std::filesystem::path& file, std::span<const std::uint64_t> sheetSizes) {
  constexpr std::string_view kSheets = "xl/worksheets/", kSheetEnd = "</worksheet>";
  const Archive archive(unzOpen64(file.c_str()));
  if (archive == nullptr) return false;
  std::size_t sheets = 0;
  int state = unzGoToFirstFile(archive.get());
  for (; state == UNZ_OK; state = unzGoToNextFile(archive.get())) {
    const Part part = currentPart(archive.get());
    const std::optional<std::string> end = endOfPart(archive.get(), kSheetEnd.size());
    if (!end || end->find('>') == std::string::npos) return false;
    if (!part.name.starts_with(kSheets)) continue;
    if (sheets == sheetSizes.size() || *end != kSheetEnd || part.size < sheetSizes[sheets]) return false;
    ++sheets;
  }
  return state == UNZ_END_OF_LIST_OF_FILE && sheets == sheetSizes.size();
}

}  // namespace triaxlab
