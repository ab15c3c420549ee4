// TK0 records: whatever their bytes are, the reduction gives numbers and gives them again, and the charts are drawn.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "k0/charts/ko_chart.h"
#include "k0/charts/stage_chart.h"
#include "k0/ko_line.h"
#include "k0/settlement.h"
#include "platform/files.h"
#include "platform/recording_surface.h"

namespace {

using namespace triaxlab;

void drawCharts(const TK0SampleRecord& record, const PerLoadStage<T90>& results) {
  RecordingSurface surface;
  drawKoChart(surface, record.k0);
  for (std::size_t stage = 0; stage < kLoadStages; ++stage)
    drawStageChart(surface, record, stage, {storedFirstLineOf(record, stage), results[stage]});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TK0SampleRecord record;
  std::copy_n(reinterpret_cast<const std::byte*>(data), std::min(size, sizeof record), writableBytesOf(record).begin());
  const PerLoadStage<T90> results = computeStageResults(record);
  fitKoLine(record.k0);
  for (const T90& t90 : results)
    if (!std::isfinite(t90.rootTime) || !std::isfinite(t90.pressure) || t90.pressure < 0) std::abort();
  const TK0SampleRecord before = record;
  if (computeStageResults(record) != results) std::abort();
  fitKoLine(record.k0);
  if (std::memcmp(&record, &before, sizeof record) != 0) std::abort();
  drawCharts(record, results);
  return 0;
}
