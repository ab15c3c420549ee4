// The databases of the Windows edition. A sample here is a CU test of two stages of 100 and 200 kPa, sheared at 0.6 % a
// minute: 600 thousandths, so a reading after 60 s is at 60 x 600 / 60 / 1000 = 0.6 %.
#include <gmock/gmock.h>

#include "common/gbk.h"
#include "importers/import_fixture.h"
#include "sessions/dialogs/import_selection.h"
#include "support/fake_dialogs.h"
#include "support/jet_builder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

/// A row of Datas.
struct Reading {
  double number, phase, seconds;
  JetCell back = 0.0, stress = 0.0, pore = 0.0, drained = 0.0;
};

struct Database {
  std::vector<JetRow> projects, stages, readings;
  JetKind timeKind = JetKind::Text, rateKind = JetKind::Double, realKind = JetKind::Double;

  void sample(double id, const std::string& project, const std::string& sampleNo,
              const JetCell& time = "2020-05-03 10:11:12", const JetCell& rate = 0.6, double kind = 1,
              double method = 2, double notAdjusted = 1) {
    projects.push_back({id, project, "滨江路", time, kind, method, 1.0, sampleNo, notAdjusted, rate});
  }
  void stage(double id, double number, const JetCell& pressure, const JetCell& height = 8.0) {
    stages.push_back({id, number, pressure, height, 7.914, 12.005, JetCell{}});
  }
  void reading(const Reading& r, double id = 1) {
    readings.push_back({id, r.number, r.phase, r.seconds, r.back, r.stress, r.pore, r.drained});
  }
  /// Shear readings each 60 s, numbered from `first`, with stresses 1, 2, 3 ...
  void shear(int first, int count) {
    for (int i = 0; i < count; ++i) reading({double(first + i), 4, 60.0 * i, 0.0, double(i + 1)});
  }

  std::string bytes() const {
    return JetBuilder(Jet::Four)
        .table("Datas", columns({"ID", "NO", "TZ", "CJSJ"}, {"FY", "ZYLC", "KY", "PS"}), readings)
        .table("Project_Information",
               {{"ID", JetKind::Long},
                {"GCBH", JetKind::Text},
                {"GCMC", JetKind::Text},
                {"BCSJ", timeKind},
                {"SYLX", JetKind::Long},
                {"SYFF", JetKind::Long},
                {"SyangLX", JetKind::Long},
                {"TYBH", JetKind::Text},
                {"UUTZ", JetKind::Long},
                {"JQSL", rateKind}},
               projects)
        .table("Datas_GJ", columns({"ID", "StepNO"}, {"SDWY", "SYQSGD", "GJSSGD", "SYQSMJ", "GJSSMJ"}), stages)
        .bytes();
  }

 private:
  std::vector<JetColumnSpec> columns(const std::vector<std::string>& longs,
                                     const std::vector<std::string>& reals) const {
    std::vector<JetColumnSpec> all;
    for (const auto& name : longs) all.push_back({name, JetKind::Long});
    for (const auto& name : reals) all.push_back({name, realKind});
    return all;
  }
};

class WindowsEdition : public ImportTest {
 protected:
  WindowsEdition() {
    database.sample(1, "P1", "S-1");
    database.stage(1, 1, 100.0);
    database.stage(1, 2, 200.0);
  }
  ImportReport import() { return importPath(write(), "win"); }
  std::filesystem::path write() { return folder.write("SZData.dat", database.bytes()); }

  std::string_view pressure(std::size_t slot) const { return row(0).cellPressure[slot].trimmed(); }

  Database database;
};

// ---- the grid

TEST_F(WindowsEdition, ListsProjectsInAscendingOrder) {
  database.sample(2, "A9", "S-2", "2020-05-09 08:00:00");
  database.sample(3, "P1", "S-3", "2020-06-01");
  const auto source = openRawSource(*importerOfId("win"), write());
  ASSERT_EQ(source->rows().size(), 2U);
  EXPECT_THAT(source->rows()[0].cells, ElementsAre("A9", "1", "2020-05-09"));
  EXPECT_THAT(source->rows()[1].cells, ElementsAre("P1", "2", "2020-05-03")) << "the date of the first row";
}

