#include "reports/test_pages.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "common/gbk.h"
#include "platform/placed_surface.h"
#include "reports/fitted_text.h"
#include "reports/job_range.h"
#include "reports/page_head.h"
#include "reports/page_labels.h"
#include "store/project/sample_rows.h"

namespace triaxlab {
namespace {

/// The blocks are laid out in this width, whatever the paper.
constexpr double kDrawingWidth = 11904;
constexpr double kDepthX = 4700;

using BlocksOfPage = std::vector<TestBlock>;

std::vector<BlocksOfPage> pagesOfAll(const TestPageForm& form, const Workspace& workspace) {
  std::vector<BlocksOfPage> pages;
  for (const std::size_t row : chosenRows(PrintJob{}, workspace, form.tests)) {
    const std::size_t parts = form.partsOf != nullptr ? form.partsOf(workspace, row) : 1;
    for (std::size_t part = 0; part < parts; ++part) {
      const bool beginsPage = form.partsOf != nullptr && part == 0;
      if (beginsPage || pages.empty() || pages.back().size() == form.blocksPerPage) pages.emplace_back();
      pages.back().push_back({row, part});
    }
  }
  return pages;
}

/// Whether a job is of the block that is on display, alone or with its page.
bool isOfDisplay(const PrintJob& job) {
  return job.scope == PrintScope::CurrentPage || job.scope == PrintScope::CurrentCurve;
}

class TestPages : public Report {
 public:
  TestPages(const TestPageForm& form, const PrintJob& job, const Workspace& workspace)
      : m_form(form),
        m_job(job),
        m_workspace(workspace),
        m_samples(workspace, form.tests),
        m_labels(otherTestLabels(workspace.settings)),
        m_pages(pagesOfAll(form, workspace)),
        m_heads(job, workspace, form.tests, m_labels, PageFamily::OtherTests) {}

  PageSize pageSize() const override { return usualPage(m_job); }
  int pageCount() const override { return static_cast<int>(m_pages.size()); }
  NumberRange pagesOf(const PrintJob& job) const override;
  void drawPage(DrawingSurface& surface, int page) override;
  std::vector<SampleNumbers> samplesOf(int page) const override;

 private:
  const BlocksOfPage& blocksOf(int page) const { return m_pages.at(static_cast<std::size_t>(page - 1)); }
  PageHead headOf(int page);
  /// The pages from the first to the last on which one of the blocks stands.
  template <class Wanted>
  NumberRange pagesWith(const Wanted& isWanted) const;

  const TestPageForm& m_form;
  PrintJob m_job;
  const Workspace& m_workspace;
  SampleRows m_samples;
  PageLabels m_labels;
  std::vector<BlocksOfPage> m_pages;  // of the job of all samples
  PageHeads m_heads;
};

template <class Wanted>
NumberRange TestPages::pagesWith(const Wanted& isWanted) const {
  NumberRange found;
  for (int page = 1; page <= pageCount(); ++page) {
    if (!std::ranges::any_of(blocksOf(page), isWanted)) continue;
    found = {found.isEmpty() ? page : found.first, page};
  }
  return found;
}

NumberRange TestPages::pagesOf(const PrintJob& job) const {
  const NumberRange numbered = chosenPages(job, pageCount());
  if (job.scope == PrintScope::Pages) return numbered;
  const std::vector<std::size_t> rows = chosenRows(job, m_workspace, m_form.tests);
  const NumberRange chosen = pagesWith([&](const TestBlock& block) {
    if (isOfDisplay(job)) return block == TestBlock{job.currentRow, job.currentPart};
    return std::ranges::binary_search(rows, block.row);
  });
  const NumberRange both{std::max(chosen.first, numbered.first), std::min(chosen.last, numbered.last)};
  return both.isEmpty() ? NumberRange{} : both;
}

std::vector<SampleNumbers> TestPages::samplesOf(int page) const {
  std::vector<SampleNumbers> samples;
  for (const TestBlock& block : blocksOf(page))
    samples.push_back({m_samples.projectNo(block.row), m_samples.sampleNo(block.row)});
  return samples;
}

PageHead TestPages::headOf(int page) {
  const std::size_t row = blocksOf(page).front().row;
  PageHead head = m_heads.of(page, {.projectNo = m_samples.projectNo(row), .testDate = {}});
  head.title = m_form.title;
  if (m_workspace.settings.habits.*m_form.omitsTestDate) head.testDate.clear();
  if (m_form.headsSample) head.sampleNo = m_labels.sampleNo + gbkToUtf8(m_samples.sampleNo(row));
  return head;
}

void TestPages::drawPage(DrawingSurface& surface, int page) {
  drawPageFrame(surface, m_form.frame, headOf(page), kDrawingWidth);
  BlocksOfPage blocks = blocksOf(page);
  if (m_job.scope == PrintScope::CurrentCurve) blocks = {{m_job.currentRow, m_job.currentPart}};
  double top = m_form.firstBlockTop;
  for (const TestBlock& block : blocks) {
    PlacedSurface placed(surface, {0, top});
    m_form.drawBlock(placed, m_workspace, block, m_job.lineWeight);
    top += m_form.blockPitch;
  }
}

}  // namespace

void printSampleNo(DrawingSurface& surface, double x, std::string_view sampleNo) {
  printFitted(surface, {x, 0}, "试样编号:" + gbkToUtf8(sampleNo), kTestPageFont, kDepthX);
}

void printSamplingDepth(DrawingSurface& surface, std::string_view samplingDepth) {
  surface.text({kDepthX, 0}, "取土深度:" + gbkToUtf8(samplingDepth), kTestPageFont, Colour::Black);
}

std::unique_ptr<Report> makeTestPages(const TestPageForm& form, const PrintJob& job, const Workspace& workspace) {
  return std::make_unique<TestPages>(form, job, workspace);
}

}  // namespace triaxlab
