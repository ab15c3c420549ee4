#include "reports/job_range.h"

#include <algorithm>

#include "store/project/sample_rows.h"

namespace triaxlab {

NumberRange rangeAmong(int from, int to, int count) {
  if (count < 1) return {};
  const int first = std::clamp(from, 1, count), last = std::clamp(to, 1, count);
  return {std::min(first, last), std::max(first, last)};
}

std::vector<std::size_t> chosenRows(const PrintJob& job, const Workspace& workspace, ProjectKind kind) {
  const SampleRows table(workspace, kind);
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < table.size(); ++row)
    if (table.isLive(row)) rows.push_back(row);
  if (job.scope == PrintScope::Current) std::erase_if(rows, [&](std::size_t row) { return row != job.currentRow; });
  if (job.scope != PrintScope::Range) return rows;
  const auto [first, last] = rangeAmong(job.printRangeFrom, job.printRangeTo, static_cast<int>(rows.size()));
  if (first > last) return {};
  return {rows.begin() + first - 1, rows.begin() + last};
}

NumberRange chosenPages(const PrintJob& job, int pageCount) {
  if (job.scope == PrintScope::Pages) return rangeAmong(job.printRangeFrom, job.printRangeTo, pageCount);
  if (job.printAuxFrom != 0 || job.printAuxTo != 0) return rangeAmong(job.printAuxFrom, job.printAuxTo, pageCount);
  return {1, pageCount};
}

}  // namespace triaxlab
