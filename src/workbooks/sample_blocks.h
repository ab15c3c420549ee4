#pragma once

#include <cstddef>
#include <functional>

#include "common/progress.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"
#include "workbooks/test_block.h"
#include "workbooks/workbook.h"

namespace triaxlab {

/// Adds to a block, which has its head, what is told of the sample in a row.
using SampleWriter = std::function<void(SheetBlock& block, std::size_t row)>;

/// A block for each row of the table that has a project number, with a step of progress each. One without a sample
/// number is written as it stands.
void addSampleBlocks(const Workspace& workspace, ProjectKind tests, Workbook& workbook, const Progress& progress,
                     const SampleWriter& write);

}  // namespace triaxlab
