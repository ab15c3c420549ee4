#include <gmock/gmock.h>

#include "reports/ko_results.h"
#include "reports/page_fixture.h"
#include "reports/unconfined_table.h"
#include "sessions/dialogs/print_dialog_session.h"
#include "store/settings/settings_file.h"
#include "support/fake_dialogs.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A report of one page, whatever the job.
class OnePage : public Report {
 public:
  PageSize pageSize() const override { return kA4; }
  int pageCount() const override { return 1; }
  void drawPage(DrawingSurface& /*surface*/, int /*page*/) override {}
  std::vector<SampleNumbers> samplesOf(int /*page*/) const override { return {{"P1", "B-0"}}; }
};

/// Pages of unconfined samples, for every dialog that has no curves of triaxial samples to choose from.
constexpr Layout kPlainPages{
    .id = "plain",
    .title = "试验成果",
    .kind = ProjectKind::Unconfined,
    .picturePrefix = "WCX",
    .make = [](const PrintJob&, const Workspace&) -> std::unique_ptr<Report> { return std::make_unique<OnePage>(); }};

struct PrintForms : PageTest {
  FakeDialogs dialogs;

  PrintForms() {
    for (std::size_t row = 0; row < 4; ++row) sample(row, kCU, "A-" + std::to_string(row));
    for (std::size_t row = 0; row < 3; ++row) {
      SetText(workspace.UnconfinedSampleTable[row].projectNo, "P1");
      SetText(workspace.UnconfinedSampleTable[row].sampleNo, "B-" + std::to_string(row));
    }
  }
  PrintDialogSession openSheets() { return {kChartSheetForm, kThreeInOne, workspace, dialogs, {.row = 2}}; }
  PrintDialogSession open(const PrintForm& form) {
    return {form, kPlainPages, workspace, dialogs, {.row = 1, .stage = 4}};
  }
  int byteAt(std::uint32_t position) const { return sharedSettings(workspace).readByte(position); }
  void setByte(std::uint32_t position, std::uint8_t value) { sharedSettings(workspace).writeByte(position, value); }
  /// The bytes of zmsz.sys; positions count from 1.
  std::string setup() const { return folder.read("zmsz.sys"); }
  int setupByte(std::size_t position) const { return static_cast<unsigned char>(setup().at(position - 1)); }
  void writeSetup(std::initializer_list<std::pair<std::size_t, char>> bytes) const {
    std::string content(83, '\0');
    for (const auto& [position, byte] : bytes) content.at(position - 1) = byte;
    folder.write("zmsz.sys", content);
  }
};

// ---- SETPRINTFORM3

TEST_F(PrintForms, ChartSheetsOpenAsA4LandscapeWithOneChartWithoutAStoredSetup) {
  const PrintDialogState state = openSheets().state();
  EXPECT_EQ(state.paper, SheetPaper::A4);
  EXPECT_FALSE(state.portrait);
  EXPECT_EQ(state.texts[PrintBox::Rows], "1");
  EXPECT_EQ(state.texts[PrintBox::Columns], "1");
  EXPECT_EQ(state.texts[PrintBox::LeftMargin], "0.5");
  EXPECT_EQ(state.texts[PrintBox::RightMargin], "0.5");
  EXPECT_EQ(state.texts[PrintBox::FirstPage], "1");
  EXPECT_EQ(state.texts[PrintBox::To], "4");
  EXPECT_FALSE(state.ticks[PrintTick::DataSheet]);
  EXPECT_TRUE(state.ticks[PrintTick::StressStrain] && state.ticks[PrintTick::StressDifferenceEnvelope]);
}

TEST_F(PrintForms, TheStoredSetupIsReadWithinItsLimits) {
  writeSetup({{10, 7}, {20, 31}, {30, 0}, {60, 1}});
  const PrintDialogState state = openSheets().state();
  EXPECT_EQ(state.paper, SheetPaper::A3) << "an unknown code";
  EXPECT_TRUE(state.portrait);
  EXPECT_EQ(state.texts[PrintBox::Rows], "30");
  EXPECT_EQ(state.texts[PrintBox::Columns], "1");
}

