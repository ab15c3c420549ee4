#include "platform/folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/user_error.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace fs = std::filesystem;

TEST(ListFolders, FoldersAloneInAscendingOrderWithoutRegardToCase) {
  POSIX_ONLY("links");
  const testing::TemporaryFolder folder;
  for (const char* const name : {"raw", "B2", "a1", "b1", "土工", ".hidden"}) fs::create_directory(folder / name);
  folder.write("file", "");
  fs::create_directory_symlink(folder / "raw", folder / "link");
  fs::create_directory_symlink(folder / "gone", folder / "broken");
  EXPECT_THAT(listFolders(folder.path()), ElementsAre("a1", "b1", "B2", "link", "raw", "土工"));
}

TEST(ListFolders, WhatIsNotThereHasNone) {
  const testing::TemporaryFolder folder;
  EXPECT_THAT(listFolders(folder / "missing"), IsEmpty());
  EXPECT_THAT(listFolders(folder.write("file", "")), IsEmpty());
}

TEST(ListFolders, WhatCanNotBeReadIsSaid) {
  POSIX_ONLY("links");
  const testing::TemporaryFolder folder;
  fs::create_directory_symlink("circle", folder / "circle");
  EXPECT_THROW(listFolders(folder / "circle"), UserError);
}

TEST(MountedVolumes, DisksAndSharesBehindTheRoot) {
  POSIX_ONLY("tables of mounts");
  const testing::TemporaryFolder folder;
  const fs::path stick = folder / "USB disk";
  fs::create_directory(stick);
  const fs::path disk = folder / "data";
  fs::create_directory(disk);
  const fs::path table = folder.write("mounts",
                                      "/dev/sda1 / ext4 rw 0 0\n"
                                      "proc /proc proc rw 0 0\n"
                                      "tmpfs /run tmpfs rw 0 0\n"
                                      "/dev/sdb1 " +
                                          folder.path().string() +
                                          "/USB\\040disk vfat rw 0 0\n"
                                          "/dev/sda2 " +
                                          disk.string() +
                                          " ext4 rw 0 0\n"
                                          "/dev/sda2 " +
                                          disk.string() +
                                          " ext4 rw 0 0\n"
                                          "/dev/sdc1 " +
                                          folder.path().string() +
                                          "/unplugged vfat rw 0 0\n"
                                          "/dev/sda3 /boot/efi vfat rw 0 0\n"
                                          "/dev/loop1 /snap/core/1 squashfs ro 0 0\n"
                                          "//lab/raw " +
                                          folder.path().string() + "/share cifs rw 0 0\n");
  EXPECT_THAT(mountedVolumes(table), ElementsAre("/", stick, disk, folder / "share"));
}

TEST(MountedVolumes, WithoutATableThereIsTheRoot) {
  POSIX_ONLY("tables of mounts");
  EXPECT_THAT(mountedVolumes("/no/such/table"), ElementsAre("/"));
  EXPECT_EQ(mountedVolumes().front(), "/");
}

}  // namespace
}  // namespace triaxlab
