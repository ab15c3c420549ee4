#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

#include "layering/include_rules.h"
#include "support/file_bytes.h"

namespace triaxlab::layering {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using triaxlab::testing::fileBytes;

std::vector<SourceFile> filesOfTheHouse() {
  const std::filesystem::path root = std::filesystem::path(TRIAXLAB_SOURCE) / "src";
  std::vector<SourceFile> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    files.push_back({std::filesystem::relative(entry.path(), root).generic_string(), fileBytes(entry.path())});
  }
  return files;
}

std::vector<std::string> violationsIn(std::string_view path, std::string_view include) {
  return violationsOf({std::string(path), "#include " + std::string(include) + "\n"});
}

TEST(Layering, EveryIncludeOfTheHouseKeepsTheFloors) {
  const auto files = filesOfTheHouse();
  std::size_t includes = 0;
  for (const SourceFile& file : files) {
    includes += includesOf(file.text).size();
    EXPECT_THAT(violationsOf(file), IsEmpty());
  }
  // Reading the wrong folder, or no include at all, must not pass for a tidy house.
  EXPECT_GT(files.size(), 20U);
  EXPECT_GT(includes, 100U);
}

TEST(Layering, IncludesAreFoundHoweverTheyAreWritten) {
  EXPECT_THAT(includesOf("#pragma once\n#include <array>\n  #  include \"common/gbk.h\"\r\n// #include <no>\n"
                         "#include<vector> // why\nint include;\n#include \"last.h\""),
              ElementsAre("array", "common/gbk.h", "vector", "last.h"));
}

TEST(Layering, OwnFolderAndLowerFloorsAreOpen) {
  EXPECT_THAT(violationsIn("common/gbk.cpp", "\"common/gbk.h\""), IsEmpty());
  EXPECT_THAT(violationsIn("store/workspace.h", "\"triaxial/record.h\""), IsEmpty());
  EXPECT_THAT(violationsIn("sessions/triaxial/curve_session.h", "\"triaxial/charts/frame.h\""), IsEmpty());
  EXPECT_THAT(violationsIn("main.cpp", "\"windows/main_window.h\""), IsEmpty());
}

TEST(Layering, AnImplementationSeesItsInterface) {
  EXPECT_THAT(violationsIn("platform/os/files_posix.cpp", "\"platform/files.h\""), IsEmpty());
  EXPECT_THAT(violationsIn("triaxial/charts/frame.cpp", "\"triaxial/record.h\""), IsEmpty());
}

TEST(Layering, AHigherFloorIsRefused) {
  EXPECT_THAT(violationsIn("common/gbk.cpp", "\"platform/files.h\""),
              ElementsAre("common/gbk.cpp (floor 1) includes platform/files.h (floor 2)"));
  EXPECT_THAT(violationsIn("triaxial/failure.cpp", "\"store/workspace.h\""),
              ElementsAre("triaxial/failure.cpp (floor 4) includes store/workspace.h (floor 5)"));
  EXPECT_THAT(violationsIn("triaxial/failure.cpp", "\"sessions/triaxial/curve_session.h\""),
              ElementsAre("triaxial/failure.cpp (floor 4) includes sessions/triaxial/curve_session.h (floor 7)"));
  EXPECT_THAT(violationsIn("windows/main_window.cpp", "<cli/run.h>"),
              ElementsAre("windows/main_window.cpp (floor 9) includes cli/run.h (floor 9)"));
}

TEST(Layering, RoomsOfTheStoreAreOpenToEachOther) {
  EXPECT_THAT(violationsIn("store/project/save.cpp", "\"store/summary/file.h\""), IsEmpty());
  EXPECT_THAT(violationsIn("store/safety/backup.h", "\"store/workspace.h\""), IsEmpty());
}

TEST(Layering, ANeighbourOnTheSameFloorIsRefused) {
  EXPECT_THAT(violationsIn("sessions/triaxial/a.cpp", "\"sessions/unconfined/b.h\""),
              ElementsAre("sessions/triaxial/a.cpp (floor 7) includes sessions/unconfined/b.h (floor 7)"));
  EXPECT_THAT(violationsIn("triaxial/failure.cpp", "\"k0/record.h\""),
              ElementsAre("triaxial/failure.cpp (floor 4) includes k0/record.h (floor 4)"));
  EXPECT_THAT(violationsIn("importers/automatic.cpp", "\"reports/page.h\""),
              ElementsAre("importers/automatic.cpp (floor 6) includes reports/page.h (floor 6)"));
}

TEST(Layering, AnInterfaceDoesNotSeeItsImplementation) {
  EXPECT_THAT(violationsIn("platform/jet_database.h", "\"platform/jet/jet_reader.h\""),
              ElementsAre("platform/jet_database.h (floor 2) includes platform/jet/jet_reader.h (floor 2)"));
}

