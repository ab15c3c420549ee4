#include "reports/send_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "common/gbk.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/placed_surface.h"
#include "reports/document_info.h"
#include "store/project/project_number.h"

namespace triaxlab {
namespace {

constexpr double kRightHalf = 11905;  // of an A3 sheet

/// A page in its place on a sheet. A text of a page has one line, whatever a record or a name holds: line breaks and
/// other control characters are blanks.
class PageSurface : public PlacedSurface {
 public:
  using PlacedSurface::PlacedSurface;

  void text(Point upperLeft, std::string_view utf8, const Font& font, Colour colour, bool rotated) override {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    if (std::none_of(utf8.begin(), utf8.end(), isControl))
      return PlacedSurface::text(upperLeft, utf8, font, colour, rotated);
    std::string line(utf8);
    std::replace_if(line.begin(), line.end(), isControl, ' ');
    PlacedSurface::text(upperLeft, line, font, colour, rotated);
  }
};

/// Names the place where each sample of a job begins by its number; where there are several projects, by both numbers.
class SampleBookmarks {
 public:
  SampleBookmarks(const Report& report, const PrintJob& job)
      : m_report(report), m_severalProjects(projectsOf(report, job).size() > 1) {}

  void markOn(PageDevice& device, int page) {
    for (const SampleNumbers& sample : m_report.samplesOf(page)) {
      if (sample == m_last) continue;
      m_last = sample;
      const std::string number = gbkToUtf8(sample.sampleNo);
      device.bookmark(m_severalProjects ? gbkToUtf8(sample.projectNo) + " " + number : number);
    }
  }

 private:
  const Report& m_report;
  bool m_severalProjects;
  SampleNumbers m_last;  // blank at first, as no sample's are
};

}  // namespace

PageSize sheetSize(const Report& report, const PrintJob& job) {
  return job.sideBySide() ? kA3SideBySide : report.pageSize();
}

Sheets::Sheets(Report& report, const PrintJob& job) : m_report(report), m_job(job), m_pages(report.pagesOf(job)) {}

int Sheets::count() const { return (m_pages.last - m_pages.first + pagesOfSheet()) / pagesOfSheet(); }

int Sheets::pagesOn(int sheets) const { return std::min(sheets * pagesOfSheet(), m_pages.last - m_pages.first + 1); }

NumberRange Sheets::pages(int sheet) const {
  return {m_pages.first + pagesOn(sheet - 1), m_pages.first + pagesOn(sheet) - 1};
}

std::string_view Sheets::projectNo(int sheet) const { return m_report.samplesOf(pages(sheet).first).front().projectNo; }

void Sheets::draw(DrawingSurface& surface, int sheet) const {
  const NumberRange drawn = pages(sheet);
  for (int page = drawn.first; page <= drawn.last; ++page) {
    PageSurface half(surface, {page == drawn.first ? 0 : kRightHalf, 0});
    m_report.drawPage(half, page);
  }
}

int sendReport(Report& report, const PrintJob& job, PageDevice& device, const SheetProgress& goesOn) {
  const Sheets sheets(report, job);
  SampleBookmarks bookmarks(report, job);
  for (int sheet = 1; sheet <= sheets.count(); ++sheet) {
    sheets.draw(device.beginPage(sheets.size()), sheet);
    const NumberRange sent = sheets.pages(sheet);
    for (int page = sent.first; page <= sent.last; ++page) bookmarks.markOn(device, page);
    device.endPage();
    if (!goesOn || goesOn(sheet, sheets.count())) continue;
    device.stop();
    return sheets.pagesOn(sheet);
  }
  device.finish();
  return sheets.pagesOn(sheets.count());
}

std::filesystem::path pictureFolder(const Report& report, const PrintJob& job, const Workspace& workspace) {
  const std::string_view projectNo = report.samplesOf(report.pagesOf(job).first).front().projectNo;
  if (const auto why = whyNoFileName(projectNo))
    throw UserError("打印到图片文件",
                    fmt::format("工程编号“{}”{}，不能作为图片文件夹的名称。", printableText(projectNo), *why));
  std::filesystem::path folder = workspace.pictureFolder() / pathFromText(gbkToUtf8(projectNo));
  refuseLinks(workspace.knownDataFolder(), folder);
  return folder;
}

}  // namespace triaxlab
