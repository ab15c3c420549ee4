// A workbook of 1001 full CU samples, 14 million cells, in the older format, beside what the library for the newer one
// takes for the same cells when it is given nothing but cells: its rows kept in a temporary file, as we use it too.
// `ratio` is the figure to watch; `peak_MB` is the most memory that this process ever had, `file_MB` what it wrote.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <xlsxwriter.h>

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "full_sample.h"
#include "timing.h"
#include "triaxial/opening_pass.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

/// Every reading of both phases, reduced as its window does.
void fillTable(Workspace& workspace) {
  for (std::size_t number = 0; number < kTableRows; ++number) {
    TriaxialSampleRecord record = fullSample(number);
    for (std::size_t stage = 0; stage < kStages; ++stage) {
      for (std::size_t row = 0; row < kConsolidationRows; ++row) {
        record.consolidationTime[row][stage] = static_cast<std::int32_t>(60 * row * row);
        record.consolidationPorePressure[row][stage] = static_cast<std::int16_t>(985 - 5 * row);
        record.consolidationVolume[row][stage] = static_cast<std::int16_t>(7 * row + 1);
      }
      for (std::size_t row = 0; row < kShearRows; ++row)
        record.volumeChange[row][stage] = static_cast<std::int16_t>(3 * row + 1);
    }
    workspace.TriaxialSampleTable.addRow(record);
  }
  runOpeningPass(workspace.TriaxialSampleTable.used(), NumberFormat::Whole);
}

/// Keeps the rows of a workbook.
class KeptRows : public SheetWriter {
 public:
  SheetSize largestSheet() const override { return {65536, 256}; }
  void beginSheet(std::string_view /*name*/) override {}
  void addRow(std::span<const SheetCell> cells) override { rows.emplace_back(cells.begin(), cells.end()); }
  void finish() override {}
  std::vector<SheetRow> rows;
};

std::vector<SheetRow> rowsOfOneSample(const Workspace& workspace) {
  Workspace one;
  one.TriaxialSampleTable.addRow(workspace.TriaxialSampleTable[0]);
  KeptRows kept;
  Workbook workbook(kept);
  workbookFormOf(ProjectKind::Triaxial).addSamples(one, workbook, {});
  return kept.rows;
}

void writeByLibrary(const std::filesystem::path& file, const std::vector<SheetRow>& sample) {
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* const workbook = workbook_new_opt(file.c_str(), &options);
  lxw_worksheet* const sheet = workbook_add_worksheet(workbook, nullptr);
  std::vector<lxw_format*> formats;
  for (const char* display : {"0", "0.0", "0.00", "0.000"})
    format_set_num_format(formats.emplace_back(workbook_add_format(workbook)), display);
  lxw_row_t next = 0;
  for (std::size_t number = 0; number < kTableRows; ++number)
    for (const SheetRow& row : sample) {
      for (std::size_t column = 0; column < row.size(); ++column) {
        const auto at = static_cast<lxw_col_t>(column);
        if (const auto* const value = std::get_if<SheetNumber>(&row[column]))
          worksheet_write_number(sheet, next, at, value->value, formats[static_cast<std::size_t>(value->decimals)]);
        else if (const auto* const text = std::get_if<std::string>(&row[column]))
          worksheet_write_string(sheet, next, at, text->c_str(), nullptr);
      }
      ++next;
    }
  workbook_close(workbook);
}

double peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

void TriaxialWorkbook(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path();
  const auto older = folder / "triaxlab_bench.xls", newer = folder / "triaxlab_bench.xlsx";
  Workspace workspace;
  fillTable(workspace);
  const std::vector<SheetRow> sample = rowsOfOneSample(workspace);
  double peak = 0;
  const auto ours = [&] {
    writeSamples(workspace, workbookFormOf(ProjectKind::Triaxial), older);
    peak = peakMegabytes();
  };
  compare(state, Seconds::Computed, ours, [&] { writeByLibrary(newer, sample); });
  constexpr double kMegabyte = 1 << 20;
  state.counters["peak_MB"] = peak;
  state.counters["file_MB"] = static_cast<double>(std::filesystem::file_size(older)) / kMegabyte;
  std::filesystem::remove(older);
  std::filesystem::remove(newer);
}
BENCHMARK(TriaxialWorkbook)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace triaxlab
