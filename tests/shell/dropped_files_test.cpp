// Files and folders that are dropped on the main window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "shell/dropped_files.h"
#include "shell/shell_fixture.h"
#include "support/packages.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

const fs::path kSamples(TRIAXLAB_SAMPLES);

struct KnownFile {
  const char* sample;
  const char* form;
};

class Dropping : public Shell {
 protected:
  /// A copy under another name.
  fs::path copyOf(const char* sample, std::string_view name) const {
    const fs::path copy = lab.folder.path() / "stick" / name;
    fs::create_directories(copy.parent_path());
    fs::copy_file(kSamples / sample, copy, fs::copy_options::overwrite_existing);
    return copy;
  }
  std::string text(const fs::path& path) const { return textOfPath(path); }
  fs::path project(std::string_view number) const {
    lab.writeProject(number, {sample(number, "A-1")});
    return lab.folder.path() / "HSZS" / ("WKSZ" + std::string(number) + ".txt");
  }
  void expectOpened(const KnownFile& known) {
    shell.openDropped({kSamples / known.sample});
    EXPECT_THAT(windows.take(), ElementsAre(known.form)) << known.sample;
    EXPECT_THAT(dialogs.take(), IsEmpty()) << known.sample;
  }
};

/// Their sources alone have this layout, or their names tell which of two it is.
constexpr std::array kKnownFiles{KnownFile{"KSZSJ.KU", "OPENFORM1"},  KnownFile{"RSZSJ.KU", "OPENFORM10"},
                                 KnownFile{"SDSZSJ.KU", "OPENFORMZ"}, KnownFile{"KZJSJ.KU", "OPENFORM3"},
                                 KnownFile{"HWXSJ.KU", "OPENFORM30"}, KnownFile{"KGJSJ.KU", "OPENFORM2"}};
constexpr std::array kKnownDatabases{KnownFile{"SZData.dat", "OPENFORMWIN"}, KnownFile{"SZ1.DATX", "OPENFORMWINDAT"},
                                     KnownFile{"WCX.dat", "OPENFORMWINWCX"},
                                     KnownFile{"WCX1.DATX", "OPENFORMWINWCXDAT"}};

TEST_F(Dropping, ARawFileOpensInTheWindowOfItsSource) {
  for (const auto& known : kKnownFiles) expectOpened(known);
}

TEST_F(Dropping, ADatabaseOpensInTheWindowOfItsSource) {
  NEEDS_JET();
  for (const auto& known : kKnownDatabases) expectOpened(known);
}

TEST_F(Dropping, ItsContentsTellAFileThatHasAnotherName) {
  shell.openDropped({copyOf("KSZSJ.KU", "九月.bak")});
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM1"));
}

TEST_F(Dropping, ItsEndingTellsADatabaseFromThatOfTheOtherEdition) {
  NEEDS_JET();
  shell.openDropped({copyOf("SZData.dat", "2020.dat")});
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORMWIN"));
}

TEST_F(Dropping, AFileThatSeveralTestsReadIsAskedAbout) {
  dialogs.inputs = {"TK0", std::nullopt};
  shell.openDropped({kSamples / "HGJSJ.KU"});
  EXPECT_THAT(dialogs.take(),
              ElementsAre("[打开] 文件“" + text(kSamples / "HGJSJ.KU") + "”可以按几种试验读入，请选择： | 新K0 | TK0"));
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM21"));
  shell.openDropped({kSamples / "HSZSJ.KU"});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("全自动三轴(老版本) | 全自动三轴")));
  EXPECT_THAT(windows.take(), IsEmpty()) << "nothing was chosen";
}

TEST_F(Dropping, ADamagedFileIsThatOfTheSourceWhoseNameItHas) {
  const fs::path file = lab.folder.write("stick/kszsj.ku", std::string("\x01\x00", 2));
  shell.openDropped({file});
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM1"));
}

TEST_F(Dropping, TheNanjingFileIsReadAtOnce) {
  shell.openDropped({kSamples / "NJ1105.SZD"});
  EXPECT_THAT(windows.take(), ElementsAre("load 1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1].sampleNo.trimmed(), "J1-100");
}

TEST_F(Dropping, WhatNobodyKnowsIsTold) {
  const fs::path letter = lab.folder.write("stick/letter.txt", "The tests of this week are not finished.");
  shell.openDropped({letter});
  EXPECT_THAT(dialogs.take(),
              ElementsAre("! [打开] 文件“" + text(letter) + "”不是工程文件，也不像任何一种仪器的原始数据，没有打开。"));
  EXPECT_THAT(windows.take(), IsEmpty());
}

TEST_F(Dropping, AFileThatIsGoneIsTold) {
  shell.openDropped({lab.folder.path() / "gone.KU"});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("gone.KU")));
}

TEST_F(Dropping, AnEmptyFileOfNoSourcesNameIsNobodys) {
  shell.openDropped({lab.folder.write("stick/empty.KU", "")});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("不像任何一种仪器的原始数据")));
}

