#include "sessions/dialogs/template_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "common/gbk.h"
#include "platform/files.h"
#include "shell/lab.h"
#include "support/fake_dialogs.h"
#include "support/posix_only.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPickOne = "[选择Excel模板文件] 请选择正确的Excel模板文件...";

class Templates : public ::testing::Test {
 protected:
  Templates() {
    for (const char* const kind : {"三轴", "无侧限"})
      std::filesystem::create_directories(lab.folder / "Excel模板" / kind);
    lab.workspace.TriaxialSampleTable[0] = testing::sample("P1", "A-1");
  }

  TemplateSession session(std::optional<ProjectKind> tests = ProjectKind::Triaxial) {
    return {lab.workspace, dialogs, tests};
  }
  void addTemplate(const std::string& name) const { lab.folder.write("Excel模板/三轴/" + name, ""); }

  /// A program in the application folder that writes down what it is given, a line each.
  void writeProgram(const std::string& name) const {
    const std::string note = (lab.folder / "note").string();
    const auto program = lab.folder.write(
        name, "#!/bin/sh\nprintf '%s|\\n' \"$@\" > '" + note + ".new' && mv '" + note + ".new' '" + note + "'\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  }
  std::string given() const {
    for (int tenths = 0; tenths < 100 && !fileExists(lab.folder / "note"); ++tenths)
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return lab.folder.read("note");
  }
  std::string path(const std::string& below) const { return textOfPath(lab.folder / below); }

  testing::Lab lab;
  testing::FakeDialogs dialogs;
};

// ---- Which templates there are

TEST_F(Templates, AreListedByNameWithoutRegardToCase) {
  for (const char* const name : {"b.xls", "C.XLSX", "a.xlsm", "d.xls.bak"}) addTemplate(name);
  for (const char* const other : {"notes.txt", "xls", "e.ods"}) addTemplate(other);
  std::filesystem::create_directory(lab.folder / "Excel模板/三轴/folder.xls");
  EXPECT_THAT(session().templates(), ElementsAre("a.xlsm", "b.xls", "C.XLSX", "d.xls.bak"));
  EXPECT_EQ(session().currentTemplate(), 0U);
}

TEST_F(Templates, OfUnconfinedTestsHaveAFolderOfTheirOwn) {
  addTemplate("triaxial.xls");
  lab.folder.write("Excel模板/无侧限/unconfined.xls", "");
  EXPECT_THAT(session(ProjectKind::Unconfined).templates(), ElementsAre("unconfined.xls"));
}

TEST_F(Templates, OfOtherTestsAreNone) {
  addTemplate("a.xls");
  for (const auto tests :
       {std::optional<ProjectKind>(), std::optional(ProjectKind::K0), std::optional(ProjectKind::TK0)}) {
    TemplateSession form = session(tests);
    EXPECT_THAT(form.templates(), IsEmpty());
    EXPECT_EQ(form.projectFile(), "");
    form.print();
    form.writeToFile();
    EXPECT_THAT(dialogs.take(), ElementsAre(kPickOne, kPickOne));
  }
}

TEST_F(Templates, WithoutTheirFolderAreNone) {
  std::filesystem::remove_all(lab.folder / "Excel模板");
  writeProgram("ExcelPrinter");
  session().print();
  EXPECT_THAT(dialogs.take(), ElementsAre(kPickOne));
  EXPECT_FALSE(fileExists(lab.folder / "note"));
}

// ---- Which project

TEST_F(Templates, AreFilledFromTheFileOfTheFirstSample) {
  lab.workspace.TriaxialSampleTable[1] = testing::sample("P2", "A-1");
  EXPECT_EQ(session().projectFile(), path("HSZS/WKSZP1.txt"));
  SetText(lab.workspace.UnconfinedSampleTable[0].projectNo, " \xB8\xA3 7 ");  // 福 in GBK
  EXPECT_EQ(session(ProjectKind::Unconfined).projectFile(), path("HSZS/KWCX福 7.txt"));
}

TEST_F(Templates, AreFilledFromAFileInCapitalsToo) {
  lab.folder.write("HSZS/WKSZP1.TXT", "");
  EXPECT_EQ(session().projectFile(), path("HSZS/WKSZP1.TXT"));
}

// ---- What the program is given

TEST_F(Templates, GoToTheProgramWithFiveArguments) {
  POSIX_ONLY("scripts that are programs");
  addTemplate("a.xls");
  addTemplate("b 1.xls");
  writeProgram("ExcelPrinter.exe");
  TemplateSession form = session();
  form.choose(1);
  form.print();
  EXPECT_EQ(given(), "TOPRINT|\n2|\n" + path("HSZS/WKSZP1.txt") + "|\n |\n" + path("Excel模板/三轴/b 1.xls") + "|\n");
  EXPECT_THAT(dialogs.take(), IsEmpty());
}

TEST_F(Templates, OfUnconfinedTestsGoWithTheirOwnNumber) {
  POSIX_ONLY("scripts that are programs");
  SetText(lab.workspace.UnconfinedSampleTable[0].projectNo, "U 7");
  lab.folder.write("Excel模板/无侧限/a.xls", "");
  writeProgram("ExcelPrinter");
  session(ProjectKind::Unconfined).writeToFile();
  EXPECT_EQ(given(), "TOFILE|\n4|\n" + path("HSZS/KWCXU 7.txt") + "|\n |\n" + path("Excel模板/无侧限/a.xls") + "|\n");
}

TEST_F(Templates, TellOfTheProgramThatWasStarted) {
  POSIX_ONLY("scripts that are programs");
  addTemplate("a.xls");
  std::vector<int> started;
  TemplateSession form(lab.workspace, dialogs, ProjectKind::Triaxial,
                       [&started](int process) { started.push_back(process); });
  form.print();
  EXPECT_THAT(started, IsEmpty()) << "there is none";
  writeProgram("ExcelPrinter");
  form.print();
  EXPECT_EQ(started.size(), 1U);
  given();
}

TEST_F(Templates, WithoutTheProgramAreAnError) {
  addTemplate("a.xls");
  session().writeToFile();
  EXPECT_THAT(dialogs.take(), ElementsAre("stop [QVB三轴试验数据处理] 不能启动“" + path("ExcelPrinter.exe") +
                                          "”：没有这个文件或文件夹。"));
}

}  // namespace
}  // namespace triaxlab
