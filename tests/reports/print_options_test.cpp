#include "reports/print_options.h"

#include "common/user_error.h"
#include "reports/page_fixture.h"
#include "store/settings/settings_file.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Remembers the messages; nothing else is asked here.
struct Messages : Dialogs {
  struct Message {
    std::string title, text;
    MessageIcon icon;
  };
  void message(std::string_view title, std::string_view text, MessageIcon icon) override {
    shown.push_back({std::string(title), std::string(text), icon});
  }
  bool ask(std::string_view, std::string_view, MessageIcon) override { return unexpected<bool>(); }
  std::optional<std::filesystem::path> chooseFile(const FileQuestion&) override {
    return unexpected<std::optional<std::filesystem::path>>();
  }
  std::optional<std::filesystem::path> chooseFileToSave(const FileQuestion&) override {
    return unexpected<std::optional<std::filesystem::path>>();
  }
  std::optional<std::string> input(std::string_view, std::string_view, std::string_view) override {
    return unexpected<std::optional<std::string>>();
  }
  template <class Answer>
  static Answer unexpected() {
    ADD_FAILURE() << "an unexpected dialog";
    return {};
  }

  std::vector<Message> shown;
};

struct PrintOptionsTest : PageTest {
  Messages dialogs;

  PrintOptionsTest() {
    for (std::size_t row = 0; row < 4; ++row) sample(row, kCU, "A-" + std::to_string(row));
  }
  PrintOptions open() { return PrintOptions(workspace, 2, FailureMode::PeakRatio); }
  int byteAt(std::uint32_t position) const { return sharedSettings(workspace).readByte(position); }
  void setByte(std::uint32_t position, std::uint8_t value) { sharedSettings(workspace).writeByte(position, value); }
  static void untickCurves(PrintOptions& options) {
    for (int check = 2; check <= 7; ++check) options.setTicked(static_cast<PrintCheck>(check), false);
  }
};

TEST_F(PrintOptionsTest, FirstValues) {
  const PrintOptionsState state = open().state();
  // Check2 and Check4, page numbers, and both kinds of circles, whose bytes are 0 in a new file.
  EXPECT_THAT(state.checks, ElementsAre(false, true, false, true, false, false, false, true, true, true, false, false));
  EXPECT_EQ(state.scope, PrintScope::All);
  EXPECT_THAT(state.texts, ElementsAre("1", "4", "1"));
}

TEST_F(PrintOptionsTest, PrinterAndCirclesAreThoseOfTheLastTime) {
  setByte(198, 1);
  setByte(1800, 1);
  EXPECT_TRUE(open().state().ticked(PrintCheck::DotMatrix));
  EXPECT_FALSE(open().state().ticked(PrintCheck::EffectiveCircles));
  EXPECT_TRUE(open().state().ticked(PrintCheck::TotalCircles));
  setByte(1801, 1);
  EXPECT_FALSE(open().state().ticked(PrintCheck::TotalCircles));
}

TEST_F(PrintOptionsTest, AcceptedChoicesAreStoredTheCirclesInverted) {
  PrintOptions options = open();
  options.setTicked(PrintCheck::DotMatrix, true);
  options.setTicked(PrintCheck::EffectiveCircles, false);
  ASSERT_TRUE(options.accept(dialogs));
  EXPECT_EQ(byteAt(198), 1);
  EXPECT_EQ(byteAt(1800), 1);
  EXPECT_EQ(byteAt(1801), 0);
  EXPECT_TRUE(workspace.settings.toggles.dotMatrixPrinter);
  EXPECT_FALSE(workspace.settings.toggles.printEffectiveCircles);
  PrintOptions again = open();
  again.setTicked(PrintCheck::DotMatrix, false);
  again.setTicked(PrintCheck::EffectiveCircles, true);
  again.setTicked(PrintCheck::TotalCircles, false);
  ASSERT_TRUE(again.accept(dialogs));
  EXPECT_EQ(byteAt(198), 0);
  EXPECT_EQ(byteAt(1800), 0);
  EXPECT_EQ(byteAt(1801), 1);
}