TEST_F(Dropping, AProjectOfTheDataFolderIsOpened) {
  shell.openDropped({project("P7")});
  EXPECT_THAT(windows.take(), ElementsAre("load 1"));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P7");
  EXPECT_THAT(dialogs.take(), IsEmpty());
}

TEST_F(Dropping, AProjectOverAChangedDocumentAsksFirst) {
  const fs::path file = project("P7");
  openChangedDocument();
  dialogs.answers = {false};
  shell.openDropped({file});
  EXPECT_THAT(dialogs.take(), ElementsAre(kQuestion));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P7");
}

TEST_F(Dropping, AProjectThatLiesAnywhereElseSaysWhereItBelongs) {
  const fs::path away = lab.folder.path() / "stick" / "WKSZP7.txt";
  fs::create_directories(away.parent_path());
  fs::rename(project("P7"), away);
  shell.openDropped({away});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("请先把它复制到“" + text(lab.folder.path() / "HSZS") + "”")));
  EXPECT_THAT(windows.take(), IsEmpty());
}

TEST_F(Dropping, AProjectOfAnotherDataFolderOpensWhenThatMayBeUsed) {
  const fs::path other = lab.folder.path() / "other", file = other / "HSZS" / "WKSZP7.txt";
  fs::create_directories(file.parent_path());
  fs::rename(project("P7"), file);
  dialogs.answers = {false, true};
  shell.openDropped({file});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("“" + text(other) + "”是另一个数据文件夹。")));
  EXPECT_EQ(lab.workspace.dataFolder, lab.folder.path());
  EXPECT_THAT(windows.take(), IsEmpty());
  shell.openDropped({file});
  EXPECT_EQ(lab.workspace.dataFolder, other);
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P7");
}

TEST_F(Dropping, AFolderStandsForTheRawFilesInIt) {
  copyOf("KSZSJ.KU", "KSZSJ.KU");
  copyOf("KGJYBXL1.TB", "KGJYBXL1.TB");
  const fs::path stick = lab.folder.path() / "stick";
  shell.openDropped({stick});
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM1"));
  copyOf("KZJSJ.KU", "kzjsj.ku");
  dialogs.inputs = {"无侧限抗压强度  " + text(stick / "kzjsj.ku")};
  shell.openDropped({stick});
  EXPECT_THAT(dialogs.take(), ElementsAre("[打开] 一次打开一个，请选择： | QVB98 三轴  " + text(stick / "KSZSJ.KU") +
                                          " | 无侧限抗压强度  " + text(stick / "kzjsj.ku")));
  EXPECT_THAT(windows.take(), ElementsAre("OPENFORM3"));
}

TEST_F(Dropping, AFolderWithNothingInItIsTold) {
  const fs::path empty = lab.folder.path() / "empty";
  fs::create_directory(empty);
  shell.openDropped({empty});
  EXPECT_THAT(dialogs.take(),
              ElementsAre("! [打开] 文件夹“" + text(empty) + "”里没有工程，也没有认得出的原始数据，没有打开。"));
}

TEST_F(Dropping, ADataFolderIsUsedWhenThePersonWantsIt) {
  const fs::path other = lab.folder.path() / "other";
  fs::create_directories(other / "HSZS");
  dialogs.answers = {true};
  shell.openDropped({other / "HSZS"});
  EXPECT_EQ(lab.workspace.dataFolder, other);
  dialogs.take();
  shell.openDropped({other});
  EXPECT_THAT(dialogs.take(), IsEmpty());
  EXPECT_THAT(shell.statusTexts()[0], HasSubstr("正在使用的就是"));
}

TEST_F(Dropping, OfSeveralFilesOneIsChosenAndTheOthersAreTold) {
  const fs::path letter = lab.folder.write("stick/letter.txt", "no data");
  dialogs.inputs = {"工程文件  " + text(project("P7"))};
  shell.openDropped({letter, project("P7"), kSamples / "KSZSJ.KU"});
  const std::vector<std::string> told = dialogs.take();
  ASSERT_EQ(told.size(), 2U);
  EXPECT_THAT(told[0], HasSubstr("letter.txt"));
  EXPECT_THAT(told[1], HasSubstr("一次打开一个，请选择： | 工程文件  "));
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P7");
}

TEST_F(Dropping, RawDataWaitUntilTheDocumentIsClosed) {
  openChangedDocument();
  windows.take();
  shell.openDropped({kSamples / "KSZSJ.KU"});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("请先关闭它")));
  EXPECT_THAT(windows.take(), IsEmpty());
}

TEST_F(Dropping, NothingIsOpenedDuringAnIntervention) {
  const fs::path file = project("P7");
  openDocument();
  windows.form1->intervention.running = true;
  windows.take();
  shell.openDropped({file});
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("请先退出干预")));
  EXPECT_THAT(windows.take(), IsEmpty());
}

}  // namespace
}  // namespace triaxlab::testing
