#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "shell/shell_fixture.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::kQuestion;
using testing::sample;
using testing::Shell;

TEST_F(Shell, AnImportIsPreparedAndShown) {
  windows.inImporter = [&]() -> std::optional<Remarks> {
    lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
    lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
    return Remarks{"第 3 组不完整。"};
  };
  SetText(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-07");
  EXPECT_TRUE(shell.trigger("OLDSZ1"));
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0OLD", "load 1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].sigma1Failure[0].trimmed(), "160") << "100 + 60, by the opening pass";
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_EQ(shell.statusTexts()[0], "第 3 组不完整。");
}

TEST_F(Shell, AnImporterLeftWithoutWorkChangesNothing) {
  shell.trigger("NEWSZ");
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0"));
  EXPECT_EQ(lab.workspace.activeDocument, kNoDocument);
}

TEST_F(Shell, AnImportOverAChangedDocumentAsksFirst) {
  for (const bool answer : {false, true}) {
    openChangedDocument();
    shell.documentActivated(kForm4);
    shell.documentClosed(kForm4);  // which brings the menu of imports back
    windows.take();
    dialogs.answers = {answer};
    EXPECT_TRUE(shell.trigger("OLDSZ1"));
    EXPECT_EQ(dialogs.take().front(), kQuestion);
    EXPECT_EQ(lab.hasProject("P1"), answer);
    EXPECT_THAT(windows.take(), ElementsAre("OPENFORM0OLD")) << "after either answer";
  }
}

TEST_F(Shell, AnImportDoesNotReplaceADocumentThatCouldNotBeSaved) {
  openChangedDocument();
  shell.documentActivated(kForm4);
  shell.documentClosed(kForm4);
  windows.take();
  loseDataFolder();
  dialogs.answers = {true};
  shell.trigger("OLDSZ1");
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

/// Two blocks of the Nanjing apparatus without readings, all lines empty but for date, project and sample.
std::string twoNanjingSamples() {
  std::string file;
  for (const char* sampleNo : {"J-1", "J-2"}) {
    file += "SZ-data\n2011/05/06\nNJ1\n" + std::string(sampleNo) + std::string(10, '\n') + std::string(4, '\0');
    file += "\x41\x71\x3D\x7A" + std::string(3, '\0') + "\xC8\x42\n";  // the end mark, 100 kPa
  }
  return file;
}

TEST_F(Shell, ANanjingFileIsReadAsSoonAsItIsChosen) {
  dialogs.file = lab.folder.write("raw/A1.SZD", twoNanjingSamples());
  SetText(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-07");
  EXPECT_TRUE(shell.trigger("OPENNJ"));
  ASSERT_EQ(dialogs.fileQuestions.size(), 1U);
  EXPECT_EQ(dialogs.fileQuestions[0].title, "打开南京三轴原始数据文件");
  EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (*.SZD)|*.SZD|All  Files (*.*)|*.*");
  EXPECT_TRUE(dialogs.fileQuestions[0].initial.filename().empty()) << "no name to begin with";
  EXPECT_THAT(windows.take(), ElementsAre("load 1"));
  EXPECT_FALSE(isLive(lab.workspace.TriaxialSampleTable[0]));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[2].sampleNo.trimmed(), "J-2");
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].failureStrainLimit[0], 150) << "by the opening pass";
  EXPECT_FALSE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_THAT(windows.progress, ElementsAre(std::pair(1U, 2U), std::pair(2U, 2U)));
}

TEST_F(Shell, ANanjingFileOverAChangedDocumentAsksFirst) {
  for (const bool answer : {false, true}) {
    openChangedDocument();
    windows.take();
    dialogs.file = lab.folder.write("raw/A1.SZD", twoNanjingSamples());
    dialogs.answers = {answer};
    shell.trigger("OPENNJ");
    EXPECT_EQ(dialogs.take().front(), kQuestion);
    EXPECT_EQ(lab.hasProject("P1"), answer);
    EXPECT_THAT(windows.take(), ElementsAre("load 1")) << "after either answer";
  }
}

TEST_F(Shell, ANanjingFileDoesNotReplaceADocumentThatCouldNotBeSaved) {
  openChangedDocument();
  windows.take();
  loseDataFolder();
  dialogs.answers = {true};
  shell.trigger("OPENNJ");
  EXPECT_THAT(dialogs.fileQuestions, IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Shell, ACancelledNanjingFileChangesNothing) {
  openDocument();
  windows.take();
  shell.trigger("OPENNJ");
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

TEST_F(Shell, ANanjingFileThatCannotBeReadIsNamedAndChangesNothing) {
  openDocument();
  windows.take();
  dialogs.file = lab.folder.path() / "missing.SZD";
  shell.trigger("OPENNJ");
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("missing.SZD")));
  EXPECT_THAT(windows.take(), IsEmpty());
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P1");
}

}  // namespace
}  // namespace triaxlab
