#include "platform/process.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

class FindProgram : public ::testing::Test {
 protected:
  auto find(std::string_view program) const { return findProgram(folders, program); }

  testing::TemporaryFolder application, executable;
  std::array<std::filesystem::path, 2> folders{application.path(), executable.path()};
};

TEST_F(FindProgram, TheFirstFolderThatHasItCounts) {
  const auto beside = executable.write("zmgj.exe", "");
  EXPECT_EQ(find("zmgj.exe"), beside);
  const auto own = application.write("zmgj.exe", "");
  EXPECT_EQ(find("zmgj.exe"), own);
}

TEST_F(FindProgram, ANameWithoutItsExtensionCounts) {
  const auto bare = application.write("zmgj", "");
  executable.write("zmgj.exe", "");
  EXPECT_EQ(find("zmgj.exe"), bare);
  EXPECT_EQ(find("ZMGJ.exe"), bare);
}

TEST_F(FindProgram, AMissingOneIsNone) { EXPECT_EQ(find("zmgj.exe"), std::nullopt); }

}  // namespace
}  // namespace triaxlab