TEST_F(WindowsEdition, ADateTimeColumnListsAsADay) {
  database.timeKind = JetKind::Date;
  database.projects.clear();
  database.sample(1, "P1", "S-1", 43954.4);
  EXPECT_EQ(openRawSource(*importerOfId("win"), write())->rows()[0].cells[2], "2020-05-03");
  import();
  EXPECT_EQ(row(0).testDate.trimmed(), "2020/05/03");
}

TEST_F(WindowsEdition, LooksForItsFile) {
  const Importer& win = *importerOfMenuCommand("OWINSZ");
  EXPECT_EQ(win.id, "win");
  EXPECT_EQ(win.form, "OPENFORMWIN");
  EXPECT_EQ(win.folderField.position, 14500U);
  FakeDialogs dialogs;
  workspace.applicationFolder = folder.path();
  ImportSelection selection(win, workspace);
  selection.load(dialogs);
  ASSERT_EQ(dialogs.fileQuestions.size(), 1U);
  EXPECT_EQ(dialogs.fileQuestions[0].title, "WIN版SZ(X).DAT");
  EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (SZData.dat)|SZData.dat|All  Files (*.*)|*.*");
}

TEST_F(WindowsEdition, TheDatxCommandStartsInItsFolder) {
  const Importer& datx = *importerOfMenuCommand("OWINSZDAT");
  EXPECT_EQ(datx.id, "win-datx");
  EXPECT_TRUE(datx.fileFromCommand);
  workspace.winTriaxialDatxFolder = folder.path().string();
  workspace.sourceFolder = "elsewhere";
  FakeDialogs dialogs;
  ImportSelection selection(datx, workspace);
  EXPECT_EQ(workspace.sourceFolder, folder.path().string());
  EXPECT_FALSE(selection.choose(dialogs));
  ASSERT_EQ(dialogs.fileQuestions.size(), 1U);
  EXPECT_EQ(dialogs.fileQuestions[0].title, "WIN版SZ(X).DATX");
  EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (SZ*.DATX)|SZ*.DATX|All  Files (*.*)|*.*");
}

TEST_F(WindowsEdition, SortsTurnAroundAndMarksGoAlong) {
  database.sample(2, "P2", "S-2", "2020-01-09");
  database.sample(3, "P3", "S-3", "2020-03-09");
  FakeDialogs dialogs;
  ImportSelection selection(*importerOfId("win"), workspace);
  selection.open(write());
  const auto projects = [&] { return std::vector{selection.cell(1, 1), selection.cell(2, 1), selection.cell(3, 1)}; };
  selection.toggleMark(2, dialogs);
  selection.sort(0);
  EXPECT_THAT(projects(), ElementsAre("P1", "P2", "P3"));
  selection.sort(0);
  EXPECT_THAT(projects(), ElementsAre("P3", "P2", "P1"));
  selection.sort(1);
  EXPECT_THAT(projects(), ElementsAre("P2", "P3", "P1")) << "each sort has a direction of its own";
  EXPECT_TRUE(selection.isMarked(1));
  EXPECT_EQ(selection.cell(1, 0), "001");
  EXPECT_EQ(selection.cell(1, 4), "处理");
  selection.toggleMark(1, dialogs);
  selection.toggleMark(3, dialogs);
  selection.read(dialogs);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-1");
  EXPECT_TRUE(row(1).sampleNo.isBlank());
}

// ---- which samples

TEST_F(WindowsEdition, TakesTheTestsOfTheDateShown) {
  database.sample(2, "P1", "S-2", "2020-05-03 18:00:00");
  database.sample(3, "P1", "S-3", "2020-05-04 08:00:00");
  EXPECT_EQ(import().sampleRows, 2U);
  EXPECT_EQ(row(1).sampleNo.trimmed(), "S-2");
  workspace.settings.habits.winTriaxialByProject = true;
  EXPECT_EQ(import().sampleRows, 3U);
  EXPECT_EQ(row(2).sampleNo.trimmed(), "S-3");
  EXPECT_EQ(row(2).testDate.trimmed(), "2020/05/04");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate.trimmed(), "2020-05-04")
      << "of the last one";
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].projectNo.isBlank());
}

TEST_F(WindowsEdition, OtherKindsOfTestsComeToNothing) {
  database.projects.clear();
  database.sample(1, "P1", "S-1", "2020-05-03", 0.6, 4);
  database.sample(2, "P1", "S-2", "2020-05-03", 0.6, 2);
  EXPECT_EQ(import().sampleRows, 0U);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  EXPECT_TRUE(row(0).sampleNo.isBlank());
}

