#include "sessions/dialogs/import_selection.h"

#include <fmt/core.h>

#include <optional>

#include "importers/import_fixture.h"
#include "importers/k0_builder.h"
#include "store/settings/settings_file.h"
#include "support/fake_dialogs.h"
#include "support/packages.h"

namespace triaxlab::testing {
namespace {

/// Answers questions for a file from what the test put down, and writes down every message.
class TestDialogs : public Dialogs {
 public:
  void message(std::string_view title, std::string_view text, MessageIcon icon) override {
    messages.push_back(std::string(title) + "|" + std::string(text));
    icons.push_back(icon);
  }
  bool ask(std::string_view, std::string_view, MessageIcon) override { return true; }
  std::optional<std::filesystem::path> chooseFile(const FileQuestion& question) override {
    questions.push_back(question);
    return answer;
  }
  std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion&) override { return std::nullopt; }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override {
    return std::nullopt;
  }
  std::optional<std::size_t> choose(std::string_view, std::string_view, std::span<const std::string>) override {
    return std::nullopt;
  }

  std::optional<std::filesystem::path> answer;
  std::vector<std::string> messages;
  std::vector<MessageIcon> icons;
  std::vector<FileQuestion> questions;
};

class Selection : public ImportTest {
 protected:
  Selection() {
    workspace.applicationFolder = folder.path() / "app";
    std::filesystem::create_directory(workspace.applicationFolder);
  }
  void storeSourceFolder(const std::string& text) { sharedSettings(workspace).writeText({2000, 170}, text); }

  static std::string threeRows() {
    Entry second = newerEntry({Specimen{.sampleNo = "S-2"}});
    second.projectNo = "P2";
    return kuFile({olderEntry({{Specimen{}}}), second, newerEntry({Specimen{.sampleNo = "S-3"}})});
  }

  TestDialogs dialogs;
};

TEST_F(Selection, OpensTheDatabaseOfTheSourceFolder) {
  folder.write("raw/hszsj.ku", threeRows());  // whatever the case of its letters
  storeSourceFolder((folder.path() / "raw").string());
  ImportSelection selection(*importerOfId("auto"), workspace);
  EXPECT_EQ(workspace.sourceFolder, (folder.path() / "raw").string());
  selection.load(dialogs);
  EXPECT_TRUE(dialogs.questions.empty());
  EXPECT_EQ(selection.rowCount(), 3U);
  EXPECT_EQ(selection.state().label1, "文件总数: 03");
  EXPECT_EQ(selection.state().label2, "选中的试样组数：0");
  EXPECT_FALSE(selection.state().canRead);
}

TEST_F(Selection, TheGridHasANumberInFrontAndTheMarkBehind) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  const char* const headings[] = {"序号", "工程编号", "试验日期", "组 数", "方法", "处理选择"};
  const int widths[] = {930, 1500, 1500, 800, 600, 1000};
  ASSERT_EQ(selection.columns().size(), 6U);
  for (std::size_t column = 0; column < 6; ++column) {
    EXPECT_EQ(selection.columns()[column].heading, headings[column]);
    EXPECT_EQ(selection.columns()[column].width, widths[column]);
    EXPECT_EQ(selection.cell(0, column), headings[column]);
  }
  selection.toggleMark(2, dialogs);
  const char* const second[] = {"002", "P2", "2024/04/12", "1个", "UU", "处理"};
  for (std::size_t column = 0; column < 6; ++column) EXPECT_EQ(selection.cell(2, column), second[column]);
  EXPECT_EQ(selection.cell(3, 0), "003");
  EXPECT_EQ(selection.cell(3, 5), "");
}

TEST_F(Selection, ABlankSourceFolderIsTheDefaultAndAFileIsAskedFor) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  EXPECT_EQ(workspace.sourceFolder, "c:\\qvb");
  selection.load(dialogs);
  ASSERT_EQ(dialogs.questions.size(), 1U);
  EXPECT_EQ(dialogs.questions[0].filter, "Log Files (HSZSJ.KU)|HSZSJ.KU|All  Files (*.*)|*.*");
  EXPECT_EQ(dialogs.questions[0].initial, workspace.applicationFolder / "HSZSJ.KU");  // the folder isn't there

  // Cancelled: an empty grid.
  EXPECT_EQ(selection.rowCount(), 0U);
  EXPECT_EQ(selection.state().label1, "文件总数: ");
  EXPECT_FALSE(selection.state().canRead);
  EXPECT_TRUE(selection.remarks().empty());
}

