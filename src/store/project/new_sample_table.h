#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>

#include "common/text_number.h"
#include "platform/files.h"
#include "store/project/project_header.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// What older programs kept elsewhere than in the record is settled by the header of the file and the laboratory's
/// format of the cohesion.
struct OpenedHeader {
  const ProjectHeader& header;
  NumberFormat cohesionFormat;
};

/// A sample table between the reading of a file and the moment when it becomes the workspace's.
class NewSampleTable {
 public:
  virtual ~NewSampleTable() = default;
  virtual std::size_t rowCount() const = 0;
  /// The next row from a record of the file; an empty one adds a blank row.
  virtual void add(RecordBytes fileRecord, const OpenedHeader& opened) = 0;
  /// Exchanges it for the workspace's own; nothing fails here.
  virtual void install(Workspace& workspace) = 0;
};

/// A record of today is read as it stands.
template <class Record>
const Record& currentRecord(const Record& record) {
  return record;
}

template <class Record>
void leaveAsRead(Record& /*row*/, const OpenedHeader& /*opened*/) {}

/// The new table of a member of the workspace. `settle` is called for each row when it has been read.
template <auto Table, class FileRecord, auto settle>
class NewTableOf final : public NewSampleTable {
  using TableType = std::remove_cvref_t<decltype(std::declval<Workspace>().*Table)>;

 public:
  std::size_t rowCount() const override { return m_table.used().size(); }
  void add(RecordBytes fileRecord, const OpenedHeader& opened) override {
    static_assert(alignof(FileRecord) == 1);
    if (fileRecord.empty())
      m_table.addRow();
    else
      m_table.addRow(currentRecord(*reinterpret_cast<const FileRecord*>(fileRecord.data())));
    settle(m_table.used().back(), opened);
  }
  void install(Workspace& workspace) override { (workspace.*Table).swap(m_table); }

 private:
  TableType m_table;
};

template <auto Table, class FileRecord, auto settle = leaveAsRead<FileRecord>>
constexpr SampleTableDoor doorTo() {
  return {
      .usedRows = [](const Workspace& workspace) { return (workspace.*Table).used().size(); },
      .record = [](const Workspace& workspace, std::size_t row) -> RecordBytes {
        return bytesOf((workspace.*Table)[row]);
      },
      .clear = [](Workspace& workspace) { (workspace.*Table).clear(); },
      .makeNew = []() -> std::unique_ptr<NewSampleTable> {
        return std::make_unique<NewTableOf<Table, FileRecord, settle>>();
      },
  };
}

}  // namespace triaxlab
