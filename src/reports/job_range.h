#pragma once

#include <cstddef>
#include <vector>

#include "reports/print_job.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// Numbers first to last, counted from 1; empty when last is below first.
struct NumberRange {
  int first = 1, last = 0;
  bool isEmpty() const { return last < first; }
  bool operator==(const NumberRange&) const = default;
};

/// The pair of numbers of a dialog as a range among `count`: a number below 1 counts as 1, one above the count as the
/// count, and the smaller comes first.
NumberRange rangeAmong(int from, int to, int count);

/// The rows of the samples of a kind that the job prints, in the order of their table.
std::vector<std::size_t> chosenRows(const PrintJob& job, const Workspace& workspace, ProjectKind kind);

/// The pages that a job of `pageCount` pages sends.
NumberRange chosenPages(const PrintJob& job, int pageCount);

}  // namespace triaxlab
