#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include "importers/importer.h"
#include "store/workspace.h"
#include "triaxial/record.h"

namespace triaxlab {

/// Rows of a record that the fixed-step sources can fill.
inline constexpr std::size_t kImportedShearRows = 52;
inline constexpr std::size_t kImportedConsolidationRows = 25;

/// Strain and time axes of a row from a source that records at fixed steps, in all its slots: a reading each 0.2 % in a
/// test of several stages on one specimen, else each 0.4 %; consolidation at k² minutes and at the end of one day.
void FillSampleTimeAxes(TriaxialSampleRecord& row);

/// Strain that the stages before this one have used up, as a fraction: 0.2 % for each row of theirs, up to the first
/// row without stress. An unused slot in front counts as one row.
double strainOfEarlierStages(const TriaxialSampleRecord& row, std::size_t stage);

/// The table, dates and row counter that an import builds apart from the workspace, so that an import which fails
/// leaves the tables as they were.
class TriaxialImport {
 public:
  TriaxialImport();

  /// The next row of the project date table. UserError when it is full.
  void addProjectDate(const SourceRow& source);
  /// The row that is filled next, blank to begin with.
  TriaxialSampleRecord& row() { return m_sampleCursor < kTableRows ? m_table[m_sampleCursor] : m_rowTooMany; }
  /// Goes on to the next row. UserError when the table is full.
  void keepRow();
  /// If an earlier row has the same sample number, project and method, the specimens of this row go over to it, a
  /// pressure that it has replaced and a new one into its first free slot; this row is blank again. Otherwise keepRow.
  void mergeOrKeepRow();

  /// Fills the axes of all rows and hands everything over to the workspace.
  ImportReport store(Workspace& workspace, Remarks remarks);

 private:
  SampleTable<TriaxialSampleRecord> m_table;
  TriaxialSampleRecord m_rowTooMany;  // a specimen behind the last row may still belong to an earlier one
  std::array<ProjectDate, kProjectDateRows> m_projectDates;
  std::size_t m_projectDateCount = 0;
  std::size_t m_sampleCursor = 0;
};

}  // namespace triaxlab
