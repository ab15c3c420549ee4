#pragma once

#include "windows/controls/grid_view.h"
#include "windows/controls/words.h"

namespace triaxlab {

/// What a grid shows of a session that tells its columns, its number of rows and the text of each cell. The session
/// must outlive the grid.
template <class Session>
GridContent contentOf(const Session& session) {
  GridContent content;
  for (const auto& column : session.columns())
    content.columns.push_back({words(column.heading), column.width, column.isCount});
  content.rowCount = [&session] { return static_cast<int>(session.rowCount()); };
  content.cell = [&session](int row, int column) {
    using Index = decltype(session.rowCount());
    return words(session.cell(static_cast<Index>(row), static_cast<Index>(column)));
  };
  return content;
}

}  // namespace triaxlab
