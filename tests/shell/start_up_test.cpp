#include "shell/start_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>

#include "common/gbk.h"
#include "platform/folders.h"
#include "platform/process.h"
#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/save_project.h"
#include "store/settings/settings_file.h"
#include "store/settings/toggles.h"
#include "support/environment.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing::TemporaryFolder;

class Start : public ::testing::Test {
 protected:
  Start() { workspace.applicationFolder = folder.path(); }

  /// A settings file with a text at a position, zero bytes in front of it.
  void storeText(const char* name, std::uint32_t position, const std::string& gbk) {
    SettingsFile(folder.path(), name).writeText({position, 170}, gbk);
  }
  void storeByte(std::uint32_t position, std::uint8_t value) { sharedSettings(workspace).writeByte(position, value); }
  bool hasFolder(const fs::path& name) const { return fs::is_directory(folder.path() / name); }

  TemporaryFolder folder;
  Workspace workspace;
};

// ---- what a person is warned of

TEST_F(Start, NothingIsWarnedOfWhereAllIsInItsPlace) {
  startUp(workspace);
  folder.write("HSZS/WKSZP1.txt", "");
  EXPECT_EQ(startWarnings(workspace), Remarks{});
}

TEST_F(Start, ProjectsBesideTheProgramAreToldWhenTheDataLieElsewhere) {
  const TemporaryFolder elsewhere;
  storeText("qvb.sys", 6999, "9" + elsewhere.path().string());
  startUp(workspace);
  EXPECT_EQ(startWarnings(workspace), Remarks{}) << "no project there";
  fs::create_directory(folder / "HSZS");
  EXPECT_EQ(startWarnings(workspace), Remarks{}) << "an empty folder";
  folder.write("HSZS/WKSZP1.txt", "");
  EXPECT_THAT(startWarnings(workspace), ::testing::ElementsAre(HasSubstr((folder / "HSZS").string())));
}

TEST_F(Start, ADataFolderThatIsGoneIsWarnedOf) {
  const std::string gone = (folder.path() / "gone" / "data").string();
  storeText("qvb.sys", 6999, "9" + gone);
  startUp(workspace);
  EXPECT_THAT(startWarnings(workspace), ::testing::ElementsAre(HasSubstr("数据文件夹“" + gone + "”不在")));
}

// ---- qvb.sys and the data folder

TEST_F(Start, AnEmptyApplicationFolderGetsItsSettingsAndItsThreeFolders) {
  EXPECT_EQ(startUp(workspace), Remarks{});

  const std::string own = folder.path().string();
  std::string expected(6998, '\0');  // nothing in front of the folder's field
  expected += "9" + own;
  expected.resize(7168, ' ');  // 6998 + 170
  EXPECT_EQ(folder.read("qvb.sys"), expected);
  EXPECT_EQ(workspace.dataFolder, folder.path());
  for (const char* name : {"HSZS", "ZMSJ", "PTU"}) EXPECT_TRUE(hasFolder(name)) << name;
  for (const char* name : {"zmsz.sys", "SZDATX.sys", "WCXDATX.sys"}) EXPECT_FALSE(fs::exists(folder.path() / name));
}

TEST_F(Start, ASecondStartChangesNothing) {
  startUp(workspace);
  const std::string first = folder.read("qvb.sys");
  startUp(workspace);
  EXPECT_EQ(folder.read("qvb.sys"), first);
}

TEST_F(Start, TheStoredDataFolderIsUsedBehindItsMarker) {
  const TemporaryFolder data;
  storeText("qvb.sys", 6999, "1  " + data.path().string() + "   ");
  startUp(workspace);
  EXPECT_EQ(workspace.dataFolder, data.path());
  EXPECT_TRUE(fs::is_directory(data.path() / "HSZS"));
  for (const char* name : {"HSZS", "ZMSJ", "PTU"})
    EXPECT_FALSE(hasFolder(name)) << "never under the application folder";
}

TEST_F(Start, AFolderWithChineseNameIsStoredInGbkAndFoundAgain) {
  const fs::path chinese = folder.path() / "土工试验";
  fs::create_directory(chinese);
  workspace.applicationFolder = chinese;
  startUp(workspace);
  EXPECT_EQ(sharedSettings(workspace).readText(kDataFolderField), "9" + *utf8ToGbkExactly(chinese.string()));
  Workspace again;
  again.applicationFolder = chinese;
  startUp(again);
  EXPECT_EQ(again.dataFolder, chinese);
}

