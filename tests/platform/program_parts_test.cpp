#include "platform/program_parts.h"

#include <gtest/gtest.h>

#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using testing::TemporaryFolder;

struct Folders : ::testing::Test {
  /// A folder below the one of this test, made.
  std::filesystem::path made(const char* name) const {
    std::filesystem::create_directories(folder / name);
    return folder / name;
  }
  void expectInstalled(const ProgramParts& parts) const {
    EXPECT_TRUE(parts.isInstalled);
    EXPECT_EQ(parts.programs, folder / "bin");
    EXPECT_EQ(parts.helpers, folder / "libexec/triaxlab");
    EXPECT_EQ(parts.data, folder / "share/triaxlab");
  }
  TemporaryFolder folder;
};

TEST_F(Folders, AnInstallationHasThreeOfThem) {
  made("share/triaxlab");
  expectInstalled(programPartsAround(made("bin")));
}

TEST_F(Folders, AHelperFindsTheSameParts) {
  made("share/triaxlab");
  expectInstalled(programPartsAround(made("libexec/triaxlab")));
}

TEST_F(Folders, WithoutDataBesideItAFolderNamedBinIsNoInstallation) {
  const std::filesystem::path bin = made("bin");
  made("share");
  const ProgramParts parts = programPartsAround(bin);
  EXPECT_FALSE(parts.isInstalled);
  EXPECT_EQ(parts.programs, bin);
  EXPECT_EQ(parts.helpers, bin);
  EXPECT_EQ(parts.data, bin);
}

TEST_F(Folders, OfAnUnpackedProgramAllPartsLieTogether) {
  made("share/triaxlab");
  const std::filesystem::path unpacked = made("triaxlab-1.0");
  const ProgramParts parts = programPartsAround(unpacked);
  EXPECT_FALSE(parts.isInstalled);
  EXPECT_EQ(parts.helpers, unpacked);
}

TEST_F(Folders, OfThisBuildTheyLieTogetherAndTheDemonstrationBesideThem) {
  POSIX_ONLY("programs without an extension");
  const ProgramParts parts = programParts();
  EXPECT_FALSE(parts.isInstalled);
  EXPECT_TRUE(std::filesystem::exists(parts.programs / "platform_test"));
  EXPECT_TRUE(std::filesystem::exists(parts.data / "samples/HSZSJ.KU"));
}

}  // namespace
}  // namespace triaxlab
