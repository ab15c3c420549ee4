#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "exports/export_file.h"
#include "exports/table_formats.h"
#include "store/workspace.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {

/// Writes the tables of a workspace and reads them back.
class ExportTest : public ::testing::Test {
 protected:
  /// The lines of a table without their ends.
  std::vector<std::string> lines(ProjectKind kind, TableContent content, std::string_view format = "csv") const {
    const std::string bytes = written(kind, content, format);
    const std::string end = format == "csv" ? "\r\n" : "\n";
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t next = bytes.find(end, at);
      lines.push_back(bytes.substr(at, next - at));
      at = next + end.size();
    }
    return lines;
  }
  std::string written(ProjectKind kind, TableContent content, std::string_view format = "csv") const {
    ExportFile table(folder / "table", *tableFormatOfId(format), exportTablesOf(kind), content);
    table.add(workspace);
    table.finish();
    return folder.read("table");
  }

  TemporaryFolder folder;
  Workspace workspace;
};

}  // namespace triaxlab::testing
