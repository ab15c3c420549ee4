#include "sessions/dialogs/print_dialog_session.h"

#include "reports/page_fixture.h"
#include "store/settings/settings_file.h"
#include "support/fake_dialogs.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct ThreeInOnePrint : PageTest {
  FakeDialogs dialogs;
  FakePageDevices devices;

  ThreeInOnePrint() {
    for (std::size_t row = 0; row < 4; ++row) sample(row, kCU, "A-" + std::to_string(row));
  }
  PrintDialogSession open() {
    return {kThreeInOneForm, kThreeInOne, workspace, dialogs, {.row = 2, .checkedMode = FailureMode::PeakRatio}};
  }
  int byteAt(std::uint32_t position) const { return sharedSettings(workspace).readByte(position); }
  void setByte(std::uint32_t position, std::uint8_t value) { sharedSettings(workspace).writeByte(position, value); }
  static void untickCurves(PrintDialogSession& session) {
    for (int curve = 0; curve < 6; ++curve) session.setTicked(static_cast<PrintTick>(curve), false);
  }
};

TEST_F(ThreeInOnePrint, FirstValues) {
  const PrintDialogState state = open().state();
  // The first and the third curve, page numbers, and both kinds of circles, whose bytes are 0 in a new file.
  EXPECT_THAT(state.ticks.values,
              ElementsAre(true, false, true, false, false, false, false, true, true, true, false, false, false));
  EXPECT_TRUE(state.canPreview);
  EXPECT_EQ(state.scope, PrintScope::All);
  EXPECT_EQ(state.texts[PrintBox::From], "1");
  EXPECT_EQ(state.texts[PrintBox::To], "4");
  EXPECT_EQ(state.texts[PrintBox::FirstPage], "1");
}

TEST_F(ThreeInOnePrint, PrinterAndCirclesAreThoseOfTheLastTime) {
  setByte(198, 1);
  setByte(1800, 1);
  EXPECT_TRUE(open().state().ticks[PrintTick::DotMatrix]);
  EXPECT_FALSE(open().state().ticks[PrintTick::EffectiveCircles]);
  EXPECT_TRUE(open().state().ticks[PrintTick::TotalCircles]);
  setByte(1801, 1);
  EXPECT_FALSE(open().state().ticks[PrintTick::TotalCircles]);
}

TEST_F(ThreeInOnePrint, AcceptedChoicesAreStoredTheCirclesInverted) {
  PrintDialogSession session = open();
  session.setTicked(PrintTick::DotMatrix, true);
  session.setTicked(PrintTick::EffectiveCircles, false);
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(byteAt(198), 1);
  EXPECT_EQ(byteAt(1800), 1);
  EXPECT_EQ(byteAt(1801), 0);
  EXPECT_TRUE(workspace.settings.toggles.dotMatrixPrinter);
  EXPECT_FALSE(workspace.settings.toggles.printEffectiveCircles);
  PrintDialogSession again = open();
  again.setTicked(PrintTick::DotMatrix, false);
  again.setTicked(PrintTick::EffectiveCircles, true);
  again.setTicked(PrintTick::TotalCircles, false);
  ASSERT_TRUE(again.accept());
  EXPECT_EQ(byteAt(198), 0);
  EXPECT_EQ(byteAt(1800), 0);
  EXPECT_EQ(byteAt(1801), 1);
}

TEST_F(ThreeInOnePrint, LeavingWithoutAcceptingStoresNothing) {
  PrintDialogSession session = open();
  session.setTicked(PrintTick::DotMatrix, true);
  session.job();
  EXPECT_EQ(byteAt(198), 0);
  EXPECT_FALSE(workspace.settings.toggles.dotMatrixPrinter);
}

