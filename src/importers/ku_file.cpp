#include "importers/ku_file.h"

#include <fmt/core.h>

#include <algorithm>

namespace triaxlab {

std::string_view shownText(std::string_view text) { return Trim(text.substr(0, text.find('\0'))); }

std::string slashedEntryDate(const FixedText<8>& entryDate) {
  const std::string_view digits = entryDate.view();
  std::string date;
  date.append(digits.substr(0, 4)).append("/").append(digits.substr(4, 2)).append("/").append(digits.substr(6, 2));
  return std::string(shownText(date));
}

std::string cutShortRemark(const std::filesystem::path& path, std::string_view whatIsMissing) {
  return fmt::format("文件“{}”不完整：{}超出了文件末尾，缺少的部分按空白处理。", textOfPath(path), whatIsMissing);
}

bool blocksFit(std::vector<BlockExtent> blocks, std::uint64_t fileSize) {
  std::sort(blocks.begin(), blocks.end(), [](const BlockExtent& a, const BlockExtent& b) { return a.begin < b.begin; });
  std::uint64_t free = 0;
  for (const BlockExtent& block : blocks) {
    if (block.begin < free || block.end > fileSize) return false;
    free = block.end;
  }
  return true;
}

bool areEntryDates(std::string_view places) {
  constexpr std::size_t kDate = sizeof(KuIndexEntry<FixedText<8>>::entryDate);
  const auto isUsed = [](char c) { return c != ' ' && c != '\0'; };
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto areDigits = [&](std::string_view dates) {
    return 2 * std::ranges::count_if(dates, isDigit) >= std::ranges::count_if(dates, isUsed);
  };
  return areDigits(places) || areDigits(places.substr(0, kDate));
}

}  // namespace triaxlab
