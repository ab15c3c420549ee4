#pragma once

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace triaxlab::testing {

/// A PDF as a reader of it sees it. Needs the package poppler-utils.
class PrintedDocument {
 public:
  static bool canBeRead() { return access("/usr/bin/pdftotext", X_OK) == 0; }

  struct Word {
    std::string text;
    double x, y;  // of its upper left corner, in points
    bool operator==(const Word&) const = default;
  };
  struct Page {
    double width = 0, height = 0;  // points
    std::vector<Word> words;
    std::vector<std::string> texts() const {
      std::vector<std::string> found;
      for (const Word& word : words) found.push_back(word.text);
      return found;
    }
    bool operator==(const Page&) const = default;
  };

  explicit PrintedDocument(const std::string& file) {
    const std::string told = outputOf("pdftotext -bbox '" + file + "' -");
    for (std::size_t at = 0, end = 0; (at = told.find('<', end)) != std::string::npos;) {
      end = told.find('\n', at);
      readLine(std::string_view(told).substr(at, end - at));
    }
  }

  std::vector<Page> pages;

  /// How thick the thickest line of the first page is, in the units of the drawing.
  static double thickestLine(const std::string& file) {
    const std::string told = outputOf("pdftocairo -svg -l 1 '" + file + "' -");
    constexpr std::string_view kWidth = "stroke-width:";
    double thickest = 0;
    for (std::size_t at = told.find(kWidth); at != std::string::npos; at = told.find(kWidth, at + 1))
      thickest = std::max(thickest, std::stod(told.substr(at + kWidth.size(), 20)));
    return thickest;
  }

 private:
  static std::string outputOf(const std::string& command) {
    std::string output;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>/dev/null").c_str(), "r"), pclose);
    std::array<char, 4096> part{};
    while (pipe && std::fgets(part.data(), part.size(), pipe.get()) != nullptr) output += part.data();
    return output;
  }
  static double numberOf(std::string_view line, std::string_view name) {
    const std::size_t at = line.find(std::string(" ") + std::string(name) + "=\"");
    return std::stod(std::string(line.substr(at + name.size() + 3)));
  }
  static std::string withoutEntities(std::string text) {
    for (const auto& [entity, sign] : {std::pair("&lt;", "<"), std::pair("&gt;", ">"), std::pair("&quot;", "\""),
                                       std::pair("&apos;", "'"), std::pair("&amp;", "&")})
      for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; ++at)
        text.replace(at, std::string_view(entity).size(), sign);
    return text;
  }
  void readLine(std::string_view line) {
    if (line.starts_with("<page ")) pages.push_back({numberOf(line, "width"), numberOf(line, "height"), {}});
    if (!line.starts_with("<word ")) return;
    const std::size_t begin = line.find('>') + 1;
    pages.back().words.push_back({withoutEntities(std::string(line.substr(begin, line.rfind('<') - begin))),
                                  numberOf(line, "xMin"), numberOf(line, "yMin")});
  }
};

}  // namespace triaxlab::testing
