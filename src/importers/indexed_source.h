#pragma once

#include <fmt/core.h>

#include <cstddef>
#include <deque>
#include <filesystem>
#include <span>
#include <utility>
#include <vector>

#include "importers/importer.h"
#include "importers/ku_file.h"
#include "importers/triaxial_import.h"
#include "platform/files.h"

namespace triaxlab {

/// Of a raw record that names its own sample.
template <class RawRecord>
SampleIdentity recordIdentity(const RawRecord& raw) requires requires {
  raw.recordSampleNo;
}
{
  SampleIdentity identity;
  SetText(identity.projectNo, shownText(raw.recordProjectNo.view()));
  SetText(identity.sampleNo, shownText(raw.recordSampleNo.view()));
  identity.testMethod = raw.testMethod;
  return identity;
}

/// A triaxial database with an index, whose entries point at data blocks of specimens. The blocks of the marked rows
/// are read as they stand; then groups of specimens are found their rows; then the workspace is filled.
///
/// What a source has of its own is a Format:
///   Entry, Block, Group                                  an index entry; the data behind it, with `bool isWhole`; what
///                                                        fills a row or joins one
///   std::vector<Entry> readIndex(const File&, Remarks&)  blank entries where the file ends
///   SourceRow gridRow(const Entry&)
///   Block readBlock(const File&, const Entry&)           blank where the file ends
///   void addGroups(const Block&, const SourceRow&, TriaxialImportPlan&, std::vector<Group>&)
///                                                        each group to both lists; the project date. The groups may
///                                                        point into the block
///   void fill(const Group&, TriaxialSampleRecord&)       see TriaxialImportPlan::Fill
template <class Format>
class IndexedSource : public RawSource {
 public:
  explicit IndexedSource(std::filesystem::path path, Format format = {})
      : m_path(std::move(path)), m_format(std::move(format)) {
    m_index = m_format.readIndex(File(m_path, File::Mode::Read), m_remarks);
    for (const auto& entry : m_index) m_rows.push_back(m_format.gridRow(entry));
  }

  std::span<const SourceRow> rows() const override { return m_rows; }
  const Remarks& remarks() const override { return m_remarks; }

  ImportReport read(std::span<const std::size_t> marked, Workspace& workspace,
                    const Progress& progress) const override {
    const File file(m_path, File::Mode::Read);
    std::deque<typename Format::Block> blocks;
    std::vector<typename Format::Group> groups;
    TriaxialImportPlan plan;
    Remarks remarks;
    for (const std::size_t row : marked) {
      const auto& block = blocks.emplace_back(m_format.readBlock(file, m_index.at(row)));
      if (!block.isWhole) remarks.push_back(cutShortRemark(m_path, fmt::format("第{}行的数据", row + 1)));
      m_format.addGroups(block, m_rows.at(row), plan, groups);
    }
    const auto fill = [&](std::size_t number, TriaxialSampleRecord& record) { m_format.fill(groups[number], record); };
    return plan.carryOut(workspace, fill, std::move(remarks), progress);
  }

 private:
  std::filesystem::path m_path;
  Format m_format;
  std::vector<typename Format::Entry> m_index;
  std::vector<SourceRow> m_rows;
  Remarks m_remarks;
};

}  // namespace triaxlab