TEST_F(PrintForms, TheSetupIsStoredAsTyped) {
  writeSetup({{40, 17}, {50, 23}});
  PrintDialogSession session = openSheets();
  session.setPaper(SheetPaper::WideForm);
  session.setPortrait(true);
  session.setText(PrintBox::Rows, "31");
  session.setText(PrintBox::Columns, "0");
  session.setText(PrintBox::LeftMargin, "0.4");
  session.setText(PrintBox::RightMargin, "1.25");
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(setupByte(10), 3);
  EXPECT_EQ(setupByte(20), 31);
  EXPECT_EQ(setupByte(30), 0);
  EXPECT_EQ(setupByte(40), 17);
  EXPECT_EQ(setupByte(50), 23);
  EXPECT_EQ(setupByte(60), 1);
  EXPECT_EQ(setup().substr(69, 4), "\xCD\xCC\xCC\x3E");  // 0.4 in single precision
  EXPECT_EQ(setup().substr(79, 4), std::string("\0\0\xA0\x3F", 4));

  const PrintJob typed = session.job();
  EXPECT_EQ(typed.sheet.rows, 31);
  EXPECT_EQ(typed.sheet.columns, 1);
  EXPECT_FLOAT_EQ(typed.sheet.leftMarginCm, 0.4F);
  EXPECT_EQ(typed.sheet.paperOfJob(), SheetPaper::WideForm);
  EXPECT_TRUE(typed.sheet.portrait);

  const PrintDialogState again = openSheets().state();
  EXPECT_EQ(again.texts[PrintBox::Rows], "30");
  EXPECT_EQ(again.texts[PrintBox::Columns], "1");
  EXPECT_EQ(again.texts[PrintBox::LeftMargin], "0.5");
  EXPECT_EQ(again.texts[PrintBox::RightMargin], "1.25");
  EXPECT_EQ(again.paper, SheetPaper::WideForm);
}

TEST_F(PrintForms, OfRowsAByteIsStored) {
  PrintDialogSession session = openSheets();
  session.setText(PrintBox::Rows, "300");
  session.setText(PrintBox::Columns, "-3");
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(setupByte(20), 255);
  EXPECT_EQ(setupByte(30), 0) << "what is no byte leaves the stored one";
  EXPECT_EQ(session.job().sheet.rows, 300);
  EXPECT_EQ(session.job().sheet.columns, 1);
}

TEST_F(PrintForms, TheSetupIsStoredEvenWhenNoCurveIsChosen) {
  PrintDialogSession session = openSheets();
  session.setTicked(PrintTick::StressStrain, false);
  session.setTicked(PrintTick::EffectiveCircles, false);
  session.setTicked(PrintTick::TotalCircles, false);
  session.setText(PrintBox::Rows, "5");
  EXPECT_FALSE(session.accept());
  EXPECT_THAT(dialogs.shown, ElementsAre("stop [打印三轴试验成果曲线] 请选择要打印的曲线类型！"));
  EXPECT_EQ(setupByte(20), 5);
  EXPECT_EQ(byteAt(1800), 1);
  EXPECT_EQ(byteAt(1801), 1);
  EXPECT_FALSE(session.state().ticks[PrintTick::StressDifferenceEnvelope]);
}

TEST_F(PrintForms, TheJobOfAChartSheet) {
  PrintDialogSession session = openSheets();
  session.setTicked(PrintTick::DataSheet, true);
  session.setTicked(PrintTick::DotMatrix, true);
  session.setText(PrintBox::FirstPage, "7");
  session.choose(PrintScope::Range);
  session.setText(PrintBox::From, "-2");
  session.setText(PrintBox::To, "99");
  ASSERT_TRUE(session.accept());
  const PrintJob typed = session.job();
  EXPECT_TRUE(typed.printDataSheet);
  EXPECT_TRUE(typed.printPageNumbers);
  EXPECT_EQ(typed.lineWeight, 2);
  EXPECT_EQ(typed.firstPageNumber, 7);
  EXPECT_EQ(typed.printRangeFrom, 2);
  EXPECT_EQ(typed.printRangeTo, 4);
  EXPECT_EQ(typed.copies, 1);
  EXPECT_EQ(byteAt(198), 1);
}

