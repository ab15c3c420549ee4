#include "windows/play/script.h"

#include <fmt/core.h>

#include <charconv>

#include "platform/files.h"

namespace triaxlab {
namespace {

constexpr std::uint64_t kLargestScript = 16'000'000;  // bytes
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutLeadingBlanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text;
}

/// The next line without its end; `text` goes on behind it.
std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

std::vector<ScriptLine> readScript(const std::filesystem::path& file) {
  const Bytes content = readWholeFile(file, kLargestScript);
  std::string_view text(reinterpret_cast<const char*>(content.data()), content.size());
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<ScriptLine> lines;
  for (int number = 1; !text.empty(); ++number) {
    const std::string_view line = withoutLeadingBlanks(takeLine(text));
    if (line.empty() || line.starts_with('#')) continue;
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    lines.push_back(
        {number, std::string(line.substr(0, end)), std::string(line.substr(std::min(end + 1, line.size())))});
  }
  return lines;
}

bool Arguments::isEmpty() const { return withoutLeadingBlanks(m_rest).empty(); }

std::string Arguments::word(std::string_view what) {
  const std::string_view rest = withoutLeadingBlanks(m_rest);
  if (rest.empty()) throw ScriptError(fmt::format("{} is missing", what));
  const std::size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
  m_rest = rest.substr(std::min(end + 1, rest.size()));
  return std::string(rest.substr(0, end));
}

int Arguments::number(std::string_view what) {
  const std::string text = word(what);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size())
    throw ScriptError(fmt::format("{} is no whole number: {}", what, text));
  return value;
}

std::string Arguments::text() {
  std::string text(m_rest);
  m_rest = {};
  return text;
}

void Arguments::end() const {
  if (!isEmpty()) throw ScriptError(fmt::format("not understood: {}", withoutLeadingBlanks(m_rest)));
}

Target targetOf(std::string_view word) {
  const std::size_t dot = word.find('.');
  if (dot == std::string_view::npos) return {std::string(word), {}};
  return {std::string(word.substr(0, dot)), std::string(word.substr(dot + 1))};
}

std::string onOneLine(std::string_view text) {
  std::string line;
  for (const char c : text)
    if (c == '\n')
      line += "\\n";
    else
      line += c;
  return line;
}

}  // namespace triaxlab
