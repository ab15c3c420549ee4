// What programs that laboratories have read of our workbooks. Those that aren't installed are passed over, and said so.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/packages.h"
#include "support/temporary_folder.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

using testing::TemporaryFolder;

struct ForeignReaders : ::testing::Test {
  void SetUp() override {
    NEEDS_XLSX();
    Workspace workspace;
    TriaxialSampleRecord& record = workspace.TriaxialSampleTable[0];
    SetText(record.projectNo, "0042");
    SetText(record.sampleNo, "=1+1");
    record.testMethod = kCU;
    record.coefficientB[0] = 0.97F;
    for (std::size_t stage = 0; stage < kStages; ++stage) SetText(record.cellPressure[stage], "100");
    for (std::size_t row = 0; row < kShearRows; ++row) {
      record.axialStrain[row][0] = 0.1F * static_cast<float>(row + 1);
      SetNumber(record.deviatorStress[row][0], 10.5 * static_cast<double>(row + 1), NumberFormat::Tenths);
    }
    for (const char* name : {"older.xls", "newer.xlsx"})
      writeSamples(workspace, workbookFormOf(ProjectKind::Triaxial), folder / name);
  }

  static bool isInstalled(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
  }
  /// Runs the program in the folder, in a locale that can show every text; what it complains of comes back.
  std::string run(const std::string& command) const {
    const int status = std::system(
        ("cd " + folder.path().string() + " && LC_ALL=C.UTF-8 HOME=. " + command + " >out 2>complaints").c_str());
    EXPECT_EQ(status, 0) << command;
    return folder.read("complaints");
  }
  TemporaryFolder folder;
};

TEST_F(ForeignReaders, Gnumeric) {
  if (!isInstalled("ssconvert")) GTEST_SKIP() << "ssconvert is not installed";
  for (const char* name : {"older.xls", "newer.xlsx"}) {
    const std::string csv = std::string(name).substr(0, 5) + ".csv";
    const std::string complaints =
        run(std::string("ssconvert -O 'format=preserve' -T Gnumeric_stf:stf_assistant ") + name + " " + csv);
    EXPECT_EQ(complaints.find("orrupt"), std::string::npos) << complaints;
  }
  const std::string older = folder.read("older.csv");
  EXPECT_EQ(older, folder.read("newer.csv"));
  EXPECT_NE(older.find("三 轴 试 验 数 据 表"), std::string::npos);
  EXPECT_NE(older.find("0042"), std::string::npos);
}

TEST_F(ForeignReaders, LibreOffice) {
  if (!isInstalled("soffice")) GTEST_SKIP() << "soffice is not installed";
  // Fields parted by commas, UTF-8, every cell as it is shown.
  run("timeout 100 soffice -env:UserInstallation=file://" + folder.path().string() +
      "/profile --headless --convert-to 'csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true' older.xls "
      "newer.xlsx");
  const std::string older = folder.read("older.csv");
  EXPECT_EQ(older, folder.read("newer.csv"));
  for (const char* line : {"三 轴 试 验 数 据 表", "    序号:,00001", "工程编号:,0042", "试样编号:,=1+1", "B,0.97",
                           "εi(%):,0.10,0.20,0.30", "σ1-σ3(kPa):,10.5,21.0,31.5"})
    EXPECT_NE(older.find(line), std::string::npos) << line;
}

}  // namespace
}  // namespace triaxlab
