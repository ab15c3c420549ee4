#include "sessions/k0/ko_session.h"

#include "sessions/k0/ko_samples.h"
#include "support/fake_dialogs.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

constexpr ListedInput number(int cell) { return {ListedInputName::Number, cell}; }
constexpr ListedInput reading(int cell) { return {ListedInputName::Reading, cell}; }

struct KoSessionTest : ::testing::Test {
  Workspace workspace;
  FakeDialogs dialogs;
  TemporaryFolder folder;

  KoSessionTest() {
    workspace.dataFolder = folder.path();
    workspace.K0SampleTable[0] = straightSample("A1");
    workspace.K0SampleTable[1] = koSample("GC1", "A2", {{"50.0", "30.0"}, {"100.0", "60.0"}});
    session.load();
  }
  K0Session session{workspace};

  K0SampleRecord& sample(std::size_t row = 0) { return workspace.K0SampleTable[row]; }
  Drawing drawn() const {
    RecordingSurface surface;
    session.drawKo(surface);
    return surface.operations();
  }
  void press(ArrowKey key, int times) {
    for (int i = 0; i < times; ++i) session.key(key);
  }
  void leave(bool keep) {
    dialogs.answers.push_back(keep);
    session.leaveIntervention(dialogs);
  }
};

TEST_F(KoSessionTest, ShowsTheFittedLineOfTheFirstSample) {
  EXPECT_EQ(koOf(drawn()), "0.400");
  EXPECT_EQ(session.koState().lineNote, "原始数据");
  EXPECT_EQ(sample().koIntercept.trimmed(), "0.0");
  EXPECT_FALSE(session.isChanged());
}

TEST_F(KoSessionTest, AnotherSampleIsFittedAndDrawn) {
  session.selectNumber(3);
  EXPECT_EQ(koOf(drawn()), "0.600");
  session.selectNumber(5);
  EXPECT_EQ(koOf(drawn()), "") << "an empty row";
  EXPECT_EQ(sample(2).koValue.trimmed(), "");
}

TEST_F(KoSessionTest, AnOpenedWindowHasNoUnsavedChange) {
  session.edit(reading(1), "150");
  session.moveKoLine();
  session.load();
  EXPECT_FALSE(session.isChanged());
  EXPECT_EQ(session.mode(), LineMode::None);
}

// ---- readings

TEST_F(KoSessionTest, ReadingsAreStoredInTheirFormats) {
  session.edit(reading(0), "1.2345");
  session.edit(reading(1), "150");
  session.edit(reading(2), "60.25");
  EXPECT_EQ(sample().axialDeformation[0].trimmed(), "1.235");  // half away from zero
  EXPECT_EQ(sample().axialPressure[0].trimmed(), "150.0");
  EXPECT_EQ(sample().lateralPressure[0].trimmed(), "60.3");
  EXPECT_EQ(session.listedState().text(reading(2)), "60.25") << "as typed while the cell has the focus";
  session.finishTyping();
  EXPECT_EQ(session.listedState().text(reading(2)), "60.3");
  EXPECT_TRUE(session.isChanged());
}

TEST_F(KoSessionTest, ABlankCellStoresABlankField) {
  session.edit(reading(4), "");
  EXPECT_TRUE(sample().axialPressure[1].isBlank());
  session.edit(reading(4), "x");
  EXPECT_EQ(sample().axialPressure[1].trimmed(), "0.0");
  session.edit(reading(4), "  ");
  EXPECT_TRUE(sample().axialPressure[1].isBlank());
}

TEST_F(KoSessionTest, TheTableShowsWhatIsStoredAndScrolls) {
  SetText(sample().axialDeformation[9], "0.050");
  session.scrollReadings(6);
  const ListedState state = session.listedState();
  EXPECT_EQ(state.readings.scrollMax, 6);
  EXPECT_EQ(state.readings.cells.at(9).label, "0.050") << "no small number is hidden";
  EXPECT_EQ(state.lineNumbers.front(), "7");
}

