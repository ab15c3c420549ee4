#include "reports/send_report.h"

#include <fmt/format.h>

#include "common/gbk.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/placed_surface.h"
#include "store/project/project_number.h"

namespace triaxlab {
namespace {

constexpr double kRightHalf = 11905;  // of an A3 sheet

}  // namespace

PageSize sheetSize(const Report& report, const PrintJob& job) {
  return job.sideBySide() ? kA3SideBySide : report.pageSize();
}

int sendReport(Report& report, const PrintJob& job, PageDevice& device) {
  const PageSize size = sheetSize(report, job);
  const auto [first, last] = report.pagesOf(job);
  DrawingSurface* sheet = nullptr;
  for (int page = first; page <= last; ++page) {
    const bool onTheRight = job.sideBySide() && (page - first) % 2 == 1;
    if (!onTheRight) sheet = &device.beginPage(size);
    PlacedSurface half(*sheet, {onTheRight ? kRightHalf : 0, 0});
    report.drawPage(half, page);
    if (!job.sideBySide() || onTheRight || page == last) device.endPage();
  }
  device.finish();
  return last - first + 1;
}

std::filesystem::path pictureFolder(const Report& report, const PrintJob& job, const Workspace& workspace) {
  const std::string_view projectNo = report.projectNo(report.pagesOf(job).first);
  if (const auto why = whyNoFileName(projectNo))
    throw UserError("打印到图片文件",
                    fmt::format("工程编号“{}”{}，不能作为图片文件夹的名称。", printableText(projectNo), *why));
  const std::filesystem::path folder = workspace.pictureFolder() / pathFromText(gbkToUtf8(projectNo));
  refuseLinks(workspace.knownDataFolder(), folder);
  return folder;
}

}  // namespace triaxlab
