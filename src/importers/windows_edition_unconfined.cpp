// WCX.dat and WCX*.DATX, the databases of the Windows edition of the unconfined controller: Jet databases that differ
// in where they are looked for, and in that the controller of the first stores the ring coefficient.
//
//     Data_Project      a row for each sample of a project
//     Data_Collection   a row for each reading, those of both specimens of a sample in one
//
// The controller stores stresses, at even times; the strain of a reading is its number times what the specimen is
// strained from one to the next.
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/gbk.h"
#include "importers/importer.h"
#include "importers/unconfined_import.h"
#include "importers/windows_edition.h"

namespace triaxlab {
namespace {

constexpr std::array<std::string_view, 7> kProjectTableColumns{"GCID", "GCBH", "GCMC", "BCSJ", "SYBH", "YBSL", "CSSJ"};
constexpr std::array<std::string_view, 1> kProjectOrder{"GCBH"};
constexpr std::array<std::string_view, 7> kReadingTableColumns{"GCID", "CSID", "TYLX", "SYGD", "SYMJ", "CJZ", "LLHXS"};
constexpr std::span<const std::string_view> kWithoutRing = std::span(kReadingTableColumns).first(6);
constexpr std::array<std::string_view, 2> kReadingOrder{"GCID", "CSID"};

constexpr std::string_view kProjectNumbers = "select distinct GCBH from Data_Project";
constexpr std::string_view kRowsForReading = "select  * from Data_Project where GCBH='";

/// What the two databases differ in.
struct Edition {
  std::array<JetTable, 2> tables;
  std::string_view rowsForGrid;
};
constexpr Edition kFixedFile{{JetTable{"Data_Project", kProjectTableColumns, kProjectOrder},
                              JetTable{"Data_Collection", kReadingTableColumns, kReadingOrder}},
                             "select  * from Data_Project where  GCBH = '"};
constexpr Edition kChosenFile{{JetTable{"Data_Project", kProjectTableColumns, kProjectOrder},
                               JetTable{"Data_Collection", kWithoutRing, kReadingOrder}},
                              "select  * from Data_Project where  GCBH= '"};

// ---- a sample becomes a row of the table

struct WindowsSample {
  UnconfinedIdentity identity;
  double strainStep;  // %, from reading to reading
  JetRows readings;   // of both specimens
};

WindowsSample sampleOf(const JetDatabase& database, const JetRows& rows, std::size_t row) {
  constexpr double kSecondsOfMinute = 60;
  const std::string id = JetDatabase::literal(rows.at(row, "GCID"));
  WindowsSample sample{
      {},
      ParseNumber(rows.at(row, "YBSL").text()) * ParseNumber(rows.at(row, "CSSJ").text()) / kSecondsOfMinute,
      database.run("select  * from Data_Collection where GCID=" + id + " order by [CSID]")};
  SetText(sample.identity.projectNo, utf8ToGbk(rows.at(row, "GCBH").text()));
  SetText(sample.identity.sampleNo, utf8ToGbk(rows.at(row, "SYBH").text()));
  return sample;
}

/// A side takes as many readings as it has rows.
void fillReadings(const WindowsSample& sample, UnconfinedSampleRecord& record) {
  constexpr double kUndisturbed = 1;
  BothSpecimens<std::size_t> taken{};
  for (std::size_t i = 0; i < sample.readings.count(); ++i) {
    const auto value = [&](std::string_view column) -> const JetValue& { return sample.readings.at(i, column); };
    const auto specimen = value("TYLX").number() == kUndisturbed ? Specimen::Undisturbed : Specimen::Remoulded;
    const std::size_t side = indexOf(specimen), row = taken[side];
    if (row == kUnconfinedRows) continue;
    ++taken[side];
    SetText(record.sampleHeight[side], utf8ToGbk(value("SYGD").text()));
    SetText(record.sampleArea[side], utf8ToGbk(value("SYMJ").text()));
    setFormatted(stressOf(record, specimen)[row], value("CJZ"), NumberFormat::Tenths);
    SetNumber(strainOf(record, specimen)[row], sample.strainStep * static_cast<double>(row + 1), NumberFormat::Tenths);
  }
}

// ---- the source

constexpr std::array kColumns{SourceColumn{"工程编号", 1500}, SourceColumn{"工程名称", 2500},
                              SourceColumn{"试验日期", 1500}};

class WindowsUnconfinedSource : public RawSource {
 public:
  WindowsUnconfinedSource(const std::filesystem::path& path, const Edition& edition)
      : m_database(path, edition.tables),
        m_rows(projectRows(m_database, kProjectNumbers, edition.rowsForGrid, projectNameOf)) {}

