// Calibration tables of the K0 stations: whatever the text is, it gives at most 64 channels, and every raw word a
// number.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "importers/pressure_calibration.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using triaxlab::PressureCalibration;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  PressureCalibration calibration;
  calibration.add(text.substr(0, size / 2));
  calibration.add(text);
  if (calibration.channelCount() > PressureCalibration::kMostChannels) std::abort();
  for (const std::size_t channel : {std::size_t{0}, calibration.channelCount() / 2, calibration.channelCount()})
    for (int raw = INT16_MIN; raw <= INT16_MAX; raw += 257)
      if (!std::isfinite(calibration.pressureAt(static_cast<std::int16_t>(raw), channel))) std::abort();
  return 0;
}
