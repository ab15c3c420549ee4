#pragma once

#include <array>
#include <string>

#include "common/settings.h"
#include "triaxial/record.h"

namespace triaxlab {

/// The texts around and over result charts: the laboratory's own from szshezhi.txt, else the usual ones, English where
/// there is an English one. With their colons; UTF-8.
struct ChartLabels {
  std::string projectNo;
  std::string projectName;
  std::string laboratory;                 // stands by itself; may be empty
  std::array<std::string, 3> signatures;  // 审核人, 负责人 and a third that is usually empty
  std::string date;
  std::string sampleNo;
  std::string borehole;  // empty: the head of a chart doesn't tell it
  std::string depth;     // may be empty, the depth itself is told all the same
};
ChartLabels chartLabels(const Settings& settings);

/// The title without a method; the laboratory's own if it has one.
std::string chartTitle(const Settings& settings);
/// The usual title tells the method: "三  轴  试  验(CU)  成  果  图  表". A title of the laboratory's stands as it is.
std::string chartTitle(const Settings& settings, const TriaxialSampleRecord& record);

}  // namespace triaxlab