  std::span<const SourceRow> rows() const override { return m_rows; }
  const Remarks& remarks() const override { return m_remarks; }

  ImportReport read(std::span<const std::size_t> marked, Workspace& workspace,
                    const Progress& progress) const override {
    UnconfinedImportPlan plan(UnconfinedImportPlan::Axes::OfSource);
    std::vector<WindowsSample> samples;
    for (const std::size_t row : marked) addSamples(m_rows.at(row), plan, samples);
    const auto fill = [&](std::size_t number, UnconfinedSampleRecord& record) {
      setIdentity(record, samples[number].identity);
      fillReadings(samples[number], record);
    };
    ImportReport report = plan.carryOut(workspace, fill, {}, progress);
    workspace.dataOf(ProjectKind::Unconfined).rawImportPending = true;
    return report;
  }

 private:
  void addSamples(const SourceRow& row, UnconfinedImportPlan& plan, std::vector<WindowsSample>& samples) const {
    const JetRows found =
        m_database.run(std::string(kRowsForReading) + JetDatabase::quoted(Trim(row.cells[kProjectColumn])) + "'");
    if (found.count() == 0) return;
    plan.projects.setOnlyDate(row);
    plan.projects.setName(row.projectNo, utf8ToGbk(projectNameOf(found)));
    for (std::size_t i = 0; i < found.count(); ++i) {
      plan.addGroup({}, UnconfinedImportPlan::Gathering::OwnRow);
      samples.push_back(sampleOf(m_database, found, i));
    }
  }

  JetDatabase m_database;
  std::vector<SourceRow> m_rows;
  Remarks m_remarks;
};

template <const Edition& edition>
std::unique_ptr<RawSource> open(const std::filesystem::path& path) {
  return std::make_unique<WindowsUnconfinedSource>(path, edition);
}

Recognition recogniseWindowsUnconfined(const FileHead& head) { return recogniseJet(head, "Data_Collection"); }

constexpr Importer kShared{.title = "WIN版无侧限试验原始数据库",
                           .document = kForm4,
                           .columns = kColumns,
                           .recognise = recogniseWindowsUnconfined,
                           .noSamples = kNoUnconfinedSamples};

constexpr Importer fixedFile() {
  Importer importer = kShared;
  importer.id = "unconfined-win";
  importer.menuCommand = "OWINWCX";
  importer.menuCaption = "WIN版无侧限";
  importer.form = "OPENFORMWINWCX";
  importer.defaultFile = "WCX.dat";
  importer.folderField = sourceFolderField(11);
  importer.messageTitle = "打开无侧限试验数据";
  importer.open = open<kFixedFile>;
  return importer;
}

constexpr Importer chosenFile() {
  Importer importer = kShared;
  importer.id = "unconfined-datx";
  importer.menuCommand = "OWINWCXDAT";
  importer.menuCaption = "WIN版无侧限WCX(X).DATX";
  importer.form = "OPENFORMWINWCXDAT";
  importer.defaultFile = "WCX*.DATX";
  importer.messageTitle = "打开三轴试验数据";
  importer.folderInUse = sourceFolderOf(13).inUse;
  importer.fileFromCommand = true;
  importer.open = open<kChosenFile>;
  return importer;
}

}  // namespace

extern constinit const Importer kWindowsUnconfinedImporter = fixedFile();
extern constinit const Importer kWindowsUnconfinedDatxImporter = chosenFile();

}  // namespace triaxlab
