// Jobs of 100 three-in-one pages and of 100 chart sheets of two by two: working out and drawing the curves, onto
// nothing, and into a file of drawing operations.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "full_sample.h"
#include "platform/json_page_device.h"
#include "reports/chart_sheets.h"
#include "reports/send_report.h"
#include "reports/three_in_one.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

constexpr int kPages = 100;

/// As many curves a sample as a page has blocks, so that each is a page.
struct Job {
  const Layout& layout;
  PrintJob job;
};

Job threeInOne() {
  Job made{kThreeInOne, {}};
  made.job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  return made;
}

Job chartSheets() {
  Job made{kChartSheets, {}};
  made.job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope, CurvePage::StressPath,
                           CurvePage::PorePressure};
  made.job.sheet.rows = made.job.sheet.columns = 2;
  return made;
}

const Workspace& samples() {
  static const std::unique_ptr<const Workspace> theSamples = [] {
    auto workspace = std::make_unique<Workspace>();
    for (std::size_t row = 0; row < kPages; ++row) workspace->TriaxialSampleTable[row] = fullSample(row);
    runOpeningPass(workspace->TriaxialSampleTable.used(), NumberFormat::Whole);
    return workspace;
  }();
  return *theSamples;
}

void print(const Job& job, PageDevice& device) {
  if (sendReport(*job.layout.make(job.job, samples()), job.job, device) != kPages)
    throw std::logic_error("not the pages of this benchmark");
}

/// Takes drawings and keeps nothing of them.
class NoDevice : public PageDevice, private DrawingSurface {
 public:
  DrawingSurface& beginPage(PageSize) override { return *this; }
  void endPage() override {}
  void finish() override {}

 private:
  void line(Point, Point, Stroke) override {}
  void box(Point, Point, Stroke, std::optional<Colour>) override {}
  void circle(Point, double, Stroke, std::optional<Colour>) override {}
  void polyline(std::span<const Point>, Stroke) override {}
  void text(Point, std::string_view, const Font&, Colour, bool) override {}
};

void DrawOntoNothing(benchmark::State& state, const Job& job) {
  NoDevice device;
  for (auto _ : state) print(job, device);
}
BENCHMARK_CAPTURE(DrawOntoNothing, threeInOne, threeInOne())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawOntoNothing, chartSheets, chartSheets())->Unit(benchmark::kMillisecond);

void WriteDrawingOperations(benchmark::State& state, const Job& job) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "triaxlab-bench-pages.json";
  for (auto _ : state) print(job, *makeJsonDevice(file));
  std::filesystem::remove(file);
}
BENCHMARK_CAPTURE(WriteDrawingOperations, threeInOne, threeInOne())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WriteDrawingOperations, chartSheets, chartSheets())->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
