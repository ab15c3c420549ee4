// The window of the print dialogs and its preview, over pages that are noted instead of printed.

#include "windows/dialogs/print_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <cmath>
#include <functional>
#include <tuple>
#include <utility>

#include "k0/samples.h"
#include "lone_application.h"
#include "platform/qt/qt_page_devices.h"
#include "reports/page_fixture.h"
#include "shell/printing.h"
#include "support/fake_dialogs.h"
#include "window_geometry.h"
#include "windows/dialogs/print_page_view.h"
#include "windows/dialogs/print_preview_window.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A printer at which something happens when it has got a page.
class WatchedPrinter : public PageDevices {
 public:
  std::function<void(std::size_t pages)> onPage = [](std::size_t) {};
  RecordingDevice sent;

  Printers printers() const override { return {.names = {"Office", "Lab"}, .usual = "Lab"}; }
  std::unique_ptr<PageDevice> printer(PrinterJob /*job*/, Dialogs& /*dialogs*/) override {
    return std::make_unique<Device>(*this);
  }
  std::unique_ptr<PageDevice> pdf(const std::filesystem::path& /*file*/, const DocumentInfo& /*information*/) override {
    return std::make_unique<Device>(*this);
  }
  std::unique_ptr<PageDevice> pictures(const std::filesystem::path& /*folder*/, std::string_view /*prefix*/) override {
    return nullptr;
  }

 private:
  struct Device : PageDevice {
    explicit Device(WatchedPrinter& owner) : printer(owner) {}
    DrawingSurface& beginPage(PageSize size) override { return printer.sent.beginPage(size); }
    void endPage() override {
      printer.sent.endPage();
      printer.onPage(printer.sent.pages.size());
    }
    void finish() override { printer.sent.finish(); }
    void stop() override { printer.sent.stop(); }
    WatchedPrinter& printer;
  };
};

struct PrintWindowTest : PageTest {
  FakeDialogs dialogs;
  WatchedPrinter printer;

  PrintWindowTest() {
    makeApplication();
    // A page of two curves for each.
    for (std::size_t row = 0; row < 6; ++row) sample(row, kCU, "A-" + std::to_string(row));
  }
  PrintDialogSession open() { return {kThreeInOneForm, kThreeInOne, workspace, dialogs, {}}; }

  static void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &event);
  }
  static void turnWheel(QWidget* widget, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWheelEvent event({}, {}, {}, {0, 120 * notches}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
  }
  /// Shows the dialog and presses 确 定; returns when it has closed.
  static void print(PrintWindow& window) {
    QTimer::singleShot(0, &window, [&window] { window.findChild<QPushButton*>("Command1")->click(); });
    window.exec();
  }
};

TEST_F(PrintWindowTest, EscStopsAJobBetweenTwoPages) {
  PrintDialogSession session = open();
  PrintWindow window(nullptr, session, printer);
  printer.onPage = [&](std::size_t pages) {
    if (pages == 3) QApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
  };
  print(window);
  EXPECT_THAT(printer.sent.pages, SizeIs(3));
  EXPECT_EQ(printer.sent.finished, 0);
  EXPECT_EQ(printer.sent.stopped, 1);
  EXPECT_THAT(session.remarks(), ElementsAre("打印已停止，送出了 3 张，共 6 张。"));
}

TEST_F(PrintWindowTest, WhileAJobIsSentTheWindowSaysSoAndNothingCanBeChanged) {
  PrintDialogSession session = open();
  PrintWindow window(nullptr, session, printer);
  const auto* const sending = window.findChild<QLabel*>("Label1");
  const auto* const progress = window.findChild<QProgressBar*>("ProgressBar1");
  EXPECT_TRUE(sending->isHidden());
  std::vector<int> shown;
  printer.onPage = [&](std::size_t) {
    EXPECT_TRUE(sending->isVisible());
    EXPECT_EQ(sending->text(), "正在将数据送往打印机，请稍候...");
    for (const char* const control : {"Check1", "Option1", "Text1", "Command1", "Command3"})
      EXPECT_FALSE(window.findChild<QWidget*>(control)->isEnabled()) << control;
    if (progress->isVisible()) shown.push_back(progress->value());
  };
  print(window);
  EXPECT_THAT(printer.sent.pages, SizeIs(6));
  EXPECT_EQ(printer.sent.finished, 1);
  EXPECT_THAT(shown, ElementsAre(1, 2, 3, 4, 5));
  EXPECT_THAT(session.remarks(), ElementsAre("6 张已送到打印机“Lab”。"));
}