TEST_F(Start, AFieldThatReadsAsZeroCountsAsNew) {
  storeText("qvb.sys", 6999, "0C:\\data");
  startUp(workspace);
  EXPECT_EQ(sharedSettings(workspace).readText(kDataFolderField), "9" + folder.path().string());
  EXPECT_EQ(workspace.dataFolder, folder.path());
}

TEST_F(Start, BytesThatOtherToolsKeepInTheSettingsStay) {
  std::string old(30000, '\0');
  old[4999] = 'x';
  old[29999] = 'y';
  folder.write("qvb.sys", old);
  startUp(workspace);
  const std::string now = folder.read("qvb.sys");
  ASSERT_EQ(now.size(), 30000U);
  EXPECT_EQ(now[4999], 'x');
  EXPECT_EQ(now[29999], 'y');
  EXPECT_EQ(now.substr(6998, 2), "9" + folder.path().string().substr(0, 1));
}

TEST_F(Start, AFolderWhoseNameDoesNotFitIsUsedButNotStored) {
  const fs::path deep = folder.path() / std::string(170, 'd');
  fs::create_directory(deep);
  workspace.applicationFolder = deep;
  const Remarks remarks = startUp(workspace);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_THAT(remarks[0], HasSubstr(deep.string()));
  EXPECT_FALSE(fs::exists(deep / "qvb.sys"));
  EXPECT_EQ(workspace.dataFolder, deep);
  EXPECT_TRUE(fs::is_directory(deep / "HSZS"));
}

TEST_F(Start, AFolderOutsideGbkIsUsedButNotStored) {
  const fs::path korean = folder.path() / "한글";
  fs::create_directory(korean);
  workspace.applicationFolder = korean;
  EXPECT_EQ(startUp(workspace).size(), 1U);
  EXPECT_FALSE(fs::exists(korean / "qvb.sys"));
  EXPECT_EQ(workspace.dataFolder, korean);
}

TEST_F(Start, ADataFolderThatIsGoneDoesNotKeepTheProgramFromStarting) {
  const fs::path gone = folder.path() / "gone" / "data";
  storeText("qvb.sys", 6999, "9" + gone.string());
  EXPECT_EQ(startUp(workspace), Remarks{});
  EXPECT_EQ(workspace.dataFolder, gone);
  EXPECT_FALSE(fs::exists(folder.path() / "gone")) << "missing parents are not made";
}

TEST_F(Start, AFolderOnADriveIsAFolderThatDoesNotExistHere) {
  POSIX_ONLY("machines without drives");
  storeText("qvb.sys", 6999, "9C:\\data");
  EXPECT_EQ(startUp(workspace), Remarks{});
  EXPECT_EQ(workspace.dataFolder, fs::path("C:/data"));
  EXPECT_FALSE(hasFolder("C:"));
  EXPECT_EQ(sharedSettings(workspace).readText(kDataFolderField), "9C:\\data");
}

TEST_F(Start, AFolderWithoutARootLiesInTheApplicationFolder) {
  fs::create_directory(folder.path() / "data");
  storeText("qvb.sys", 6999, "9data");
  startUp(workspace);
  EXPECT_EQ(workspace.dataFolder, folder.path() / "data");
  EXPECT_TRUE(hasFolder("data/ZMSJ"));
}

TEST_F(Start, FoldersInAnotherSpellingAreNotMadeTwice) {
  fs::create_directory(folder.path() / "hszs");
  startUp(workspace);
  EXPECT_THAT(listFolders(folder.path()), ::testing::ElementsAre("hszs", "PTU", "ZMSJ"));
}

TEST_F(Start, SettingsThatCannotBeWrittenAreToldOnceAndTheProgramRunsOnDefaults) {
  fs::create_directory(folder.path() / "qvb.sys");
  const Remarks remarks = startUp(workspace);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_THAT(remarks[0], HasSubstr("qvb.sys"));
  EXPECT_EQ(workspace.dataFolder, folder.path());
  EXPECT_EQ(workspace.sourceFolder, "c:\\qvb");
  EXPECT_TRUE(workspace.settings.toggles.printEffectiveCircles);
  EXPECT_TRUE(hasFolder("HSZS"));
}

