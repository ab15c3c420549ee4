#include "platform/json_page_device.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "common/user_error.h"
#include "platform/files.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;
using triaxlab::testing::TemporaryFolder;

struct JsonDeviceTest : ::testing::Test {
  TemporaryFolder folder;
  fs::path file = folder.path() / "pages.json";

  void drawPage(PageDevice& device, PageSize size, int x) {
    device.beginPage(size).line({1.0 * x, 0}, {2, 3}, {Colour::Grey, 1});
    device.endPage();
  }
};

TEST_F(JsonDeviceTest, WritesPagesInTheirOrderWithTheSizeOfTheFirst) {
  const auto device = makeJsonDevice(file);
  drawPage(*device, kDotMatrixPage, 1);
  device->beginPage(kA4);
  device->endPage();
  drawPage(*device, kA4, 5);
  device->finish();
  EXPECT_EQ(folder.read("pages.json"),
            "{\"width\": 11904, \"height\": 15870, \"pages\": [[\n"
            "  {\"op\": \"line\", \"x1\": 1, \"y1\": 0, \"x2\": 2, \"y2\": 3, \"color\": 8, \"width\": 1}],\n"
            "  [],\n"
            "  [\n"
            "  {\"op\": \"line\", \"x1\": 5, \"y1\": 0, \"x2\": 2, \"y2\": 3, \"color\": 8, \"width\": 1}]]}\n");
}

TEST_F(JsonDeviceTest, TheOldFileStandsUntilTheNewOneIsWhole) {
  folder.write("pages.json", "old");
  const auto device = makeJsonDevice(file);
  drawPage(*device, kA4, 1);
  EXPECT_EQ(folder.read("pages.json"), "old");
  device->finish();
  EXPECT_EQ(folder.read("pages.json").substr(0, 16), "{\"width\": 11906,");
}

TEST_F(JsonDeviceTest, ADeviceThatIsDroppedLeavesNothing) {
  folder.write("pages.json", "old");
  {
    const auto device = makeJsonDevice(file);
    drawPage(*device, kA4, 1);
  }
  EXPECT_EQ(folder.read("pages.json"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_F(JsonDeviceTest, WithoutAPageThereIsNoFile) {
  makeJsonDevice(file)->finish();
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(JsonDeviceTest, ALinkStaysALink) {
  POSIX_ONLY("links");
  const fs::path real = folder.write("real.json", "old");
  fs::create_symlink(real, file);
  const auto device = makeJsonDevice(file);
  drawPage(*device, kA4, 1);
  device->finish();
  EXPECT_TRUE(fs::is_symlink(file));
  EXPECT_EQ(folder.read("real.json").substr(0, 8), "{\"width\"");
}

TEST_F(JsonDeviceTest, AFolderThatIsMissingIsToldByName) {
  const auto device = makeJsonDevice(folder.path() / "missing" / "pages.json");
  try {
    device->beginPage(kA4);
    FAIL() << "a file in a folder that isn't there";
  } catch (const UserError& error) {
    EXPECT_NE(std::string(error.what()).find(textOfPath("missing/pages.json") + "”"), std::string::npos)
        << error.what();
  }
}

}  // namespace
}  // namespace triaxlab
