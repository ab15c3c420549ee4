#include "platform/qt/printer_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <array>
#include <cstdio>
#include <memory>

#include "common/user_error.h"
#include "platform/qt/application.h"
#include "support/fake_dialogs.h"
#include "support/print_server.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr PrintServer::Paper kA3Paper{"A3", 842, 1191};

/// What a program of the system writes about a file.
std::string outputOf(const std::string& command) {
  std::string output;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>/dev/null").c_str(), "r"), pclose);
  std::array<char, 1024> part{};
  while (pipe && std::fgets(part.data(), part.size(), pipe.get()) != nullptr) output += part.data();
  return output;
}

/// Prints to queues of a real print server.
class PrinterDeviceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!PrintServer::isInstalled()) GTEST_SKIP() << "cups and cups-client are not installed: nothing was printed";
    // The toolkit asks one server for as long as the program runs.
    static PrintServer theServer;
    m_server = &theServer;
  }
  PrintServer& server() { return *m_server; }

  /// A page of that size with a word 1000 twips from the paper's left and upper edge; its job.
  PrintServer::Job print(PageSize size, int copies = 1) {
    const auto device = makePrinterDevice({"三轴试验成果曲线", size, copies}, dialogs);
    if (device == nullptr) return {};
    device->beginPage(size).text({1000, 1000}, "stress", {}, Colour::Black);
    device->endPage();
    device->finish();
    return server().nextJob().value_or(PrintServer::Job{});
  }

  FakeDialogs dialogs;

 private:
  PrintServer* m_server = nullptr;
};

TEST_F(PrinterDeviceTest, TwoPagesSideBySideComeOutAsA3Landscape) {
  server().addDefaultQueue("WithA3", {kA3Paper});
  const auto job = print(kA3SideBySide);
  EXPECT_THAT(job.options, HasSubstr("media=A3"));
  const std::string told = outputOf("pdfinfo '" + job.pages + "'");
  if (told.empty()) GTEST_SKIP() << "poppler-utils is not installed: the page was not measured";
  EXPECT_THAT(told, HasSubstr("Page size:       1191 x 842 pts"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(PrinterDeviceTest, PlacesCountFromTheEdgeOfThePaperWhateverThePrinterCanReach) {
  server().addDefaultQueue("Margins");
  const auto job = print(kA4, 3);
  EXPECT_THAT(job.options, HasSubstr("media=A4"));
  EXPECT_THAT(job.options, HasSubstr("title=三轴试验成果曲线 copies=3"));
  const std::string words = outputOf("pdftotext -bbox '" + job.pages + "' -");
  if (words.empty()) GTEST_SKIP() << "poppler-utils is not installed: the page was not measured";
  EXPECT_THAT(words, HasSubstr("<word xMin=\"50.0"));  // 1000 twips are 50 points
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
  server().addDefaultQueue("Named", {kA3Paper});
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
  server().addDefaultQueue("NamedOnly", {kA3Paper});
  dialogs.answers = {false};
  EXPECT_EQ(makePrinterDevice({"", kDotMatrixPage}, dialogs), nullptr);
  EXPECT_THAT(dialogs.take(), ElementsAre(HasSubstr("没有210×280毫米的纸。")));

  constexpr std::string_view kAnyUpToA4 =
      "*VariablePaperSize: True\n*MaxMediaWidth: \"612\"\n*MaxMediaHeight: \"1008\"\n*HWMargins: 9 9 9 9\n"
      "*CustomPageSize True: \"\"\n*ParamCustomPageSize Width: 1 points 36 612\n"
      "*ParamCustomPageSize Height: 2 points 36 1008\n*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
      "*ParamCustomPageSize HeightOffset: 4 points 0 0\n*ParamCustomPageSize Orientation: 5 int 0 0\n";
  server().addDefaultQueue("AnySize", {}, kAnyUpToA4);
  EXPECT_THAT(print(kDotMatrixPage).options, HasSubstr("media=Custom.595.2x793.5"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
  dialogs.answers = {false};
  EXPECT_EQ(makePrinterDevice({"", kA3SideBySide}, dialogs), nullptr);  // larger than its largest
}

}  // namespace
}  // namespace triaxlab::testing
