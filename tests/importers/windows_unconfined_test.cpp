// The databases of the Windows edition for the unconfined test. A sample here is strained by 2 % a minute and read each
// 15 s, so each 0.5 %.
#include <gmock/gmock.h>

#include "common/gbk.h"
#include "importers/import_fixture.h"
#include "sessions/dialogs/import_selection.h"
#include "support/fake_dialogs.h"
#include "support/jet_builder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

constexpr double kUndisturbed = 1, kRemoulded = 2;

struct Database {
  std::vector<JetRow> projects, readings;
  JetKind timeKind = JetKind::Text, rateKind = JetKind::Text;
  bool hasRing = true;

  void sample(double id, const JetCell& project, const JetCell& sampleNo, const JetCell& time = "2020-05-03 10:11:12",
              const JetCell& rate = "2", const JetCell& seconds = "15") {
    projects.push_back({id, project, "滨江路", time, sampleNo, rate, seconds});
  }
  void reading(double number, double side, const JetCell& stress, double id = 1, const JetCell& height = 8.0,
               const JetCell& area = 12.005) {
    readings.push_back({id, number, side, height, area, stress});
    if (hasRing) readings.back().push_back(1.25);
  }

  std::string bytes() const {
    std::vector<JetColumnSpec> columns{{"GCID", JetKind::Long},   {"CSID", JetKind::Long},   {"TYLX", JetKind::Long},
                                       {"SYGD", JetKind::Double}, {"SYMJ", JetKind::Double}, {"CJZ", JetKind::Double}};
    if (hasRing) columns.push_back({"LLHXS", JetKind::Double});
    return JetBuilder(Jet::Four)
        .table("Data_Collection", columns, readings)
        .table("Data_Project",
               {{"GCID", JetKind::Long},
                {"GCBH", JetKind::Text},
                {"GCMC", JetKind::Text},
                {"BCSJ", timeKind},
                {"SYBH", JetKind::Text},
                {"YBSL", rateKind},
                {"CSSJ", rateKind}},
               projects)
        .bytes();
  }
};

class WindowsUnconfined : public ImportTest {
 protected:
  WindowsUnconfined() { database.sample(1, "P1", "S-1"); }
  ImportReport import(std::string_view source = "unconfined-win") { return importPath(write(), source); }
  std::filesystem::path write() { return folder.write("WCX.dat", database.bytes()); }
  const UnconfinedSampleRecord& sample(std::size_t index = 0) const {
    return workspace.UnconfinedSampleTable.at(index);
  }
  std::string_view stress(std::size_t i, triaxlab::Specimen side = triaxlab::Specimen::Undisturbed) const {
    return stressOf(sample(), side)[i].trimmed();
  }
  std::string_view strain(std::size_t i, triaxlab::Specimen side = triaxlab::Specimen::Undisturbed) const {
    return strainOf(sample(), side)[i].trimmed();
  }

  Database database;
};

// ---- the window

TEST_F(WindowsUnconfined, LooksForItsFile) {
  const Importer& fixed = *importerOfMenuCommand("OWINWCX");
  EXPECT_EQ(fixed.id, "unconfined-win");
  EXPECT_EQ(fixed.form, "OPENFORMWINWCX");
  EXPECT_EQ(fixed.title, "WIN版无侧限试验原始数据库");
  EXPECT_EQ(fixed.folderField.position, 14700U);
  EXPECT_EQ(fixed.messageTitle, "打开无侧限试验数据");
  EXPECT_TRUE(fixed.sorts.empty());
  workspace.applicationFolder = folder.path();
  FakeDialogs dialogs;
  ImportSelection selection(fixed, workspace);
  selection.load(dialogs);
  ASSERT_EQ(dialogs.fileQuestions.size(), 1U);
  EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (WCX.dat)|WCX.dat|All  Files (*.*)|*.*");
}

TEST_F(WindowsUnconfined, TheDatxCommandStartsInItsFolder) {
  const Importer& datx = *importerOfMenuCommand("OWINWCXDAT");
  EXPECT_EQ(datx.id, "unconfined-datx");
  EXPECT_EQ(datx.form, "OPENFORMWINWCXDAT");
  EXPECT_TRUE(datx.fileFromCommand);
  workspace.winUnconfinedDatxFolder = folder.path().string();
  FakeDialogs dialogs;
  ImportSelection selection(datx, workspace);
  EXPECT_EQ(workspace.sourceFolder, folder.path().string());
  EXPECT_FALSE(selection.choose(dialogs));
  EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (WCX*.DATX)|WCX*.DATX|All  Files (*.*)|*.*");
}

TEST_F(WindowsUnconfined, ListsProjectNameAndDate) {
  database.sample(2, "A9", "S-2", "2020-05-09");
  database.sample(3, "P1", "S-3", "2020-06-01 08:00:00");
  ImportSelection selection(*importerOfId("unconfined-win"), workspace);
  selection.open(write());
  std::vector<std::string> headings;
  for (const SourceColumn& column : selection.columns()) headings.emplace_back(column.heading);
  EXPECT_THAT(headings, ElementsAre("序号", "工程编号", "工程名称", "试验日期", "处理选择"));
  ASSERT_EQ(selection.rowCount(), 2U);
  EXPECT_EQ(selection.cell(1, 1), "A9");
  EXPECT_EQ(selection.cell(2, 2), "滨江路");
  EXPECT_EQ(selection.cell(2, 3), "2020-05-03");
}

// ---- samples

