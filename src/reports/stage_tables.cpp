#include "reports/stage_tables.h"

#include <algorithm>
#include <utility>

#include "common/gbk.h"
#include "reports/fitted_text.h"
#include "reports/job_range.h"
#include "reports/page_frame.h"
#include "reports/page_head.h"
#include "store/test_date.h"
#include "triaxial/curve_page.h"
#include "triaxial/measures.h"
#include "triaxial/reading_tables.h"

namespace triaxlab {
namespace {

// Twips of the page.
constexpr double kHeadingY = 1900, kSecondHeadingY = 2180;
constexpr double kTopRuleY = 2500, kSymbolY = 2560, kUnitY = 2840, kHeadRuleY = 3120;
constexpr double kFirstLineY = 3160, kLinePitch = 290;
constexpr std::array kHeadingX{600.0, 4500.0, 7800.0}, kFootX{600.0, 3600.0, 6600.0};

double lineY(std::size_t line) { return kFirstLineY + kLinePitch * static_cast<double>(line); }

void drawFoot(DrawingSurface& surface, double y, const TableFoot& foot) {
  const std::array texts{kStartPorePressure + foot.startPorePressure + kTableUnit,
                         kFailurePorePressure + foot.failurePorePressure + kTableUnit,
                         kFailureStress + foot.deviatorStress + kTableUnit};
  printInLine(surface, kFootX, y, texts, kTableFont);
}

/// Which readings a page has: `count` of those of the stage, from the `first` on.
struct StagePage {
  std::size_t row, stage;
  std::size_t first, count;
  bool endsStage;
};

class StageTables : public Report {
 public:
  StageTables(const StageTableForm& form, const PrintJob& job, const Workspace& workspace)
      : m_form(form),
        m_job(job),
        m_workspace(workspace),
        m_heads(job, workspace, ProjectKind::Triaxial, labels(form, workspace.settings)) {
    for (const std::size_t row : chosenRows(job, workspace, ProjectKind::Triaxial))
      for (std::size_t stage = 0; stage < kStages; ++stage) addStage(row, stage);
  }

  PageSize pageSize() const override { return usualPage(m_job); }
  int pageCount() const override { return static_cast<int>(m_pages.size()); }
  void drawPage(DrawingSurface& surface, int page) override;
  std::vector<SampleNumbers> samplesOf(int page) const override {
    const TriaxialSampleRecord& record = recordOf(pageAt(page));
    return {{record.projectNo.trimmed(), record.sampleNo.trimmed()}};
  }

 private:
  static PageLabels labels(const StageTableForm& form, const Settings& settings) {
    PageLabels labels = pageLabels(settings);
    labels.title = form.title;
    return labels;
  }
  void addStage(std::size_t row, std::size_t stage);
  const StagePage& pageAt(int page) const { return m_pages.at(static_cast<std::size_t>(page) - 1); }
  const TriaxialSampleRecord& recordOf(const StagePage& page) const {
    return m_workspace.TriaxialSampleTable[page.row];
  }
  bool isDated() const {
    const LaboratoryHabits& habits = m_workspace.settings.habits;
    return !habits.omitTriaxialTestDate && !habits.omitPageDateTable;
  }
  void drawHeading(DrawingSurface& surface, const TriaxialSampleRecord& record, std::size_t stage) const;

  const StageTableForm& m_form;
  PrintJob m_job;
  const Workspace& m_workspace;
  std::vector<StagePage> m_pages;
  PageHeads m_heads;
};

void StageTables::addStage(std::size_t row, std::size_t stage) {
  const TriaxialSampleRecord& record = m_workspace.TriaxialSampleTable[row];
  if (!StageUsed(record, stage)) return;
  const std::size_t readings = m_form.readings(record, stage).size();
  for (std::size_t first = 0; first < readings; first += m_form.readingsPerPage) {
    const std::size_t count = std::min(m_form.readingsPerPage, readings - first);
    m_pages.push_back({row, stage, first, count, first + count == readings});
  }
}

void StageTables::drawHeading(DrawingSurface& surface, const TriaxialSampleRecord& record, std::size_t stage) const {
  const std::string_view date = shownTestDate(m_workspace.dataOf(ProjectKind::Triaxial), record.projectNo.trimmed(),
                                              record.testDate.trimmed(), DateFirst::OfProject);
  TableHeading heading = tableHeading(record, stage, m_workspace.settings.habits.projectNoLabel, gbkToUtf8(date));
  if (!isDated()) heading.date.clear();
  printInLine(surface, kHeadingX, kHeadingY, std::array{heading.project, heading.sample, heading.pressure}, {});
  printInLine(surface, kHeadingX, kSecondHeadingY, std::array{heading.date, heading.test, heading.rate}, {});
}

void StageTables::drawPage(DrawingSurface& surface, int page) {
  const StagePage& shown = pageAt(page);
  const TriaxialSampleRecord& record = recordOf(shown);
  PageHead head = m_heads.of(page, {record.projectNo.trimmed(), record.testDate.trimmed()});
  if (!isDated()) head.testDate.clear();
  drawPageFrame(surface, kResultFrame, head, pageSize().width);
  drawHeading(surface, record, shown.stage);

  const std::vector<std::size_t> rows = m_form.readings(record, shown.stage);
  const StageReadings readings{record, shown.stage, std::span(rows).subspan(shown.first, shown.count)};
  const std::size_t lines = m_form.draw(surface, readings, {Colour::Black, m_job.lineWeight});
  if (!shown.endsStage) return;
  const FailureMode mode = failureModeOf(record, CurvePage::StressStrain, m_job.curves.checkedMode);
  drawFoot(surface, lineY(lines), tableFoot(record, shown.stage, mode));
  if (m_form.drawBelowFoot != nullptr) m_form.drawBelowFoot(surface, record, shown.stage, lineY(lines + 1));
}

}  // namespace

std::unique_ptr<Report> makeStageTables(const StageTableForm& form, const PrintJob& job, const Workspace& workspace) {
  return std::make_unique<StageTables>(form, job, workspace);
}

TableColumns::TableColumns(double left, std::span<const double> widths) : m_left(left), m_right(left) {
  for (const double width : widths) {
    m_columns.push_back({m_right + width / 2, width});
    m_right += width;
  }
}

void TableColumns::drawHead(DrawingSurface& surface, std::size_t column, const ColumnTitle& title) const {
  const auto [centre, width] = m_columns.at(column);
  drawColumnTitle(surface, title, centre, width, kSymbolY, kUnitY, kTableFont);
}

void TableColumns::drawLine(DrawingSurface& surface, std::size_t line, std::span<const std::string> texts) const {
  for (std::size_t column = 0; column < texts.size(); ++column) {
    const auto [centre, width] = m_columns.at(column);
    printFittedCentred(surface, centre, lineY(line), texts[column], kTableFont, centre + width / 2);
  }
}

void TableColumns::drawRules(DrawingSurface& surface, std::size_t lines, Stroke rule) const {
  for (const double y : {kTopRuleY, kHeadRuleY, kHeadRuleY + kLinePitch * static_cast<double>(lines)})
    surface.line({m_left, y}, {m_right, y}, rule);
}

}  // namespace triaxlab