TEST_F(PrintWindowTest, OffersThePrintersThereAreAndAPdfFile) {
  PrintDialogSession session = open();
  PrintWindow window(nullptr, session, printer);
  auto* const list = window.findChild<QComboBox*>("Combo3");
  std::vector<QString> offered;
  for (int entry = 0; entry < list->count(); ++entry) offered.push_back(list->itemText(entry));
  EXPECT_THAT(offered, ElementsAre("Office", "Lab", "PDF文件"));
  EXPECT_EQ(list->currentText(), "Lab") << "the usual one";
  list->setCurrentIndex(0);
  emit list->activated(0);
  EXPECT_EQ(list->toolTip(), "Office") << "for names that are longer than the list";
  print(window);
  EXPECT_THAT(session.remarks(), ElementsAre("6 张已送到打印机“Office”。"));
}

TEST_F(PrintWindowTest, PicturesNeedNoPrinter) {
  PrintDialogSession session = open();
  PrintWindow window(nullptr, session, printer);
  window.findChild<QAbstractButton*>("Check11")->click();
  EXPECT_FALSE(window.findChild<QComboBox*>("Combo3")->isEnabled());
}

TEST_F(PrintWindowTest, TheUpperArrowGivesMoreCopies) {
  PrintDialogSession session(kTriaxialTableForm, kThreeInOne, workspace, dialogs, {});
  PrintWindow window(nullptr, session, printer);
  auto* const bar = window.findChild<QScrollBar*>("VScroll1");
  window.show();
  const QPointF upper(bar->width() / 2.0, 4);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, upper, bar->mapToGlobal(upper), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bar, &event);
  }
  EXPECT_EQ(session.state().texts[PrintBox::Copies], "2");
}

// ---- Files, as they are on the disk

struct PrintedFilesTest : PrintWindowTest {
  QtPageDevices files;
  PrintDialogSession session = open();

  PrintedFilesTest() {
    session.choosePrinter("");
    dialogs.file = folder / "pages.pdf";
    folder.write("pages.pdf", "the old one");
  }
  std::size_t filesIn(const char* name) const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder / name), {}));
  }
};

TEST_F(PrintedFilesTest, OfAJobThatIsStoppedNothingIsLeft) {
  folder.write("PTU/P1/SZ1.BMP", "the old one");
  for (const bool pictures : {false, true}) {
    session.setTicked(PrintTick::Picture, pictures);
    session.send(files, [](int sheet, int) { return sheet < 2; });
  }
  EXPECT_EQ(folder.read("pages.pdf"), "the old one");
  EXPECT_EQ(folder.read("PTU/P1/SZ1.BMP"), "the old one");
  EXPECT_EQ(filesIn("PTU/P1"), 1U);
  EXPECT_THAT(session.remarks(), ElementsAre("打印已停止，没有写出文件。", "打印已停止，没有写出文件。"));
}

TEST_F(PrintedFilesTest, AJobThatEndsReplacesTheOldOnes) {
  folder.write("PTU/P1/SZ1.BMP", "the old one");
  for (const bool pictures : {false, true}) {
    session.setTicked(PrintTick::Picture, pictures);
    session.send(files);
  }
  EXPECT_TRUE(folder.read("pages.pdf").starts_with("%PDF"));
  EXPECT_TRUE(folder.read("PTU/P1/SZ1.BMP").starts_with("BM"));
  EXPECT_EQ(filesIn("PTU/P1"), 6U);
}

TEST_F(PrintedFilesTest, APictureFolderThatCantBeMadeIsNamed) {
  folder.write("PTU", "a file in the folder's place");
  session.setTicked(PrintTick::Picture, true);
  session.send(files);
  EXPECT_THAT(dialogs.take(), ElementsAre(::testing::HasSubstr((folder / "PTU/P1").string())));
  EXPECT_THAT(session.remarks(), IsEmpty());
}

// ---- The preview

struct PrintPreviewTest : PrintWindowTest {
  PrintDialogSession session = open();
  std::unique_ptr<PreviewedJob> job = session.preview();
  std::vector<int> saved;
  PrintPreview preview{nullptr, *job, [this](int sheet) { saved.push_back(sheet); }};
  PrintPageView* page = preview.findChild<PrintPageView*>("Picture1");
};

TEST_F(PrintPreviewTest, ShowsAllOfItself) {
  preview.show();
  EXPECT_THAT(WindowGeometry::faultsOf(preview), IsEmpty());
}

TEST_F(PrintPreviewTest, KeysTurnThePages) {
  const auto at = [&](int key) {
    press(page, key);
    return page->sheet();
  };
  EXPECT_EQ(page->sheet(), 1);
  EXPECT_EQ(at(Qt::Key_PageUp), 1);
  EXPECT_EQ(at(Qt::Key_PageDown), 2);
  EXPECT_EQ(at(Qt::Key_End), 6);
  EXPECT_EQ(at(Qt::Key_PageDown), 6);
  EXPECT_EQ(at(Qt::Key_PageUp), 5);
  EXPECT_EQ(at(Qt::Key_Home), 1);
  preview.findChild<QPushButton*>("Command2")->click();
  EXPECT_EQ(page->sheet(), 2);
  EXPECT_EQ(preview.findChild<QLabel*>("Label1")->text(), "第 2 页，共 6 页");
  preview.findChild<QPushButton*>("Command5")->click();
  EXPECT_THAT(saved, ElementsAre(2));
}

