#include "store/project/sample_rows.h"

#include "common/fixed_text.h"

namespace triaxlab {

SampleRows::SampleRows(const Workspace& workspace, ProjectKind kind) : m_workspace(workspace), m_info(infoOf(kind)) {}

std::uint8_t SampleRows::testMethod(std::size_t row) const {
  const std::optional<std::size_t> offset = m_info.identity.testMethodOffset;
  return offset ? std::to_integer<std::uint8_t>(record(row)[*offset]) : std::uint8_t{0};
}

std::string_view SampleRows::textAt(std::size_t row, std::size_t offset, std::size_t width) const {
  const RecordBytes field = record(row).subspan(offset, width);
  return Trim({reinterpret_cast<const char*>(field.data()), field.size()});
}

}  // namespace triaxlab