TEST_F(PrintOptionsTest, LeavingWithoutAcceptingStoresNothing) {
  PrintOptions options = open();
  options.setTicked(PrintCheck::DotMatrix, true);
  options.job();
  EXPECT_EQ(byteAt(198), 0);
  EXPECT_FALSE(workspace.settings.toggles.dotMatrixPrinter);
}

TEST_F(PrintOptionsTest, TheJobOfTheFirstValues) {
  const auto accepted = open().accept(dialogs);
  ASSERT_TRUE(accepted);
  EXPECT_EQ(accepted->scope, PrintScope::All);
  EXPECT_EQ(accepted->lineWeight, 4);
  EXPECT_THAT(accepted->curves, ElementsAre(CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope));
  EXPECT_EQ(accepted->selectedCurveCount(), 2);
  EXPECT_EQ(accepted->currentRow, 2U);
  EXPECT_EQ(accepted->copies, 1);
  EXPECT_EQ(accepted->firstPageNumber, 1);
  EXPECT_TRUE(accepted->printPageNumbers && accepted->totalCircles && accepted->effectiveCircles);
  EXPECT_FALSE(accepted->printToPicture || accepted->printToA3 || accepted->printDataSheet);
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(PrintOptionsTest, EveryBoxReachesTheJob) {
  PrintOptions options = open();
  untickCurves(options);
  for (const PrintCheck check :
       {PrintCheck::DotMatrix, PrintCheck::StressRatioEnvelope, PrintCheck::StressPath, PrintCheck::PorePressure,
        PrintCheck::StressRatio, PrintCheck::Picture, PrintCheck::A3})
    options.setTicked(check, true);
  options.setTicked(PrintCheck::PageNumbers, false);
  options.setTicked(PrintCheck::TotalCircles, false);
  const auto accepted = options.accept(dialogs);
  ASSERT_TRUE(accepted);
  EXPECT_EQ(accepted->lineWeight, 2);
  EXPECT_THAT(accepted->curves, ElementsAre(CurvePage::StressRatioEnvelope, CurvePage::StressPath,
                                            CurvePage::PorePressure, CurvePage::StressRatio));
  EXPECT_TRUE(accepted->printToPicture && accepted->printToA3 && accepted->effectiveCircles);
  EXPECT_FALSE(accepted->printPageNumbers || accepted->totalCircles);
}

TEST_F(PrintOptionsTest, WithoutACurveThereIsAMessageAndTheDialogStays) {
  PrintOptions options = open();
  untickCurves(options);
  EXPECT_FALSE(options.accept(dialogs));
  ASSERT_THAT(dialogs.shown, SizeIs(1));
  EXPECT_EQ(dialogs.shown[0].title, "打印三轴试验成果曲线");
  EXPECT_EQ(dialogs.shown[0].text, "请选择要打印的曲线类型！");
  EXPECT_EQ(dialogs.shown[0].icon, MessageIcon::Stop);
}

TEST_F(PrintOptionsTest, WithoutCirclesEnvelopesAreUntickedInSilence) {
  PrintOptions options = open();
  options.setTicked(PrintCheck::StressRatioEnvelope, true);
  options.setTicked(PrintCheck::EffectiveCircles, false);
  options.setTicked(PrintCheck::TotalCircles, false);
  EXPECT_THAT(options.job().curves, ElementsAre(CurvePage::StressStrain));
  EXPECT_TRUE(options.state().ticked(PrintCheck::StressRatioEnvelope));  // a preview changes nothing
  const auto accepted = options.accept(dialogs);
  ASSERT_TRUE(accepted);
  EXPECT_THAT(accepted->curves, ElementsAre(CurvePage::StressStrain));
  EXPECT_FALSE(options.state().ticked(PrintCheck::StressRatioEnvelope));
  EXPECT_FALSE(options.state().ticked(PrintCheck::StressDifferenceEnvelope));
  EXPECT_THAT(dialogs.shown, IsEmpty());

  // Nothing else was ticked: that leaves no curve.
  options.setTicked(PrintCheck::StressStrain, false);
  options.setTicked(PrintCheck::StressDifferenceEnvelope, true);
  EXPECT_FALSE(options.accept(dialogs));
  EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(PrintOptionsTest, ARangeFallsToTheCountAndLosesItsSign) {
  PrintOptions options = open();
  options.choose(PrintScope::Range);
  options.setText(PrintBox::From, "-2");
  options.setText(PrintBox::To, "99999999");
  auto accepted = options.accept(dialogs);
  ASSERT_TRUE(accepted);
  EXPECT_EQ(accepted->scope, PrintScope::Range);
  EXPECT_EQ(accepted->printRangeFrom, 2);
  EXPECT_EQ(accepted->printRangeTo, 4);
  options.setText(PrintBox::From, "1E999");
  options.setText(PrintBox::To, "");
  accepted = options.accept(dialogs);
  EXPECT_EQ(accepted->printRangeFrom, 4);
  EXPECT_EQ(accepted->printRangeTo, 0);  // counts as 1 when the job runs
}

TEST_F(PrintOptionsTest, ARangeOfPagesMayBeLargerThanTheNumberOfSamples) {
  PrintOptions options = open();
  options.choose(PrintScope::Pages);
  options.setText(PrintBox::To, "12");
  EXPECT_EQ(options.job().printRangeTo, 12);
}

TEST_F(PrintOptionsTest, TypingARangeChoosesIt) {
  PrintOptions options = open();
  options.enterBox(PrintBox::FirstPage);
  EXPECT_EQ(options.state().scope, PrintScope::All);
  options.enterBox(PrintBox::To);
  EXPECT_EQ(options.state().scope, PrintScope::Range);
  options.choose(PrintScope::Pages);  // its numbers are typed in the same boxes
  options.enterBox(PrintBox::From);
  EXPECT_EQ(options.state().scope, PrintScope::Pages);
  options.choose(PrintScope::Current);
  options.enterBox(PrintBox::From);
  EXPECT_EQ(options.state().scope, PrintScope::Range);
}

TEST_F(PrintOptionsTest, ChoosingARangeBringsTheFocusToItsFirstBox) {
  PrintOptions options = open();
  EXPECT_TRUE(options.choose(PrintScope::Range));
  EXPECT_TRUE(options.choose(PrintScope::Pages));
  EXPECT_FALSE(options.choose(PrintScope::All));
  EXPECT_FALSE(options.choose(PrintScope::Current));
}

TEST_F(PrintOptionsTest, FirstPageNumber) {
  PrintOptions options = open();
  options.setText(PrintBox::FirstPage, "12");
  EXPECT_EQ(options.job().firstPageNumber, 12);
  options.setText(PrintBox::FirstPage, "0");
  EXPECT_EQ(options.job().firstPageNumber, 1);
  options.setText(PrintBox::FirstPage, "31");
  options.setText(PrintBox::FirstPage, "310000");  // beyond 16 bits: the number before stands
  EXPECT_EQ(options.job().firstPageNumber, 31);
}

TEST_F(PrintOptionsTest, SettingsThatCantBeStoredAreToldAndThePrintGoesOn) {
  // A folder in the file's place can't be written, whoever asks.
  std::filesystem::create_directory(folder.path() / "qvb.sys");
  PrintOptions options = open();
  options.setTicked(PrintCheck::DotMatrix, true);
  const auto accepted = options.accept(dialogs);
  ASSERT_TRUE(accepted);
  EXPECT_EQ(accepted->lineWeight, 2);
  EXPECT_TRUE(workspace.settings.toggles.dotMatrixPrinter);
  ASSERT_THAT(dialogs.shown, SizeIs(1));
  EXPECT_NE(dialogs.shown[0].text.find("qvb.sys"), std::string::npos) << dialogs.shown[0].text;
}

TEST(DefaultPrintJob, FollowsTheStoredChoices) {
  Settings settings;
  PrintJob job = defaultPrintJob(settings);
  EXPECT_EQ(job.lineWeight, 4);
  EXPECT_TRUE(job.totalCircles && job.effectiveCircles);
  EXPECT_THAT(job.curves, ElementsAre(CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope));
  settings.toggles.dotMatrixPrinter = true;
  settings.toggles.printTotalCircles = false;
  job = defaultPrintJob(settings);
  EXPECT_EQ(job.lineWeight, 2);
  EXPECT_FALSE(job.totalCircles);
}

}  // namespace
}  // namespace triaxlab::testing
