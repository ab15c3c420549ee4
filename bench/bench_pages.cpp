// A job of 100 three-in-one pages: working out and drawing the curves, onto nothing, and into a file of drawing
// operations.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "full_sample.h"
#include "platform/json_page_device.h"
#include "reports/send_report.h"
#include "reports/three_in_one.h"
#include "triaxial/opening_pass.h"

namespace triaxlab {
namespace {

constexpr int kPages = 100;

/// Two blocks a sample, so that each is a page.
struct Job {
  Workspace workspace;
  PrintJob job;

  Job() {
    for (std::size_t row = 0; row < kPages; ++row) workspace.TriaxialSampleTable[row] = fullSample(row);
    runOpeningPass(workspace.TriaxialSampleTable.used(), NumberFormat::Whole);
    job.curves.pages = {CurvePage::StressStrain, CurvePage::StressDifferenceEnvelope};
  }
  void print(PageDevice& device) const {
    if (sendReport(*kThreeInOne.make(job, workspace), job, device) != kPages)
      throw std::logic_error("not the pages of this benchmark");
  }
};

const Job& theJob() {
  static const Job job;
  return job;
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

void DrawOntoNothing(benchmark::State& state) {
  NoDevice device;
  for (auto _ : state) theJob().print(device);
}
BENCHMARK(DrawOntoNothing)->Unit(benchmark::kMillisecond);

void WriteDrawingOperations(benchmark::State& state) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "triaxlab-bench-pages.json";
  for (auto _ : state) theJob().print(*makeJsonDevice(file));
  std::filesystem::remove(file);
}
BENCHMARK(WriteDrawingOperations)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
