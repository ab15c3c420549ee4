#include "store/settings/text_lines.h"

#include <algorithm>
#include <iterator>

#include "common/fixed_text.h"
#include "common/gbk.h"

namespace triaxlab {
namespace {

constexpr char kFileEnd = 26;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF", kWindowsLineEnd = "\r\n", kLineEnd = "\n";

bool holdsAKey(const TextFile& file, std::string_view text) {
  return std::ranges::any_of(file.keys, [&](const TextKey& key) {
    return !std::holds_alternative<SlotValue>(key.value) && text.find(key.key) != std::string_view::npos;
  });
}

std::string_view withoutLineEnd(std::string_view bytes) {
  if (bytes.ends_with('\n')) bytes.remove_suffix(1);
  if (bytes.ends_with('\r')) bytes.remove_suffix(1);
  return bytes;
}

/// Bytes that gbkToUtf8 takes at once.
std::size_t gbkStep(std::string_view gbk) {
  return gbk.size() > 1 && isGbkLead(gbk[0]) && isGbk(gbk.substr(0, 2)) ? 2 : 1;
}

}  // namespace

TextLines::TextLines(const TextFile& file, std::string_view content) : m_commentMarks(file.commentMarks) {
  std::string_view text = content.substr(0, content.find(kFileEnd));
  m_behind = content.substr(text.size());
  if (text.starts_with(kUtf8Mark)) {
    m_mark = kUtf8Mark;
    text.remove_prefix(kUtf8Mark.size());
    m_encoding = Encoding::Utf8;
  } else if (const std::string asGbk = gbkToUtf8(text); !holdsAKey(file, asGbk) && asGbk != text) {
    // Keys are searched in the UTF-8 text and never in GBK, where the second byte of a character can be a "[". A chart
    // file may hold numbered texts alone; then its Chinese tells.
    if (holdsAKey(file, text) || utf8ToGbkExactly(text)) m_encoding = Encoding::Utf8;
  }
  while (!text.empty()) {
    const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
    m_lines.push_back(lineOf(text.substr(0, size)));
    text.remove_prefix(size);
  }
}

std::string TextLines::content() const {
  std::string whole = m_mark;
  for (const TextLine& line : m_lines) whole += line.bytes;
  return whole + m_behind;
}

std::optional<std::string_view> TextLines::live(const TextLine& line) const {
  const std::string_view text = Trim(line.text);
  if (text.empty() || m_commentMarks.find(text.front()) != std::string_view::npos) return std::nullopt;
  return text;
}

bool TextLines::replace(std::size_t line, std::size_t from, std::size_t size, std::string_view text) {
  const auto bytes = encoded(text);
  if (!bytes) return false;
  TextLine& changed = m_lines.at(line);
  const std::size_t begin = byteOf(changed, from), end = byteOf(changed, from + size);
  changed = lineOf(std::string(changed.bytes).replace(begin, end - begin, *bytes));
  return true;
}

bool TextLines::insert(std::size_t at, std::string_view text) {
  const auto bytes = encoded(text);
  if (!bytes) return false;
  const std::string_view end = lineEnd();
  if (at == m_lines.size() && at > 0 && !m_lines.back().bytes.ends_with('\n')) m_lines.back().bytes += end;
  m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(at), lineOf(*bytes + std::string(end)));
  return true;
}

TextLine TextLines::lineOf(std::string_view bytes) const {
  return {std::string(bytes), decoded(withoutLineEnd(bytes))};
}

std::string TextLines::decoded(std::string_view bytes) const {
  return m_encoding == Encoding::Gbk ? gbkToUtf8(bytes) : std::string(bytes);
}

std::optional<std::string> TextLines::encoded(std::string_view text) const {
  return m_encoding == Encoding::Gbk ? utf8ToGbkExactly(text) : std::string(text);
}

std::size_t TextLines::byteOf(const TextLine& line, std::size_t place) const {
  if (m_encoding == Encoding::Utf8) return place;
  std::size_t at = 0;
  for (std::size_t shown = 0; shown < place;) {
    const std::string_view character(line.bytes.data() + at, gbkStep(std::string_view(line.bytes).substr(at)));
    shown += gbkToUtf8(character).size();
    at += character.size();
  }
  return at;
}

/// A new file is one of the Windows programs that it is edited with.
std::string_view TextLines::lineEnd() const {
  if (m_lines.empty() || m_lines.front().bytes.ends_with(kWindowsLineEnd)) return kWindowsLineEnd;
  return m_lines.front().bytes.ends_with(kLineEnd) ? kLineEnd : kWindowsLineEnd;
}

std::optional<std::size_t> placeBehind(const TextFile& file, const TextKey& key, std::string_view line) {
  const bool isSlot = std::holds_alternative<SlotValue>(key.value);
  const std::size_t at = line.find(key.key);
  if (at == std::string_view::npos || (isSlot && (at != 0 || holdsAKey(file, line)))) return std::nullopt;
  return at + key.key.size();
}

std::optional<TextPlace> bracketedPlace(std::string_view rest) {
  const std::size_t open = rest.find('['), close = rest.find(']');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) return std::nullopt;
  const std::string_view inside = rest.substr(open + 1, close - open - 1), text = Trim(inside);
  if (text.empty()) return TextPlace{open + 1, inside.size()};
  return TextPlace{static_cast<std::size_t>(text.data() - rest.data()), text.size()};
}

TextPlace slotPlace(std::string_view rest) { return {0, std::min(rest.find(']'), rest.size())}; }

}  // namespace triaxlab
