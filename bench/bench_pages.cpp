// Jobs of 100 three-in-one pages and of 100 chart sheets of two by two: working out and drawing the curves, onto
// nothing, and into a file of drawing operations.

#include <benchmark/benchmark.h>

#include <filesystem>

#include "page_jobs.h"
#include "platform/json_page_device.h"

namespace triaxlab {
namespace {

constexpr int kPages = 100;

void print(const Job& job, PageDevice& device) {
  static const Workspace samples = fullSamples(kPages);
  print(job, samples, kPages, device);
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
