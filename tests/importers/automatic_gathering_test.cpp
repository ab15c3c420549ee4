// How specimens of HSZSJ.KU gather into samples, and what an import does to the workspace.
#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

/// A specimen whose one stress, uncorrected, tells it from the others.
Specimen at(int pressure, int stress, std::string sampleNo = "S-1") {
  return {
      .sampleNo = std::move(sampleNo), .testMethod = 0, .cellPressure = pressure * 10, .stress = {{1, stress * 10}}};
}

class Gathering : public ImportTest {
 protected:
  /// "100:11 200:12": pressure and first stress of the used slots of a row.
  std::string slots(std::size_t index) const {
    std::string all;
    for (std::size_t s = 0; s < kStages; ++s) {
      if (row(index).cellPressure[s].isBlank()) continue;
      if (!all.empty()) all += ' ';
      all += row(index).cellPressure[s].trimmed();
      all += ':';
      all += row(index).deviatorStress[0][s].trimmed();
    }
    return all;
  }
};

TEST_F(Gathering, SpecimensOfANewerBlockTakeTheSlotsOfTheirSample) {
  EXPECT_EQ(importAll({newerEntry({at(100, 11), at(300, 13), at(100, 21, "S-2"), at(200, 12)})}).sampleRows, 2U);
  EXPECT_EQ(slots(0), "100:11 300:13 200:12");
  EXPECT_EQ(slots(1), "100:21");
}

TEST_F(Gathering, ALaterSpecimenOfAPressureReplacesTheEarlierWithAllItsRows) {
  Specimen first = at(100, 11), second = at(100, 0);
  first.initialHeight = 800;
  first.consolidationPore = {{24, 9}};
  first.shearRate = 5;
  first.pore = {{1, 10}};
  second.stress = {{2, 220}, {51, 510}};
  importAll({newerEntry({first, second})});
  EXPECT_EQ(slots(0), "100:");
  EXPECT_EQ(stress(1), "22");
  EXPECT_EQ(stress(50), "51");
  EXPECT_EQ(pore(0), "");
  EXPECT_TRUE(row(0).initialHeight[0].isBlank());
  EXPECT_EQ(row(0).consolidationPorePressure[24][0], 0);
  EXPECT_EQ(row(0).shearRate[0], 0);
}

TEST_F(Gathering, PressuresAreComparedAsTheyAreShown) {
  Specimen near = at(100, 12);
  near.cellPressure = 1004;  // shown as 100
  importAll({newerEntry({at(100, 11), near})});
  EXPECT_EQ(slots(0), "100:12");
}

TEST_F(Gathering, ASixthPressureIsDropped) {
  importAll({newerEntry({at(1, 1), at(2, 2), at(3, 3), at(4, 4), at(5, 5), at(6, 6), at(3, 9)})});
  EXPECT_EQ(slots(0), "1:1 2:2 3:9 4:4 5:5");
}

TEST_F(Gathering, ASpecimenWithoutPressureDoesNotGoOver) {
  EXPECT_EQ(importAll({newerEntry({at(100, 11), at(0, 12)})}).sampleRows, 1U);
  EXPECT_EQ(slots(0), "100:11");
  // As the first of its sample it stays, and its slot counts as free.
  Specimen first = at(0, 10);
  first.stress = {{1, 100}, {2, 200}};
  first.initialHeight = 800;
  importAll({newerEntry({first, at(100, 11)})});
  EXPECT_EQ(slots(0), "100:11");
  EXPECT_EQ(stress(1), "") << "what takes its slot leaves nothing of it";
  EXPECT_TRUE(row(0).initialHeight[0].isBlank());
}

TEST_F(Gathering, SampleProjectAndMethodTellSamplesApart) {
  Specimen otherProject = at(200, 12), otherMethod = at(300, 13);
  otherProject.projectNo = "P2";
  otherMethod.testMethod = 4;
  EXPECT_EQ(importAll({newerEntry({at(100, 11), otherProject, otherMethod, at(100, 14, "s-1")})}).sampleRows, 4U);
  EXPECT_EQ(slots(0), "100:11");
}

TEST_F(Gathering, TheFirstSpecimenDecidesWhatBelongsToTheSample) {
  Specimen second = at(200, 12);
  second.recordCodeA = 7;
  second.stageFlag = 1;
  second.shearMode = 2;
  importAll({newerEntry({at(100, 11), second})});
  EXPECT_EQ(row(0).recordCodeA, 0);
  EXPECT_EQ(row(0).uuAdjustFlag, 0);
  EXPECT_EQ(row(0).shearMode, 0);
  EXPECT_EQ(row(0).axialStrain[0][1], 0.4F);
}

TEST_F(Gathering, GroupsOfAnOlderBlockGatherAcrossRowsOfTheGrid) {
  EXPECT_EQ(importAll({olderEntry({{at(100, 11), at(200, 12)}, {at(200, 22), at(300, 23)}}),
                       olderEntry({{at(400, 14)}, {at(100, 31, "S-3")}})})
                .sampleRows,
            2U);
  EXPECT_EQ(slots(0), "100:11 200:22 300:23 400:14");
  EXPECT_EQ(slots(1), "100:31");
}

TEST_F(Gathering, AGroupWithoutASpecimenLeavesItsRowBlank) {
  EXPECT_EQ(importAll({olderEntry({{at(100, 11)}, {noSpecimen()}, {at(100, 21, "S-2")}})}).sampleRows, 3U);
  EXPECT_TRUE(row(1).sampleNo.isBlank());
  EXPECT_EQ(row(1).axialStrain[0][0], 0.4F);
  EXPECT_EQ(slots(2), "100:21");
}

