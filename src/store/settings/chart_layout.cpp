#include "store/settings/chart_layout.h"

namespace triaxlab {

ChartLayout defaultChartLayout(const LaboratoryHabits& habits) {
  ChartLayout layout;
  layout.slot[1] = "三  轴  试  验  成  果  图  表";
  layout.slot[2] = ":" + habits.projectNoLabel;
  layout.slot[6] = "试验审核人:";
  layout.slot[7] = "试验负责人:";
  layout.slot[8] = "日期：";
  layout.slot[9] = habits.sampleNoLabel + ":";
  return layout;
}

}  // namespace triaxlab
