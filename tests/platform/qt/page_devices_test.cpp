#include "platform/qt/picture_device.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "common/user_error.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using testing::TemporaryFolder;

void drawPages(PageDevice& device, int count) {
  for (int page = 0; page < count; ++page) {
    device.beginPage(kA4).text({1000, 1000}, "三轴试验", {}, Colour::Black);
    device.endPage();
  }
  device.finish();
}

/// A little-endian number of a bitmap's head.
std::uint32_t numberAt(const std::string& bytes, std::size_t offset, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < width; ++i)
    value |= std::uint32_t{static_cast<unsigned char>(bytes.at(offset + i))} << (8 * i);
  return value;
}

TEST(PictureDevice, WritesOneBitmapAPage) {
  const TemporaryFolder folder;
  folder.write("SZ1.BMP", "an older picture");
  const auto device = makePictureDevice(folder.path(), "SZ");
  drawPages(*device, 2);
  for (const char* const name : {"SZ1.BMP", "SZ2.BMP"}) {
    const std::string picture = folder.read(name);
    ASSERT_TRUE(picture.starts_with("BM")) << name;
    // 11906 / 1440 inches of 200 pixels are 1653.6, 16838 / 1440 are 2338.6.
    EXPECT_EQ(numberAt(picture, 18, 4), 1654u);
    EXPECT_EQ(numberAt(picture, 22, 4), 2339u);
    EXPECT_EQ(numberAt(picture, 28, 2), 24u);    // bits a pixel
    EXPECT_EQ(numberAt(picture, 38, 4), 7874u);  // pixels a metre
  }
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "SZ3.BMP"));
}

TEST(PictureDevice, LeavesNothingOfAJobThatIsDropped) {
  const TemporaryFolder folder;
  folder.write("SZ1.BMP", "an older picture");
  {
    const auto device = makePictureDevice(folder.path(), "SZ");
    for (int page = 0; page < 2; ++page) {
      device->beginPage(kA4);
      device->endPage();
    }
  }
  EXPECT_EQ(folder.read("SZ1.BMP"), "an older picture");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(PictureDevice, TakesThePlaceOfALink) {
  const TemporaryFolder folder;
  folder.write("outside", "another file");
  std::filesystem::create_directory(folder / "pictures");
  std::filesystem::create_symlink(folder / "outside", folder / "pictures/SZ1.BMP");
  const auto device = makePictureDevice(folder / "pictures", "SZ");
  drawPages(*device, 1);
  EXPECT_EQ(folder.read("outside"), "another file");
  EXPECT_TRUE(folder.read("pictures/SZ1.BMP").starts_with("BM"));
}

TEST(PictureDevice, MakesTheFolderButNoParents) {
  const TemporaryFolder folder;
  makePictureDevice(folder.path() / "2024-018", "SZ");
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "2024-018"));
  EXPECT_THROW(makePictureDevice(folder.path() / "PTU" / "2024-018", "SZ"), UserError);
}

}  // namespace
}  // namespace triaxlab
