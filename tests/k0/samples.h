#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k0/record.h"

namespace triaxlab::testing {

/// A row of a stage's series.
struct SettlementRow {
  std::int32_t seconds;
  std::string deformation, pressure;
};

/// Puts rows behind the zero reading of a stage.
inline void setRows(TK0SampleRecord& record, std::size_t stage, const std::vector<SettlementRow>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    record.elapsedSeconds[i + 1] = rows[i].seconds;
    SetText(record.deformationSeries[i + 1][stage], rows[i].deformation);
    SetText(record.pressureSeries[i + 1][stage], rows[i].pressure);
  }
}

/// A sample whose first stage of 100 kPa has these rows behind the zero reading.
inline TK0SampleRecord withRows(const std::vector<SettlementRow>& rows) {
  TK0SampleRecord record;
  SetText(record.k0.axialPressure[0], "100.0");
  setRows(record, 0, rows);
  return record;
}

/// Readings after 1, 4, 9, 16 and 25 minutes on a line of 0.1 mm per root of a minute, then one that falls back.
inline std::vector<SettlementRow> lineAndBend() {
  return {{60, "0.100", "10.0"},  {240, "0.200", "20.0"},  {540, "0.300", "30.0"},
          {960, "0.400", "40.0"}, {1500, "0.500", "50.0"}, {2160, "0.520", "60.0"}};
}

}  // namespace triaxlab::testing
