#include "platform/replaced_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "common/user_error.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing::TemporaryFolder;

void write(ReplacedFile& file, std::string_view text) { file.write(std::as_bytes(std::span(text))); }

std::ptrdiff_t filesIn(const TemporaryFolder& folder) {
  return std::distance(fs::directory_iterator(folder.path()), {});
}

TEST(ReplacedFile, TheOldOneStandsUntilTheNewOneIsComplete) {
  const TemporaryFolder folder;
  folder.write("report.csv", "old");
  ReplacedFile file(folder / "report.csv");
  write(file, "new, ");
  write(file, "in pieces");
  EXPECT_EQ(folder.read("report.csv"), "old");
  file.finish();
  EXPECT_EQ(folder.read("report.csv"), "new, in pieces");
  EXPECT_EQ(filesIn(folder), 1);
}

TEST(ReplacedFile, OneThatIsDroppedLeavesNothing) {
  const TemporaryFolder folder;
  {
    ReplacedFile file(folder / "report.csv");
    write(file, "half");
  }
  EXPECT_EQ(filesIn(folder), 0);
}

TEST(ReplacedFile, KeepsThePermissionsOfTheOldOne) {
  POSIX_ONLY("rights of files");
  const TemporaryFolder folder;
  const fs::path old = folder.write("report.csv", "old");
  fs::permissions(old, fs::perms(0640));
  ReplacedFile(old).finish();
  EXPECT_EQ(fs::status(old).permissions(), fs::perms(0640));
}

/// What is said when it can't be made.
std::string errorOf(const fs::path& place) {
  try {
    ReplacedFile(place).finish();
  } catch (const UserError& error) {
    return error.what();
  }
  return "no error";
}

TEST(ReplacedFile, ErrorsNameTheFileThatThePersonKnows) {
  const TemporaryFolder folder;
  EXPECT_THAT(errorOf(folder.path() / "missing" / "report.csv"), HasSubstr(textOfPath("missing/report.csv") + "”"));
  // A folder in the way: of the file beside, and of the place itself.
  fs::create_directory(folder / "report.csv.new");
  EXPECT_THAT(errorOf(folder / "report.csv"), HasSubstr("report.csv”"));
  fs::create_directory(folder / "other.csv");
  EXPECT_THAT(errorOf(folder / "other.csv"), HasSubstr("other.csv”"));
  EXPECT_FALSE(fs::exists(folder / "other.csv.new"));
}

}  // namespace
}  // namespace triaxlab
