#include "sessions/dialogs/manual.h"

#include <algorithm>
#include <optional>

namespace triaxlab {
namespace {

constexpr std::string_view kBlanks = " \t";

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// Chinese letters and marks have three bytes in UTF-8 and stand beyond the Greek ones.
bool isChinese(std::string_view text, std::size_t at) {
  constexpr unsigned char kFirstLead = 0xE2, kLastLead = 0xEF;
  const auto lead = static_cast<unsigned char>(text[at]);
  return lead >= kFirstLead && lead <= kLastLead;
}
bool beginsChinese(std::string_view text) { return !text.empty() && isChinese(text, 0); }
bool endsChinese(std::string_view text) { return text.size() >= 3 && isChinese(text, text.size() - 3); }

bool isCode(std::string_view line) { return line.starts_with("    "); }
/// A line that ends at its own end.
bool standsAlone(std::string_view line) { return line.starts_with('#') || line.starts_with('|') || isCode(line); }

/// 1 for "# title"; nothing for other lines.
std::optional<int> headingLevel(std::string_view line) {
  const std::size_t marks = line.find_first_not_of('#');
  if (marks == 0 || marks == std::string_view::npos || line[marks] != ' ') return std::nullopt;
  return static_cast<int>(marks);
}

/// A table's line between heading and rows.
bool isRule(std::string_view line) { return line.find_first_not_of("|-: ") == std::string_view::npos; }

bool beginsLink(std::string_view text) {
  const std::size_t end = text.find(']');
  return text.starts_with('[') && end != std::string_view::npos && text.substr(end).starts_with("](");
}

/// The text that a reader sees: links by their words, no pictures, no marks.
std::string plain(std::string_view line) {
  std::string text;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const std::string_view rest = line.substr(at);
    // A picture as a whole, and where a link leads.
    if (rest.starts_with("![") || rest.starts_with("](")) {
      at += std::min(rest.find(')'), rest.size() - 1);
    } else if (line[at] == '|') {
      text += ' ';
    } else if (line[at] != '`' && line[at] != '*' && !beginsLink(rest)) {
      text += line[at];
    }
  }
  std::string_view shown = trimmed(text);
  if (shown.starts_with("- ")) shown.remove_prefix(2);
  return std::string(trimmed(shown));
}

std::string smallLetters(std::string text) {
  for (char& letter : text)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return text;
}

/// A line that doesn't go on with the paragraph before it.
bool beginsItem(std::string_view line) {
  const std::string_view text = trimmed(line);
  return standsAlone(line) || text.starts_with("- ") || (!text.empty() && text.front() >= '0' && text.front() <= '9');
}

void addText(std::vector<std::string>& paragraphs, std::string text, bool goesOn) {
  if (goesOn && !paragraphs.empty())
    paragraphs.back() += ' ' + text;
  else
    paragraphs.push_back(std::move(text));
}

/// The chapters to which a page links, in its order.
std::vector<std::string> linkedChapters(std::string_view page) {
  constexpr std::string_view kLink = "](", kEnd = ".md";
  std::vector<std::string> files;
  for (std::size_t at = page.find(kLink); at != std::string_view::npos; at = page.find(kLink, at)) {
    at += kLink.size();
    const std::string_view target = page.substr(at, page.find(')', at) - at);
    if (target.ends_with(kEnd) && std::ranges::find(files, target) == files.end()) files.emplace_back(target);
  }
  return files;
}

}  // namespace

Manual::Manual(const std::function<std::string(std::string_view file)>& read) {
  const std::string first = read(kFirstPage);
  addChapter(std::string(kFirstPage), first);
  for (std::string& file : linkedChapters(first)) {
    const std::string markdown = read(file);
    addChapter(std::move(file), markdown);
  }
}

void Manual::addChapter(std::string file, std::string_view markdown) {
  m_chapters.push_back({std::move(file), joinChineseLines(markdown)});
  bool goesOn = false;  // a line of text belongs to the paragraph before
  for (const std::string_view line : linesOf(m_chapters.back().markdown)) {
    const auto level = headingLevel(line);
    if (level)
      m_sections.push_back({m_chapters.size() - 1, *level, plain(line.substr(static_cast<std::size_t>(*level))), {}});
    else if (std::string text = plain(line); !text.empty() && !isRule(line) && !m_sections.empty())
      addText(m_sections.back().paragraphs, std::move(text), goesOn && !beginsItem(line));
    goesOn = !level && !trimmed(line).empty() && !standsAlone(line);
  }
}

const ManualSection* Manual::section(std::string_view file, std::string_view title) const {
  const auto found = std::ranges::find_if(m_sections, [&](const ManualSection& section) {
    return section.title == title && m_chapters[section.chapter].file == file;
  });
  return found == m_sections.end() ? nullptr : &*found;
}

std::vector<ManualHit> Manual::find(std::string_view query) const {
  const std::vector<std::string> words = searchedWords(query);
  std::vector<ManualHit> hits;
  if (words.empty()) return hits;
  const auto hasAll = [&](const std::string& text) {
    const std::string searched = smallLetters(text);
    return std::ranges::all_of(words,
                               [&](const std::string& word) { return searched.find(word) != std::string::npos; });
  };
  for (const ManualSection& section : m_sections) {
    if (hasAll(section.title)) {
      hits.push_back({&section, section.title});
    } else if (const auto text = std::ranges::find_if(section.paragraphs, hasAll); text != section.paragraphs.end()) {
      hits.push_back({&section, *text});
    }
  }
  return hits;
}

std::vector<std::string> searchedWords(std::string_view query) {
  std::vector<std::string> words;
  for (std::string_view rest = trimmed(query); !rest.empty();) {
    const std::string_view word = rest.substr(0, rest.find_first_of(kBlanks));
    words.push_back(smallLetters(std::string(word)));
    rest = trimmed(rest.substr(word.size()));
  }
  return words;
}

std::string joinChineseLines(std::string_view markdown) {
  std::string joined;
  std::string_view before;
  bool isFirst = true;
  for (const std::string_view line : linesOf(markdown)) {
    const std::string_view text = trimmed(line);
    const bool goesOn = !standsAlone(before) && !standsAlone(line) && endsChinese(before) && beginsChinese(text);
    if (!isFirst && !goesOn) joined += '\n';
    joined += goesOn ? text : line;
    before = line;
    isFirst = false;
  }
  return joined;
}

}  // namespace triaxlab
