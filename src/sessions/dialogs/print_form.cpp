#include "sessions/dialogs/print_form.h"

#include <algorithm>

namespace triaxlab {
namespace {

using T = PrintTick;
using B = PrintBox;

constexpr const char* kUsualTitle = "数据打印";

constexpr RangeBoxes kRange{B::From, B::To}, kOneSample{B::From, B::From}, kPages{B::PageFrom, B::PageTo};

// ---- The triaxial curves

constexpr std::array kThreeInOneTicks{T::StressStrain,
                                      T::StressRatioEnvelope,
                                      T::StressDifferenceEnvelope,
                                      T::StressPath,
                                      T::PorePressure,
                                      T::StressRatio,
                                      T::DotMatrix,
                                      T::PageNumbers,
                                      T::EffectiveCircles,
                                      T::TotalCircles,
                                      T::Picture,
                                      T::A3};
constexpr std::array kThreeInOneScopes{
    ScopeOption{PrintScope::All, "全部"}, ScopeOption{PrintScope::Current, "当前土样"},
    ScopeOption{PrintScope::Range, "序号", kRange}, ScopeOption{PrintScope::Pages, "页码", kRange}};
constexpr std::array kThreeInOneBoxes{B::From, B::To, B::FirstPage};

constexpr std::array kChartSheetTicks{T::StressStrain,
                                      T::StressRatioEnvelope,
                                      T::StressDifferenceEnvelope,
                                      T::StressPath,
                                      T::PorePressure,
                                      T::StressRatio,
                                      T::DotMatrix,
                                      T::DataSheet,
                                      T::EffectiveCircles,
                                      T::TotalCircles,
                                      T::Picture};
constexpr std::array kChartSheetScopes{ScopeOption{PrintScope::All, "全部"},
                                       ScopeOption{PrintScope::Current, "当前土样"},
                                       ScopeOption{PrintScope::Range, "序号", kRange}};
constexpr std::array kChartSheetBoxes{B::From, B::To, B::FirstPage, B::Rows, B::Columns, B::LeftMargin, B::RightMargin};

// ---- The curves of TK0 stages

constexpr std::array kTK0CurveTicks{T::PageNumbers, T::DotMatrix};
constexpr std::array kTK0CurveScopes{ScopeOption{PrintScope::All, "全部"}, ScopeOption{PrintScope::Current, "当前土样"},
                                     ScopeOption{PrintScope::CurrentPage, "当前页"},
                                     ScopeOption{PrintScope::CurrentCurve, "当前曲线"}};

// ---- Tables and the curves of the other tests

constexpr std::array kTableTicks{T::PageNumbers, T::DotMatrix, T::Picture};
constexpr std::array kTableScopes{
    ScopeOption{PrintScope::All, "全部试样"}, ScopeOption{PrintScope::Current, "当前试样"},
    ScopeOption{PrintScope::Range, "序号", kOneSample}, ScopeOption{PrintScope::Pages, "页码范围", kPages}};
constexpr std::array kTableBoxes{B::From, B::PageFrom, B::PageTo, B::Copies};

constexpr PrintForm tableForm(std::string_view name, std::string_view title) {
  return {.name = name,
          .title = title,
          .ticks = kTableTicks,
          .scopes = kTableScopes,
          .boxes = kTableBoxes,
          .boxesFollowScope = true};
}
constexpr PrintForm consolidationForm() {
  PrintForm form = tableForm("Form3", "固结数据表");
  form.choosesPrinter = false;
  return form;
}
constexpr PrintForm unconfinedForm() {
  PrintForm form = tableForm("Form3", "打印无侧限曲线");
  form.pagesAsPictures = false;
  return form;
}

}  // namespace

constinit const PrintForm kThreeInOneForm{.name = "SETPRINTFORM",
                                          .title = kUsualTitle,
                                          .ticks = kThreeInOneTicks,
                                          .scopes = kThreeInOneScopes,
                                          .boxes = kThreeInOneBoxes};
constinit const PrintForm kChartSheetForm{.name = "SETPRINTFORM3",
                                          .title = kUsualTitle,
                                          .ticks = kChartSheetTicks,
                                          .scopes = kChartSheetScopes,
                                          .boxes = kChartSheetBoxes};
constinit const PrintForm kTK0CurveForm{
    .name = "SETPRINTFORM0", .title = kUsualTitle, .ticks = kTK0CurveTicks, .scopes = kTK0CurveScopes, .boxes = {}};
constinit const PrintForm kTriaxialTableForm = tableForm("Form30", "打印三轴试验数据表");
constinit const PrintForm kConsolidationForm = consolidationForm();
constinit const PrintForm kUnconfinedForm = unconfinedForm();
constinit const PrintForm kK0Form = tableForm("Form3", "K0曲线数据表");
constinit const PrintForm kTK0Form = tableForm("Form3", "打印TK0曲线");

bool PrintForm::has(PrintTick tick) const { return std::ranges::find(ticks, tick) != ticks.end(); }

bool PrintForm::has(PrintBox box) const { return std::ranges::find(boxes, box) != boxes.end(); }

const ScopeOption& PrintForm::option(PrintScope scope) const {
  return *std::ranges::find(scopes, scope, &ScopeOption::scope);
}

}  // namespace triaxlab
