#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/settings/text_keys.h"

namespace triaxlab {

/// A line of a settings file: its bytes, and what they say in UTF-8.
struct TextLine {
  std::string bytes;  // with the line end, if it has one
  std::string text;   // without it
};

/// A text settings file taken apart into lines; put together again it is the same to the byte.
///
/// It is GBK, or UTF-8 when it begins with that mark. Laboratories have GBK files of many years, but today's editors
/// write UTF-8 with or without the mark, and a laboratory must not lose its settings in silence: a file in which a key
/// is found only as UTF-8 is UTF-8. Lines end with CR LF or LF, and byte 26 ends the file.
class TextLines {
 public:
  TextLines(const TextFile& file, std::string_view content);

  const std::vector<TextLine>& lines() const { return m_lines; }
  std::string content() const;

  /// The line as it counts: trimmed. Nothing for a comment.
  std::optional<std::string_view> live(const TextLine& line) const;

  // Changes; each is false, and nothing has changed, when the new text has no place in the file's encoding.
  /// Puts `text` in the place of `size` bytes at `from` of a line's text; all that is UTF-8.
  bool replace(std::size_t line, std::size_t from, std::size_t size, std::string_view text);
  /// A line of its own in front of line `at`, or behind the last.
  bool insert(std::size_t at, std::string_view text);

 private:
  enum class Encoding : std::uint8_t { Gbk, Utf8 };

  TextLine lineOf(std::string_view bytes) const;
  std::string decoded(std::string_view bytes) const;
  std::optional<std::string> encoded(std::string_view text) const;
  /// Where the character at `place` of the line's text begins in its bytes.
  std::size_t byteOf(const TextLine& line, std::size_t place) const;
  std::string_view lineEnd() const;

  std::string_view m_commentMarks;
  Encoding m_encoding = Encoding::Gbk;
  std::string m_mark;  // in front of the lines
  std::vector<TextLine> m_lines;
  std::string m_behind;  // from byte 26 on
};

/// Where the key stands in a line as it counts, behind what it is found; nothing when the line doesn't hold it. A
/// numbered text begins its line, and a line with a margin holds none.
std::optional<std::size_t> placeBehind(const TextFile& file, const TextKey& key, std::string_view line);

/// Where in `rest`, what stands behind a key, its text stands: trimmed, between the first "[" and the first "]" when
/// they come in this order.
struct TextPlace {
  std::size_t from, size;
};
std::optional<TextPlace> bracketedPlace(std::string_view rest);
/// The same of a numbered text, which its line may end.
TextPlace slotPlace(std::string_view rest);

}  // namespace triaxlab
