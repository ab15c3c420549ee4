#include "store/project/project_number.h"

#include <algorithm>
#include <array>

#include "common/gbk.h"
#include "common/small_letters.h"

namespace triaxlab {
namespace {

constexpr std::string_view kSeparators = "\\/:*?\"<>|";

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

/// The names of Windows devices; COM and LPT stand for COM1 to COM9 and LPT1 to LPT9.
bool isDeviceName(std::string_view number) {
  constexpr std::array<std::string_view, 4> kDevices{"con", "prn", "aux", "nul"};
  constexpr std::array<std::string_view, 2> kPorts{"com", "lpt"};
  const std::string name = caseless(number);
  if (std::find(kDevices.begin(), kDevices.end(), name) != kDevices.end()) return true;
  return name.size() == 4 && name[3] >= '1' && name[3] <= '9' &&
         std::find(kPorts.begin(), kPorts.end(), name.substr(0, 3)) != kPorts.end();
}

/// The second byte of a Chinese character may be one of the separators' codes ("\" or "|"), so whole characters are
/// looked at.
bool hasSeparator(std::string_view gbk) {
  for (std::size_t at = 0; at < gbk.size(); at += gbkCharacterSize(gbk, at))
    if (gbkCharacterSize(gbk, at) == 1 && kSeparators.find(gbk[at]) != std::string_view::npos) return true;
  return false;
}

}  // namespace

std::optional<std::string> whyNoFileName(std::string_view projectNo) {
  if (projectNo.empty()) return "是空白";
  if (std::any_of(projectNo.begin(), projectNo.end(), isControl)) return "含有控制字符";
  if (!isGbk(projectNo)) return "含有不完整的汉字";
  if (hasSeparator(projectNo)) return "含有 \\ / : * ? \" < > | 之一";
  if (projectNo.back() == '.') return "以“.”结尾";
  if (isDeviceName(projectNo)) return "是系统的设备名";
  return std::nullopt;
}

std::string projectFileName(std::string_view prefix, std::string_view projectNo, std::string_view extension) {
  return std::string(prefix).append(gbkToUtf8(projectNo)).append(extension);
}

std::string printableText(std::string_view gbk) {
  std::string text = gbkToUtf8(gbk);
  std::replace_if(text.begin(), text.end(), isControl, '?');
  return text;
}

}  // namespace triaxlab
