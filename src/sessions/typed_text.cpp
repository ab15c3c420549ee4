#include "sessions/typed_text.h"

#include "common/gbk.h"

namespace triaxlab {
namespace {

constexpr char kLacking = '\x1A';  // a control character, so that what GBK lacks goes with these

constexpr bool isControl(char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == '\x7F'; }

}  // namespace

std::string takenText(std::string_view utf8, std::size_t width) {
  std::string gbk = utf8ToGbk(utf8, kLacking);
  std::erase_if(gbk, isControl);  // no second byte of a character lies in this range
  gbk.resize(cutWhole(gbk, width).size());
  return gbk;
}

std::string takenBeside(std::string_view rest, std::string_view inserted, std::size_t width) {
  const std::size_t used = utf8ToGbk(rest).size();
  return used < width ? gbkToUtf8(takenText(inserted, width - used)) : std::string();
}

}  // namespace triaxlab
