// The hand-off of a project to the laboratory's spreadsheet templates, played.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "platform/files.h"
#include "played_program.h"

namespace triaxlab::testing {
namespace {

TEST(PlayTemplates, TheChosenTemplateGoesToTheProgram) {
  const PlayedProgram program;
  const TemporaryFolder& folder = program.folder();
  std::filesystem::create_directories(folder / "Excel模板/三轴");
  for (const char* const name : {"报告.xls", "卡片.xlsx"}) folder.write(std::string("Excel模板/三轴/") + name, "");
  const std::string note = (folder / "note").string();
  std::filesystem::permissions(
      folder.write("ExcelPrinter", "#!/bin/sh\nprintf '%s|' \"$1\" \"$2\" \"${5##*/}\" > '" + note + ".new' && mv '" +
                                       note + ".new' '" + note + "'\n"),
      std::filesystem::perms::owner_all);
  const PlayResult result = program.play(
      "menu NEW\nmenu PEXCEL\nget Form24\nget Form24.Label1\nget Form24.Combo1\nget Form24.Command1\n"
      "get Form24.Command2\nchoose Form24.Combo1 报告.xls\nclick Form24.Command2\nget Form24.Combo1\nmessages\n"
      "close Form24\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out,
            "Form24=Excel模板输出/打印\nForm24.Label1=选择Excel模板文件...\nForm24.Combo1=卡片.xlsx\n"
            "Form24.Command1=打印预览\nForm24.Command2=输出到文件\nForm24.Combo1=报告.xls\n");
  for (int tenths = 0; tenths < 100 && !fileExists(note); ++tenths)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_EQ(folder.read("note"), "TOFILE|2|报告.xls|");
}

TEST(PlayTemplates, WithoutATemplateOneIsAskedFor) {
  const PlayResult result = PlayedProgram().play(
      "menu NEW1\nmenu PEXCEL\nget Form24.Combo1\nreply OK\nclick Form24.Command1\nmessages\nclose Form24\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out, "Form24.Combo1=\n[选择Excel模板文件] 请选择正确的Excel模板文件...\n");
}

}  // namespace
}  // namespace triaxlab::testing
