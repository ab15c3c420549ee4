// Jobs of 10 to 2000 pages into a PDF: how long a page takes, how large the file is, and how much memory the job needs.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <filesystem>

#include "page_jobs.h"
#include "platform/pdf_device.h"

namespace triaxlab {
namespace {

double peakMB() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  return static_cast<double>(used.ru_maxrss) / 1024;
}

/// `grownMB` is how much the peak of the memory rose: what the job's samples need has been there before.
void PagesToPdf(benchmark::State& state, const Job& job, int pagesOfSample) {
  const auto pages = static_cast<int>(state.range(0));
  const Workspace workspace = fullSamples(static_cast<std::size_t>(pages / pagesOfSample));
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "triaxlab-bench-pages.pdf";
  const double before = peakMB();
  for (auto _ : state) print(job, workspace, pages, *makePdfDevice(file, {}));
  state.counters["grownMB"] = peakMB() - before;
  state.counters["fileMB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
  state.SetItemsProcessed(state.iterations() * pages);
  std::filesystem::remove(file);
}
/// Two pages a sample, for more pages than a table has rows.
Job fourCurves() { return {kThreeInOne, chartSheets().job}; }

BENCHMARK_CAPTURE(PagesToPdf, threeInOne, threeInOne(), 1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PagesToPdf, fourCurves, fourCurves(), 2)->Arg(10)->Arg(100)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PagesToPdf, chartSheets, chartSheets(), 1)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
