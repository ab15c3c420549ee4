#include "platform/qt/printer_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>

#include "common/user_error.h"
#include "platform/qt/application.h"
#include "support/fake_dialogs.h"
#include "support/print_server.h"
#include "support/printed_document.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr PrintServer::Paper kA3Paper{"A3", 842, 1191};

/// Prints to queues of a real print server.
class PrinterDeviceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!PrintServer::isInstalled())
      GTEST_SKIP() << "cups-daemon and cups-client are not installed: nothing was printed";
    if (!PrintedDocument::canBeRead()) GTEST_SKIP() << "poppler-utils is not installed: no print could be read";
    // The toolkit asks one server for as long as the program runs.
    if (!theServer) theServer.emplace();
  }
  PrintServer& server() { return *theServer; }
  static void endServer() { theServer.reset(); }

  /// A page of that size with a word 1000 twips from the paper's left and upper edge; its job.
  PrintServer::Job print(PageSize size, int copies = 1) {
    const auto device = makePrinterDevice({"三轴试验成果曲线", size, copies}, dialogs);
    if (device == nullptr) return {};
    draw(*device, 1, size);
    device->finish();
    return server().nextJob().value_or(PrintServer::Job{});
  }

  static void draw(PageDevice& device, int pages, PageSize size) {
    for (int page = 0; page < pages; ++page) {
      device.beginPage(size).text({1000, 1000}, "stress", {}, Colour::Black);
      device.endPage();
    }
  }
  /// A job of one page that nobody has finished.
  std::unique_ptr<PageDevice> beginJob(const std::string& printer) {
    server().addDefaultQueue(printer);
    auto device = makePrinterDevice({.title = "begun", .size = kA4, .name = printer}, dialogs);
    draw(*device, 1, kA4);
    return device;
  }
  /// What finishing the device says.
  static std::string complaintOf(PageDevice& device) {
    try {
      device.finish();
    } catch (const UserError& error) {
      return error.what();
    }
    return {};
  }

  static std::vector<PrintedDocument::Page> pagesOf(const PrintServer::Job& job) {
    return PrintedDocument(job.pages).pages;
  }

  FakeDialogs dialogs;

 private:
  static inline std::optional<PrintServer> theServer;
};

TEST_F(PrinterDeviceTest, TwoPagesSideBySideComeOutAsA3Landscape) {
  server().addDefaultQueue("WithA3", {.morePapers = {kA3Paper}});
  const auto job = print(kA3SideBySide);
  EXPECT_THAT(job.options, HasSubstr("media=A3"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
  const auto pages = pagesOf(job);
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_EQ(pages[0].width, 1191);
  EXPECT_EQ(pages[0].height, 842);
}

TEST_F(PrinterDeviceTest, PlacesCountFromTheEdgeOfThePaperWhateverThePrinterCanReach) {
  server().addDefaultQueue("Margins");
  const auto job = print(kA4, 3);
  EXPECT_THAT(job.options, HasSubstr("media=A4"));
  EXPECT_THAT(job.options, HasSubstr("title=三轴试验成果曲线 copies=3"));
  const auto pages = pagesOf(job);
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_NEAR(pages[0].words.at(0).x, 50, 0.1);  // 1000 twips are 50 points
}

TEST_F(PrinterDeviceTest, APaperThatThePrinterDoesntHaveIsAskedAbout) {
  server().addDefaultQueue("A4Only");
  dialogs.answers = {false, true};
  EXPECT_EQ(makePrinterDevice({"", kA3SideBySide}, dialogs), nullptr);
  EXPECT_FALSE(server().hasMoreJobs());
  EXPECT_THAT(print(kA3SideBySide).options, HasSubstr("media=A3"));  // what the printer makes of it is its own
  const std::string question =
      "! [打印] "
      "打印机“A4Only”没有A3纸（297×420毫米）。\n仍要打印吗？打印机会用它现有的纸，页面可能被缩小或裁去一部分。";
  EXPECT_THAT(dialogs.take(), ElementsAre(question, question));
}

TEST_F(PrinterDeviceTest, AJobMayNameItsPrinter) {
  server().addDefaultQueue("Named", {.morePapers = {kA3Paper}});
  server().addDefaultQueue("Usual");
  const auto device = makePrinterDevice({.title = "k0", .size = kA3, .name = "Named"}, dialogs);
  ASSERT_NE(device, nullptr);
  device->beginPage(kA3);
  device->endPage();
  device->finish();
  EXPECT_THAT(server().nextJob().value_or(PrintServer::Job{}).options, HasSubstr("queue=Named title=k0"));
  EXPECT_THROW(makePrinterDevice({.title = "k0", .size = kA4, .name = "Gone"}, dialogs), UserError);
}

TEST_F(PrinterDeviceTest, AFormWithoutANameNeedsAPrinterThatTakesAnySize) {
  server().addDefaultQueue("NamedOnly", {.morePapers = {kA3Paper}});
  dialogs.answers = {false};
  EXPECT_EQ(makePrinterDevice({"", kDotMatrixPage}, dialogs), nullptr);
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("没有210×280毫米的纸。")));

  server().addDefaultQueue("AnySize", {.largestOfAnySize = {"", 612, 1008}});
  EXPECT_THAT(print(kDotMatrixPage).options, HasSubstr("media=Custom.595.2x793.5"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
  dialogs.answers = {false};
  EXPECT_EQ(makePrinterDevice({"", kA3SideBySide}, dialogs), nullptr);  // larger than its largest
}

// ---- What goes wrong

TEST_F(PrinterDeviceTest, WhatWasSentBeforeAStopComesOut) {
  const auto device = beginJob("Begun");
  draw(*device, 2, kA4);
  device->stop();
  EXPECT_THAT(pagesOf(server().nextJob().value_or(PrintServer::Job{})), SizeIs(3));
  EXPECT_FALSE(server().hasMoreJobs());
}

TEST_F(PrinterDeviceTest, APrinterThatIsStoppedGetsNoJobToKeep) {
  server().addDefaultQueue("Stopped");
  server().stopQueue("Stopped");
  EXPECT_THROW(makePrinterDevice({.title = "", .size = kA4, .name = "Stopped"}, dialogs), UserError);
}

TEST_F(PrinterDeviceTest, AQueueThatClosesWhileAJobRunsIsNamed) {
  const auto device = beginJob("Closing");
  server().takeNoMoreJobsInto("Closing");
  EXPECT_EQ(complaintOf(*device), "打印机“Closing”没有打印：这台打印机暂不接受打印任务。");
}

TEST_F(PrinterDeviceTest, AQueueThatGoesWhileAJobRunsIsNamed) {
  const auto device = beginJob("Going");
  server().remove("Going");
  EXPECT_EQ(complaintOf(*device), "打印机“Going”没有打印：找不到这台打印机，它可能已被删除，或者打印服务没有运行。");
}

// The last one: the toolkit would not find another server.
TEST_F(PrinterDeviceTest, AServiceThatEndsWhileAJobRunsIsTold) {
  const auto device = beginJob("Serving");
  endServer();
  EXPECT_EQ(complaintOf(*device), "打印机“Serving”没有打印：找不到这台打印机，它可能已被删除，或者打印服务没有运行。");
}

}  // namespace
}  // namespace triaxlab::testing
