#include "store/summary/summary_sections.h"

#include <algorithm>

#include "store/project/sample_rows.h"
#include "store/test_date.h"

namespace triaxlab {

void putResults(SummaryRecord& summary, const Workspace& workspace, ProjectKind kind, std::size_t row) {
  const SampleRows rows(workspace, kind);
  infoOf(kind).results.put(summary, rows.record(row), testDateOf(workspace, kind, row));
}

void blankResults(SummaryRecord& summary, ProjectKind kind) { infoOf(kind).results.blank(summary); }

std::string testDateOf(const Workspace& workspace, ProjectKind kind, std::size_t row) {
  const SampleRows rows(workspace, kind);
  const auto ownDate = infoOf(kind).results.testDate;
  std::string date(shownTestDate(workspace.dataOf(kind), rows.projectNo(row),
                                 ownDate != nullptr ? ownDate(rows.record(row)) : std::string_view{}));
  if (date.empty()) date = slashed(workspace.today());
  std::replace(date.begin(), date.end(), '-', '/');
  return date;
}

}  // namespace triaxlab
