// The manual, held against the program: what it shows exists, and what the program has stands in it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "shell/command_table.h"
#include "support/manual_files.h"

namespace triaxlab::testing {
namespace {

using ::testing::IsEmpty;
namespace fs = std::filesystem;

std::string wholeText() {
  std::string text;
  const Manual manual = manualOfTheProgram();
  for (const ManualChapter& chapter : manual.chapters()) text += chapter.markdown + '\n';
  return text;
}

/// Where links and pictures of the manual lead, as they are written.
std::set<std::string> targets() {
  static const std::regex kTarget(R"(\]\(([^)#]+)[^)]*\))");
  const std::string text = wholeText();
  std::set<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), kTarget), end; at != end; ++at) found.insert((*at)[1]);
  return found;
}

/// The files of a folder of the manual that end so.
std::set<std::string> filesIn(const fs::path& folder, std::string_view end) {
  std::set<std::string> names;
  for (fs::directory_iterator at(folder), last; at != last; ++at)
    if (std::string name = at->path().filename().string(); name.ends_with(end)) names.insert(std::move(name));
  return names;
}
std::set<std::string> pictures() { return filesIn(manualFolder() / "pictures", ".png"); }

bool has(const std::string& text, std::string_view part) { return text.find(part) != std::string::npos; }

TEST(ManualPages, LeadNowhereButToChaptersAndPicturesThatAreThere) {
  // The program carries nothing else.
  std::set<std::string> missing = targets();
  const Manual manual = manualOfTheProgram();
  for (const ManualChapter& chapter : manual.chapters()) missing.erase(chapter.file);
  for (const std::string& picture : pictures()) missing.erase("pictures/" + picture);
  EXPECT_THAT(missing, IsEmpty());
}

TEST(ManualPages, HaveEveryChapterInTheContents) {
  std::set<std::string> left = filesIn(manualFolder(), ".md");
  const Manual manual = manualOfTheProgram();
  for (const ManualChapter& chapter : manual.chapters()) left.erase(chapter.file);
  EXPECT_THAT(left, IsEmpty());
}

/// The name under which a script makes a picture: a printed page goes by its layout.
std::string madeAs(const std::string& picture) {
  constexpr std::string_view kPage = "page_", kEnd = ".png";
  if (!picture.starts_with(kPage)) return picture;
  std::string layout = picture.substr(kPage.size(), picture.size() - kPage.size() - kEnd.size());
  std::ranges::replace(layout, '_', '-');
  return layout;
}

TEST(ManualPages, ShowEveryPictureAndEachIsMadeByAScript) {
  std::string scripts = manualText("make_pictures");
  for (const std::string& script : filesIn(manualFolder(), ".play")) scripts += manualText(script);
  std::ranges::replace(scripts, '\n', ' ');
  const std::set<std::string> shown = targets();
  std::set<std::string> unused, unmade;
  for (const std::string& picture : pictures()) {
    if (!shown.contains("pictures/" + picture)) unused.insert(picture);
    if (!has(scripts, " " + madeAs(picture) + " ")) unmade.insert(picture);
  }
  EXPECT_THAT(unused, IsEmpty());
  EXPECT_THAT(unmade, IsEmpty());
}

TEST(ManualPages, TellOfEveryCommandAndItsShortcut) {
  const std::string text = wholeText();
  std::set<std::string_view> untold;
  for (const Command& command : commandTable()) {
    if (!has(text, command.caption)) untold.insert(command.caption);
    if (!has(text, command.shortcut)) untold.insert(command.shortcut);
  }
  EXPECT_THAT(untold, IsEmpty());
}

/// The string literals of a source file, those beside each other as one, as the compiler takes them.
std::vector<std::string> literalsOf(const std::string& source) {
  static const std::regex kLiteral(R"re("((?:[^"\\\n]|\\.)*)")re");
  std::vector<std::string> literals;
  std::ptrdiff_t end = -1;
  for (std::sregex_iterator at(source.begin(), source.end(), kLiteral), last; at != last; ++at) {
    const auto between = source.substr(static_cast<std::size_t>(std::max<std::ptrdiff_t>(end, 0)),
                                       static_cast<std::size_t>(at->position() - std::max<std::ptrdiff_t>(end, 0)));
    const bool goesOn = end >= 0 && between.find_first_not_of(" \n") == std::string::npos;
    if (goesOn)
      literals.back() += (*at)[1];
    else
      literals.push_back((*at)[1]);
    end = at->position() + at->length();
  }
  return literals;
}

/// What is fixed in a sentence that the program says: between what is put in and the ends of lines.
std::vector<std::string> fixedParts(const std::string& sentence) {
  static const std::regex kPutIn(R"re(\{[^}]*\}|%\d|\\n|\\")re");
  std::vector<std::string> parts(std::sregex_token_iterator(sentence.begin(), sentence.end(), kPutIn, -1), {});
  // Shorter ones tell nothing by themselves: six characters of Chinese.
  std::erase_if(parts, [](const std::string& part) { return part.size() < 18; });
  return parts;
}

bool isSentence(const std::string& text) {
  return std::ranges::any_of(std::array{"。", "？", "！"}, [&text](const char* mark) { return has(text, mark); });
}

TEST(ManualPages, TellOfEverySentenceThatTheProgramSays) {
  const std::string chapter = manualText("messages.md");
  std::set<std::string> untold;
  std::size_t said = 0;
  for (fs::recursive_directory_iterator at(fs::path(TRIAXLAB_SOURCE) / "src"), last; at != last; ++at) {
    const std::string name = at->path().filename().string();
    // The licences are no sentence that is said of something.
    if ((!name.ends_with(".cpp") && !name.ends_with(".h")) || name == "about.cpp") continue;
    for (const std::string& literal : literalsOf(manualText(at->path().string()))) {
      if (!isSentence(literal)) continue;
      ++said;
      for (std::string part : fixedParts(literal)) {
        part.erase(0, part.find_first_not_of(' '));
        if (!has(chapter, part)) untold.insert(name + ": " + part);
      }
    }
  }
  EXPECT_GT(said, 150U);
  EXPECT_THAT(untold, IsEmpty());
}

TEST(ManualPages, TellOfEachThingByOneName) {
  const std::string text = wholeText();
  for (const char* const other : {"项目文件", "汇总文件", "兄弟程序", "落盘", "标准错误"})
    EXPECT_FALSE(has(text, other)) << other;
}

}  // namespace
}  // namespace triaxlab::testing