TEST_F(Selection, AFileChosenElsewhereLeavesTheSourceFolder) {
  std::filesystem::create_directory(folder.path() / "empty");
  storeSourceFolder((folder.path() / "empty").string());
  dialogs.answer = folder.write("elsewhere/other.ku", threeRows());
  ImportSelection selection(*importerOfId("auto-old"), workspace);
  selection.load(dialogs);
  ASSERT_EQ(dialogs.questions.size(), 1U);
  EXPECT_EQ(dialogs.questions[0].initial, folder.path() / "empty" / "HSZSJ.KU");
  EXPECT_EQ(selection.rowCount(), 3U);
  EXPECT_EQ(workspace.sourceFolder, (folder.path() / "empty").string());
  EXPECT_EQ(sharedSettings(workspace).readText({2000, 170}), (folder.path() / "empty").string());
}

TEST_F(Selection, AFileThatCannotBeReadLeavesTheGridEmpty) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  selection.toggleMark(1, dialogs);
  EXPECT_THROW(selection.open(folder.path() / "missing.ku"), UserError);
  EXPECT_EQ(selection.rowCount(), 0U);
  EXPECT_FALSE(selection.state().canRead);
  EXPECT_EQ(selection.state().label2, "选中的试样组数：0");
}

TEST_F(Selection, AnImportThatBringsNoSampleSaysSo) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", kuFile({newerEntry({noSpecimen()}), newerEntry({Specimen{}})})));
  selection.toggleMark(1, dialogs);
  const std::string file = (folder.path() / "HSZSJ.KU").string();
  EXPECT_EQ(selection.read(dialogs)->remarks, Remarks{"文件“" + file + "”选中的数据中没有试样，没有读入任何内容。"});
  selection.toggleMark(2, dialogs);
  EXPECT_TRUE(selection.read(dialogs)->remarks.empty());
}

TEST_F(Selection, ADoubleClickTogglesTheMark) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  selection.toggleMark(1, dialogs);
  selection.toggleMark(3, dialogs);
  EXPECT_EQ(selection.state().label2, "选中的试样组数：2");
  EXPECT_TRUE(selection.state().canRead);
  EXPECT_TRUE(selection.isMarked(1));
  selection.toggleMark(1, dialogs);
  EXPECT_FALSE(selection.isMarked(1));
  EXPECT_EQ(selection.cell(1, 5), "");
  selection.toggleMark(3, dialogs);
  EXPECT_FALSE(selection.state().canRead);
}

TEST_F(Selection, TheHeadingAndRowsPastTheLastAreNotMarked) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  selection.toggleMark(0, dialogs);
  selection.toggleMark(4, dialogs);
  EXPECT_FALSE(selection.isMarked(0));
  EXPECT_FALSE(selection.isMarked(4));
  EXPECT_EQ(selection.state().label2, "选中的试样组数：0");
}

TEST_F(Selection, ReadsTheMarkedRows) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  selection.toggleMark(3, dialogs);
  selection.toggleMark(2, dialogs);
  EXPECT_EQ(selection.read(dialogs)->sampleRows, 2U);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-2");  // in the order of the grid
  EXPECT_EQ(row(1).sampleNo.trimmed(), "S-3");
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST_F(Selection, AllRowsAreMarkedAtOnce) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  selection.toggleMark(2, dialogs);
  selection.markAll();
  for (std::size_t row = 1; row <= 3; ++row) EXPECT_TRUE(selection.isMarked(row));
  EXPECT_EQ(selection.state().label2, "选中的试样组数：3");
}

