#pragma once

#include <array>
#include <string>

#include "common/settings.h"
#include "triaxial/curve_page.h"

namespace triaxlab {

/// The texts in front of values on pages, with their colons and blanks, in the laboratory's wording: Chinese
/// or, where there is an English one, English. UTF-8.
struct PageLabels {
  // Frame
  std::string title;
  std::string projectNo;
  std::string projectName;
  std::string testDate;
  std::string testedBy;
  std::string checkedBy;
  std::string reportDate;
  std::string archiveNo;
  // Block heads
  std::string sampleNo;
  std::string trialPit;
  std::string boreholeNumber;
  std::string borehole;
  std::string soilName;
  std::string density;
  std::string samplingSpot;
  std::string samplingDepth;
  std::string testMethod;
};

PageLabels pageLabels(const Settings& settings);
/// Those of the pages of the other tests, which have no title in common.
PageLabels otherTestLabels(const Settings& settings);

/// The title of a curve, empty where it is the chart's own.
std::string curveTitle(CurvePage page, const Settings& settings);

/// The line under the page's title, "(固结不排水试验)", with what the laboratory wants behind the method; empty for a
/// method without a name.
std::string pageMethod(const TriaxialSampleRecord& record, const Settings& settings);

}  // namespace triaxlab