TEST_F(ThreeInOnePrint, TheJobOfTheFirstValues) {
  PrintDialogSession session = open();
  ASSERT_TRUE(session.accept());
  job = session.job();
  EXPECT_EQ(job.scope, PrintScope::All);
  EXPECT_EQ(job.lineWeight, 4);
  EXPECT_THAT(job.curves.pages, ElementsAre(CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope));
  EXPECT_EQ(job.currentRow, 2U);
  EXPECT_EQ(job.curves.checkedMode, FailureMode::PeakRatio);
  EXPECT_EQ(job.copies, 1);
  EXPECT_EQ(job.firstPageNumber, 1);
  EXPECT_TRUE(job.printPageNumbers && job.curves.totalCircles && job.curves.effectiveCircles);
  EXPECT_FALSE(job.printToPicture || job.printToA3);
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ThreeInOnePrint, EveryBoxReachesTheJob) {
  PrintDialogSession session = open();
  untickCurves(session);
  for (const PrintTick check : {PrintTick::DotMatrix, PrintTick::StressRatioEnvelope, PrintTick::StressPath,
                                PrintTick::PorePressure, PrintTick::StressRatio, PrintTick::Picture, PrintTick::A3})
    session.setTicked(check, true);
  session.setTicked(PrintTick::PageNumbers, false);
  session.setTicked(PrintTick::TotalCircles, false);
  ASSERT_TRUE(session.accept());
  job = session.job();
  EXPECT_EQ(job.lineWeight, 2);
  EXPECT_THAT(job.curves.pages, ElementsAre(CurvePage::StressRatioEnvelope, CurvePage::StressPath,
                                            CurvePage::PorePressure, CurvePage::StressRatio));
  EXPECT_TRUE(job.printToPicture && job.printToA3 && job.curves.effectiveCircles);
  EXPECT_FALSE(job.printPageNumbers || job.curves.totalCircles);
}

TEST_F(ThreeInOnePrint, WithoutACurveThereIsAMessageAndTheDialogStays) {
  PrintDialogSession session = open();
  untickCurves(session);
  EXPECT_FALSE(session.accept());
  EXPECT_THAT(dialogs.shown, ElementsAre("stop [打印三轴试验成果曲线] 请选择要打印的曲线类型！"));
  EXPECT_FALSE(session.state().canPreview);
}

TEST_F(ThreeInOnePrint, WithoutCirclesEnvelopesAreUntickedInSilence) {
  PrintDialogSession session = open();
  session.setTicked(PrintTick::StressRatioEnvelope, true);
  session.setTicked(PrintTick::EffectiveCircles, false);
  session.setTicked(PrintTick::TotalCircles, false);
  EXPECT_THAT(session.job().curves.pages, ElementsAre(CurvePage::StressStrain));
  EXPECT_TRUE(session.state().ticks[PrintTick::StressRatioEnvelope]);  // a preview changes nothing
  ASSERT_TRUE(session.accept());
  EXPECT_THAT(session.job().curves.pages, ElementsAre(CurvePage::StressStrain));
  EXPECT_FALSE(session.state().ticks[PrintTick::StressRatioEnvelope]);
  EXPECT_FALSE(session.state().ticks[PrintTick::StressDifferenceEnvelope]);
  EXPECT_THAT(dialogs.shown, IsEmpty());

  // Nothing else was ticked: that leaves no curve.
  session.setTicked(PrintTick::StressStrain, false);
  session.setTicked(PrintTick::StressDifferenceEnvelope, true);
  EXPECT_FALSE(session.accept());
  EXPECT_THAT(dialogs.shown, SizeIs(1));
}

TEST_F(ThreeInOnePrint, ARangeFallsToTheCountAndLosesItsSign) {
  PrintDialogSession session = open();
  session.choose(PrintScope::Range);
  session.setText(PrintBox::From, "-2");
  session.setText(PrintBox::To, "99999999");
  EXPECT_EQ(session.job().scope, PrintScope::Range);
  EXPECT_EQ(session.job().printRangeFrom, 2);
  EXPECT_EQ(session.job().printRangeTo, 4);
  session.setText(PrintBox::From, "1E999");
  session.setText(PrintBox::To, "");
  EXPECT_EQ(session.job().printRangeFrom, 4);
  EXPECT_EQ(session.job().printRangeTo, 0);  // counts as 1 when the job runs
}

TEST_F(ThreeInOnePrint, ARangeOfPagesMayBeLargerThanTheNumberOfSamples) {
  PrintDialogSession session = open();
  session.choose(PrintScope::Pages);
  session.setText(PrintBox::To, "12");
  EXPECT_EQ(session.job().printRangeTo, 12);
}