TEST_F(WindowsEdition, IdentityOfASample) {
  database.projects.clear();
  database.sample(1, "P'1", "土样1", "2020-5-3 10:11:12", 0.8, 1, 3, 0);
  import();
  EXPECT_EQ(row(0).projectNo.trimmed(), "P'1");
  EXPECT_EQ(row(0).sampleNo.trimmed(), utf8ToGbk("土样1"));
  EXPECT_EQ(row(0).testMethod, kCD);
  EXPECT_EQ(row(0).shearMode, 1);
  EXPECT_EQ(row(0).uuAdjustFlag, 1) << "0 in the database";
  EXPECT_EQ(row(0).testDate.trimmed(), "2020/05/03");
  for (std::size_t slot = 0; slot < kStages; ++slot) EXPECT_EQ(row(0).shearRate[slot], 800);
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).importedProjectName("P'1"), utf8ToGbk("滨江路"));
}

TEST_F(WindowsEdition, ALongProjectNumberKeepsItsName) {
  database.projects.clear();
  database.sample(1, "2020-工程-0123456789", "S-1");
  import();
  const std::string_view projectNo = row(0).projectNo.trimmed();
  EXPECT_EQ(projectNo, utf8ToGbk("2020-工程-01234")) << "fifteen places";
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).importedProjectName(projectNo), utf8ToGbk("滨江路"));
}

TEST_F(WindowsEdition, RatesAreThousandthsCutOff) {
  const auto rateOf = [&](JetKind kind, const JetCell& rate) {
    database.projects.clear();
    database.rateKind = kind;
    database.sample(1, "P1", "S-1", "2020-05-03", rate);
    import();
    return int{row(0).shearRate[0]};
  };
  EXPECT_EQ(rateOf(JetKind::Double, 0.6), 600);
  EXPECT_EQ(rateOf(JetKind::Double, 0.0129), 12);
  EXPECT_EQ(rateOf(JetKind::Text, "0.08 %"), 80);
  EXPECT_EQ(rateOf(JetKind::Single, 0.7), 700) << "0.7 in single precision is below 0.7";
  EXPECT_EQ(rateOf(JetKind::Text, {}), 0);
  EXPECT_EQ(rateOf(JetKind::Double, 33.0), 0) << "33000 has no place in 16 bits";
}

// ---- stages

TEST_F(WindowsEdition, StagesByNumber) {
  database.stages.clear();
  database.stage(1, 2, 200.4, 7.985);
  database.stage(1, 1, 100.0, 7.994);
  import();
  EXPECT_EQ(pressure(0), "100");
  EXPECT_EQ(pressure(1), "200");
  EXPECT_EQ(row(0).initialHeight[0].trimmed(), "7.99");
  EXPECT_EQ(row(0).initialHeight[1].trimmed(), "7.99") << "7.985 is rounded as a decimal number";
  EXPECT_EQ(row(0).consolidatedHeight[0].trimmed(), "7.91");
  EXPECT_EQ(row(0).initialArea[0].trimmed(), "12.01");
  EXPECT_TRUE(row(0).consolidatedArea[0].isBlank()) << "a null";
}

TEST_F(WindowsEdition, APressureHardlyAboveTheLastIsNoStage) {
  database.stages.clear();
  for (const double kPa : {100.0, 100.3, 100.5, 200.0, 150.0, 200.51, 300.0, 400.0, 500.0, 600.0})
    database.stage(1, static_cast<double>(database.stages.size()), kPa);
  import();
  // 200.51 is 0.51 above the 200 before it, as which it is stored, and reads 201.
  const char* const expected[] = {"100", "200", "201", "300", "400"};
  for (std::size_t slot = 0; slot < kStages; ++slot) EXPECT_EQ(pressure(slot), expected[slot]);
}

TEST_F(WindowsEdition, BackPressureIsTakenOff) {
  const auto pressureWith = [&](double back, double cell) {
    database.stages.clear();
    database.readings.clear();
    database.stage(1, 1, cell);
    database.reading({1, 4, 0, 0.0});
    database.reading({2, 4, 60, back});
    import();
    return std::string(pressure(0));
  };
  EXPECT_EQ(pressureWith(300, 400), "100");
  EXPECT_EQ(pressureWith(299.6, 400), "100") << "100.4";
  EXPECT_EQ(pressureWith(1, 400), "400");
  EXPECT_EQ(pressureWith(-20, 400), "420");
  EXPECT_EQ(pressureWith(1000, 400), "400");
  EXPECT_EQ(pressureWith(300, 1), "1");
}