TEST_F(KoSessionTest, TheChartFollowsReadingsWhenItIsDrawn) {
  session.edit(reading(2), "90");
  const auto picture = session.pictureNumber();
  EXPECT_EQ(koOf(drawn()), "0.400");
  EXPECT_EQ(session.pictureNumber(), picture);
  session.redraw();
  // (100, 90), (200, 80), (300, 120): Sx 600, Sy 290, Sxx 140000, Sxy 61000: (174000 - 183000) / (360000 - 420000).
  EXPECT_EQ(koOf(drawn()), "0.150");
  EXPECT_GT(session.pictureNumber(), picture);
}

TEST_F(KoSessionTest, NumbersAreTypedInTheList) {
  session.edit(number(4), " GC1 ");
  session.edit(number(5), "A3");
  EXPECT_EQ(sample(2).projectNo.trimmed(), "GC1");
  EXPECT_TRUE(isLive(sample(2)));
}

TEST_F(KoSessionTest, TheSamplingDepthIsThatOfTheSummaryFile) {
  std::string file(600 + 2747, ' ');
  file.replace(0, 4, "1   ");
  file.replace(600 + 7, 2, "A1");
  file.replace(600 + 37, 9, "5.00-5.20");
  std::filesystem::create_directory(folder.path() / "ZMSJ");
  folder.write("ZMSJ/KHZGC1.txt", file);
  session.redraw();
  EXPECT_EQ(session.koState().samplingDepth, "5.00-5.20");
  EXPECT_EQ(sample().samplingDepth.trimmed(), "5.00-5.20");
  session.selectNumber(3);
  EXPECT_EQ(session.koState().samplingDepth, "");
}

TEST_F(KoSessionTest, ADepthThatCantBeReadStays) {
  SetText(sample().samplingDepth, "7.5");
  workspace.dataFolderProblem = "无法读取";
  session.redraw();
  EXPECT_EQ(session.koState().samplingDepth, "7.5");
}

// ---- 干预

TEST_F(KoSessionTest, KeysMoveTheLineAndTheSampleWaits) {
  session.moveKoLine();
  EXPECT_EQ(session.mode(), LineMode::Ko);
  EXPECT_THAT(blackLines(drawn()), ElementsAre(2));
  press(ArrowKey::Right, 12);
  press(ArrowKey::Up, 1);
  // 21.801 degrees and a tenth.
  EXPECT_EQ(koOf(drawn()), "0.402");
  EXPECT_EQ(sample().koValue.trimmed(), "0.400");
  EXPECT_EQ(sample().koAdjusted, 0);
}

TEST_F(KoSessionTest, YesKeepsTheLine) {
  session.moveKoLine();
  press(ArrowKey::Right, 12);
  press(ArrowKey::Up, 1);
  leave(true);
  EXPECT_THAT(dialogs.take(), ElementsAre("! [K0曲线调整]    曲线已经调整\n保存修改后数据吗？"));
  EXPECT_EQ(sample().koAdjusted, 1);
  EXPECT_EQ(sample().koValue.trimmed(), "0.402");
  EXPECT_EQ(sample().koIntercept.trimmed(), "12.0");
  EXPECT_EQ(session.koState().lineNote, "已经调整");
  EXPECT_THAT(blackLines(drawn()), ElementsAre(1));
  EXPECT_TRUE(session.isChanged());
}

TEST_F(KoSessionTest, NoLeavesTheSample) {
  session.moveKoLine();
  press(ArrowKey::Right, 12);
  leave(false);
  EXPECT_EQ(sample().koAdjusted, 0);
  EXPECT_EQ(koOf(drawn()), "0.400");
  EXPECT_FALSE(session.isChanged());
}

TEST_F(KoSessionTest, ALineSetByHandStaysUntilItIsFittedAgain) {
  session.moveKoLine();
  press(ArrowKey::Right, 12);
  leave(true);
  session.edit(reading(2), "90");
  session.redraw();
  EXPECT_EQ(koOf(drawn()), "0.400");
  EXPECT_EQ(sample().koIntercept.trimmed(), "12.0");
  session.markSaved();
  session.reprocess();
  EXPECT_EQ(sample().koAdjusted, 0);
  EXPECT_EQ(koOf(drawn()), "0.150");
  EXPECT_EQ(session.koState().lineNote, "原始数据");
  EXPECT_TRUE(session.isChanged());
}