TEST_F(Selection, TheImportTellsItsProgressByGroups) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows()));
  selection.markAll();
  std::vector<std::pair<std::size_t, std::size_t>> told;
  selection.read(dialogs, [&](std::size_t done, std::size_t total) { told.emplace_back(done, total); });
  EXPECT_EQ(told, (std::vector<std::pair<std::size_t, std::size_t>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(Selection, ASourceOfFilesWithoutAFixedNameIsAskedForOne) {
  ImportSelection selection(*importerOfId("nanjing"), workspace);
  EXPECT_FALSE(selection.choose(dialogs)) << "cancelled";
  EXPECT_EQ(selection.rowCount(), 0U);
  ASSERT_EQ(dialogs.questions.size(), 1U);
  EXPECT_EQ(dialogs.questions[0].title, "打开南京三轴原始数据文件");
  EXPECT_EQ(dialogs.questions[0].filter, "Log Files (*.SZD)|*.SZD|All  Files (*.*)|*.*");
  EXPECT_EQ(dialogs.questions[0].initial, workspace.applicationFolder / "");
  dialogs.answer = folder.write("A1.SZD", "");
  EXPECT_TRUE(selection.choose(dialogs));
  EXPECT_EQ(selection.rowCount(), 1U);
}

TEST_F(Selection, TheManualSourceLooksInTheFolderAsItWasLeft) {
  folder.write("left/SDSZSJ.KU", std::string(4000, '\0'));
  workspace.sourceFolder = (folder.path() / "left").string();
  ImportSelection selection(*importerOfId("manual"), workspace);
  selection.load(dialogs);
  EXPECT_TRUE(dialogs.questions.empty());
  EXPECT_EQ(selection.state().label1, "文件总数: 100");
}

TEST_F(Selection, TellsWhatIsMissingOfTheIndex) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  selection.open(folder.write("HSZSJ.KU", threeRows().substr(0, 40)));
  EXPECT_EQ(selection.rowCount(), 2U);
  EXPECT_EQ(selection.state().label1, "文件总数: 02");
  EXPECT_EQ(selection.remarks().size(), 1U);
}

// ---- a source of which one project can be read at a time

/// Two rows of P1 around one of P2, and one of P1 whose first station is of another kind.
class OneProject : public Selection {
 protected:
  OneProject() : selection(*importerOfId("k0-hgj"), workspace) {
    workspace.sourceFolder = folder.path().string();
    std::vector<Entry> entries;
    for (const char* project : {"P1", "P2", "P1", "P1"}) {
      HgjBlock block;
      block.stations = {{.number = 1, .sampleNo = "S" + std::to_string(entries.size() + 1), .mode = 0}};
      if (entries.size() == 3) block.stations.push_back({.number = 0, .kind = 1});
      entries.push_back(hgjEntry(block));
      entries.back().projectNo = project;
    }
    selection.open(folder.write("HGJSJ.KU", kuFile(entries)));
  }

  ImportSelection selection;
};

TEST_F(OneProject, ARowOfAnotherProjectOrTestIsRefused) {
  EXPECT_EQ(selection.state().label2, "选中工程:");
  selection.toggleMark(1, dialogs);
  EXPECT_EQ(selection.state().label2, "选中工程:P1");
  for (const std::size_t row : {2U, 4U}) {
    selection.toggleMark(row, dialogs);
    EXPECT_FALSE(selection.isMarked(row));
  }
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>(2, "打开K0试验原始数据|与已选的工程编号或试验内容不同，不能同时处理"));
  selection.toggleMark(3, dialogs);
  EXPECT_TRUE(selection.isMarked(3));
  // Without marks every row may be the first again.
  selection.toggleMark(1, dialogs);
  selection.toggleMark(3, dialogs);
  selection.toggleMark(2, dialogs);
  EXPECT_EQ(selection.state().label2, "选中工程:P2");
}

TEST_F(OneProject, ReadingStaysOnWhenTheLastMarkIsGoneAndSaysSo) {
  EXPECT_FALSE(selection.state().canRead);
  selection.toggleMark(1, dialogs);
  selection.toggleMark(1, dialogs);
  EXPECT_TRUE(selection.state().canRead);
  EXPECT_EQ(selection.state().label2, "选中工程:");
  EXPECT_EQ(selection.read(dialogs), std::nullopt);
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{"打开K0试验原始数据|对不起，你没有选中数据"});
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST_F(OneProject, AnImportWithoutAK0StationShowsItsMessage) {
  selection.toggleMark(1, dialogs);
  EXPECT_EQ(selection.read(dialogs)->samples, 1U);
  EXPECT_TRUE(dialogs.messages.empty());
  HgjBlock block;
  block.stations = {{.kind = 1}};
  selection.open(folder.write("HGJSJ.KU", kuFile({hgjEntry(block)})));
  EXPECT_FALSE(selection.state().canRead) << "another database";
  selection.toggleMark(1, dialogs);
  EXPECT_EQ(selection.read(dialogs)->samples, 0U);
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{"打开K0试验原始数据|没有K0试验数据..."});
}

TEST_F(OneProject, TheGridsOfTheSourcesHaveTheirColumns) {
  const auto headings = [&](const ImportSelection& of) {
    std::string line;
    for (const SourceColumn& column : of.columns()) line += fmt::format("{} {};", column.heading, column.width);
    return line;
  };
  EXPECT_EQ(headings(selection), "序号 930;工程编号 1500;试验日期 1500;试验内容 1000;处理选择 1000;");
  EXPECT_EQ(selection.cell(1, 3), "K0");
  EXPECT_EQ(selection.cell(4, 3), "压缩");
  Entry entry = kgjEntry({{.sampleNo = "A"}, {.sampleNo = "B"}});
  entry.method = '0';  // the first byte of the tail, its second the first place of the project's
  entry.projectTail = "7";
  ImportSelection older(*importerOfId("k0-kgj"), workspace);
  older.open(folder.write("KGJSJ.KU", kuFile({entry})));
  EXPECT_EQ(headings(older), "序号 930;工程编号 1500;试验日期 1500;Ko试验 900;台号 700;数据特征 1500;处理选择 1000;");
  EXPECT_EQ(older.cell(1, 3), "2");
  EXPECT_EQ(older.cell(1, 4), "07");
  EXPECT_EQ(older.cell(1, 5), "试验数据");
}

