// Writes the pages of docs/formats, or tells which of them are not what the code's tables say.
//
//   describe_formats FOLDER            writes the pages
//   describe_formats --check FOLDER    exit status 1 when a page is stale, missing or not one of them
#include <fmt/format.h>

#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "format_pages.h"

namespace {

namespace fs = std::filesystem;
using Pages = std::map<std::string, std::string>;  // by file name

Pages makePages() {
  Pages pages{{"README.md", triaxlab::formats::indexPage()}};
  for (const auto& page : triaxlab::formats::formatPages()) pages.emplace(page.file, page.markdown());
  return pages;
}

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

int write(const Pages& pages, const fs::path& folder) {
  fs::create_directories(folder);
  for (const auto& [name, markdown] : pages) {
    std::ofstream file(folder / name, std::ios::binary);
    file << markdown;
    if (!file.flush()) {
      fmt::print(stderr, "{} can't be written.\n", (folder / name).string());
      return 1;
    }
  }
  return 0;
}

int check(const Pages& pages, const fs::path& folder, std::string_view program) {
  std::vector<std::string> wrong;
  for (const auto& [name, markdown] : pages) {
    if (!fs::exists(folder / name))
      wrong.push_back(name + " is missing");
    else if (contentOf(folder / name) != markdown)
      wrong.push_back(name + " is not what the code's tables say");
  }
  for (const auto& entry : fs::directory_iterator(folder))
    if (!pages.contains(entry.path().filename().string()))
      wrong.push_back(entry.path().filename().string() + " is none of the pages");
  for (const std::string& sentence : wrong) fmt::print(stderr, "{}\n", sentence);
  if (!wrong.empty()) fmt::print(stderr, "Renew the pages with: {} {}\n", program, folder.string());
  return wrong.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string_view> words(arguments, arguments + count);
  const bool checking = words.size() == 3 && words[1] == "--check";
  if (!checking && words.size() != 2) {
    fmt::print(stderr, "usage: {} [--check] FOLDER\n", words[0]);
    return 2;
  }
  try {
    const Pages pages = makePages();
    return checking ? check(pages, words[2], words[0]) : write(pages, words[1]);
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