// ---- consolidation

TEST_F(WindowsEdition, ConsolidationByStages) {
  database.reading({1, 1, 50, 0.0, 0.0, 9.9, 9.9});  // saturation
  database.reading({2, 2, 0, 0.0, 0.0, 12.35, 0.0});
  database.reading({3, 3, 60, 0.0, 0.0, -1.26, -0.285});  // whatever is not saturation or shear
  database.reading({4, 2, 60, 0.0, 0.0, 7.0, 1.5});       // the same time: the same stage
  database.reading({5, 2, 30, 0.0, 0.0, 5.0, 2.25});      // earlier: the next one
  database.reading({6, 2, 20, 0.0, 0.0, 4.0, 2.5});       // later than 0, from where the stage counts
  import();
  const auto& pore = row(0).consolidationPorePressure;
  EXPECT_EQ(pore[0][0], 124) << "123.5";
  EXPECT_EQ(pore[1][0], -13) << "-12.6";
  EXPECT_EQ(pore[2][0], 70);
  EXPECT_EQ(pore[0][1], 50);
  EXPECT_EQ(pore[1][1], 40);
  EXPECT_EQ(row(0).consolidationVolume[1][0], -28) << "-28.499999999999996";
  EXPECT_EQ(row(0).consolidationTime[1][0], 60);
  EXPECT_EQ(row(0).consolidationTime[0][1], 30);
  EXPECT_EQ(row(0).consolidationTime[1][1], 20);
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "1.5");
  EXPECT_EQ(row(0).consolidationDrainage[1].trimmed(), "2.5");
}

TEST_F(WindowsEdition, ConsolidationReadingsAtTheMarkKeepTheirRows) {
  database.reading({1, 2, 10, 0.0, 0.0, 60000.0, 1.0});
  database.reading({2, 2, 20, 0.0, 0.0, 3.0, 600.0});
  database.reading({3, 2, 30, 0.0, 0.0, {}, {}});
  database.reading({4, 2, 40, 0.0, 0.0, 4000.0, 400.0});  // 40000 has no place in 16 bits
  import();
  EXPECT_EQ(row(0).consolidationPorePressure[0][0], 0);
  EXPECT_EQ(row(0).consolidationTime[0][0], 10);
  EXPECT_EQ(row(0).consolidationPorePressure[1][0], 30);
  EXPECT_EQ(row(0).consolidationVolume[1][0], 0);
  EXPECT_EQ(row(0).consolidationTime[1][0], 0);
  EXPECT_EQ(row(0).consolidationTime[2][0], 0);
  EXPECT_EQ(row(0).consolidationPorePressure[3][0], 0);
  EXPECT_EQ(row(0).consolidationVolume[3][0], 0);
  EXPECT_EQ(row(0).consolidationTime[3][0], 40);
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "400");
}

TEST_F(WindowsEdition, ASixthStageEndsThePhase) {
  for (int stage = 0; stage < 7; ++stage)
    for (int i = 0; i < 2; ++i) {
      database.reading({2.0 * stage + i, 2, 50.0 * i, 0.0, 0.0, stage + 1.0});
      database.reading({2.0 * stage + i + 100, 4, 50.0 * i, 0.0, stage + 1.0});
    }
  import();
  for (std::size_t slot = 0; slot < kStages; ++slot) {
    EXPECT_EQ(row(0).consolidationPorePressure[0][slot], 10 * (static_cast<int>(slot) + 1));
    EXPECT_EQ(stress(0, slot), std::to_string(slot + 1) + ".0");
    EXPECT_EQ(stress(1, slot), std::to_string(slot + 1) + ".0");
    EXPECT_EQ(stress(2, slot), "");
  }
}

TEST_F(WindowsEdition, RowsEndWithTheTable) {
  for (int i = 0; i < 160; ++i) database.reading({double(i), 2, double(i), 0.0, 0.0, 1.0});
  database.shear(1000, 220);
  import();
  EXPECT_EQ(row(0).consolidationTime[150][0], 150);
  EXPECT_EQ(row(0).consolidationTime[0][1], 0) << "a full stage doesn't run over into the next";
  EXPECT_EQ(stress(211), "212.0");
  EXPECT_EQ(stress(0, 1), "");
}

// ---- shear

