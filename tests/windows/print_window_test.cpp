// The window of the print dialogs and its preview, over pages that are noted instead of printed.

#include "windows/dialogs/print_window.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <functional>

#include "lone_application.h"
#include "reports/page_fixture.h"
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

  bool hasPrinter() const override { return true; }
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
  EXPECT_THAT(session.remarks(), IsEmpty());
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

TEST_F(PrintPreviewTest, WhatIsSeenIsWhatIsPrinted) {
  session.send(printer);
  ASSERT_THAT(printer.sent.pages, SizeIs(6));
  for (const RecordingDevice::Page& printed : printer.sent.pages) {
    RecordingSurface seen;
    page->drawOn(seen);
    EXPECT_EQ(seen.operations(), printed.drawing) << page->sheet();
    press(page, Qt::Key_PageDown);
  }
}

}  // namespace
}  // namespace triaxlab::testing
