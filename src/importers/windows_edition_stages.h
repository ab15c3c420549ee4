#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "platform/jet_database.h"
#include "triaxial/staged_test.h"

namespace triaxlab {

// How the databases of the triaxial controller's Windows edition hold the stages of a sample:
//
//     Datas_GJ   a row for each stage: its set cell pressure and its sizes
//     Datas      a row for each reading, all phases and stages of a sample in one
//
// Stages are told apart by the seconds of their readings, which count from the start of a phase: where they fall back,
// the next stage has begun. A row of Datas_GJ whose pressure is hardly above the one before it is no stage of its own.

namespace detail {
inline constexpr std::array<std::string_view, 7> kStageTableColumns{"ID",     "StepNO", "SDWY",  "SYQSGD",
                                                                    "GJSSGD", "SYQSMJ", "GJSSMJ"};
inline constexpr std::array<std::string_view, 8> kReadingTableColumns{"ID", "NO",   "TZ", "CJSJ",
                                                                      "FY", "ZYLC", "KY", "PS"};
inline constexpr std::array<std::string_view, 2> kStageOrder{"ID", "StepNO"}, kReadingOrder{"ID", "NO"};
}  // namespace detail
inline constexpr JetTable kStageTable{"Datas_GJ", detail::kStageTableColumns, detail::kStageOrder};
inline constexpr JetTable kReadingTable{"Datas", detail::kReadingTableColumns, detail::kReadingOrder};

/// A number that is computed with, and as its text reads.
struct Quantity {
  double value, decimal;
};

struct WindowsReading {
  double phase, seconds;
  double backPressure;                      // kPa
  Quantity stressDifference, porePressure;  // kPa
  Quantity drained;                         // ml
};

/// What the database has of one sample.
struct WindowsTables {
  JetRows stages;
  std::vector<WindowsReading> readings;
};
WindowsTables tablesOf(const JetDatabase& database, const JetValue& id);

/// Which readings are whose, and how many of them are taken.
struct StageExtent {
  bool (*isConsolidation)(double phase);
  bool (*isShear)(double phase);
  std::size_t stages = std::numeric_limits<std::size_t>::max();
  std::size_t consolidationRows = stages, shearRows = stages;
  std::size_t passedOver = 0;  // readings, of whatever phase, behind each of the shear
};

/// The stages of a sample with their effective cell pressures; one that has readings and no row has none. All are
/// strained at the one rate, 1/1000 %/min.
std::vector<TestStage> stagesOf(const WindowsTables& tables, std::int16_t shearRate, const StageExtent& extent);

/// 1/1000 %/min; 0 when it is out of range.
std::int16_t shearRateOf(const JetValue& percentPerMinute);
/// A code that a record keeps in a byte; 0 when it doesn't fit.
std::uint8_t byteOf(const JetValue& code);
/// yyyy/mm/dd, or the text itself when it is no date.
std::string slashedDate(const std::string& date);

}  // namespace triaxlab