TEST_F(WindowsEdition, ShearReadings) {
  database.reading({3, 4, 120, 0.0, -2.25, 60000.0, 600.0});
  database.reading({1, 4, 0, 0.0, 0.0, 0.0, 0.0});
  database.reading({2, 4, 60, 0.0, 12.25, 3.149, -1.257});
  database.reading({4, 4, 180, 0.0, 60000.0, 5.0, {}});
  database.reading({5, 4, 60, 0.0, 7.0, 8.0, 9.0});
  import();
  EXPECT_EQ(stress(0), "0.0");
  EXPECT_EQ(stress(1), "12.3");
  EXPECT_EQ(pore(1), "3.1");
  EXPECT_EQ(row(0).volumeChange[1][0], -126);
  EXPECT_EQ(row(0).axialStrain[1][0], 0.6F);
  EXPECT_EQ(stress(2), "-2.3");
  EXPECT_EQ(pore(2), "") << "at the mark";
  EXPECT_EQ(row(0).volumeChange[2][0], 0);
  EXPECT_EQ(row(0).axialStrain[2][0], 1.2F);
  EXPECT_EQ(stress(3), "");
  EXPECT_EQ(pore(3), "5.0");
  EXPECT_EQ(stress(0, 1), "7.0");
  EXPECT_EQ(row(0).axialStrain[0][1], 0.6F);
  EXPECT_EQ(row(0).axialStrain[1][1], 0) << "no even grid of strains";
}

TEST_F(WindowsEdition, SinglesAreFormattedByTheirSevenDigits) {
  database.realKind = JetKind::Single;
  database.reading({1, 4, 0, 0.0, 0.35, 1.15, 1.5});
  database.reading({2, 2, 0, 0.0, 0.0, 0.0, 0.7});
  import();
  EXPECT_EQ(stress(0), "0.4") << "0.35 in single precision is 0.349999994, 1.15 is 1.14999998";
  EXPECT_EQ(pore(0), "1.2");
  EXPECT_EQ(row(0).consolidationDrainage[0].trimmed(), "0.7");
}

// Behind each reading taken, four are passed over above 150 readings, two above 100, one above 50.
TEST_F(WindowsEdition, FiftyPoints) {
  workspace.settings.habits.take50Points = true;
  const auto taken = [&](int count) {
    database.readings.clear();
    database.shear(1, count);
    import();
    int rows = 0;
    for (std::size_t i = 0; i < kShearRows; ++i) rows += !stress(i).empty();
    return std::pair(rows, std::string(stress(1)));
  };
  EXPECT_EQ(taken(200), std::pair(40, std::string("6.0")));
  EXPECT_EQ(taken(151), std::pair(31, std::string("6.0")));
  EXPECT_EQ(taken(150), std::pair(50, std::string("4.0")));
  EXPECT_EQ(taken(101), std::pair(34, std::string("4.0")));
  EXPECT_EQ(taken(100), std::pair(50, std::string("3.0")));
  EXPECT_EQ(taken(51), std::pair(26, std::string("3.0")));
  EXPECT_EQ(taken(50), std::pair(50, std::string("2.0")));
}

TEST_F(WindowsEdition, ThinningPassesOverReadingsOfAnyPhase) {
  workspace.settings.habits.take50Points = true;
  for (int i = 0; i < 60; ++i) database.reading({double(i), i % 2 == 0 ? 4.0 : 2.0, double(i), 0.0, double(i)});
  import();
  // One of 60 readings is passed over behind each that is taken: those of the other phase.
  EXPECT_EQ(stress(0), "0.0");
  EXPECT_EQ(stress(1), "2.0");
  EXPECT_EQ(stress(29), "58.0");
}

TEST_F(WindowsEdition, ASampleWithoutReadingsIsASample) {
  EXPECT_EQ(import().sampleRows, 1U);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-1");
  EXPECT_EQ(pressure(1), "200");
  EXPECT_EQ(stress(0), "");
}

TEST_F(WindowsEdition, AMissingColumnChangesNothing) {
  const ImportedState before(workspace);
  const std::string bytes = JetBuilder(Jet::Four).table("Project_Information", {{"ID", JetKind::Long}}, {}).bytes();
  EXPECT_THAT(refusal(bytes, "win"), ::testing::HasSubstr("没有列“GCBH”"));
  EXPECT_EQ(ImportedState(workspace), before);
}

}  // namespace
}  // namespace triaxlab::testing
