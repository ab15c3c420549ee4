#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace triaxlab {

struct ManualChapter {
  std::string file;      // as links name it: `curves.md`
  std::string markdown;  // its Chinese lines joined
  bool operator==(const ManualChapter&) const = default;
};

/// A heading of a chapter with what stands under it up to the next one.
struct ManualSection {
  std::size_t chapter = 0;
  int level = 1;
  std::string title;
  std::vector<std::string> paragraphs;  // plain text
  bool operator==(const ManualSection&) const = default;
};

struct ManualHit {
  const ManualSection* section;
  std::string excerpt;  // the first paragraph that has all the words; the title when it is that
};

/// The manual as its window shows it: chapters in the order in which its first page, README.md, links them, their
/// sections, and the search through them. All texts are UTF-8.
class Manual {
 public:
  static constexpr std::string_view kFirstPage = "README.md";

  /// `read` gives the Markdown of a file.
  explicit Manual(const std::function<std::string(std::string_view file)>& read);

  const std::vector<ManualChapter>& chapters() const { return m_chapters; }
  /// Chapter by chapter, each from its title on.
  const std::vector<ManualSection>& sections() const { return m_sections; }
  /// Null when there is none of that title, or no such chapter.
  const ManualSection* section(std::string_view file, std::string_view title) const;
  /// The sections in which title or a paragraph has all words of the query, big and small Latin letters alike.
  std::vector<ManualHit> find(std::string_view query) const;

 private:
  void addChapter(std::string file, std::string_view markdown);

  std::vector<ManualChapter> m_chapters;
  std::vector<ManualSection> m_sections;
};

/// The words of a query, small letters for Latin ones.
std::vector<std::string> searchedWords(std::string_view query);

/// Markdown whose paragraphs go on without a break where one Chinese line follows another: a reader of Markdown makes
/// a blank of each line break, and Chinese has none.
std::string joinChineseLines(std::string_view markdown);

}  // namespace triaxlab