// ---- the limit of marks, with a source of more rows than a .KU index lists

class LongSource : public RawSource {
 public:
  std::span<const SourceRow> rows() const override { return m_rows; }
  const Remarks& remarks() const override { return m_remarks; }
  ImportReport read(std::span<const std::size_t> marked, Workspace&, const Progress&) const override {
    return {.sampleRows = marked.size(), .samples = marked.size(), .remarks = {}};
  }

 private:
  std::vector<SourceRow> m_rows = std::vector<SourceRow>(1200);
  Remarks m_remarks;
};

std::unique_ptr<RawSource> openLong(const std::filesystem::path&) { return std::make_unique<LongSource>(); }

TEST_F(Selection, MoreThan999MarksAreRefused) {
  Importer importer = *importerOfId("auto");
  importer.open = openLong;
  ImportSelection selection(importer, workspace);
  selection.open(folder.write("HSZSJ.KU", ""));
  for (std::size_t row = 1; row <= 999; ++row) selection.toggleMark(row, dialogs);
  EXPECT_TRUE(dialogs.messages.empty());
  selection.toggleMark(1000, dialogs);
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"打开三轴试验数据|对不起，你所选择的试样太多，最多只能处理1000个...."});
  EXPECT_EQ(dialogs.icons, std::vector{MessageIcon::Information});
  EXPECT_EQ(selection.cell(1000, 5), "");
  EXPECT_EQ(selection.state().label2, "选中的试样组数：999");
  EXPECT_TRUE(selection.state().canRead);
  // A mark that is taken off makes room for another.
  selection.toggleMark(500, dialogs);
  selection.toggleMark(1000, dialogs);
  EXPECT_EQ(dialogs.messages.size(), 1U);
  EXPECT_EQ(selection.read(dialogs)->sampleRows, 999U);
}

class DatabaseAsWorkbook : public Selection {
 protected:
  void SetUp() override { NEEDS_JET(); }

  ImportSelection selection{*importerOfId("win"), workspace};
  FakeDialogs asked;
};

TEST_F(DatabaseAsWorkbook, IsOfferedWhenADatabaseIsOpen) {
  EXPECT_FALSE(selection.state().thirdButton);
  selection.open(std::filesystem::path(TRIAXLAB_SAMPLES) / "SZData.dat");
  EXPECT_TRUE(selection.state().thirdButton);
}

TEST_F(DatabaseAsWorkbook, TakesEveryTestWhetherMarkedOrNot) {
  selection.open(std::filesystem::path(TRIAXLAB_SAMPLES) / "SZData.dat");
  asked.file = folder.path() / "raw";
  std::size_t total = 0;
  selection.pressThirdButton(asked, [&](std::size_t, std::size_t all) { total = all; });
  EXPECT_EQ(total, 8U);
  EXPECT_EQ(asked.fileQuestions.at(0).title, "保存数据为Excel");
  EXPECT_EQ(asked.fileQuestions.at(0).initial.filename(), "EXNSZ");
  EXPECT_EQ(asked.take(), std::vector<std::string>{"[保存数据为Excel] 三轴试验数据保存完毕"});
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "raw.xls"));
  EXPECT_EQ(selection.state().label2, "选中的试样组数：0");
  EXPECT_TRUE(workspace.TriaxialSampleTable.used().empty());
}

TEST_F(DatabaseAsWorkbook, ACancelledQuestionWritesNothing) {
  selection.open(std::filesystem::path(TRIAXLAB_SAMPLES) / "SZData.dat");
  selection.pressThirdButton(asked);
  EXPECT_TRUE(asked.take().empty());
}

TEST_F(Selection, TheInterfaceDataButtonIsOnAndDoesNothing) {
  ImportSelection selection(*importerOfId("auto"), workspace);
  EXPECT_TRUE(selection.state().thirdButton);
  FakeDialogs asked;
  selection.pressThirdButton(asked);
  EXPECT_TRUE(asked.fileQuestions.empty());
}

}  // namespace
}  // namespace triaxlab::testing
