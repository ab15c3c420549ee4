#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

// The tables that are written for other programs. Each kind of test has two: a line a sample, and a line a reading. A
// table is told by its columns alone; files of every format, and the page that describes them, walk the same columns.

/// Where a reading stands in its record. Each kind of test says what its phases and its stages are.
struct Reading {
  std::uint8_t phase = 0;
  std::uint16_t stage = 0, row = 0;
};

/// What a line of a table tells of.
struct TableLine {
  const Workspace& workspace;
  ProjectKind tests;
  std::size_t row;  // of the sample table
  RecordBytes record;
  Reading reading = {};
};

/// One column, or several of one kind side by side.
struct TableColumn {
  std::string_view name, unit;  // letters and digits; `unit` is empty where there is none
  std::string_view content;     // English, for the page that describes the table
  /// UTF-8. `number` is that of the column among its kind, from 0.
  std::string (*text)(const TableLine& line, std::size_t number);
  std::size_t count = 0;  // how many there are, numbered from 1; 0: one that has no number
};
using TableColumns = std::span<const TableColumn>;

/// What a column is called: name, number and unit. "cohesion_kPa", "cellPressure2_kPa", "sampleNo".
std::vector<std::string> namesOf(const TableColumn& column);

enum class TableContent : std::uint8_t { Results, Readings };

/// The two tables of a kind of test.
struct ExportTables {
  ProjectKind tests;
  TableColumns results, readings;
  /// The readings of a sample in the order of their lines.
  std::vector<Reading> (*readingsOf)(const TableLine& sample);

  TableColumns columns(TableContent content) const { return content == TableContent::Results ? results : readings; }
};

extern const ExportTables kTriaxialTables, kUnconfinedTables, kK0Tables, kTK0Tables;

/// In the order of the kinds of project files.
std::span<const ExportTables* const> exportTables();
/// The tables of a kind; of an old kind of file those of the kind as which its samples are shown.
const ExportTables& exportTablesOf(ProjectKind kind);

}  // namespace triaxlab