TEST(Layering, OnlyTheWindowsAndTheQtDoorsKnowQt) {
  constexpr const char* kOnly = ", which only main.cpp, windows/, platform/qt/, cli/page_devices.cpp may";
  for (const char* const header : {"QString", "QtGlobal", "QtWidgets/QLabel"}) {
    const std::string include = "<" + std::string(header) + ">";
    for (const char* const path :
         {"windows/curve_window.cpp", "platform/qt/painter_surface.cpp", "main.cpp", "cli/page_devices.cpp"})
      EXPECT_THAT(violationsIn(path, include), IsEmpty());
    for (const std::string path : {"common/gbk.cpp", "platform/os/files_posix.cpp",
                                   "sessions/triaxial/curve_session.cpp", "cli/commands.cpp", "shell/startup.cpp"})
      EXPECT_THAT(violationsIn(path, include), ElementsAre(path + " includes " + header + kOnly));
  }
  EXPECT_THAT(violationsIn("reports/print_job.cpp", "\"platform/qt/pdf_device.h\""),
              ElementsAre(std::string("reports/print_job.cpp includes platform/qt/pdf_device.h") + kOnly));
}

TEST(Layering, ForeignPackagesStayBehindTheirDoors) {
  EXPECT_THAT(violationsIn("platform/jet/jet_reader.cpp", "<mdbtools.h>"), IsEmpty());
  EXPECT_THAT(violationsIn("importers/windows_edition.cpp", "<mdbtools.h>"),
              ElementsAre("importers/windows_edition.cpp includes mdbtools.h, which only platform/jet/ may"));
  EXPECT_THAT(violationsIn("store/file_update.cpp", "<unistd.h>"),
              ElementsAre("store/file_update.cpp includes unistd.h, which only platform/os/, platform/jet/ may"));
}

TEST(Layering, AFolderThatNobodyKnowsIsRefused) {
  EXPECT_THAT(violationsIn("helpers/misc.cpp", "<array>"),
              ElementsAre("helpers/misc.cpp: the folder stands on no floor"));
  EXPECT_THAT(violationsIn("store/workspace.cpp", "\"common/deep/gbk.h\""),
              ElementsAre("store/workspace.cpp includes common/deep/gbk.h, whose folder stands on no floor"));
}

TEST(Layering, PathsAreToldFromTheRootOfTheSources) {
  EXPECT_THAT(violationsIn("store/workspace.cpp", "\"../common/gbk.h\""),
              ElementsAre("store/workspace.cpp includes ../common/gbk.h, not told from src"));
}

// The linker joins what two types of one name bring along in silence, and takes either for the other.
TEST(Types, NoTwoOfTheHouseHaveOneName) {
  std::map<std::string, std::string> files;
  for (const SourceFile& file : filesOfTheHouse()) {
    if (!file.path.ends_with(".h")) continue;
    for (const std::string& type : typesOf(file.text)) {
      const auto [first, isNew] = files.try_emplace(type, file.path);
      EXPECT_TRUE(isNew) << type << " is defined in " << first->second << " and in " << file.path;
    }
  }
  EXPECT_GT(files.size(), 100U);
}

TEST(Types, AreFoundWithTheirNamespaces) {
  EXPECT_THAT(
      typesOf("class Ahead;\nnamespace triaxlab {\nstruct Point {\n  struct Inner {\n  };\n};\n"
              "enum class Colour : std::uint8_t { Red };\ntemplate <class T>\nclass Table final : public Rows {\n};\n"
              "template <>\nstruct Target<Point> {\n};\nnamespace detail {\nstruct Point {};\n}  // namespace detail\n"
              "struct Last : std::vector<int> {\n};\n}  // namespace triaxlab\n"),
      ElementsAre("triaxlab::Point", "triaxlab::Colour", "triaxlab::Table", "triaxlab::detail::Point",
                  "triaxlab::Last"));
}

TEST(Locale, NothingInTheHouseDependsOnIt) {
  for (const SourceFile& file : filesOfTheHouse()) EXPECT_THAT(localeDependenceOf(file), IsEmpty());
}

TEST(Locale, AFunctionThatDependsOnItIsFound) {
  const auto found = [](std::string text) { return localeDependenceOf({"store/a.cpp", std::move(text)}); };
  EXPECT_THAT(found("double x;\nx = std::strtod(text, nullptr);"),
              ElementsAre("store/a.cpp:2: strtod depends on the locale"));
  EXPECT_THAT(found("std::ostringstream out;"), ElementsAre("store/a.cpp:1: ostringstream depends on the locale"));
  EXPECT_THAT(found("f(\"\\\"\", isdigit(c));"), ElementsAre("store/a.cpp:1: isdigit depends on the locale"));
  EXPECT_THAT(found("// strtod is never used\n#include <locale>\nsay(\"no printf\"); fmt::print(\"\"); my_strtod();"),
              IsEmpty());
}

}  // namespace
}  // namespace triaxlab::layering