TEST_F(WindowsUnconfined, ReadingsFillTheirSideInTheirOrder) {
  database.reading(3, kRemoulded, 4.24);
  database.reading(2, kUndisturbed, 20.0);
  database.reading(1, kUndisturbed, 10.05);
  import();
  EXPECT_EQ(sample().projectNo.trimmed(), "P1");
  EXPECT_EQ(sample().sampleNo.trimmed(), "S-1");
  EXPECT_EQ(stress(0), "10.1") << "away from zero";
  EXPECT_EQ(stress(1), "20.0");
  EXPECT_EQ(strain(0), "0.5");
  EXPECT_EQ(strain(1), "1.0");
  EXPECT_TRUE(strain(2).empty());
  EXPECT_EQ(stress(0, triaxlab::Specimen::Remoulded), "4.2");
  EXPECT_EQ(strain(0, triaxlab::Specimen::Remoulded), "0.5") << "each side counts its own";
  EXPECT_EQ(sample().sampleHeight[0].trimmed(), "8");
  EXPECT_EQ(sample().sampleArea[1].trimmed(), "12.005");
  EXPECT_TRUE(sample().undisturbedReading[0].isBlank());
  EXPECT_EQ(sample().ringCoefficient[0], 0) << "read, and not stored";
}

TEST_F(WindowsUnconfined, AnyKindButOneIsRemoulded) {
  for (const double kind : {0.0, 2.0, -1.0, 17.0}) {
    database.readings.clear();
    database.reading(1, kind, 5.0);
    import();
    EXPECT_EQ(stress(0, triaxlab::Specimen::Remoulded), "5.0") << kind;
    EXPECT_TRUE(sample().sampleHeight[0].isBlank());
  }
}

TEST_F(WindowsUnconfined, RatesAreNumbersOrTexts) {
  database.rateKind = JetKind::Double;
  database.projects.clear();
  database.sample(1, "P1", "S-1", "2020-05-03", 0.8, 30.0);
  database.reading(1, kUndisturbed, 5.0);
  import("unconfined-datx");
  EXPECT_EQ(strain(0), "0.4") << "0.8 x 30 / 60";
}

TEST_F(WindowsUnconfined, ASideTakes51Readings) {
  for (int i = 1; i <= 60; ++i) database.reading(i, kUndisturbed, double(i));
  database.reading(61, kRemoulded, 7.0);
  import();
  EXPECT_EQ(stress(50), "51.0");
  EXPECT_EQ(strain(50), "25.5");
  EXPECT_EQ(stress(0, triaxlab::Specimen::Remoulded), "7.0");
}

TEST_F(WindowsUnconfined, AReadingWithoutStressKeepsItsRow) {
  database.reading(1, kUndisturbed, JetCell{});
  database.reading(2, kUndisturbed, 6.0, 1, JetCell{}, JetCell{});
  import();
  EXPECT_EQ(stress(0), "");
  EXPECT_EQ(strain(0), "0.5");
  EXPECT_EQ(stress(1), "6.0");
  EXPECT_TRUE(sample().sampleHeight[0].isBlank()) << "that of the last reading";
}

TEST_F(WindowsUnconfined, ASampleWithoutReadingsHasItsNumbers) {
  database.sample(2, "P1", "S-2");
  EXPECT_EQ(import().samples, 2U);
  EXPECT_EQ(sample(1).sampleNo.trimmed(), "S-2");
  EXPECT_TRUE(sample(1).undisturbedStrain[0].isBlank());
}

TEST_F(WindowsUnconfined, TheLastMarkedProjectIsDatedByItsFirstSample) {
  database.sample(2, "P2", "S-2", "2020-06-09 08:00:00");
  database.sample(3, "P2", "S-3", "2020-07-09 08:00:00");
  import();
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).ProjectDateTable[0].projectNo.trimmed(), "P2");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).ProjectDateTable[0].testDate.trimmed(), "2020-06-09");
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Unconfined).ProjectDateTable[1].projectNo.isBlank());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).importedProjectName("P1"), utf8ToGbk("滨江路"));
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Unconfined).rawImportPending);
}

TEST_F(WindowsUnconfined, TextsThatNoFieldHoldsAreCut) {
  const std::string wide(200, 'W');
  database.projects.clear();
  database.sample(1, wide, wide, wide, wide, wide);
  database.reading(1, kUndisturbed, 1e300, 1, 123456789.0, -1e-7);
  EXPECT_EQ(import().samples, 1U);
  EXPECT_EQ(sample().sampleNo.trimmed(), std::string(15, 'W'));
  EXPECT_EQ(sample().sampleHeight[0].trimmed(), "123456");
  EXPECT_EQ(strain(0), "0.0");
}

// ---- what can't be read

TEST_F(WindowsUnconfined, TheChosenFileNeedsNoRingCoefficient) {
  database.hasRing = false;
  database.reading(1, kUndisturbed, 5.0);
  EXPECT_EQ(import("unconfined-datx").samples, 1U);
  workspace.UnconfinedSampleTable[0] = {};
  EXPECT_THROW(import("unconfined-win"), UserError);
  EXPECT_EQ(workspace.UnconfinedSampleTable.used().size(), 1U) << "nothing has changed";
}

TEST_F(WindowsUnconfined, ADatabaseWithoutSamplesHasNoRows) {
  database.projects.clear();
  EXPECT_TRUE(openRawSource(*importerOfId("unconfined-win"), write())->rows().empty());
}

TEST_F(WindowsUnconfined, TheDemonstrationDatabase) {
  const auto path = std::filesystem::path(TRIAXLAB_SAMPLES) / "WCX.dat";
  EXPECT_EQ(importPath(path, "unconfined-win").samples, 5U);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).ProjectDateTable[0].projectNo.trimmed(), "KC2020-07");
}

}  // namespace
}  // namespace triaxlab::testing
