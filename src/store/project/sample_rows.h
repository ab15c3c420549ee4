#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// The table of a kind of test, whatever its records are: they all begin with project number and sample number. A view,
/// valid as long as the table is; rows count from 0.
class SampleRows {
 public:
  SampleRows(const Workspace& workspace, ProjectKind kind);

  /// The rows that may be live: those behind them are blank.
  std::size_t size() const { return m_info.table.usedRows(m_workspace); }
  RecordBytes record(std::size_t row) const { return m_info.table.record(m_workspace, row); }

  // Texts are GBK, trimmed.
  std::string_view projectNo(std::size_t row) const { return textAt(row, 0, kProjectNoWidth); }
  std::string_view sampleNo(std::size_t row) const {
    return textAt(row, kProjectNoWidth, m_info.identity.sampleNoWidth);
  }
  /// In triaxial files it is a part of the sample's identity; 0 for the other kinds.
  std::uint8_t testMethod(std::size_t row) const;
  /// A row without project or sample number is an empty slot, which all work passes over.
  bool isLive(std::size_t row) const { return !projectNo(row).empty() && !sampleNo(row).empty(); }

 private:
  static constexpr std::size_t kProjectNoWidth = 15;
  std::string_view textAt(std::size_t row, std::size_t offset, std::size_t width) const;

  const Workspace& m_workspace;
  const ProjectKindInfo& m_info;
};

}  // namespace triaxlab
