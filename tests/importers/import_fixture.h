#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "importers/importer.h"
#include "importers/ku_builder.h"
#include "importers/triaxial_import.h"
#include "platform/files.h"
#include "store/workspace.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {

/// A database in a folder of its own, and the workspace that it is read into.
class ImportTest : public ::testing::Test {
 protected:
  /// Reads all rows of the database.
  ImportReport importFile(std::string_view bytes, std::string_view source = "auto") {
    return importPath(folder.write("HSZSJ.KU", bytes), source);
  }
  ImportReport importAll(const std::vector<Entry>& entries, std::string_view source = "auto") {
    return importFile(kuFile(entries), source);
  }
  ImportReport importPath(const std::filesystem::path& path, std::string_view source = "auto") {
    const auto opened = openRawSource(*importerOfId(source), path);
    std::vector<std::size_t> rows(opened->rows().size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    return opened->read(rows, workspace, {});
  }
  std::unique_ptr<RawSource> openFile(std::string_view bytes, std::string_view source = "auto") {
    return openRawSource(*importerOfId(source), folder.write("HSZSJ.KU", bytes));
  }

  /// The sentence with which the import is refused.
  std::string refusal(std::string_view bytes, std::string_view source) {
    try {
      importFile(bytes, source);
    } catch (const UserError& error) {
      return error.what();
    }
    return "not refused";
  }

  const TriaxialSampleRecord& row(std::size_t index) const { return workspace.TriaxialSampleTable.at(index); }
  /// The text of a field of the first row, without its blanks.
  std::string_view stress(std::size_t i, std::size_t slot = 0) const {
    return row(0).deviatorStress[i][slot].trimmed();
  }
  std::string_view pore(std::size_t i, std::size_t slot = 0) const { return row(0).porePressure[i][slot].trimmed(); }

  TemporaryFolder folder;
  Workspace workspace;
};

inline bool sameBytes(const TriaxialSampleRecord& a, const TriaxialSampleRecord& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

/// The parts of a workspace that an import may change.
struct ImportedState {
  explicit ImportedState(const Workspace& workspace)
      : samples(bytesOfTable(workspace)),
        locations(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable),
        dates(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable),
        rawImportPending(workspace.dataOf(ProjectKind::Triaxial).rawImportPending) {}
  bool operator==(const ImportedState&) const = default;

  std::string samples;
  std::vector<SampleLocation> locations;
  std::array<ProjectDate, kProjectDateRows> dates;
  bool rawImportPending;

 private:
  static std::string bytesOfTable(const Workspace& workspace) {
    const auto rows = std::as_bytes(workspace.TriaxialSampleTable.used());
    return {reinterpret_cast<const char*>(rows.data()), rows.size()};
  }
};

}  // namespace triaxlab::testing
