// What a person waits for who presses 预 览: a job of the whole table, 1001 samples with every row filled, is laid out
// and its first sheet is painted in the window. On the platform without a display.

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPixmap>
#include <memory>
#include <stdexcept>

#include "full_sample.h"
#include "reports/layouts.h"
#include "sessions/dialogs/print_dialog_session.h"
#include "support/fake_dialogs.h"
#include "triaxial/opening_pass.h"
#include "windows/dialogs/print_preview_window.h"
#include "windows/lone_application.h"

namespace triaxlab {
namespace {

Workspace& fullTable() {
  static const std::unique_ptr<Workspace> theTable = [] {
    auto workspace = std::make_unique<Workspace>();
    for (std::size_t row = 0; row < kTableRows; ++row) {
      TriaxialSampleRecord& sample = workspace->TriaxialSampleTable[row] = fullSample(row);
      for (std::size_t reading = 0; reading < sample.consolidationTime.size(); ++reading)
        sample.consolidationTime[reading].fill(static_cast<std::int32_t>(60 * reading));
    }
    runOpeningPass(workspace->TriaxialSampleTable.used(), NumberFormat::Whole);
    return workspace;
  }();
  return *theTable;
}

void FirstPictureOfAPreview(benchmark::State& state, const PrintForm& form, const char* layout, int sheets) {
  makeApplication();
  testing::FakeDialogs dialogs;
  PrintDialogSession session(form, *layoutOfId(layout), fullTable(), dialogs, {});
  for (const PrintTick tick : form.ticks)
    if (tick <= PrintTick::StressRatio) session.setTicked(tick, true);
  for (auto _ : state) {
    const auto job = session.preview();
    if (job->sheets.count() != sheets) throw std::logic_error("not the sheets of this benchmark");
    PrintPreview preview(nullptr, *job, [](int) {});
    preview.show();
    benchmark::DoNotOptimize(preview.grab().toImage().constBits());
  }
}
// Six curves of each sample, two blocks to a page; five stages of 212 readings, 40 to a page.
BENCHMARK_CAPTURE(FirstPictureOfAPreview, threeInOne, kThreeInOneForm, "three-in-one", 1001 * 3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstPictureOfAPreview, chartSheets, kChartSheetForm, "chart", 1001 * 6)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstPictureOfAPreview, triaxialTable, kTriaxialTableForm, "triaxial-table", 1001 * 5 * 6)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace triaxlab
