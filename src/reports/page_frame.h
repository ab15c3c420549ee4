#pragma once

#include <string>

#include "platform/drawing_surface.h"
#include "reports/page_labels.h"
#include "reports/print_job.h"
#include "reports/project_titles.h"
#include "store/workspace.h"

namespace triaxlab {

/// What surrounds the blocks of a page: title, method, project and date above, signatures below.
class PageFrame {
 public:
  /// `width` is that of the page, twips. The workspace outlives the frame.
  PageFrame(const PrintJob& job, const Workspace& workspace, const PageLabels& labels, double width);

  /// `record` is the sample of the page's first block, whose project, date and method the page has.
  void draw(DrawingSurface& surface, int pageNumber, const TriaxialSampleRecord& record);

 private:
  void drawHead(DrawingSurface& surface, int pageNumber, const TriaxialSampleRecord& record) const;
  void drawProject(DrawingSurface& surface, const TriaxialSampleRecord& record);
  void drawFoot(DrawingSurface& surface, const TriaxialSampleRecord& record);
  std::string pageNumberText(int pageNumber) const;

  const Workspace& m_workspace;
  const PageLabels& m_labels;
  double m_width;
  bool m_pageNumbers;
  TitlesOfProjects m_titles;
  std::string m_controlNumber;
  std::string m_tester, m_checker;  // names; empty: room for a hand
  std::string m_reportDate;
};

}  // namespace triaxlab
