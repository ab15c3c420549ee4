#include "sessions/dialogs/source_folder_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "sessions/dialogs/import_selection.h"
#include "shell/fakes.h"
#include "shell/lab.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using testing::FakeDialogs;
using testing::FakeWindows;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Lab;
using ::testing::Not;
using ::testing::StartsWith;
namespace fs = std::filesystem;

std::string gbk(std::string_view utf8) { return utf8ToGbkExactly(utf8).value(); }

class SourceFolders : public ::testing::Test {
 protected:
  SourceFolderSession session(std::int16_t kind = 1) {
    return {lab.workspace, dialogs, sourceFolderQuestion(lab.workspace, kind)};
  }
  /// Accepts a typed text and returns what the settings then hold, UTF-8.
  std::string stored(std::string_view typed, std::int16_t kind = 1) {
    SourceFolderSession form = session(kind);
    form.setText(typed);
    EXPECT_TRUE(form.accept());
    return storedSourceFolder(lab.workspace, sourceFolderOf(kind));
  }
  fs::path root() const { return lab.folder.path(); }

  Lab lab;
  FakeDialogs dialogs;
};

/// The rows of the folder list, without their indentation.
std::vector<std::string> namesOf(const SourceFolderSession& form) {
  std::vector<std::string> names;
  for (std::size_t row = 0; row < form.rowCount(); ++row) {
    const std::string text = form.row(row);
    names.push_back(text.substr(text.find_first_not_of(' ')));
  }
  return names;
}
std::size_t rowOf(const SourceFolderSession& form, const std::string& name) {
  const std::vector<std::string> names = namesOf(form);
  return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

// ---- Which folder is asked for, and where it is kept

struct Kind {
  std::int16_t kind;
  const char *command, *prompt, *file;
  std::size_t position;  // from 1
};
constexpr Kind kKinds[] = {
    {1, "SHEZHI", "请输入全自动三轴源文件所在目录:", "qvb.sys", 2000},
    {2, "SHEZHI1", "请输入无侧限源文件所在目录:", "qvb.sys", 2200},
    {3, "SHEZHI2", "请输入QVB98三轴源文件所在目录:", "qvb.sys", 20},
    {4, "SHEZHI3", "请输入Ko源文件所在目录:", "qvb.sys", 9000},
    {5, "XSHEZHI1", "请输入新QVB三轴源文件所在目录:", "qvb.sys", 13500},
    {6, "XSHEZHI2", "请输入新无侧限源文件所在目录:", "qvb.sys", 13900},
    {7, "XSHEZHI3", "请输入新Ko源文件所在目录:", "qvb.sys", 14100},
    {8, "TK0SZ", "请输入TKo源文件所在目录:", "qvb.sys", 14300},
    {10, "WINSZ", "请输入WIN版三轴源文件所在目录:", "qvb.sys", 14500},
    {11, "WINWCX", "请输入WIN版无侧限源文件所在目录:", "qvb.sys", 14700},
    {12, "WINSZDAT", "请输入WIN版三轴DATX格式文件所在目录:", "SZDATX.sys", 1},
    {13, "WINWCXDAT", "请输入WIN版无侧限DATX格式文件所在目录:", "WCXDATX.sys", 1},
};

TEST_F(SourceFolders, EachCommandAsksForItsFolderAndStoresItInItsPlace) {
  FakeWindows windows;
  ShellSession shell(lab.workspace, dialogs, windows);
  for (const Kind& kind : kKinds) {
    const std::string folder = std::string("/lab/") + kind.command;
    windows.inSourceFolder = [&](SourceFolderSession& form) {
      EXPECT_EQ(form.prompt(), kind.prompt);
      EXPECT_EQ(form.text(), "");
      form.setText(folder);
      EXPECT_TRUE(form.accept());
    };
    EXPECT_TRUE(shell.trigger(kind.command)) << kind.command;
    EXPECT_EQ(lab.workspace.openDialogKind, kind.kind);
  }
  EXPECT_EQ(windows.take(), std::vector<std::string>(std::size(kKinds), "Form5"));
  // No field has been written over by another one.
  for (const Kind& kind : kKinds) {
    std::string field = std::string("/lab/") + kind.command;
    field.resize(170, ' ');
    EXPECT_EQ(lab.folder.read(kind.file).substr(kind.position - 1, 170), field) << kind.command;
  }
  EXPECT_EQ(lab.folder.read("SZDATX.sys").size(), 170U);
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SourceFolders, TheDatxFoldersAreTakenIntoUseAtOnce) {
  stored("/lab/sz", 12);
  stored("/lab/wcx", 13);
  EXPECT_EQ(lab.workspace.winTriaxialDatxFolder, "/lab/sz");
  EXPECT_EQ(lab.workspace.winUnconfinedDatxFolder, "/lab/wcx");
  stored("  ", 12);
  EXPECT_EQ(lab.workspace.winTriaxialDatxFolder, root().string()) << "as at a start with a blank field";
}

TEST_F(SourceFolders, ANewFolderChangesNoOtherVariable) {
  stored("/lab/raw", 3);
  EXPECT_EQ(lab.workspace.sourceFolder, "c:\\qvb") << "the next importer reads its own";
}

TEST_F(SourceFolders, AnImporterLooksInTheStoredFolder) {
  const fs::path raw = root() / "原始数据";
  stored(raw.string() + "/", 1);
  const Importer& importer = *importerOfMenuCommand("NEWSZ");
  const ImportSelection selection(importer, lab.workspace);
  EXPECT_EQ(lab.workspace.sourceFolder, raw.string());
}

// ---- The text

TEST_F(SourceFolders, TheTextIsTrimmedAndLosesOneMarkAtItsEnd) {
  EXPECT_EQ(stored("  D:\\raw\\  "), "D:\\raw");
  EXPECT_EQ(stored("D:\\raw"), "D:\\raw");
  EXPECT_EQ(stored("D:\\raw\\\\"), "D:\\raw\\");
  EXPECT_EQ(stored("c:\\"), "c:");
  EXPECT_EQ(stored("/lab/raw/"), "/lab/raw");
  EXPECT_EQ(stored("/"), "/");
  EXPECT_EQ(stored("\\"), "");
  EXPECT_EQ(stored(""), "");
}

TEST_F(SourceFolders, ACharacterThatEndsWithTheByteOfABackslashKeepsIt) {
  // 乗 is 81 5C in GBK, and 5C alone is the backslash.
  EXPECT_EQ(stored("/lab/乗"), "/lab/乗");
  EXPECT_EQ(sharedSettings(lab.workspace).readText({2000, 170}), "/lab/\x81\x5C");
}

TEST_F(SourceFolders, ItOpensWithTheStoredFolder) {
  stored("/lab/原始数据");
  EXPECT_EQ(session().text(), "/lab/原始数据");
  EXPECT_EQ(session(2).text(), "") << "each kind has its own";
}

TEST_F(SourceFolders, AShorterTextLeavesNothingOfTheOneBefore) {
  stored("/lab/a/long/name");
  EXPECT_EQ(stored("/b"), "/b");
}

TEST_F(SourceFolders, ATextThatDoesNotFitIsRefusedAndTheWindowStays) {
  stored("/lab");
  for (const std::string& typed : {"/" + std::string(170, 'd'), std::string("/lab/한글")}) {
    SourceFolderSession form = session();
    form.setText(typed);
    EXPECT_FALSE(form.accept());
    EXPECT_THAT(dialogs.take(), ElementsAre(AllOf(StartsWith("stop [设置]"), HasSubstr(typed))));
    EXPECT_EQ(form.text(), typed);
    EXPECT_EQ(session().text(), "/lab") << "a cut path would name another folder";
  }
  EXPECT_EQ(stored("/" + std::string(169, 'd')).size(), 170U);
}

TEST_F(SourceFolders, SettingsThatCannotBeWrittenAreToldAndTheWindowStays) {
  fs::create_directory(root() / "SZDATX.sys");
  SourceFolderSession form = session(12);
  form.setText("/lab");
  EXPECT_FALSE(form.accept());
  EXPECT_THAT(dialogs.take(), ElementsAre(AllOf(StartsWith("stop ["), HasSubstr("SZDATX.sys"))));
  EXPECT_EQ(lab.workspace.winTriaxialDatxFolder, root().string());
}

// ---- The lists

class SourceFolderLists : public SourceFolders {
 protected:
  /// The disk on which all lies: "/", or one with a letter.
  std::string first() const { return textOfPath(root().root_path()); }
  SourceFolderLists() {
    for (const char* const name : {"raw", "raw/2023", "raw/2024", "raw/2024/三轴"}) fs::create_directory(root() / name);
    stored((root() / "raw").string());
  }
};

TEST_F(SourceFolderLists, TheyShowTheWayToTheStoredFolderAndWhatLiesInIt) {
  const SourceFolderSession form = session();
  std::vector<std::string> wanted{first()};
  for (const fs::path& part : root().relative_path()) wanted.push_back(part.string());
  wanted.insert(wanted.end(), {"raw", "2023", "2024"});
  EXPECT_EQ(namesOf(form), wanted);
  EXPECT_EQ(form.row(0), first());
  const std::size_t open = wanted.size() - 3;
  EXPECT_EQ(form.currentRow(), open);
  EXPECT_EQ(form.row(open), std::string(open * 4, ' ') + "raw");
  EXPECT_EQ(form.row(open + 1), std::string(open * 4 + 4, ' ') + "2023");
  EXPECT_EQ(form.row(open + 2), std::string(open * 4 + 4, ' ') + "2024") << "as far in as the one above it";
}

TEST_F(SourceFolderLists, AClickPutsTheFolderIntoTheText) {
  SourceFolderSession form = session();
  const std::vector<std::string> before = namesOf(form);
  form.chooseRow(rowOf(form, "2024"));
  EXPECT_EQ(form.text(), textOfPath(root() / "raw/2024"));
  EXPECT_EQ(namesOf(form), before);
  form.chooseRow(0);
  EXPECT_EQ(form.text(), first());
  form.chooseRow(999);
  EXPECT_EQ(form.text(), first());
}

TEST_F(SourceFolderLists, ADoubleClickOpensTheFolder) {
  SourceFolderSession form = session();
  form.openRow(rowOf(form, "2024"));
  EXPECT_EQ(form.text(), textOfPath(root() / "raw/2024"));
  EXPECT_EQ(form.currentRow(), rowOf(form, "2024"));
  EXPECT_EQ(namesOf(form).back(), "三轴");
  EXPECT_THAT(namesOf(form), Not(Contains("2023")));

  form.openParent();
  EXPECT_EQ(form.text(), (root() / "raw").string());
  EXPECT_EQ(namesOf(form).back(), "2024");
  form.openRow(0);
  EXPECT_EQ(form.text(), first());
  form.openParent();
  EXPECT_EQ(form.text(), first()) << "nothing lies around it";
  form.openRow(999);
  EXPECT_EQ(form.currentRow(), 0U);
}

TEST_F(SourceFolderLists, AChosenFolderIsStoredByItsName) {
  SourceFolderSession form = session();
  form.openRow(rowOf(form, "2024"));
  form.chooseRow(rowOf(form, "三轴"));
  EXPECT_TRUE(form.accept());
  EXPECT_EQ(sharedSettings(lab.workspace).readText({2000, 170}), gbk(textOfPath(root() / "raw/2024/三轴")));
}

TEST_F(SourceFolderLists, AStoredFolderThatIsNotThereLeavesThemAtTheApplicationFolder) {
  for (const char* const gone : {"/no/such/folder", "c:\\qvb", "", "raw"}) {
    stored(gone);
    const SourceFolderSession form = session();
    EXPECT_EQ(form.text(), gone);
    EXPECT_EQ(namesOf(form)[form.currentRow()], root().filename().string()) << gone;
  }
}

TEST_F(SourceFolderLists, AFolderSpelledWithAMarkAtItsEndIsTheSame) {
  stored((root() / "raw").string() + "//");
  EXPECT_EQ(namesOf(session())[session().currentRow()], "raw");
}

TEST_F(SourceFolderLists, ADiskOpensAtItsFirstFolder) {
  SourceFolderSession form = session();
  const auto drives = form.drives();
  const auto drive = static_cast<std::size_t>(std::ranges::find(drives, first()) - drives.begin());
  ASSERT_LT(drive, drives.size());
  form.chooseDrive(drive);
  EXPECT_EQ(form.text(), first());
  EXPECT_EQ(form.currentRow(), 0U);
  EXPECT_EQ(form.currentDrive(), drive);
  form.chooseDrive(999);
  EXPECT_EQ(form.text(), first());
}

}  // namespace
}  // namespace triaxlab
