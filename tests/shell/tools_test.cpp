#include "shell/tools.h"

#include <gtest/gtest.h>

#include <array>

#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using testing::TemporaryFolder;

class Tools : public ::testing::Test {
 protected:
  auto find(std::string_view program) const { return findTool(folders, program); }

  TemporaryFolder application, executable;
  std::array<std::filesystem::path, 2> folders{application.path(), executable.path()};
};

TEST_F(Tools, TheFirstFolderThatHasTheToolCounts) {
  const auto beside = executable.write("zmgj.exe", "");
  EXPECT_EQ(find("zmgj.exe"), beside);
  const auto own = application.write("zmgj.exe", "");
  EXPECT_EQ(find("zmgj.exe"), own);
}

TEST_F(Tools, ANameWithoutItsExtensionCounts) {
  const auto bare = application.write("zmgj", "");
  executable.write("zmgj.exe", "");
  EXPECT_EQ(find("zmgj.exe"), bare);
  EXPECT_EQ(find("ZMGJ.exe"), bare);
}

TEST_F(Tools, AMissingToolIsNone) { EXPECT_EQ(find("zmgj.exe"), std::nullopt); }

}  // namespace
}  // namespace triaxlab