TEST_F(ThreeInOnePrint, TypingARangeChoosesIt) {
  PrintDialogSession session = open();
  session.enterBox(PrintBox::FirstPage);
  EXPECT_EQ(session.state().scope, PrintScope::All);
  session.enterBox(PrintBox::To);
  EXPECT_EQ(session.state().scope, PrintScope::Range);
  session.choose(PrintScope::Pages);  // its numbers are typed in the same boxes
  session.enterBox(PrintBox::From);
  EXPECT_EQ(session.state().scope, PrintScope::Pages);
  session.choose(PrintScope::Current);
  session.enterBox(PrintBox::From);
  EXPECT_EQ(session.state().scope, PrintScope::Range);
}

TEST_F(ThreeInOnePrint, ChoosingARangeBringsTheFocusToItsFirstBox) {
  PrintDialogSession session = open();
  EXPECT_EQ(session.choose(PrintScope::Range), PrintBox::From);
  EXPECT_EQ(session.choose(PrintScope::Pages), PrintBox::From);
  EXPECT_FALSE(session.choose(PrintScope::All));
  EXPECT_FALSE(session.choose(PrintScope::Current));
}

TEST_F(ThreeInOnePrint, FirstPageNumber) {
  PrintDialogSession session = open();
  session.setText(PrintBox::FirstPage, "12");
  EXPECT_EQ(session.job().firstPageNumber, 12);
  session.setText(PrintBox::FirstPage, "0");
  EXPECT_EQ(session.job().firstPageNumber, 1);
  session.setText(PrintBox::FirstPage, "31");
  session.setText(PrintBox::FirstPage, "310000");  // beyond 16 bits: the number before stands
  EXPECT_EQ(session.job().firstPageNumber, 31);
}

TEST_F(ThreeInOnePrint, SettingsThatCantBeStoredAreToldAndThePrintGoesOn) {
  // A folder in the file's place can't be written, whoever asks.
  std::filesystem::create_directory(folder.path() / "qvb.sys");
  PrintDialogSession session = open();
  session.setTicked(PrintTick::DotMatrix, true);
  ASSERT_TRUE(session.accept());
  EXPECT_EQ(session.job().lineWeight, 2);
  EXPECT_TRUE(workspace.settings.toggles.dotMatrixPrinter);
  EXPECT_THAT(dialogs.shown, ElementsAre(HasSubstr("qvb.sys")));
}

// ---- Where the pages go

TEST_F(ThreeInOnePrint, ThePreviewShowsThePagesThatAreSentOperationByOperation) {
  devices.printerIsThere = true;
  PrintDialogSession session = open();
  for (const bool sideBySide : {false, true}) {
    session.setTicked(PrintTick::A3, sideBySide);
    devices.sent.pages.clear();
    session.send(devices);
    ASSERT_THAT(devices.sent.pages, SizeIs(sideBySide ? 2 : 4));  // two curves of each of the four samples
    const auto previewed = session.preview();
    ASSERT_EQ(previewed->sheets.count(), sideBySide ? 2 : 4);
    for (int sheet = 1; sheet <= previewed->sheets.count(); ++sheet) {
      RecordingSurface seen;
      previewed->sheets.draw(seen, sheet);
      const RecordingDevice::Page& printed = devices.sent.pages.at(static_cast<std::size_t>(sheet - 1));
      EXPECT_EQ(seen.operations(), printed.drawing) << sheet;
      EXPECT_EQ(previewed->sheets.size(), printed.size);
    }
  }
}

TEST_F(ThreeInOnePrint, APreviewShowsTheDialogAsItStoodThen) {
  PrintDialogSession session = open();
  const auto previewed = session.preview();
  session.choose(PrintScope::Current);
  EXPECT_EQ(previewed->sheets.count(), 4);
  EXPECT_EQ(session.preview()->sheets.count(), 1);
}

TEST_F(ThreeInOnePrint, APreviewWithoutAPageIsNoWindowButASentence) {
  PrintDialogSession session(kThreeInOneForm, kThreeInOne, workspace, dialogs, {.row = 900});
  session.choose(PrintScope::Current);
  EXPECT_EQ(session.preview(), nullptr);
  EXPECT_THAT(dialogs.take(), ElementsAre("[打印预览] 没有可打印的页。"));
}

