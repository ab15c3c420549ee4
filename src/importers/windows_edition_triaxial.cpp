// SZData.dat and SZ*.DATX, the databases of the Windows edition of the triaxial controller: Jet databases that differ
// in nothing but where they are looked for.
//
//     Project_Information   a row for each sample of a project
//     Datas_GJ              a row for each stage of a sample: its set cell pressure and its sizes
//     Datas                 a row for each reading, all phases and stages of a sample in one
//
// Stages are told apart by the seconds of their readings, which count from the start of a phase: where they fall back,
// the next stage has begun. A row of Datas_GJ whose pressure is hardly above the one before it is no stage of its own.
// Columns that serve the text output alone are not read.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/conversions.h"
#include "common/date.h"
#include "common/gbk.h"
#include "importers/importer.h"
#include "importers/triaxial_import.h"
#include "importers/windows_edition.h"

namespace triaxlab {
namespace {

constexpr double kOrdinaryTest = 1;                                // SYLX
constexpr double kBackPressureSaturation = 1, kOrdinaryShear = 4;  // TZ; all others count as consolidation

/// kPa that a stage must lie above the one before it.
constexpr double kPressureStep = 0.5;

constexpr std::array<std::string_view, 10> kProjectTableColumns{"ID",   "GCBH",    "GCMC", "BCSJ", "SYLX",
                                                                "SYFF", "SyangLX", "TYBH", "UUTZ", "JQSL"};
constexpr std::array<std::string_view, 7> kStageTableColumns{"ID",     "StepNO", "SDWY",  "SYQSGD",
                                                             "GJSSGD", "SYQSMJ", "GJSSMJ"};
constexpr std::array<std::string_view, 8> kReadingTableColumns{"ID", "NO", "TZ", "CJSJ", "FY", "ZYLC", "KY", "PS"};
constexpr std::array<std::string_view, 1> kProjectOrder{"GCBH"};
constexpr std::array<std::string_view, 2> kStageOrder{"ID", "StepNO"}, kReadingOrder{"ID", "NO"};
constexpr std::array kTables{JetTable{"Project_Information", kProjectTableColumns, kProjectOrder},
                             JetTable{"Datas_GJ", kStageTableColumns, kStageOrder},
                             JetTable{"Datas", kReadingTableColumns, kReadingOrder}};

constexpr std::string_view kProjectNumbers = "select distinct GCBH from Project_Information";
constexpr std::string_view kRowsForGrid = "select  * from Project_Information where  GCBH= '";
constexpr std::string_view kRowsForReading = "select  * from Project_Information where GCBH='";

// ---- what the database holds of a sample

/// A number that is computed with, and as its text reads.
struct Quantity {
  double value, decimal;
};

struct WindowsReading {
  double phase, seconds;
  double backPressure;                      // kPa
  Quantity stressDifference, porePressure;  // kPa
  Quantity drained;                         // ml
};

struct WindowsSample {
  JetRows information;  // the rows of its project
  std::size_t row;      // its own of them
  JetRows stages;
  std::vector<WindowsReading> readings;
  std::string testDate;  // of the time of saving, UTF-8

  const JetValue& operator[](std::string_view column) const { return information.at(row, column); }
};

std::vector<WindowsReading> readingsOf(const JetRows& rows) {
  const std::size_t phase = rows.column("TZ"), seconds = rows.column("CJSJ"), back = rows.column("FY"),
                    stress = rows.column("ZYLC"), pore = rows.column("KY"), drained = rows.column("PS");
  const auto quantity = [](const JetValue& value) {
    return Quantity{readingOf(value), value.decimal().value_or(kNoReadingMark)};
  };
  std::vector<WindowsReading> readings;
  readings.reserve(rows.count());
  for (std::size_t i = 0; i < rows.count(); ++i)
    readings.push_back({readingOf(rows.at(i, phase)), readingOf(rows.at(i, seconds)), readingOf(rows.at(i, back)),
                        quantity(rows.at(i, stress)), quantity(rows.at(i, pore)), quantity(rows.at(i, drained))});
  return readings;
}

WindowsSample sampleOf(const JetDatabase& database, const JetRows& information, std::size_t row,
                       const std::string& testDate) {
  const std::string id = JetDatabase::literal(information.at(row, "ID"));
  return {information, row, database.run("select  * from Datas_GJ where ID=" + id + " order by [STEPNO]"),
          readingsOf(database.run("select  * from Datas where ID = " + id + " order by [no]")), testDate};
}

// ---- a sample becomes a row of the table

/// Follows the readings of a phase through their stages.
class StageWalk {
 public:
  /// False when a sixth stage begins. The reading that begins a stage doesn't count as the last time yet.
  bool reaches(double seconds) {
    if (seconds >= m_last) {
      m_last = seconds;
      return true;
    }
    ++stage;
    row = 0;
    m_last = 0;
    return stage < kStages;
  }
  std::size_t stage = 0, row = 0;

