#include "importers/windows_edition_tests.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "importers/windows_edition.h"
#include "importers/windows_edition_stages.h"
#include "triaxial/record.h"

namespace triaxlab {
namespace {

constexpr std::array<std::string_view, 11> kProjectTableColumns{"ID",      "GCBH", "GCMC", "BCSJ",  "SYLX", "SYFF",
                                                                "SyangLX", "TYBH", "JQSL", "SYZMJ", "GJFF"};
constexpr std::array kTables{JetTable{"Project_Information", kProjectTableColumns}, kStageTable, kReadingTable};

/// Names of the codes from 1 on.
constexpr std::array<std::string_view, 3> kBaseAreas{"39.1", "61.8", "101"};
constexpr std::array<std::string_view, 7> kKinds{"常规三轴试验", "机床系数试验",    "路径", "弹性模量试验", "体积模量",
                                                 "剪切模量",     "应力三轴加载控制"};
template <class Names>
std::string_view nameOf(const Names& names, const JetValue& code) {
  for (std::size_t i = 0; i < names.size(); ++i)
    if (code.number() == static_cast<double>(i + 1)) return names[i];
  return {};
}

// The phases of a test, TZ: what comes before the shearing, and the shearing of every kind of test.
constexpr bool isConsolidation(double phase) { return phase == 2 || phase == 3; }
constexpr bool isShear(double phase) { return phase >= 4 && phase <= 10; }

void setEffectiveStresses(TestStage& stage) {
  const double sigma3 = stage.cellPressure.number();
  if (sigma3 == 0) return;
  for (ShearReading& reading : stage.shear) {
    const double q = reading.deviatorStress.number(), u = reading.porePressure.number();
    if (q == 0) continue;
    SetNumber(reading.sigma1Eff, q + sigma3 - u, NumberFormat::Whole);
    SetNumber(reading.sigma3Eff, sigma3 - u, NumberFormat::Whole);
  }
}

class WindowsTests : public RawTests {
 public:
  explicit WindowsTests(const std::filesystem::path& path)
      : m_database(path, kTables), m_rows(m_database.run("select  * from Project_Information ")) {}

  std::size_t count() const override { return m_rows.count(); }

  StagedTest test(std::size_t row) const override {
    StagedTest test;
    const auto text = [&](std::string_view column) { return std::string(Trim(m_rows.at(row, column).text())); };
    test.projectNo = text("GCBH");
    test.sampleNo = text("TYBH");
    test.projectName = text("GCMC");
    test.testDate = slashedDate(dateOf(m_rows.at(row, "BCSJ")));
    test.savedOn = test.testDate;
    std::ranges::replace(test.savedOn, '/', '-');
    test.baseArea = nameOf(kBaseAreas, m_rows.at(row, "SYZMJ"));
    test.kind = nameOf(kKinds, m_rows.at(row, "SYLX"));
    test.consolidation = text("GJFF");
    test.testMethod = byteOf(m_rows.at(row, "SYFF"));
    test.shearMode = byteOf(m_rows.at(row, "SyangLX"));
    test.shearRate = shearRateOf(m_rows.at(row, "JQSL"));
    const StageExtent all{.isConsolidation = isConsolidation, .isShear = isShear};
    test.stages = stagesOf(tablesOf(m_database, m_rows.at(row, "ID")), test.shearRate, all);
    if (test.testMethod == kCU) std::ranges::for_each(test.stages, setEffectiveStresses);
    return test;
  }

 private:
  JetDatabase m_database;
  JetRows m_rows;
};

}  // namespace

std::unique_ptr<RawTests> openWindowsTests(const std::filesystem::path& path) {
  return std::make_unique<WindowsTests>(path);
}

}  // namespace triaxlab
