#include "reports/page_labels.h"

#include <algorithm>

#include "triaxial/measures.h"
#include "triaxial/method_names.h"

namespace triaxlab {
namespace {

PageLabels chineseLabels(const LaboratoryHabits& habits) {
  // The laboratory's own word for the borehole takes the place of both usual ones.
  const bool ownBorehole = !habits.boreholeLabel.empty();
  return {
      .title = "三  轴  试  验  成  果  曲  线",
      .projectNo = habits.projectNoLabel + ": ",
      .projectName = "工程名称: ",
      .testDate = "试验日期:",
      .testedBy = "试验：",
      .checkedBy = "校核：",
      .reportDate = "报告日期: ",
      .archiveNo = "档案号：",
      .sampleNo = habits.sampleNoLabel + ":",
      .trialPit = "   探井号: ",
      .boreholeNumber = (ownBorehole ? habits.boreholeLabel : "钻孔编号") + ":",
      .borehole = "   " + (ownBorehole ? habits.boreholeLabel : "钻孔号") + ": ",
      .soilName = "土样名称:",
      .density = "密度:",
      .samplingSpot = "取样地点:",
      .samplingDepth = "取样深度:",
      .testMethod = "试验方法:",
  };
}

std::string withColon(const std::string& label) { return label.ends_with(':') ? label : label + ": "; }

/// A label without an English word stays Chinese.
void putIntoEnglish(PageLabels& labels, const EnglishLabels& english) {
  labels.title = english.resultCurve;
  labels.projectNo = withColon(english.projectNo);
  labels.projectName = withColon(english.projectName);
  labels.testDate = withColon(english.testDate);
  labels.testedBy = withColon(english.testedBy);
  labels.checkedBy = withColon(english.checkedBy);
  labels.reportDate = withColon(english.reportDate);
  labels.sampleNo = withColon(english.sampleNo);
  labels.boreholeNumber = labels.borehole = withColon(english.boreholeNo);
  labels.samplingSpot = withColon(english.samplingSpot);
  labels.samplingDepth = withColon(english.samplingDepth);
}

/// Empty for a test without an English name.
std::string englishMethod(const TriaxialSampleRecord& record, const EnglishLabels& english) {
  const bool multiStage = isMultiStage(record);
  if (record.testMethod == kUU) return multiStage ? english.multiStageUU : english.testUU;
  if (record.testMethod == kCU && !multiStage) return english.testCU;
  return {};
}

}  // namespace

PageLabels pageLabels(const Settings& settings) {
  PageLabels labels = chineseLabels(settings.habits);
  if (settings.toggles.english) putIntoEnglish(labels, settings.english);
  return labels;
}

PageLabels otherTestLabels(const Settings& settings) {
  PageLabels labels = chineseLabels(settings.habits);
  labels.projectNo = settings.habits.projectNoLabel + ":";
  labels.checkedBy = "检查：";
  if (settings.toggles.english) putIntoEnglish(labels, settings.english);
  labels.title.clear();
  return labels;
}

std::string curveTitle(CurvePage page, const Settings& settings) {
  if (!settings.toggles.english) return {};
  if (page == CurvePage::StressStrain) return settings.english.stressStrainCurve;
  if (page == CurvePage::StressDifferenceEnvelope) return settings.english.stressDifferenceEnvelope;
  return {};
}

std::string pageMethod(const TriaxialSampleRecord& record, const Settings& settings) {
  std::string line = methodLine(record);
  if (line.empty()) return line;
  if (settings.toggles.english)
    if (const std::string english = englishMethod(record, settings.english); !english.empty()) line = "(" + english;
  return line + settings.habits.methodSuffix + ")";
}

}  // namespace triaxlab
