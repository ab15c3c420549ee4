#include "store/summary/summary_sections.h"

#include <algorithm>

#include "store/project/sample_rows.h"

namespace triaxlab {

void putResults(SummaryRecord& summary, const Workspace& workspace, ProjectKind kind, std::size_t row) {
  const SampleRows rows(workspace, kind);
  infoOf(kind).results.put(summary, rows.record(row), testDateOf(workspace, kind, row));
}

void blankResults(SummaryRecord& summary, ProjectKind kind) { infoOf(kind).results.blank(summary); }

std::string testDateOf(const Workspace& workspace, ProjectKind kind, std::size_t row) {
  const SampleRows rows(workspace, kind);
  std::string date;
  if (const auto ownDate = infoOf(kind).results.testDate) date = ownDate(rows.record(row));
  if (date.empty()) date = workspace.projectTestDate(rows.projectNo(row)).value_or("");
  if (date.empty()) date = slashed(workspace.today());
  std::replace(date.begin(), date.end(), '-', '/');
  return date;
}

}  // namespace triaxlab