TEST_F(Start, SettingsThatCannotBeReadAreNotNewAndNothingIsSavedToAnotherPlace) {
  POSIX_ONLY("links");
  const TemporaryFolder data;
  storeText("qvb.sys", 6999, "9" + data.path().string());
  fs::rename(folder.path() / "qvb.sys", folder.path() / "kept");
  fs::create_symlink("qvb.sys", folder.path() / "qvb.sys");  // leads to itself: every look at it fails
  const Remarks remarks = startUp(workspace);
  ASSERT_EQ(remarks.size(), 1U) << "told once";
  EXPECT_THAT(remarks[0], HasSubstr("qvb.sys"));
  EXPECT_THAT(remarks[0], HasSubstr("不能打开和保存"));
  EXPECT_EQ(workspace.dataFolderProblem, remarks[0]);
  EXPECT_EQ(workspace.sourceFolder, "c:\\qvb") << "all else has its defaults";
  EXPECT_TRUE(workspace.settings.toggles.printEffectiveCircles);
  for (const char* name : {"HSZS", "ZMSJ", "PTU"}) EXPECT_FALSE(hasFolder(name)) << name;

  SetText(workspace.TriaxialSampleTable[0].projectNo, "P1");
  SetText(workspace.TriaxialSampleTable[0].sampleNo, "S1");
  EXPECT_THROW(saveProject(workspace, ProjectKind::Triaxial, nullptr), UserError);
  EXPECT_THROW(listProjects(workspace, ProjectKind::Triaxial), UserError);
  EXPECT_THROW(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr), UserError);
  EXPECT_FALSE(hasFolder("HSZS"));

  fs::rename(folder.path() / "kept", folder.path() / "qvb.sys");
  Workspace again;
  again.applicationFolder = folder.path();
  EXPECT_EQ(startUp(again), Remarks{});
  EXPECT_EQ(again.dataFolder, data.path());
}

TEST_F(Start, AFolderInWhichNothingCanBeMadeStartsAllTheSame) {
  POSIX_ONLY("the folder /proc");
  workspace.applicationFolder = "/proc";  // refuses everybody
  const Remarks remarks = startUp(workspace);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_THAT(remarks[0], HasSubstr("/proc/qvb.sys"));
  EXPECT_EQ(workspace.dataFolder, "/proc");
  EXPECT_EQ(workspace.winTriaxialDatxFolder, "/proc");
}

TEST_F(Start, TextSettingsAreReadAndTheirRemarksHandedOn) {
  folder.write("zmqvb.ini", *utf8ToGbkExactly("[三轴C]2"));
  fs::create_directory(folder.path() / "sz.ini");
  const Remarks remarks = startUp(workspace);
  EXPECT_EQ(workspace.settings.habits.cohesionDecimals, 2);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_THAT(remarks[0], HasSubstr("sz.ini"));
}

TEST_F(Start, TheProcessingDateIsBlanked) {
  SetText(workspace.processingDate.year, "2012");
  startUp(workspace);
  EXPECT_FALSE(workspace.processingDate.isSet());
}

// ---- Source folders

TEST_F(Start, BlankSourceFoldersHaveTheirDefaults) {
  storeText("qvb.sys", 20, "");
  startUp(workspace);
  EXPECT_EQ(workspace.sourceFolder, "c:\\qvb");
  EXPECT_EQ(workspace.winTriaxialDatxFolder, folder.path().string());
  EXPECT_EQ(workspace.winUnconfinedDatxFolder, folder.path().string());
}

TEST_F(Start, StoredSourceFoldersAreRead) {
  storeText("qvb.sys", 20, *utf8ToGbkExactly("  D:\\三轴 "));
  storeText("SZDATX.sys", 1, "/lab/sz");
  storeText("WCXDATX.sys", 1, "/lab/wcx");
  startUp(workspace);
  EXPECT_EQ(workspace.sourceFolder, "D:\\三轴");
  EXPECT_EQ(workspace.winTriaxialDatxFolder, "/lab/sz");
  EXPECT_EQ(workspace.winUnconfinedDatxFolder, "/lab/wcx");
}

TEST_F(Start, ATextEndsAtItsFirstZeroByteAndAtTheEndOfTheFile) {
  std::string shortFile(19, '\0');
  folder.write("qvb.sys", shortFile + "/lab/raw");  // ends inside the field at 20
  startUp(workspace);
  EXPECT_EQ(workspace.sourceFolder, "/lab/raw");

  folder.write("qvb.sys", shortFile + "/lab" + '\0' + "/old rest of the field");
  startUp(workspace);
  EXPECT_EQ(workspace.sourceFolder, "/lab");
}

// ---- Toggles