 private:
  double m_last = 0;
};

class SampleFiller {
 public:
  SampleFiller(const WindowsSample& sample, bool take50Points, TriaxialSampleRecord& row)
      : m_sample(sample), m_take50Points(take50Points), m_row(row) {}

  void fill() {
    fillIdentity();
    fillStages();
    fillConsolidation();
    fillShear();
    takeOffBackPressures();
  }

 private:
  void fillIdentity() {
    assignByte(m_row.testMethod, m_sample["SYFF"]);
    assignByte(m_row.shearMode, m_sample["SyangLX"]);
    SetText(m_row.projectNo, utf8ToGbk(m_sample["GCBH"].text()));
    SetText(m_row.sampleNo, utf8ToGbk(m_sample["TYBH"].text()));
    m_row.uuAdjustFlag = readingOf(m_sample["UUTZ"]) == 0 ? 1 : 0;
    const auto day = parseWrittenDate(m_sample.testDate);
    SetText(m_row.testDate, day ? slashed(*day) : utf8ToGbk(m_sample.testDate));
    const auto rate = toInt16(Int(ParseNumber(m_sample["JQSL"].text()) * 1000));
    for (auto& shearRate : m_row.shearRate) assignIf(shearRate, rate);
  }

  static void assignByte(std::uint8_t& target, const JetValue& value) {
    constexpr std::int16_t kLargest = 255;
    const auto number = toInt16(readingOf(value));
    if (number && *number >= 0 && *number <= kLargest) target = static_cast<std::uint8_t>(*number);
  }

  void fillStages() {
    const JetRows& stages = m_sample.stages;
    std::size_t slot = 0;
    for (std::size_t i = 0; i < stages.count() && slot < kStages; ++i) {
      const JetValue& pressure = stages.at(i, "SDWY");
      if (slot > 0 && !(pressure.number().value_or(0) - m_row.cellPressure[slot - 1].number() > kPressureStep))
        continue;
      setFormatted(m_row.initialHeight[slot], stages.at(i, "SYQSGD"), NumberFormat::Hundredths);
      setFormatted(m_row.consolidatedHeight[slot], stages.at(i, "GJSSGD"), NumberFormat::Hundredths);
      setFormatted(m_row.initialArea[slot], stages.at(i, "SYQSMJ"), NumberFormat::Hundredths);
      setFormatted(m_row.consolidatedArea[slot], stages.at(i, "GJSSMJ"), NumberFormat::Hundredths);
      setFormatted(m_row.cellPressure[slot], pressure, NumberFormat::Whole);
      ++slot;
    }
  }

  void fillConsolidation() {
    StageWalk walk;
    for (const WindowsReading& reading : m_sample.readings) {
      if (reading.phase == kBackPressureSaturation || reading.phase == kOrdinaryShear) continue;
      if (!walk.reaches(reading.seconds)) return;
      if (walk.row < kConsolidationRows) takeConsolidation(reading, walk.row++, walk.stage);
    }
  }

  void takeConsolidation(const WindowsReading& reading, std::size_t k, std::size_t s) {
    m_backPressure[s] = reading.backPressure;
    if (reading.porePressure.value < kNoReadingMark)
      assignIf(m_row.consolidationPorePressure[k][s],
               toInt16(ParseNumber(FormatNumber(reading.porePressure.value * 10, NumberFormat::Whole))));
    // Without a volume the reading keeps its row, but has no time.
    if (!(reading.drained.value * 100 < kNoReadingMark)) return;
    assignIf(m_row.consolidationVolume[k][s], toInt16(reading.drained.value * 100));
    SetText(m_row.consolidationDrainage[s], PlainNumber(std::fabs(reading.drained.decimal)));
    assignIf(m_row.consolidationTime[k][s], toInt32(reading.seconds));
  }