TEST_F(KoSessionTest, NothingTakesTheSampleAwayMeanwhile) {
  session.moveKoLine();
  press(ArrowKey::Right, 5);
  session.selectNumber(3);
  session.scrollList(1);
  session.redraw();
  session.reprocess();
  session.moveKoLine();
  EXPECT_EQ(session.sampleRow(), 0U);
  EXPECT_FALSE(session.listedState().listEnabled);
  leave(true);
  EXPECT_EQ(sample().koIntercept.trimmed(), "5.0");
}

TEST_F(KoSessionTest, ASaveMeanwhileTakesTheSampleAsItStands) {
  session.moveKoLine();
  press(ArrowKey::Right, 5);
  session.markSaved();
  EXPECT_EQ(session.mode(), LineMode::Ko);
  EXPECT_EQ(sample().koIntercept.trimmed(), "0.0");
  leave(true);
  EXPECT_EQ(sample().koIntercept.trimmed(), "5.0");
  EXPECT_TRUE(session.isChanged());
}

TEST_F(KoSessionTest, StepsAreUndoneAndRedone) {
  session.moveKoLine();
  press(ArrowKey::Right, 2);
  session.undo();
  session.undo();
  session.redo();
  leave(true);
  EXPECT_EQ(sample().koIntercept.trimmed(), "1.0");
}

TEST_F(KoSessionTest, TheMouseDragsTheLine) {
  session.moveKoLine();
  // 300 kPa: divisions of 15. (120, 48) lies at 2500 + 120 x 18.1818 and 4120 - 48 x 18.1905.
  EXPECT_EQ(session.gripOnKoChart({4682, 3247}), LineGrip::Move);
  session.mouseOnKoChart({4682, 3247}, true);
  const auto picture = session.pictureNumber();
  session.mouseOnKoChart({4682, 3247 - 182}, true);
  EXPECT_GT(session.pictureNumber(), picture);
  session.mouseReleased();
  session.mouseOnKoChart({4682, 1000}, false);
  leave(true);
  EXPECT_EQ(sample().koIntercept.trimmed(), "10.0");
}

TEST_F(KoSessionTest, OutsideOfItTheMouseMovesNothing) {
  session.mouseOnKoChart({4682, 3247}, true);
  session.mouseOnKoChart({4682, 1000}, true);
  EXPECT_EQ(session.gripOnKoChart({4682, 3247}), LineGrip::None);
  EXPECT_EQ(koOf(drawn()), "0.400");
}

TEST_F(KoSessionTest, WithoutALineTheMoveBeginsOnTheAxis) {
  session.selectNumber(5);
  session.moveKoLine();
  press(ArrowKey::Right, 1);
  leave(true);
  EXPECT_EQ(sample(2).koValue.trimmed(), "0.000");
  EXPECT_EQ(sample(2).koIntercept.trimmed(), "1.0");
}

TEST_F(KoSessionTest, NothingIsAskedWhenNoLineIsMoved) {
  session.leaveIntervention(dialogs);
  EXPECT_THAT(dialogs.shown, ::testing::IsEmpty());
}

TEST_F(KoSessionTest, TellsWhatKeysAndMouseDo) {
  EXPECT_TRUE(session.koState().idle);
  EXPECT_EQ(session.koState().help[0], "");
  session.moveKoLine();
  EXPECT_FALSE(session.koState().idle);
  EXPECT_EQ(session.koState().subject, "土样编号:A1    截距:0.0 kPa    角度:21.8 度");
  press(ArrowKey::Left, 3);
  EXPECT_EQ(session.koState().subject, "土样编号:A1    截距:-3.0 kPa    角度:21.8 度");
  EXPECT_NE(session.koState().help[2].find("F4 退出干预"), std::string::npos);
}

TEST_F(KoSessionTest, TheMouseTellsPressures) {
  EXPECT_EQ(session.koReadoutAt({5500, 2210}), "x:165.0kPa   y:105.0kPa");
}

}  // namespace
}  // namespace triaxlab::testing
