// Area correction of the stresses of HSZSJ.KU. The apparatus gives x on the initial section; every specimen here has
// A0 = 12.00 cm2, and a consolidated one Ac = 11.80 cm2 and h1 = 7.90 cm.
#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

constexpr int kUu = 1, kCu = 2, kCd = 3;

Specimen specimen(int method, int mode, std::map<int, int> stress = {{1, 10000}}) {
  return {.testMethod = method,
          .shearMode = mode,
          .consolidatedHeight = 790,
          .initialArea = 1200,
          .consolidatedArea = 1180,
          .stress = std::move(stress)};
}

/// Readings 1 to count of the same stress.
std::map<int, int> readings(int count, int stress) {
  std::map<int, int> all;
  for (int i = 1; i <= count; ++i) all[i] = stress;
  return all;
}

class AutomaticCorrection : public ImportTest {
 protected:
  std::string older(const Specimen& specimen, std::size_t i = 0) {
    importAll({olderEntry({{specimen}})});
    return std::string(stress(i));
  }
  std::string newer(const Specimen& specimen, std::size_t i = 0) {
    importAll({newerEntry({specimen})});
    return std::string(stress(i));
  }
};

TEST_F(AutomaticCorrection, Uu) {
  EXPECT_EQ(older(specimen(kUu, 0)), "996");                     // 1000 x (1 - 0.004)
  EXPECT_EQ(older(specimen(kUu, 2)), "998");                     // 1000 x (1 - 0.002)
  EXPECT_EQ(older(specimen(kUu, 3)), "996");                     // only a mode of 2 has the small step
  EXPECT_EQ(older(specimen(kUu, 0, {{50, 10000}}), 49), "800");  // 1000 x (1 - 50 x 0.004)
  EXPECT_EQ(older(specimen(kUu, 2, {{1, 1000}})), "100");        // 99.8
  EXPECT_EQ(newer(specimen(kUu, 0)), "996");
}

TEST_F(AutomaticCorrection, Cu) {
  EXPECT_EQ(older(specimen(kCu, 0)), "1013");  // 996 x 12 / 11.8 = 1012.88
  EXPECT_EQ(older(specimen(kCu, 2)), "1015");  // 998 x 12 / 11.8 = 1014.92
  EXPECT_EQ(newer(specimen(kCu, 0)), "1013");
}

TEST_F(AutomaticCorrection, CuWithoutAConsolidatedAreaStays) {
  Specimen bare = specimen(kCu, 0);
  bare.consolidatedArea = 0;
  EXPECT_EQ(older(bare), "1000");
}

TEST_F(AutomaticCorrection, CuWithoutAnInitialAreaComesToNothingAndStays) {
  Specimen bare = specimen(kCu, 0);
  bare.initialArea = 0;
  EXPECT_EQ(older(bare), "1000");
}

TEST_F(AutomaticCorrection, CdOnTheSectionOfWhatIsLeft) {
  // 0.50 ml drained: V = 11.8 x 7.9 - 0.5 = 92.72, h = 7.9 x 0.996 = 7.8684; 1000 x 12 x h / V = 1018.34.
  Specimen drained = specimen(kCd, 0);
  drained.volume = {{1, 50}};
  EXPECT_EQ(newer(drained), "1018");
  // The sign of the volume doesn't matter.
  drained.volume = {{1, -50}};
  EXPECT_EQ(newer(drained), "1018");
  // h = 7.9 x 0.998 = 7.8842: 1020.39.
  drained.shearMode = 2;
  EXPECT_EQ(newer(drained), "1020");
}

TEST_F(AutomaticCorrection, CdOfAnOlderBlockTakesTheConsolidatedAreaAboveTheLine) {
  Specimen drained = specimen(kCd, 0);
  drained.volume = {{1, 500}};        // thousandths of a ml in this block
  EXPECT_EQ(older(drained), "1001");  // 1000 x 11.8 x 7.8684 / 92.72 = 1001.37
}

TEST_F(AutomaticCorrection, CdOfAnOlderMultiStageBlockTakesTheHeightInHundredths) {
  // h0 = 0.079: V = 11.8 x 0.079 - 0.5 = 0.4322, h = 0.079 x 0.998 = 0.078842; 1000 x 12 x h / V = 2189.04.
  Specimen drained = specimen(kCd, 2);
  drained.volume = {{1, 500}};
  EXPECT_EQ(older(drained), "2189");
}

TEST_F(AutomaticCorrection, CdWithoutVolumeOrHeightStays) {
  Specimen bare = specimen(kCd, 0);
  bare.consolidatedHeight = 0;
  EXPECT_EQ(newer(bare), "1000");  // V = 0, h = 0
  bare.volume = {{1, 50}};
  EXPECT_EQ(newer(bare), "1000");  // h = 0 alone
  Specimen dry = specimen(kCd, 0);
  dry.consolidatedArea = 0;
  EXPECT_EQ(newer(dry), "1000");  // V = 0 alone
}