TEST_F(PrintForms, ASetupThatCantBeStoredIsToldAndThePrintGoesOn) {
  std::filesystem::create_directory(folder.path() / "zmsz.sys");
  PrintDialogSession session = openSheets();
  dialogs.take();
  EXPECT_TRUE(session.accept());
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("zmsz.sys")));
}

// ---- SETPRINTFORM0

TEST_F(PrintForms, TheCurvesOfTK0StagesAreChosenByWhatIsOnDisplay) {
  PrintDialogSession session = open(kTK0CurveForm);
  EXPECT_TRUE(session.state().ticks[PrintTick::PageNumbers]);
  for (const PrintScope scope : {PrintScope::Current, PrintScope::CurrentPage, PrintScope::CurrentCurve}) {
    EXPECT_EQ(session.choose(scope), std::nullopt);
    EXPECT_EQ(session.job().scope, scope);
  }
  EXPECT_EQ(session.job().currentRow, 1U);
  EXPECT_EQ(session.job().currentPart, 4U);
  session.setTicked(PrintTick::DotMatrix, true);
  session.setTicked(PrintTick::PageNumbers, false);
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(session.job().lineWeight, 2);
  EXPECT_FALSE(session.job().printPageNumbers);
  EXPECT_EQ(byteAt(198), 1);
}

// ---- Form3 and Form30

TEST_F(PrintForms, EachTestHasItsTitle) {
  EXPECT_EQ(kTriaxialTableForm.title, "打印三轴试验数据表");
  EXPECT_EQ(kConsolidationForm.title, "固结数据表");
  EXPECT_EQ(kUnconfinedForm.title, "打印无侧限曲线");
  EXPECT_EQ(kK0Form.title, "K0曲线数据表");
  EXPECT_EQ(kTK0Form.title, "打印TK0曲线");
  EXPECT_EQ(kTriaxialTableForm.name, "Form30");
  EXPECT_EQ(kK0Form.name, "Form3");
}

TEST_F(PrintForms, OneSampleByItsNumber) {
  PrintDialogSession session = open(kK0Form);
  EXPECT_EQ(session.job().scope, PrintScope::All);
  EXPECT_EQ(session.choose(PrintScope::Range), PrintBox::From);
  session.setText(PrintBox::From, "-2");
  EXPECT_EQ(session.job().scope, PrintScope::Range);
  EXPECT_EQ(session.job().printRangeFrom, 2);
  EXPECT_EQ(session.job().printRangeTo, 2);
  session.setText(PrintBox::From, "9");
  EXPECT_EQ(session.job().printRangeFrom, 3) << "there are three samples";
}

TEST_F(PrintForms, PagesByTheirNumbers) {
  PrintDialogSession session = open(kK0Form);
  EXPECT_EQ(session.choose(PrintScope::Pages), PrintBox::PageFrom);
  session.setText(PrintBox::PageFrom, "-4");
  session.setText(PrintBox::PageTo, "12");
  session.enterBox(PrintBox::PageTo);
  EXPECT_EQ(session.job().scope, PrintScope::Pages);
  EXPECT_EQ(session.job().printRangeFrom, 4);
  EXPECT_EQ(session.job().printRangeTo, 12);
}

TEST_F(PrintForms, BoxesOfAnOptionThatIsNotChosenAreOff) {
  PrintDialogSession session = open(kK0Form);
  const auto boxesOn = [&] {
    const ByBox<bool> on = session.state().boxesOn;
    return std::array{on[PrintBox::From], on[PrintBox::PageFrom], on[PrintBox::PageTo], on[PrintBox::Copies]};
  };
  EXPECT_THAT(boxesOn(), ElementsAre(false, false, false, true));
  session.choose(PrintScope::Range);
  EXPECT_THAT(boxesOn(), ElementsAre(true, false, false, true));
  session.choose(PrintScope::Pages);
  EXPECT_THAT(boxesOn(), ElementsAre(false, true, true, true));
  session.choose(PrintScope::Current);
  EXPECT_THAT(boxesOn(), ElementsAre(false, false, false, true));
}

