#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "charts/column_title.h"
#include "platform/drawing_surface.h"
#include "reports/print_job.h"
#include "reports/report.h"
#include "store/workspace.h"
#include "triaxial/record.h"

namespace triaxlab {

// Readings of triaxial stages on paper. One stage follows the other, each beginning a page; the sheets are framed and
// headed alike.

/// What of a stage stands on one page.
struct StageReadings {
  const TriaxialSampleRecord& record;
  std::size_t stage;
  std::span<const std::size_t> rows;  // of the record
};

/// What a table of readings has of its own.
struct StageTableForm {
  const char* title;
  std::size_t readingsPerPage;
  /// The rows of the record that the table of a stage shows; a stage without any has no page.
  std::vector<std::size_t> (*readings)(const TriaxialSampleRecord& record, std::size_t stage);
  /// Draws heads, rules and readings, and returns how many lines of the page they take.
  std::size_t (*draw)(DrawingSurface& surface, const StageReadings& page, Stroke rule);
  /// What stands below the foot of a stage, from `y` on; null: nothing.
  void (*drawBelowFoot)(DrawingSurface& surface, const TriaxialSampleRecord& record, std::size_t stage, double y);
};

std::unique_ptr<Report> makeStageTables(const StageTableForm& form, const PrintJob& job, const Workspace& workspace);

/// The type of a table, its readings and what stands below.
inline const Font kTableFont{.size = 10};
inline constexpr double kTableLeft = 600, kTableRight = 11300;

/// One block of columns on a sheet: rules over and under its heads and below its last line.
class TableColumns {
 public:
  /// The columns stand side by side from `left` on.
  TableColumns(double left, std::span<const double> widths);

  /// `column` counts from 0; so does `line`, below the heads.
  void drawHead(DrawingSurface& surface, std::size_t column, const ColumnTitle& title) const;
  void drawLine(DrawingSurface& surface, std::size_t line, std::span<const std::string> texts) const;
  void drawRules(DrawingSurface& surface, std::size_t lines, Stroke rule) const;

 private:
  struct Column {
    double centre, width;
  };
  double m_left, m_right;
  std::vector<Column> m_columns;
};

}  // namespace triaxlab
