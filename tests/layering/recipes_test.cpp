// docs/building.md tells, for each thing that the house takes more of, which files one that is there touches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/file_bytes.h"

namespace triaxlab::layering {
namespace {

using triaxlab::testing::fileBytes;

const std::filesystem::path kRoot = TRIAXLAB_SOURCE;

struct Recipe {
  std::string name = {};
  int count = 0;                         // of files, as the text says
  std::string pattern = {};              // of the line with grep
  std::vector<std::string> places = {};  // where that line looks
  std::set<std::string> files = {};      // of the table
};

std::vector<Recipe> recipes() {
  static const std::regex kHeading("### (.*)"), kCount(".*touch(?:es)? (\\d+) files:");
  static const std::regex kSearch("    grep -rlE '(.*)' (.*)"), kRow("\\| `([^`]+)` \\| .+ \\|");
  std::vector<Recipe> found;
  std::istringstream text(fileBytes(kRoot / "docs/building.md"));
  std::smatch match;
  for (std::string line; std::getline(text, line);) {
    if (std::regex_match(line, match, kHeading)) found.push_back({.name = match[1]});
    if (found.empty()) continue;
    Recipe& recipe = found.back();
    if (std::regex_match(line, match, kCount)) recipe.count = std::stoi(match[1]);
    if (std::regex_match(line, match, kRow)) recipe.files.insert(match[1]);
    if (!std::regex_match(line, match, kSearch)) continue;
    recipe.pattern = match[1];
    std::istringstream places(match[2]);
    recipe.places.assign(std::istream_iterator<std::string>(places), {});
  }
  std::erase_if(found, [](const Recipe& recipe) { return recipe.pattern.empty(); });
  return found;
}

std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& place) {
  if (!std::filesystem::is_directory(place)) return {place};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(place))
    if (entry.is_regular_file()) files.push_back(entry.path());
  return files;
}

std::set<std::string> filesThatHave(const std::string& pattern, const std::vector<std::string>& places) {
  const std::regex wanted(pattern, std::regex::extended);
  std::set<std::string> found;
  for (const std::string& place : places)
    for (const std::filesystem::path& file : filesBelow(kRoot / place))
      if (std::regex_search(fileBytes(file), wanted))
        found.insert(std::filesystem::relative(file, kRoot).generic_string());
  return found;
}

TEST(Recipes, NameTheFilesThatTheirExamplesTouch) {
  for (const Recipe& recipe : recipes())
    EXPECT_THAT(filesThatHave(recipe.pattern, recipe.places), ::testing::ContainerEq(recipe.files)) << recipe.name;
}

TEST(Recipes, CountThem) {
  for (const Recipe& recipe : recipes()) EXPECT_EQ(recipe.count, static_cast<int>(recipe.files.size())) << recipe.name;
}

TEST(Recipes, AreThereForASourceALayoutAKeyAndAKindOfTest) {
  std::vector<std::string> names;
  for (const Recipe& recipe : recipes()) names.push_back(recipe.name);
  EXPECT_THAT(names, ::testing::ElementsAre("A source of raw data", "A page layout", "A key", "A kind of test"));
}

}  // namespace
}  // namespace triaxlab::layering
