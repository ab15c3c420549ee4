// Writes the pages of docs/formats, or tells which of them are not what the code's tables say.
//
//   describe_formats FOLDER            writes the pages
//   describe_formats --check FOLDER    exit status 1 when a page is stale, missing or not one of them
//
// With --manual in front of the folder these are the pages of docs/manual that come from tables.
#include <fmt/format.h>

#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "format_pages.h"

namespace {

namespace fs = std::filesystem;
using Pages = std::map<std::string, std::string>;  // by file name

/// What is made of one folder, which may hold other files as well.
struct Work {
  bool checks = false, isManual = false;
  fs::path folder;
};

Pages makePages(bool ofManual) {
  if (ofManual) return {{"habits.md", triaxlab::formats::habitsPage()}};
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

int check(const Pages& pages, const Work& work, std::string_view program) {
  const fs::path& folder = work.folder;
  std::vector<std::string> wrong;
  for (const auto& [name, markdown] : pages) {
    if (!fs::exists(folder / name))
      wrong.push_back(name + " is missing");
    else if (contentOf(folder / name) != markdown)
      wrong.push_back(name + " is not what the code's tables say");
  }
  for (const auto& entry : fs::directory_iterator(folder))
    if (!work.isManual && !pages.contains(entry.path().filename().string()))
      wrong.push_back(entry.path().filename().string() + " is none of the pages");
  for (const std::string& sentence : wrong) fmt::print(stderr, "{}\n", sentence);
  if (!wrong.empty())
    fmt::print(stderr, "Renew the pages with: {} {}{}\n", program, work.isManual ? "--manual " : "", folder.string());
  return wrong.empty() ? 0 : 1;
}

/// Nothing for other words than those of the usage.
std::optional<Work> workOf(std::span<char* const> words) {
  Work work;
  for (const std::string_view word : words.first(words.empty() ? 0 : words.size() - 1)) {
    if (word == "--check" && !work.checks)
      work.checks = true;
    else if (word == "--manual" && !work.isManual)
      work.isManual = true;
    else
      return std::nullopt;
  }
  if (words.empty()) return std::nullopt;
  work.folder = words.back();
  return work;
}

}  // namespace

int main(int count, char** arguments) {
  const std::span<char* const> words(arguments, static_cast<std::size_t>(count));
  const std::optional<Work> work = workOf(words.subspan(1));
  if (!work) {
    fmt::print(stderr, "usage: {} [--check] [--manual] FOLDER\n", words[0]);
    return 2;
  }
  try {
    const Pages pages = makePages(work->isManual);
    return work->checks ? check(pages, *work, words[0]) : write(pages, work->folder);
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