TEST_F(ThreeInOnePrint, APageOfThePreviewGoesToAPdfFile) {
  PrintDialogSession session = open();
  const auto previewed = session.preview();
  session.saveSheet(*previewed, 3, devices);  // cancelled
  EXPECT_THAT(devices.asked, IsEmpty());
  dialogs.file = folder / "page";
  session.saveSheet(*previewed, 3, devices);
  EXPECT_THAT(devices.asked, ElementsAre("pdf " + (folder / "page.pdf").string()));
  RecordingSurface seen;
  previewed->sheets.draw(seen, 3);
  ASSERT_THAT(devices.sent.pages, SizeIs(1));
  EXPECT_EQ(devices.sent.pages[0].drawing, seen.operations());
  EXPECT_EQ(devices.sent.finished, 1);
}

TEST_F(ThreeInOnePrint, AJobIsStoppedBetweenTwoPages) {
  devices.printerIsThere = true;
  PrintDialogSession session = open();
  std::vector<std::pair<int, int>> told;
  session.send(devices, [&](int done, int sheets) {
    told.emplace_back(done, sheets);
    return done < 3;
  });
  EXPECT_THAT(told, ElementsAre(std::pair(1, 4), std::pair(2, 4), std::pair(3, 4)));
  EXPECT_THAT(devices.sent.pages, SizeIs(3));
  EXPECT_EQ(devices.sent.finished, 0) << "a file would look whole";
  EXPECT_EQ(devices.sent.stopped, 1);
  EXPECT_THAT(session.remarks(), ElementsAre("打印已停止，送出了 3 张，共 4 张。"));
}

TEST_F(ThreeInOnePrint, OfAFileThatWasStoppedNothingIsLeft) {
  dialogs.file = folder / "pages.pdf";
  PrintDialogSession session = open();
  session.send(devices, [](int, int) { return false; });
  EXPECT_EQ(devices.sent.finished, 0);
  EXPECT_THAT(session.remarks(), ElementsAre("打印已停止，没有写出文件。"));
}

TEST_F(ThreeInOnePrint, AFullTableIsPreviewedPageByPage) {
  for (std::size_t row = 4; row < 1001; ++row) sample(row, kCU, "A-" + std::to_string(row));
  PrintDialogSession session = open();
  for (int curve = 0; curve < 6; ++curve) session.setTicked(static_cast<PrintTick>(curve), true);
  const auto previewed = session.preview();
  EXPECT_EQ(previewed->sheets.count(), 3003);  // 6006 blocks
  for (const int sheet : {1, 3003}) {
    RecordingSurface seen;
    previewed->sheets.draw(seen, sheet);
    EXPECT_EQ(textsWith(seen.operations(), "土样编号:").front(), sheet == 1 ? "土样编号:A-0" : "土样编号:A-1000");
  }
}

TEST_F(ThreeInOnePrint, AStopBehindTheLastPageComesTooLate) {
  devices.printerIsThere = true;
  PrintDialogSession session = open();
  session.send(devices, [](int done, int sheets) { return done < sheets; });
  EXPECT_THAT(devices.sent.pages, SizeIs(4));
  EXPECT_EQ(devices.sent.finished, 1);
  EXPECT_THAT(session.remarks(), ElementsAre("4 张已送到打印机“Lab”。"));
}

TEST_F(ThreeInOnePrint, ThePrinterIsToldOfPaperAndCopies) {
  devices.printerIsThere = true;
  PrintDialogSession session = open();
  session.setTicked(PrintTick::A3, true);
  session.send(devices);
  EXPECT_THAT(devices.asked, ElementsAre("printer Lab"));
  EXPECT_EQ(devices.printerJob.title, "三轴试验成果曲线");
  EXPECT_EQ(devices.printerJob.size, kA3SideBySide);
  EXPECT_EQ(devices.printerJob.copies, 1);
  ASSERT_THAT(devices.sent.pages, SizeIs(2));
  EXPECT_EQ(devices.sent.pages[0].size, kA3SideBySide);
}

