// Workbooks of project files.
#include "cli/cli_fixture.h"
#include "support/read_sheets.h"

namespace triaxlab::testing {
namespace {

namespace fs = std::filesystem;

class WorkbookCommand : public CliTest {
 protected:
  /// A project file of so many samples.
  void importSamples(int count) const {
    std::vector<Entry> entries;
    for (int i = 1; i <= count; ++i) entries.push_back(sampleEntry("P1", "S-" + std::to_string(i)));
    ASSERT_EQ(run({"import", "auto", database(entries)}).status, 0);
  }
  std::string out(const std::string& name) const { return (folder / name).string(); }
};

TEST_F(WorkbookCommand, WritesTheSamplesAndSaysSo) {
  importSamples(2);
  for (const char* name : {"out.xls", "out.XLSX"}) {
    const ProgramRun ran = run({"workbook", "WKSZP1.txt", "--out", out(name)});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, "[保存数据为Excel] 三轴试验数据保存完毕\n");
  }
  const FoundSheet sheet = readXlsStrictly(out("out.xls")).at(0);
  EXPECT_EQ(sheet.at(3, 'B'), "00001");
  EXPECT_EQ(sheet.at(5, 'B'), "S-1");
  EXPECT_EQ(readXlsx(out("out.XLSX")).at(0), sheet);
}

TEST_F(WorkbookCommand, LeavesTheProjectFileAsItWas) {
  importSamples(1);
  const auto before = folder.read("app/HSZS/WKSZP1.txt");
  EXPECT_EQ(run({"workbook", "WKSZP1.txt", "--out", out("out.xls")}).status, 0);
  EXPECT_EQ(folder.read("app/HSZS/WKSZP1.txt"), before);
}

TEST_F(WorkbookCommand, TakesARangeOfALargeFile) {
  importSamples(1);
  std::string bytes = folder.read("app/HSZS/WKSZP1.txt");
  const std::string first = bytes.substr(kHeaderSize, kSampleSize);
  bytes.replace(0, 4, "0101");
  for (int sample = 2; sample <= 101; ++sample) {
    std::string record = first;
    const std::string number = "S-" + std::to_string(sample);
    constexpr std::size_t kSampleNo = 15;
    record.replace(kSampleNo, number.size(), number);
    bytes.insert(kHeaderSize + static_cast<std::size_t>(sample - 1) * kSampleSize, record);
  }
  folder.write("app/HSZS/WKSZP1.txt", bytes);
  EXPECT_EQ(run({"workbook", "WKSZP1.txt", "--out", out("out.xls"), "--first", "100"}).status, 0);
  const FoundSheet sheet = readXlsStrictly(out("out.xls")).at(0);
  EXPECT_EQ(sheet.at(3, 'B'), "00001");
  EXPECT_EQ(sheet.at(5, 'B'), "S-100");
}

TEST_F(WorkbookCommand, AProjectThatIsNotThereIsNamedAndNothingIsWritten) {
  const ProgramRun ran = run({"workbook", "WKSZ9.txt", "--out", out("out.xls")});
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find("WKSZ9.txt"), std::string::npos);
  EXPECT_FALSE(fs::exists(out("out.xls")));
}

// A limit on the size of files stands for a disk that fills.
TEST_F(WorkbookCommand, ADiskThatFillsLeavesTheOldWorkbook) {
  importSamples(3);
  for (const char* name : {"out.xls", "out.xlsx"}) {
    folder.write(name, "old");
    setShell("ulimit -f 8; ", "");
    const ProgramRun ran = run({"workbook", "WKSZP1.txt", "--out", out(name)});
    setShell("", "");
    EXPECT_EQ(ran.status, 1) << name;
    EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
    EXPECT_NE(ran.err.find(out(name)), std::string::npos) << ran.err;
    EXPECT_EQ(folder.read(name), "old");
    EXPECT_FALSE(fs::exists(out(name) + ".new"));
  }
}

}  // namespace
}  // namespace triaxlab::testing
