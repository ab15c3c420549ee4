#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "played_program.h"

namespace triaxlab::testing {
namespace {

TEST(PlaySettings, TogglesAreBytesThatTheNextStartReads) {
  const PlayedProgram program;
  ASSERT_EQ(program.play("menu MIDU\nmenu SAMETY\nmenu SENGLISH\nmenu SENGLISH\n").status, 0);
  std::string settings = program.folder().read("qvb.sys");
  ASSERT_EQ(settings.size(), 27003U) << "up to the last byte that was written";
  // Positions count from 1.
  for (const auto& [position, value] : {std::pair{3010, 1}, {3011, 0}, {27001, 0}, {27002, 1}, {27003, 0}})
    EXPECT_EQ(settings[static_cast<std::size_t>(position - 1)], value) << position;

  const PlayResult next = program.play("state MIDU\nstate SAMETY\nstate SENGLISH\n");
  EXPECT_EQ(next.out,
            "MIDU: visible enabled checked\nSAMETY: visible enabled checked\nSENGLISH: visible enabled not checked\n");
}

TEST(PlaySettings, ASourceFolderTakesItsFieldAlone) {
  const PlayedProgram program;
  ASSERT_EQ(program.play("").status, 0);
  std::string wanted = program.folder().read("qvb.sys");
  ASSERT_EQ(program.play("menu XSHEZHI1\ntype Form5.Text1 D:\\三轴\\\nclick Form5.Command1\n").status, 0);
  wanted.resize(13499 + 170, '\0');
  std::string field = "D:\\\xC8\xFD\xD6\xE1";  // 三轴 in GBK
  field.resize(170, ' ');
  wanted.replace(13499, 170, field);
  EXPECT_EQ(program.folder().read("qvb.sys"), wanted);
}

TEST(PlaySettings, AnImporterOpensTheDatabaseOfTheChosenFolder) {
  const PlayedProgram program;
  const std::string folder = program.folder().path().string();
  const PlayResult result = program.play("menu SHEZHI\ntype Form5.Text1 " + folder +
                                         "/\nclick Form5.Command1\nmenu NEWSZ\nget OPENFORM0.Label1\n");
  EXPECT_EQ(result.errors, "") << "no file is asked for";
  EXPECT_TRUE(result.out.starts_with("OPENFORM0.Label1=文件总数: 0")) << result.out;
}

}  // namespace
}  // namespace triaxlab::testing