TEST_F(ThreeInOnePrint, OnThePaperThatThePrinterHasOnlyIfThePersonWants) {
  devices.printerIsThere = true;
  devices.printerHasPaper = false;
  dialogs.answers = {false, true};
  PrintDialogSession session = open();
  session.send(devices);
  EXPECT_THAT(devices.sent.pages, IsEmpty());
  session.send(devices);
  EXPECT_THAT(devices.sent.pages, SizeIs(4));
}

TEST_F(ThreeInOnePrint, WithoutAPrinterAPdfFileIsAskedFor) {
  PrintDialogSession session = open();
  session.send(devices);  // cancelled
  EXPECT_THAT(devices.asked, IsEmpty());
  ASSERT_THAT(dialogs.fileQuestions, SizeIs(1));
  EXPECT_EQ(dialogs.fileQuestions[0].title, "打印到PDF文件");
  dialogs.file = folder / "curves";
  session.send(devices);
  EXPECT_THAT(devices.asked, ElementsAre("pdf " + (folder / "curves.pdf").string()));
  EXPECT_THAT(devices.sent.pages, SizeIs(4));
  EXPECT_THAT(session.remarks(), ElementsAre("4 页已存为“" + (folder / "curves.pdf").string() + "”。"));
}

TEST_F(ThreeInOnePrint, AnotherPrinterOrAPdfFileCanBeChosen) {
  devices.printerIsThere = true;
  dialogs.file = folder / "curves.pdf";
  PrintDialogSession session = open();
  for (const char* const printer : {"Office", "", "Lab"}) {
    session.choosePrinter(printer);
    session.send(devices);
  }
  EXPECT_THAT(devices.asked, ElementsAre("printer Office", "pdf " + (folder / "curves.pdf").string(), "printer Lab"));
  EXPECT_THAT(session.remarks(),
              ElementsAre("4 张已送到打印机“Office”。", HasSubstr("4 页已存为"), HasSubstr("“Lab”")));
}

TEST_F(ThreeInOnePrint, APdfFileIsNamedAfterProjectAndDay) {
  workspace.fixedToday = Date{2024, 5, 6};
  sample(2, kCU, "C-1", "\xB4\xF3\xB0\xD3");  // 大坝 in GBK
  sample(3, kCU, "C-2", "a/b");
  PrintDialogSession session = open();
  session.choose(PrintScope::Range);
  for (const char* const number : {"1", "3", "4"}) {
    session.setText(PrintBox::From, number);
    session.setText(PrintBox::To, number);
    session.send(devices);
    session.saveSheet(*session.preview(), 1, devices);
  }
  std::vector<std::filesystem::path> proposed;
  for (const FileQuestion& question : dialogs.fileQuestions) proposed.push_back(question.initial);
  const std::filesystem::path first = folder / "P1_2024-05-06.pdf", second = folder / "大坝_2024-05-06.pdf",
                              third = folder / "2024-05-06.pdf";
  EXPECT_THAT(proposed, ElementsAre(first, first, second, second, third, third));
}

TEST_F(ThreeInOnePrint, PicturesGoToTheFolderOfTheFirstSamplesProject) {
  sample(1, kCU, "B-1", "P2");
  devices.printerIsThere = true;
  PrintDialogSession session = open();
  session.setTicked(PrintTick::Picture, true);
  session.choose(PrintScope::Range);
  session.setText(PrintBox::From, "2");
  session.setText(PrintBox::To, "2");
  session.send(devices);
  EXPECT_THAT(devices.asked, ElementsAre("pictures " + (folder.path() / "PTU" / "P2").string() + " SZ"));
  EXPECT_FALSE(session.state().canChoosePrinter);
  EXPECT_THAT(session.remarks(), IsEmpty());
  sample(1, kCU, "B-1", "a/b");
  session.send(devices);
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("工程编号“a/b”")));
}

TEST_F(ThreeInOnePrint, AJobWithoutAPageAsksForNothingAndSaysSo) {
  PrintDialogSession session(kThreeInOneForm, kThreeInOne, workspace, dialogs, {.row = 900});
  session.choose(PrintScope::Current);  // an empty row
  session.send(devices);
  EXPECT_THAT(devices.asked, IsEmpty());
  EXPECT_THAT(dialogs.fileQuestions, IsEmpty());
  EXPECT_THAT(session.remarks(), ElementsAre("没有可打印的页。"));
}

}  // namespace
}  // namespace triaxlab::testing