  void fillShear() {
    const std::size_t step = m_take50Points ? thinningStep() : 0;
    StageWalk walk;
    for (std::size_t p = 0; p < m_sample.readings.size(); ++p) {
      const WindowsReading& reading = m_sample.readings[p];
      if (reading.phase != kOrdinaryShear) continue;
      if (!walk.reaches(reading.seconds)) return;
      if (walk.row >= kShearRows) continue;
      takeShear(reading, walk.row++, walk.stage);
      p += step;
    }
  }

  /// Readings, of whatever phase, that are passed over behind one that was taken, so that about 50 points of a sample
  /// remain.
  std::size_t thinningStep() const {
    const std::size_t count = m_sample.readings.size();
    if (count > 150) return 4;
    if (count > 100) return 2;
    return count > 50 ? 1 : 0;
  }

  void takeShear(const WindowsReading& reading, std::size_t i, std::size_t s) {
    m_backPressure[s] = reading.backPressure;
    if (reading.stressDifference.value < kNoReadingMark)
      SetNumber(m_row.deviatorStress[i][s], reading.stressDifference.decimal, NumberFormat::Tenths);
    if (reading.porePressure.value < kNoReadingMark)
      SetNumber(m_row.porePressure[i][s], reading.porePressure.decimal, NumberFormat::Tenths);
    if (reading.drained.value * 100 < kNoReadingMark)
      assignIf(m_row.volumeChange[i][s], toInt16(reading.drained.value * 100));
    // The rate of the first stage serves all.
    assignIf(m_row.axialStrain[i][s], toSingle(reading.seconds * m_row.shearRate[0] / 60 / 1000));
  }

  /// The table holds the pressure on the soil, the controller that in the cell.
  void takeOffBackPressures() {
    for (std::size_t s = 0; s < kStages; ++s) {
      const double back = m_backPressure[s], pressure = m_row.cellPressure[s].number();
      if (std::fabs(back) > 1 && std::fabs(back) < 1000 && pressure > 1)
        SetNumber(m_row.cellPressure[s], pressure - back, NumberFormat::Whole);
    }
  }

  const WindowsSample& m_sample;
  bool m_take50Points;
  TriaxialSampleRecord& m_row;
  PerStage<double> m_backPressure{};  // kPa, of the last reading that was taken
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
    for (const std::size_t row : marked) addSamples(m_rows.at(row), habits.winTriaxialByProject, plan, samples);
    const auto fill = [&](std::size_t number, TriaxialSampleRecord& record) {
      SampleFiller(samples[number], habits.take50Points, record).fill();
    };
    ImportReport report = plan.carryOut(workspace, fill, {}, progress);
    workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
    return report;
  }

 private:
  /// The ordinary tests of a project: all of them, or those of the date that the grid shows.
  void addSamples(const SourceRow& row, bool anyDate, TriaxialImportPlan& plan,
                  std::vector<WindowsSample>& samples) const {
    const std::string_view project = Trim(row.cells[kProjectColumn]), shownDate = Trim(row.cells[kTestDateColumn]);
    const JetRows found = m_database.run(std::string(kRowsForReading) + JetDatabase::quoted(project) + "'");
    for (std::size_t i = 0; i < found.count(); ++i) {
      const std::string date = dateOf(found.at(i, "BCSJ"));
      if (found.at(i, "SYLX").number() != kOrdinaryTest || !(anyDate || date == shownDate)) continue;
      plan.addGroup({}, TriaxialImportPlan::Gathering::OwnRow);
      plan.projects.setOnlyDate({{}, row.projectNo, utf8ToGbk(date)});
      plan.projects.setName(row.projectNo, utf8ToGbk(projectNameOf(found)));
      samples.push_back(sampleOf(m_database, found, i, date));
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
                           .sorts = kProjectSorts,
                           .thirdButtonWorks = false};

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
