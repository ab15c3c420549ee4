#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "reports/page_labels.h"
#include "reports/print_job.h"
#include "reports/project_titles.h"
#include "store/project/project_kinds.h"
#include "store/workspace.h"

namespace triaxlab {

/// What stands around the blocks of a page, UTF-8, with its labels. An empty text takes no place.
struct PageHead {
  std::string title;
  std::string method;  // below the title
  std::string controlNumber, pageNumber;
  std::string projectNo, projectName, testDate;
  bool wideProjectNo = false;  // the project number has its line for itself
  std::string sampleNo;        // of a page that shows one sample
  std::string tester, checker, reportDate, archiveNo;
};

/// The sample with which a page begins: project, name and date of the page are its own. GBK, trimmed.
struct FirstSample {
  std::string_view projectNo;
  std::string_view testDate;
};

/// Whose pages they are: a control number stands on those of the triaxial test alone, and they alone can go without
/// page number and dates.
enum class PageFamily : std::uint8_t { Triaxial, OtherTests };

/// The date of the report as it stands at the foot of charts: 2024年05月09日, in English 2024 / 05 / 09. Empty when
/// there is none, or when pages are not dated.
std::string reportDay(const Workspace& workspace);

/// Makes the heads of a job's pages, of whatever test. What a test has of its own, its method and whether it is dated,
/// its layout puts in.
class PageHeads {
 public:
  /// The workspace outlives this.
  PageHeads(const PrintJob& job, const Workspace& workspace, ProjectKind tests, const PageLabels& labels,
            PageFamily family = PageFamily::Triaxial);

  /// `page` counts from 1 over the whole job.
  PageHead of(int page, FirstSample first);
  /// The number of a page; nothing when pages are not numbered.
  std::optional<int> numberOf(int page) const;

 private:
  std::string pageNumber(int page) const;

  const Workspace& m_workspace;
  ProjectKind m_tests;
  PageLabels m_labels;
  bool m_pageNumbers;
  int m_firstPageNumber;
  bool m_withoutPageAndDates;
  TitlesOfProjects m_titles;
  PageHead m_ofJob;  // what is the same on all pages
};

}  // namespace triaxlab
