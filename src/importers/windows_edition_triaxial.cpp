// SZData.dat and SZ*.DATX, the databases of the Windows edition of the triaxial controller: Jet databases that differ
// in nothing but where they are looked for.
//
//     Project_Information   a row for each sample of a project
//     Datas_GJ              a row for each stage of a sample: its set cell pressure and its sizes
//     Datas                 a row for each reading, all phases and stages of a sample in one
//
// Columns that serve the workbook alone are not read for an import: a database without them is imported all the same.
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "common/date.h"
#include "common/gbk.h"
#include "importers/importer.h"
#include "importers/triaxial_import.h"
#include "importers/windows_edition.h"
#include "importers/windows_edition_stages.h"
#include "importers/windows_edition_tests.h"

namespace triaxlab {
namespace {

constexpr double kOrdinaryTest = 1;                                // SYLX
constexpr double kBackPressureSaturation = 1, kOrdinaryShear = 4;  // TZ; all others count as consolidation

constexpr std::array<std::string_view, 10> kProjectTableColumns{"ID",   "GCBH",    "GCMC", "BCSJ", "SYLX",
                                                                "SYFF", "SyangLX", "TYBH", "UUTZ", "JQSL"};
constexpr std::array<std::string_view, 1> kProjectOrder{"GCBH"};
constexpr std::array kTables{JetTable{"Project_Information", kProjectTableColumns, kProjectOrder}, kStageTable,
                             kReadingTable};

constexpr std::string_view kProjectNumbers = "select distinct GCBH from Project_Information";
constexpr std::string_view kRowsForGrid = "select  * from Project_Information where  GCBH= '";
constexpr std::string_view kRowsForReading = "select  * from Project_Information where GCBH='";

// ---- a sample becomes a row of the table

struct WindowsSample {
  JetRows information;  // the rows of its project
  std::size_t row;      // its own of them
  std::vector<TestStage> stages;
  std::string testDate;  // of the time of saving, UTF-8

  const JetValue& operator[](std::string_view column) const { return information.at(row, column); }
};

constexpr bool isConsolidation(double phase) { return phase != kBackPressureSaturation && phase != kOrdinaryShear; }
constexpr bool isShear(double phase) { return phase == kOrdinaryShear; }

/// Readings, of whatever phase, that are passed over behind one that was taken, so that about 50 points of a sample
/// remain.
std::size_t thinningStep(std::size_t readings) {
  if (readings > 150) return 4;
  if (readings > 100) return 2;
  return readings > 50 ? 1 : 0;
}

WindowsSample sampleOf(const JetDatabase& database, const JetRows& information, std::size_t row,
                       const std::string& testDate, bool take50Points) {
  const WindowsTables tables = tablesOf(database, information.at(row, "ID"));
  const StageExtent extent{.isConsolidation = isConsolidation,
                           .isShear = isShear,
                           .stages = kStages,
                           .consolidationRows = kConsolidationRows,
                           .shearRows = kShearRows,
                           .passedOver = take50Points ? thinningStep(tables.readings.size()) : 0};
  return {information, row, stagesOf(tables, shearRateOf(information.at(row, "JQSL")), extent), testDate};
}

class SampleFiller {
 public:
  SampleFiller(const WindowsSample& sample, TriaxialSampleRecord& row) : m_sample(sample), m_row(row) {}

  void fill() {
    fillIdentity();
    for (std::size_t s = 0; s < m_sample.stages.size(); ++s) fillStage(m_sample.stages[s], s);
  }

 private:
  void fillIdentity() {
    m_row.testMethod = byteOf(m_sample["SYFF"]);
    m_row.shearMode = byteOf(m_sample["SyangLX"]);
    SetText(m_row.projectNo, utf8ToGbk(m_sample["GCBH"].text()));
    SetText(m_row.sampleNo, utf8ToGbk(m_sample["TYBH"].text()));
    m_row.uuAdjustFlag = readingOf(m_sample["UUTZ"]) == 0 ? 1 : 0;
    SetText(m_row.testDate, utf8ToGbk(slashedDate(m_sample.testDate)));
    m_row.shearRate.fill(shearRateOf(m_sample["JQSL"]));
  }

  void fillStage(const TestStage& stage, std::size_t s) {
    m_row.cellPressure[s] = stage.cellPressure;
    m_row.initialHeight[s] = stage.initialHeight;
    m_row.consolidatedHeight[s] = stage.consolidatedHeight;
    m_row.initialArea[s] = stage.initialArea;
    m_row.consolidatedArea[s] = stage.consolidatedArea;
    m_row.consolidationDrainage[s] = stage.consolidationDrainage;
    for (std::size_t k = 0; k < stage.consolidation.size(); ++k) {
      m_row.consolidationTime[k][s] = stage.consolidation[k].seconds;
      m_row.consolidationPorePressure[k][s] = stage.consolidation[k].porePressure;
      m_row.consolidationVolume[k][s] = stage.consolidation[k].volume;
    }
    for (std::size_t i = 0; i < stage.shear.size(); ++i) {
      m_row.deviatorStress[i][s] = stage.shear[i].deviatorStress;
      m_row.porePressure[i][s] = stage.shear[i].porePressure;
      m_row.volumeChange[i][s] = stage.shear[i].volumeChange;
      m_row.axialStrain[i][s] = stage.shear[i].axialStrain;
    }
  }

