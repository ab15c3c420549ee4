#include "importers/ku_file.h"

#include <fmt/core.h>

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

}  // namespace triaxlab