TEST_F(Gathering, AnOlderBlockOfNoGroupsBringsNothing) {
  EXPECT_EQ(importAll({olderEntry({}), olderEntry({{at(100, 11)}})}).sampleRows, 1U);
  EXPECT_EQ(slots(0), "100:11");
}

TEST_F(Gathering, TheOldReaderGathersNothing) {
  EXPECT_EQ(importAll({olderEntry({{at(100, 11)}, {at(200, 12)}})}, "auto-old").sampleRows, 2U);
  EXPECT_EQ(slots(0), "100:11");
  EXPECT_EQ(slots(1), "200:12");
}

TEST_F(Gathering, TheOldReaderTakesEveryBlockForGroups) {
  Entry entry = olderEntry({{at(100, 11), at(200, 12)}});
  entry.format = ' ';  // above 10
  entry.groupCount = 9;
  EXPECT_EQ(importAll({entry}, "auto-old").sampleRows, 1U);
  EXPECT_EQ(slots(0), "100:11 200:12");
  EXPECT_EQ(openFile(kuFile({entry}), "auto-old")->rows()[0].cells[2], "9组");
}

TEST_F(Gathering, OnlyMarkedRowsAreRead) {
  const auto source =
      openFile(kuFile({newerEntry({at(100, 11)}), newerEntry({at(100, 21, "S-2")}), newerEntry({at(100, 31, "S-3")})}));
  const std::size_t marked[] = {0, 2};
  EXPECT_EQ(source->read(marked, workspace, {}).sampleRows, 2U);
  EXPECT_EQ(slots(0), "100:11");
  EXPECT_EQ(slots(1), "100:31");
}

TEST_F(Gathering, ABlockBehind65535IsFoundByTheHighWord) {
  Entry near = newerEntry({}), far = newerEntry({at(100, 11)});
  near.block += std::string(70000, '\x7F');
  EXPECT_EQ(importAll({near, far}).sampleRows, 1U);
  EXPECT_EQ(slots(0), "100:11");
}

// ---- the workspace

TEST_F(Gathering, AnImportReplacesTheTablesAndMarksThemAsRaw) {
  SetText(workspace.TriaxialSampleTable[0].sampleNo, "old");
  SetText(workspace.TriaxialSampleTable[1000].sampleNo, "old");
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[1000].boreholeNo, "old");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[100].projectNo, "old");
  Entry first = newerEntry({at(100, 11)}), second = newerEntry({at(100, 21, "S-2")});
  second.projectNo = "P2";
  second.projectTail = "   -";
  second.format = '7';
  second.date = "19990914";
  importAll({first, second});

  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-1");
  EXPECT_TRUE(sameBytes(row(1000), TriaxialSampleRecord{}));
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[1000], SampleLocation{});
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo.trimmed(), "P1");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate.view(), "2024/04/12");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].projectNo.trimmed(), "P2-7");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].testDate.view(), "1999/09/14");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[2], ProjectDate{});
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[100], ProjectDate{});
}

TEST_F(Gathering, AProjectOfSeveralDaysIsToldWithTheOneThatIsPrinted) {
  Entry first = newerEntry({at(100, 11)}), second = newerEntry({at(200, 21)}), other = newerEntry({at(100, 31, "S-2")});
  second.date = "20240422";
  other.projectNo = "P2";
  EXPECT_EQ(importAll({first, second, first, other}).remarks,
            Remarks{"工程 P1 的试样有 2 个试验日期（2024/04/12、2024/04/22），统一印 2024/04/12。"});
  EXPECT_EQ(importAll({first, other, first}).remarks, Remarks{});
}

/// As many groups as fit one entry, each a sample of its own.
Entry crowd(int groups, int firstNumber) {
  std::vector<std::vector<Specimen>> all;
  for (int g = 0; g < groups; ++g) all.push_back({at(100, 11, "S" + std::to_string(firstNumber + g))});
  return olderEntry(std::move(all));
}

TEST_F(Gathering, TheTableHolds1001Samples) {
  const std::vector<Entry> full{crowd(255, 0), crowd(255, 255), crowd(255, 510), crowd(236, 765)};
  EXPECT_EQ(importAll(full).sampleRows, 1001U);
  EXPECT_EQ(row(1000).sampleNo.trimmed(), "S1000");

  // A specimen of a sample that is there already needs no row of its own.
  std::vector<Entry> oneMore = full;
  oneMore.push_back(newerEntry({at(200, 12, "S1000")}));
  EXPECT_EQ(importAll(oneMore).sampleRows, 1001U);
  EXPECT_EQ(slots(1000), "100:11 200:12");
}

TEST_F(Gathering, MoreSamplesThanRowsAreAnErrorAndNothingChanges) {
  importAll({newerEntry({at(100, 11)})});
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = false;
  const ImportedState before(workspace);
  const std::vector<Entry> tooMany{crowd(255, 0), crowd(255, 255), crowd(255, 510), crowd(237, 765)};
  for (const std::string_view source : {"auto", "auto-old"}) {
    EXPECT_THROW(importAll(tooMany, source), UserError);
    EXPECT_TRUE(ImportedState(workspace) == before);
  }
}

}  // namespace
}  // namespace triaxlab::testing
