#include "store/project/sample_rows.h"

#include <algorithm>
#include <array>

namespace triaxlab {
namespace {

template <auto Table>
std::span<const std::byte> bytesOfTable(const Workspace& workspace) {
  return std::as_bytes(std::span(workspace.*Table));
}

struct TableOfKind {
  ProjectKind kind;
  std::span<const std::byte> (*bytes)(const Workspace&);
};
constexpr std::array kTables{
    TableOfKind{ProjectKind::Triaxial, bytesOfTable<&Workspace::TriaxialSampleTable>},
    TableOfKind{ProjectKind::Unconfined, bytesOfTable<&Workspace::UnconfinedSampleTable>},
    TableOfKind{ProjectKind::K0, bytesOfTable<&Workspace::K0SampleTable>},
    TableOfKind{ProjectKind::TK0, bytesOfTable<&Workspace::TK0SampleTable>},
};

}  // namespace

SampleRows::SampleRows(const Workspace& workspace, ProjectKind kind) {
  const ProjectKindInfo& info = infoOf(infoOf(kind).documentKind);
  const auto* const table =
      std::find_if(kTables.begin(), kTables.end(), [&info](const TableOfKind& row) { return row.kind == info.kind; });
  m_bytes = table->bytes(workspace);
  m_recordSize = info.recordSize;
  m_sampleNoWidth = info.sampleNoWidth;
  m_hasTestMethod = info.kind == ProjectKind::Triaxial;
}

std::uint8_t SampleRows::testMethod(std::size_t row) const {
  if (!m_hasTestMethod) return 0;
  return std::to_integer<std::uint8_t>(record(row)[offsetof(TriaxialSampleRecord, testMethod)]);
}

std::string_view SampleRows::textAt(std::size_t row, std::size_t offset, std::size_t width) const {
  const std::span<const std::byte> field = record(row).subspan(offset, width);
  return Trim({reinterpret_cast<const char*>(field.data()), field.size()});
}

}  // namespace triaxlab