TEST_F(Start, ANewFileHasTheTogglesOffAndBothCirclesOn) {
  startUp(workspace);
  const Toggles& toggles = workspace.settings.toggles;
  EXPECT_TRUE(toggles.printEffectiveCircles);
  EXPECT_TRUE(toggles.printTotalCircles);
  EXPECT_EQ(workspace.settings.lineWeight(), 4);
  for (const ToggleByte& byte : toggleBytes()) {
    if (byte.command.empty()) continue;
    EXPECT_FALSE(toggles.*byte.toggle) << byte.command;
  }
}

TEST_F(Start, EachByteSetsItsOwnToggle) {
  struct Case {
    std::uint32_t position;
    bool Toggles::*toggle;
    bool value;  // of a byte of 1
  };
  const Case cases[] = {{198, &Toggles::dotMatrixPrinter, true},        {1765, &Toggles::showPhysicalIndices, true},
                        {1800, &Toggles::printEffectiveCircles, false}, {1801, &Toggles::printTotalCircles, false},
                        {3010, &Toggles::printDensity, true},           {3011, &Toggles::printSamplingSpot, true},
                        {27000, &Toggles::sixteenUnconfined, true},     {27001, &Toggles::omitProjectName, true},
                        {27002, &Toggles::mergePressures, true},        {27003, &Toggles::english, true}};
  for (const Case& one : cases) {
    fs::remove(folder.path() / "qvb.sys");
    storeByte(one.position, 1);
    startUp(workspace);
    for (const Case& other : cases)
      EXPECT_EQ(workspace.settings.toggles.*other.toggle, (other.position == one.position) == other.value)
          << one.position << " " << other.position;
  }
}

TEST_F(Start, OnlyTheByteOneIsOnAndOnlyZeroPrintsCircles) {
  for (const std::uint32_t position : {198U, 1800U, 1801U, 27002U}) storeByte(position, '1');
  startUp(workspace);
  EXPECT_FALSE(workspace.settings.toggles.dotMatrixPrinter) << "the character 1 is not the value 1";
  EXPECT_FALSE(workspace.settings.toggles.mergePressures);
  EXPECT_FALSE(workspace.settings.toggles.printEffectiveCircles);
  EXPECT_EQ(workspace.settings.lineWeight(), 4);
}

TEST_F(Start, ADotMatrixPrinterDrawsThinnerLines) {
  storeByte(198, 1);
  startUp(workspace);
  EXPECT_EQ(workspace.settings.lineWeight(), 2);
}

TEST_F(Start, ASetToggleIsWrittenAndReadBack) {
  startUp(workspace);
  setToggle(workspace, &Toggles::mergePressures, true);
  setToggle(workspace, &Toggles::printTotalCircles, false);
  EXPECT_EQ(sharedSettings(workspace).readByte(27002), 1);
  EXPECT_EQ(sharedSettings(workspace).readByte(1801), 1);
  workspace.settings.toggles = {};
  readToggles(workspace);
  EXPECT_TRUE(workspace.settings.toggles.mergePressures);
  EXPECT_FALSE(workspace.settings.toggles.printTotalCircles);

  setToggle(workspace, &Toggles::mergePressures, false);
  setToggle(workspace, &Toggles::printTotalCircles, true);
  EXPECT_EQ(sharedSettings(workspace).readByte(27002), 0);
  EXPECT_EQ(sharedSettings(workspace).readByte(1801), 0);
}

TEST_F(Start, AToggleThatCannotBeWrittenHoldsForThisRun) {
  fs::create_directory(folder.path() / "qvb.sys");
  EXPECT_THROW(setToggle(workspace, &Toggles::english, true), UserError);
  EXPECT_TRUE(workspace.settings.toggles.english);
}

// ---- Another instance

TEST_F(Start, AnotherInstanceEndsTheStartBetweenTheFolders) {
  storeText("qvb.sys", 20, "/lab");
  workspace.sourceFolder = "untouched";
  EXPECT_EQ(startUp(workspace, [] { return false; }), std::nullopt);
  EXPECT_TRUE(hasFolder("ZMSJ"));
  EXPECT_TRUE(hasFolder("PTU"));
  EXPECT_FALSE(hasFolder("HSZS"));
  EXPECT_EQ(workspace.sourceFolder, "untouched");
}

TEST_F(Start, TheOnlyInstanceStartsWhole) {
  EXPECT_TRUE(startUp(workspace, [] { return true; }).has_value());
  EXPECT_TRUE(hasFolder("HSZS"));
}

// ---- The application folder