  const WindowsSample& m_sample;
  TriaxialSampleRecord& m_row;
};

// ---- the source

std::string countOf(const JetRows& rows) { return std::to_string(rows.count()); }

constexpr std::array kProjectColumns{SourceColumn{"工程编号", 1500}, SourceColumn{"组数", 800, true},
                                     SourceColumn{"试验日期", 1500}};
constexpr std::array kProjectSorts{SourceSort{"Command4", "工程编号排序", kProjectColumn},
                                   SourceSort{"Command5", "试验日期排序", kTestDateColumn}};

class WindowsTriaxialSource : public RawSource {
 public:
  explicit WindowsTriaxialSource(const std::filesystem::path& path)
      : m_database(path, kTables), m_rows(projectRows(m_database, kProjectNumbers, kRowsForGrid, countOf)) {}

  std::span<const SourceRow> rows() const override { return m_rows; }
  const Remarks& remarks() const override { return m_remarks; }

  ImportReport read(std::span<const std::size_t> marked, Workspace& workspace,
                    const Progress& progress) const override {
    const LaboratoryHabits& habits = workspace.settings.habits;
    TriaxialImportPlan plan(TriaxialImportPlan::Axes::OfSource);
    std::vector<WindowsSample> samples;
    for (const std::size_t row : marked) addSamples(m_rows.at(row), habits, plan, samples);
    const auto fill = [&](std::size_t number, TriaxialSampleRecord& record) {
      SampleFiller(samples[number], record).fill();
    };
    ImportReport report = plan.carryOut(workspace, fill, {}, progress);
    workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
    return report;
  }

 private:
  /// The ordinary tests of a project: all of them, or those of the date that the grid shows.
  void addSamples(const SourceRow& row, const LaboratoryHabits& habits, TriaxialImportPlan& plan,
                  std::vector<WindowsSample>& samples) const {
    const std::string_view project = Trim(row.cells[kProjectColumn]), shownDate = Trim(row.cells[kTestDateColumn]);
    const JetRows found = m_database.run(std::string(kRowsForReading) + JetDatabase::quoted(project) + "'");
    for (std::size_t i = 0; i < found.count(); ++i) {
      const std::string date = dateOf(found.at(i, "BCSJ"));
      if (found.at(i, "SYLX").number() != kOrdinaryTest || !(habits.winTriaxialByProject || date == shownDate))
        continue;
      plan.addGroup({}, TriaxialImportPlan::Gathering::OwnRow);
      plan.projects.setOnlyDate({{}, row.projectNo, utf8ToGbk(date)});
      plan.projects.setName(row.projectNo, utf8ToGbk(projectNameOf(found)));
      samples.push_back(sampleOf(m_database, found, i, date, habits.take50Points));
    }
  }

  JetDatabase m_database;
  std::vector<SourceRow> m_rows;
  Remarks m_remarks;
};

std::unique_ptr<RawSource> openWindowsTriaxial(const std::filesystem::path& path) {
  return std::make_unique<WindowsTriaxialSource>(path);
}

/// The name of a table stands in the catalog at the head of the file, as text of one or of two bytes a letter.
Recognition recogniseWindowsTriaxial(const FileHead& head) { return recogniseJet(head, "Project_Information"); }

constexpr Importer kShared{.title = "WIN版三轴试验原始数据库",
                           .messageTitle = "打开三轴试验数据",
                           .thirdButton = "转EXCEL",
                           .document = kForm1,
                           .columns = kProjectColumns,
                           .recognise = recogniseWindowsTriaxial,
                           .open = openWindowsTriaxial,
                           .openTests = openWindowsTests,
                           .sorts = kProjectSorts};

constexpr Importer fixedFile() {
  Importer importer = kShared;
  importer.id = "win";
  importer.menuCommand = "OWINSZ";
  importer.menuCaption = "WIN版三轴";
  importer.form = "OPENFORMWIN";
  importer.defaultFile = "SZData.dat";
  importer.folderField = sourceFolderField(10);
  importer.fileDialogTitle = "WIN版SZ(X).DAT";
  return importer;
}

constexpr Importer chosenFile() {
  Importer importer = kShared;
  importer.id = "win-datx";
  importer.menuCommand = "OWINSZDAT";
  importer.menuCaption = "WIN版三轴SZ(X).DATX";
  importer.form = "OPENFORMWINDAT";
  importer.defaultFile = "SZ*.DATX";
  importer.fileDialogTitle = "WIN版SZ(X).DATX";
  importer.folderInUse = sourceFolderOf(12).inUse;
  importer.fileFromCommand = true;
  return importer;
}

}  // namespace

extern constinit const Importer kWindowsTriaxialImporter = fixedFile();
extern constinit const Importer kWindowsTriaxialDatxImporter = chosenFile();

}  // namespace triaxlab
