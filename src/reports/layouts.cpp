#include "reports/layouts.h"

#include <algorithm>
#include <array>

#include "reports/chart_sheets.h"
#include "reports/consolidation_table.h"
#include "reports/ko_results.h"
#include "reports/single_page.h"
#include "reports/stage_curves.h"
#include "reports/three_in_one.h"
#include "reports/triaxial_table.h"
#include "reports/unconfined_curves.h"
#include "reports/unconfined_table.h"

namespace triaxlab {
namespace {

// In the order of the command line's names.
constexpr std::array kLayouts{
    &kThreeInOne,          //
    &kChartSheets,         //
    &kSinglePage,          //
    &kTriaxialTable,       //
    &kConsolidationTable,  //
    &kUnconfinedTable,     //
    &kUnconfinedCurves,    //
    &kK0Results,           //
    &kTK0Results,          //
    &kStageCurves,         //
};

}  // namespace

std::span<const Layout* const> layouts() { return kLayouts; }

const Layout* layoutOfId(std::string_view id) {
  const auto* const found = std::ranges::find(kLayouts, id, &Layout::id);
  return found == kLayouts.end() ? nullptr : *found;
}

}  // namespace triaxlab