TEST_F(PrintPreviewTest, ThePageIsMagnifiedAndFitsTheWindowAgain) {
  preview.show();
  const double whole = page->zoom();
  EXPECT_LE(page->height(), preview.height());
  press(page, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(page->zoom(), 1.25 * whole);
  turnWheel(page, 1, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(page->zoom(), 1.5625 * whole);
  press(page, Qt::Key_Minus, Qt::ControlModifier);
  turnWheel(page, -1, Qt::ControlModifier);
  EXPECT_NEAR(page->zoom(), whole, 1e-9);
  press(page, Qt::Key_Plus, Qt::ControlModifier);
  press(page, Qt::Key_0, Qt::ControlModifier);
  EXPECT_DOUBLE_EQ(page->zoom(), whole);
  turnWheel(page, -1);  // there is nothing to scroll
  EXPECT_EQ(page->sheet(), 2);
}

TEST_F(PrintPreviewTest, APageGoesToTheClipboardAsFineAsABitmap) {
  press(page, Qt::Key_C, Qt::ControlModifier);
  // 11906 / 1440 inches of 200 pixels are 1653.6, 16838 / 1440 are 2338.6.
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(1654, 2339));
}

// ---- What is seen is what is printed

/// Six samples of every kind of test, so that each layout has several sheets.
struct EveryLayoutTest : PrintWindowTest {
  EveryLayoutTest() {
    dialogs.file = folder / "sheet.pdf";
    for (std::size_t row = 0; row < 6; ++row) {
      TriaxialSampleRecord& triaxial = workspace.TriaxialSampleTable[row];
      triaxial.consolidationPorePressure[0][0] = triaxial.consolidationPorePressure[1][0] = 200;
      triaxial.consolidationTime[1][0] = 60;
      fill(workspace.K0SampleTable[row], row);
      TK0SampleRecord& staged = workspace.TK0SampleTable[row] = withRows(lineAndBend());
      fill(staged.k0, row);
      staged.stageCount = 2;
      UnconfinedSampleRecord& unconfined = workspace.UnconfinedSampleTable[row];
      name(unconfined, row);
      SetText(unconfined.sampleHeight[0], "8.00");
      SetText(unconfined.sampleArea[0], "30.00");
      unconfined.ringCoefficient[0] = 1250;
      SetText(unconfined.undisturbedStrain[0], "1.0");
      SetText(unconfined.undisturbedReading[0], "80.0");
    }
  }

  static void name(auto& record, std::size_t row) {
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, "B-" + std::to_string(row));
  }
  static void fill(K0SampleRecord& record, std::size_t row) {
    name(record, row);
    for (const auto& [step, axial, lateral] : {std::tuple(0, "40.0", "15.0"), std::tuple(1, "100.0", "39.0")}) {
      SetText(record.axialPressure[static_cast<std::size_t>(step)], axial);
      SetText(record.lateralPressure[static_cast<std::size_t>(step)], lateral);
    }
  }
  static int pixelsOfBitmap(int twips) { return static_cast<int>(std::lround(twips * 200 / 1440.0)); }
};

TEST_F(EveryLayoutTest, IsPreviewedCopiedAndSavedAsItIsPrinted) {
  for (const PrintEntry& entry : printEntries()) {
    SCOPED_TRACE(entry.layout);
    PrintDialogSession session(*entry.form, *entry.pages(), workspace, dialogs, {});
    printer.sent = {};
    session.send(printer);
    const std::vector<RecordingDevice::Page> printed = std::exchange(printer.sent.pages, {});
    ASSERT_GT(printed.size(), 1U);
    const auto previewed = session.preview();
    PrintPreview preview(nullptr, *previewed, [&](int sheet) { session.saveSheet(*previewed, sheet, printer); });
    auto* const page = preview.findChild<PrintPageView*>("Picture1");
    for (const RecordingDevice::Page& paper : printed) {
      RecordingSurface seen;
      page->drawOn(seen);
      EXPECT_EQ(seen.operations(), paper.drawing) << page->sheet();
      EXPECT_EQ((PageSize{page->widthTwips(), page->heightTwips()}), paper.size);
      press(page, Qt::Key_C, Qt::ControlModifier);
      EXPECT_EQ(QGuiApplication::clipboard()->image().size(),
                QSize(pixelsOfBitmap(paper.size.width), pixelsOfBitmap(paper.size.height)));
      preview.findChild<QPushButton*>("Command5")->click();
      EXPECT_EQ(printer.sent.pages.back().drawing, paper.drawing);
      press(page, Qt::Key_PageDown);
    }
    EXPECT_THAT(printer.sent.pages, SizeIs(printed.size()));
  }
}

}  // namespace
}  // namespace triaxlab::testing