/// Programs in a folder `bin` of their own, installed or not.
struct Programs {
  explicit Programs(bool isInstalled) : parts{folder / "bin", folder / "helpers", folder / "data", isInstalled} {
    fs::create_directory(parts.programs);
  }
  fs::path chosen(const std::optional<fs::path>& named = std::nullopt) const {
    return chooseApplicationFolder(named, parts, userData);
  }
  TemporaryFolder folder;
  ProgramParts parts;
  fs::path userData = folder / "home/share/triaxlab";
};

TEST(ApplicationFolder, ANamedFolderIsTaken) {
  const TemporaryFolder named;
  const Programs programs(false);
  EXPECT_EQ(programs.chosen(named.path()), named.path());
  EXPECT_EQ(programs.chosen(named.path() / ""), named.path()) << "a slash at the end is no part of the name";
  EXPECT_EQ(programs.chosen(fs::path("lab/../lab2")), fs::current_path() / "lab2");
  EXPECT_FALSE(fs::exists(programs.userData));
}

TEST(ApplicationFolder, TheOptionNamesItBeforeTheVariable) {
  EXPECT_EQ(namedApplicationFolder(std::nullopt), std::nullopt);
  testing::setVariable("TRIAXLAB_APP", "/data/lab");
  EXPECT_EQ(namedApplicationFolder(std::nullopt), fs::path("/data/lab"));
  EXPECT_EQ(namedApplicationFolder("/data/other"), fs::path("/data/other"));
  testing::setVariable("TRIAXLAB_APP", "");
  EXPECT_EQ(namedApplicationFolder(std::nullopt), std::nullopt) << "an empty variable names none";
  testing::unsetVariable("TRIAXLAB_APP");
}

TEST(ApplicationFolder, AWritableFolderOfThePrograms) {
  const Programs programs(false);
  EXPECT_EQ(programs.chosen(), programs.parts.programs);
  EXPECT_FALSE(fs::exists(programs.userData));
}

TEST(ApplicationFolder, OfAnInstallationItIsTheUsersOwnWhichIsMade) {
  const Programs programs(true);
  EXPECT_EQ(programs.chosen(), programs.userData) << "though its folder could be written";
  EXPECT_TRUE(fs::is_directory(programs.userData));
  EXPECT_TRUE(fs::is_empty(programs.parts.programs));
}

TEST(ApplicationFolder, AnInstallationWithSettingsInItKeepsThem) {
  for (const char* mark : {"qvb.sys", "QVB.SYS", ".portable"}) {
    const Programs programs(true);
    programs.folder.write(fs::path("bin") / mark, "");
    EXPECT_EQ(programs.chosen(), programs.parts.programs) << mark;
  }
}

TEST(ApplicationFolder, WhereThatOfTheProgramsCantBeWrittenItIsTheUsersOwn) {
  Programs programs(false);
  programs.parts.programs = programs.folder / "not there";
  EXPECT_EQ(programs.chosen(), programs.userData);
  EXPECT_TRUE(fs::is_directory(programs.userData));
}

TEST(ApplicationFolder, WithoutAHomeOneMustBeNamed) {
  Programs programs(true);
  programs.userData.clear();
  try {
    programs.chosen();
    ADD_FAILURE();
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), HasSubstr(std::string(personalDataVariable()) + " 没有设置"));
  }
  EXPECT_EQ(programs.chosen(programs.folder.path()), programs.folder.path());
}

TEST(ApplicationFolder, TheUsersOwnFolderFollowsTheDesktopsRule) {
  POSIX_ONLY("rules of desktops");
  testing::setVariable("XDG_DATA_HOME", "/data/home");
  EXPECT_EQ(userDataFolder(), fs::path("/data/home/triaxlab"));
  testing::setVariable("XDG_DATA_HOME", "relative");
  testing::setVariable("HOME", "/home/lab");
  EXPECT_EQ(userDataFolder(), fs::path("/home/lab/.local/share/triaxlab"));
  testing::unsetVariable("XDG_DATA_HOME");
  EXPECT_EQ(userDataFolder(), fs::path("/home/lab/.local/share/triaxlab"));
  testing::unsetVariable("HOME");
  EXPECT_EQ(userDataFolder(), fs::path());
}

TEST(ApplicationFolder, TheExecutablesFolderHoldsThisProgram) {
  EXPECT_TRUE(findProgram(std::array{executableFolder()}, "shell_test.exe"));
}

}  // namespace
}  // namespace triaxlab
