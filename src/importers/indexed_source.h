#pragma once

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <iterator>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "common/gbk.h"
#include "importers/import_plan.h"
#include "importers/importer.h"
#include "importers/ku_file.h"
#include "platform/files.h"

namespace triaxlab {

/// Of a raw record that names its own sample.
template <class Record, class RawRecord>
SampleIdentity<Record> recordIdentity(const RawRecord& raw) {
  SampleIdentity<Record> identity;
  SetText(identity.projectNo, shownText(raw.recordProjectNo.view()));
  SetText(identity.sampleNo, shownText(raw.recordSampleNo.view()));
  identity.testMethod = raw.testMethod;
  return identity;
}

/// A data block that is specimens one by one.
template <class RawSpecimen>
struct SpecimenBlock {
  RawRecords<RawSpecimen> specimens;
  bool isWhole = true;
};

/// A database with an index, whose entries point at data blocks. The blocks of the marked rows are read as they stand;
/// then groups of specimens are found their rows; then the workspace is filled.
///
/// What a source has of its own is a Format of static members:
///   Record                                               of the table that it fills
///   Entry, Block, Group                                  an index entry; the data behind it, with `bool isWhole`; what
///                                                        fills a row or joins one
///   std::vector<Entry> readIndex(const File&, Remarks&)  blank entries where the file ends
///   SourceRow gridRow(const Entry&)
///   Block readBlock(const File&, const Entry&)           blank where the file ends
///   void addGroups(const Block&, const SourceRow&, ImportPlan<Record>&, std::vector<Group>&)
///                                                        each group to both lists; the project date. The groups may
///                                                        point into the block
///   void fill(const Group&, Record&)                     see ImportPlan::Fill
/// A source that needs more than its file has also
///   Aids                                                 made from the workspace when rows are read, and given to
///                                                        readBlock as a third argument; `Remarks remarks() const`
///                                                        tells at the end what was missing
template <class Format>
class IndexedSource : public RawSource {
 public:
  using Record = typename Format::Record;

  explicit IndexedSource(std::filesystem::path path) : m_path(std::move(path)) {
    m_index = Format::readIndex(File(m_path, File::Mode::Read), m_remarks);
    for (const auto& entry : m_index) m_rows.push_back(Format::gridRow(entry));
  }

  std::span<const SourceRow> rows() const override { return m_rows; }
  const Remarks& remarks() const override { return m_remarks; }

  ImportReport read(std::span<const std::size_t> marked, Workspace& workspace,
                    const Progress& progress) const override {
    const File file(m_path, File::Mode::Read);
    std::deque<typename Format::Block> blocks;
    std::vector<typename Format::Group> groups;
    ImportPlan<Record> plan;
    Remarks remarks;
    auto aids = aidsFrom(workspace);
    const auto readBlock = [&](const typename Format::Entry& entry) {
      if constexpr (requires { Format::readBlock(file, entry, aids); })
        return Format::readBlock(file, entry, aids);
      else
        return Format::readBlock(file, entry);
    };
    for (const std::size_t row : marked) {
      const auto& block = blocks.emplace_back(readBlock(m_index.at(row)));
      if (!block.isWhole) remarks.push_back(cutShortRemark(m_path, fmt::format("第{}行的数据", row + 1)));
      Format::addGroups(block, m_rows.at(row), plan, groups);
    }
    std::ranges::move(aids.remarks(), std::back_inserter(remarks));
    const auto fill = [&](std::size_t number, Record& record) { Format::fill(groups[number], record); };
    ImportReport report = plan.carryOut(workspace, fill, std::move(remarks), progress);
    workspace.dataOf(kTestsOf<Record>).rawImportPending = true;
    return report;
  }

 private:
  struct NoAids {
    static Remarks remarks() { return {}; }
  };
  static auto aidsFrom([[maybe_unused]] const Workspace& workspace) {
    if constexpr (requires { typename Format::Aids; })
      return typename Format::Aids(workspace);
    else
      return NoAids();
  }

  std::filesystem::path m_path;
  std::vector<typename Format::Entry> m_index;
  std::vector<SourceRow> m_rows;
  Remarks m_remarks;
};

/// What Importer::open is for such a source.
template <class Format>
std::unique_ptr<RawSource> openIndexed(const std::filesystem::path& path) {
  return std::make_unique<IndexedSource<Format>>(path);
}

/// addGroups of a source whose specimens are groups of their own. Format has also
///   bool isSpecimen(const RawSpecimen&)
///   kGathering                           how they find their rows
template <class Format, class RawSpecimen>
void addEachSpecimen(const SpecimenBlock<RawSpecimen>& block, const SourceRow& source,
                     ImportPlan<typename Format::Record>& plan, std::vector<const RawSpecimen*>& groups) {
  plan.projects.addDate(source);
  for (const RawSpecimen& raw : block.specimens) {
    if (!Format::isSpecimen(raw)) continue;
    plan.addGroup(recordIdentity<typename Format::Record>(raw), Format::kGathering);
    groups.push_back(&raw);
  }
}

/// Columns of the grid that many sources share.
inline constexpr SourceColumn kProjectNoColumn{"工程编号", 1500}, kDateColumn{"试验日期", 1500},
    kGroupsColumn{"组 数", 800, true}, kSpecimensColumn{"试样个数", 1000, true};

/// The row of an entry that shows project, date and number of groups.
inline constexpr std::array kGroupsRowColumns{kProjectNoColumn, kDateColumn, kGroupsColumn};
template <class Entry>
SourceRow groupsRow(const Entry& entry) {
  SourceRow row;
  row.projectNo = shownText(entry.entryProjectNo.view());
  row.testDate = slashedEntryDate(entry.entryDate);
  row.cells = {gbkToUtf8(row.projectNo), gbkToUtf8(row.testDate), fmt::format("{}", entry.entryGroupCount)};
  return row;
}

/// What a Format takes over whose index has nothing of its own in it.
struct GroupsIndex {
  using Entry = KuIndexEntry<FixedText<8>>;  // the tail is not used

  static std::vector<Entry> readIndex(const File& file, Remarks& remarks) {
    return readKuIndex<FixedText<8>>(file, remarks);
  }
  static SourceRow gridRow(const Entry& entry) { return groupsRow(entry); }
};

}  // namespace triaxlab