TEST_F(AutomaticCorrection, CdWithoutAnInitialAreaIsWrittenAsNothing) {
  Specimen bare = specimen(kCd, 0);
  bare.initialArea = 0;
  EXPECT_EQ(newer(bare), "0");  // unlike UU and CU
}

TEST_F(AutomaticCorrection, AnotherMethodStays) {
  EXPECT_EQ(older(specimen(4, 0)), "1000");
  EXPECT_EQ(older(specimen(0, 2)), "1000");
}

TEST_F(AutomaticCorrection, Reading51LiesOutside) {
  importAll({olderEntry({{specimen(kUu, 0, {{50, 10000}, {51, 10000}})}})});
  EXPECT_EQ(stress(49), "800");
  EXPECT_EQ(stress(50), "1000");
}

TEST_F(AutomaticCorrection, AStressThatReadsAsZeroStays) {
  importAll({olderEntry({{specimen(kUu, 0, {{1, 4}, {2, 10000}})}})});
  EXPECT_EQ(stress(0), "0");
  EXPECT_EQ(stress(1), "992");  // 1000 x (1 - 2 x 0.004)
}

TEST_F(AutomaticCorrection, TheOldReaderCorrectsNothing) {
  importAll({olderEntry({{specimen(kCd, 2)}})}, "auto-old");
  EXPECT_EQ(stress(0), "1000");
}

// ---- the strain that earlier stages have used

class StageOffset : public ImportTest {
 protected:
  /// Corrected stress of 1000 in row 0 of the last of these stages.
  std::string lastOf(std::vector<Specimen> stages) {
    const std::size_t last = stages.size() - 1;
    for (std::size_t s = 0; s <= last; ++s) stages[s].cellPressure = 1000 * static_cast<int>(s + 1);
    importAll({olderEntry({std::move(stages)})});
    return std::string(stress(0, last));
  }
};

TEST_F(StageOffset, GrowsByTheRowsOfEachEarlierStage) {
  const Specimen three = specimen(kUu, 2, readings(3, 10000)), one = specimen(kUu, 2);
  EXPECT_EQ(lastOf({one}), "998");
  EXPECT_EQ(lastOf({three, one}), "992");                                  // 1 - (0.002 + 3 x 0.002)
  EXPECT_EQ(lastOf({three, three, one}), "986");                           // 1 - (0.002 + 6 x 0.002)
  EXPECT_EQ(lastOf({specimen(kUu, 2, readings(51, 10000)), one}), "898");  // all rows filled: 50
}

TEST_F(StageOffset, AnUnusedSlotInFrontCountsAsOneRow) {
  EXPECT_EQ(lastOf({noSpecimen(), specimen(kUu, 2)}), "996");  // 1 - (0.002 + 0.002)
}

TEST_F(StageOffset, RowsAreCountedUpToTheFirstOneThatReadsAsZero) {
  // Row 2 has the text "0", so the count ends there whatever follows.
  EXPECT_EQ(lastOf({specimen(kUu, 2, {{1, 10000}, {2, 10000}, {3, 4}, {4, 10000}}), specimen(kUu, 2)}), "994");
  // The search begins at row 1: a first row without stress doesn't matter.
  EXPECT_EQ(lastOf({specimen(kUu, 2, {{2, 10000}, {3, 10000}}), specimen(kUu, 2)}), "992");
}

TEST_F(StageOffset, ActsWithTheSmallStepAndNotOnCu) {
  EXPECT_EQ(lastOf({specimen(kUu, 0, readings(3, 10000)), specimen(kUu, 0)}), "996");
  EXPECT_EQ(lastOf({specimen(kCu, 2, readings(3, 10000)), specimen(kCu, 2)}), "1015");
  // CD, h0 = 0.079, no volume: A = 11.8 / (1 - 0.008), and 1000 x 12 / A = 1008.81.
  EXPECT_EQ(lastOf({specimen(kCd, 2, readings(3, 10000)), specimen(kCd, 2)}), "1009");
}

TEST_F(StageOffset, ASpecimenOfANewerBlockIsCorrectedOnItsOwn) {
  Specimen second = specimen(kUu, 2), third = specimen(kUu, 0);
  second.cellPressure = 2000;
  third.cellPressure = 3000;
  importAll({newerEntry({specimen(kUu, 2, readings(3, 10000)), second, third})});
  EXPECT_EQ(row(0).cellPressure[1].trimmed(), "200");
  EXPECT_EQ(stress(0, 1), "998");
  EXPECT_EQ(stress(0, 2), "996") << "by the steps of its own shear mode";
}

}  // namespace
}  // namespace triaxlab::testing