TEST_F(PrintForms, CopiesAreBetween1And99) {
  PrintDialogSession session = open(kTK0Form);
  EXPECT_EQ(session.job().copies, 1);
  for (const auto& [typed, copies] : {std::pair{"3", 3}, {"0", 1}, {"", 1}, {"-4", 4}, {"100", 99}, {"99999999", 99}}) {
    session.setText(PrintBox::Copies, typed);
    EXPECT_EQ(session.job().copies, copies) << typed;
  }
  EXPECT_EQ(session.state().texts[PrintBox::Copies], "99999999") << "as long as it is typed";
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(session.state().texts[PrintBox::Copies], "99");
}

TEST_F(PrintForms, UnconfinedPagesChosenByTheirNumbersDontGoIntoPictures) {
  PrintDialogSession session = open(kUnconfinedForm);
  session.setTicked(PrintTick::Picture, true);
  session.choose(PrintScope::Range);
  EXPECT_TRUE(session.state().canTickPicture);
  EXPECT_TRUE(session.job().printToPicture);
  session.choose(PrintScope::Pages);
  EXPECT_FALSE(session.state().canTickPicture);
  EXPECT_FALSE(session.job().printToPicture);
  session.choose(PrintScope::All);
  EXPECT_TRUE(session.state().canTickPicture);
  EXPECT_FALSE(session.state().ticks[PrintTick::Picture]);
}

TEST_F(PrintForms, OtherPagesChosenByTheirNumbersDo) {
  for (const PrintForm* const form : {&kTriaxialTableForm, &kConsolidationForm, &kK0Form, &kTK0Form}) {
    PrintDialogSession session = open(*form);
    session.setTicked(PrintTick::Picture, true);
    session.choose(PrintScope::Pages);
    EXPECT_TRUE(session.state().canTickPicture) << form->title;
    EXPECT_TRUE(session.job().printToPicture) << form->title;
  }
}

TEST_F(PrintForms, PagesThatMakeNoPicturesGoOnPaperAllTheSame) {
  SetText(workspace.K0SampleTable[0].projectNo, "P1");
  SetText(workspace.K0SampleTable[0].sampleNo, "K-1");
  FakePageDevices devices;
  devices.printerIsThere = true;
  PrintDialogSession session(kK0Form, kK0Results, workspace, dialogs, {});
  session.setTicked(PrintTick::Picture, true);
  session.send(devices, {});
  EXPECT_THAT(devices.asked, ElementsAre("printer Lab"));
  EXPECT_EQ(devices.sent.pages.size(), 1U);
}

TEST_F(PrintForms, PicturesOfTheUnconfinedTestHaveItsName) {
  FakePageDevices devices;
  PrintDialogSession session(kUnconfinedForm, kUnconfinedTable, workspace, dialogs, {});
  session.setTicked(PrintTick::Picture, true);
  session.send(devices, {});
  EXPECT_THAT(devices.asked, ElementsAre("pictures " + (folder.path() / "PTU" / "P1").string() + " WCX"));
}

TEST_F(PrintForms, TheConsolidationTableLeavesThePrinterAsItIs) {
  PrintDialogSession session = open(kConsolidationForm);
  session.setTicked(PrintTick::DotMatrix, true);
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(session.job().lineWeight, 4);
  EXPECT_EQ(byteAt(198), 0);
  workspace.settings.toggles.dotMatrixPrinter = true;
  session.setTicked(PrintTick::DotMatrix, false);
  EXPECT_EQ(session.job().lineWeight, 2);
  for (const PrintForm* const form : {&kTriaxialTableForm, &kUnconfinedForm, &kK0Form, &kTK0Form}) {
    PrintDialogSession other = open(*form);
    other.setTicked(PrintTick::DotMatrix, true);
    ASSERT_TRUE(other.accept());
    EXPECT_EQ(other.job().lineWeight, 2) << form->title;
    EXPECT_EQ(byteAt(198), 1) << form->title;
    setByte(198, 0);
  }
}

TEST_F(PrintForms, ATableStoresNothingOfTheCircles) {
  setByte(1800, 1);
  setByte(1801, 7);
  PrintDialogSession session = open(kTriaxialTableForm);
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(byteAt(1800), 1);
  EXPECT_EQ(byteAt(1801), 7);
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

}  // namespace
}  // namespace triaxlab::testing
