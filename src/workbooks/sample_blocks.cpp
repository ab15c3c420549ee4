#include "workbooks/sample_blocks.h"

#include "common/gbk.h"
#include "store/project/sample_rows.h"
#include "store/test_date.h"

namespace triaxlab {
namespace {

std::vector<std::size_t> writtenRows(const SampleRows& rows) {
  std::vector<std::size_t> written;
  for (std::size_t row = 0; row < rows.size(); ++row)
    if (!rows.projectNo(row).empty()) written.push_back(row);
  return written;
}

}  // namespace

void addSampleBlocks(const Workspace& workspace, ProjectKind tests, Workbook& workbook, const Progress& progress,
                     const SampleWriter& write) {
  const SampleRows rows(workspace, tests);
  const std::vector<std::size_t> written = writtenRows(rows);
  const auto ownDate = infoOf(tests).results.testDate;
  for (std::size_t i = 0; i < written.size(); ++i) {
    const std::size_t row = written[i];
    const std::string_view projectNo = rows.projectNo(row);
    const std::string_view date = shownTestDate(workspace.dataOf(tests), projectNo,
                                                ownDate != nullptr ? ownDate(rows.record(row)) : std::string_view{});
    SheetBlock block = workbook.newBlock();
    addSampleHead(block, {.number = i + 1,
                          .projectNoLabel = workspace.settings.habits.projectNoLabel,
                          .projectNo = gbkToUtf8(projectNo),
                          .sampleNo = gbkToUtf8(rows.sampleNo(row)),
                          .testDate = gbkToUtf8(date)});
    write(block, row);
    workbook.add(block);
    tell(progress, i + 1, written.size());
  }
}

}  // namespace triaxlab
