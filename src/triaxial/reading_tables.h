#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "charts/column_title.h"
#include "triaxial/derived_columns.h"
#include "triaxial/failure.h"
#include "triaxial/record.h"

namespace triaxlab {

// The readings of one stage as tables: 三轴试验数据表 of the shear phase, 固结数据表 of the consolidation. All texts
// are UTF-8.

/// What stands above either table.
struct TableHeading {
  std::string project;   // 工程编号:2024-018
  std::string sample;    // 试样编号:ZK1-03
  std::string pressure;  // 周围压力:100 kPa
  std::string date;      // 试验日期:2024-05-06
  std::string test;      // 多级固结不排水试验
  std::string rate;      // 剪切速率:0.080%/min, without a number for a rate of 0
  bool operator==(const TableHeading&) const = default;
};

/// The label of the project number is the laboratory's; the date is the caller's to find.
TableHeading tableHeading(const TriaxialSampleRecord& record, std::size_t stage, std::string_view projectNoLabel,
                          std::string_view testDate);

/// The values below either table, kPa.
struct TableFoot {
  std::string startPorePressure;    // of the consolidation, "0.0"
  std::string failurePorePressure;  // of the failure row; four blanks for CD
  std::string deviatorStress;       // σ1f - σ3, "0"
  bool operator==(const TableFoot&) const = default;
};
inline constexpr const char* kStartPorePressure = "起始孔压:";
inline constexpr const char* kFailurePorePressure = "破坏孔压:";
inline constexpr const char* kFailureStress = "σ1 -σ3 :";
inline constexpr const char* kTableUnit = "kPa";

/// The failure row is searched anew in the mode, and nothing of it is stored.
TableFoot tableFoot(const TriaxialSampleRecord& record, std::size_t stage, FailureMode mode);

// ---- 三轴试验数据表

struct DataTableColumn {
  ColumnTitle title;
  DerivedColumn value;
};
/// Twelve for CU; the others lack the five of effective stresses.
std::span<const DataTableColumn> dataTableColumns(const TriaxialSampleRecord& record);

/// Whether the row is shown. Its strain alone doesn't tell: sources of a fixed step fill the strain of all rows.
bool hasReading(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row);
/// One text a column; none at all for a row without a reading. Pre: row < kShearRows.
std::vector<std::string> dataTableRow(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row);

// ---- 固结数据表

enum class ConsolidationColumn : std::uint8_t { Number, Time, PorePressure, Volume };
inline constexpr std::size_t kConsolidationColumns = 4;
extern const std::array<ColumnTitle, kConsolidationColumns> kConsolidationTitles;

using ConsolidationTexts = std::array<std::string, kConsolidationColumns>;
/// 序号, 时间 (min), 孔压 (kPa), 排水 (ml). The first reading starts the clock and the burette whatever is stored.
/// Pre: row < kConsolidationRows.
ConsolidationTexts consolidationRow(const TriaxialSampleRecord& record, std::size_t stage, std::size_t row);

/// What a typed text makes of a reading: minutes become whole seconds, kPa tenths, ml hundredths, each through its
/// integer conversion; a text that reads as no number is 0. A number that doesn't fit leaves the reading as it was, and
/// 序号 is not typed. True when the record has changed.
bool storeConsolidationReading(TriaxialSampleRecord& record, std::size_t stage, std::size_t row,
                               ConsolidationColumn column, std::string_view text);

/// 起始孔压 as it is typed beside its label: tenths below the number are dropped downward, not rounded. B follows when
/// the sample is next opened, if it still is 0. True when the record has changed.
bool storeStartPorePressure(TriaxialSampleRecord& record, std::size_t stage, std::string_view text);

}  // namespace triaxlab
