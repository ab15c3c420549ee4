#include "windows/dialogs/print_window_layouts.h"

#include <algorithm>
#include <array>

namespace triaxlab {
namespace {

namespace captions = print_captions;
using T = PrintTick;
using B = PrintBox;

constexpr int kLine = 300, kBoxLine = 330;

// ---- SETPRINTFORM: the curves on the left, circles and manner of printing on the right

constexpr int kLeft = 300, kRight = 4500, kCurveWidth = 3900, kTickWidth = 3300;
constexpr int kPitch = 360;
constexpr Place tickLine(int x, int width, int line) { return {x, 200 + kPitch * line, width, kLine}; }

/// What both dialogs of the curves have; Check8 is a matter of the dialog.
constexpr auto curveTicks(PrintTick check8) {
  return std::array{
      TickControl{"Check1", T::DotMatrix, tickLine(kRight, kTickWidth, 0)},
      TickControl{"Check2", T::StressStrain, tickLine(kLeft, kCurveWidth, 0)},
      TickControl{"Check3", T::StressRatioEnvelope, tickLine(kLeft, kCurveWidth, 1)},
      TickControl{"Check4", T::StressDifferenceEnvelope, tickLine(kLeft, kCurveWidth, 2)},
      TickControl{"Check5", T::StressPath, tickLine(kLeft, kCurveWidth, 3)},
      TickControl{"Check6", T::PorePressure, tickLine(kLeft, kCurveWidth, 4)},
      TickControl{"Check7", T::StressRatio, tickLine(kLeft, kCurveWidth, 5)},
      TickControl{"Check8", check8, tickLine(kRight, kTickWidth, 1)},
      TickControl{"Check9", T::EffectiveCircles, tickLine(kRight, kTickWidth, 3)},
      TickControl{"Check10", T::TotalCircles, tickLine(kRight, kTickWidth, 2)},
      TickControl{"Check11", T::Picture, tickLine(kRight, kTickWidth, 4)},
  };
}

constexpr auto threeInOneTicks() {
  constexpr std::array kShared = curveTicks(T::PageNumbers);
  std::array<TickControl, kShared.size() + 1> ticks{};
  *std::copy(kShared.begin(), kShared.end(), ticks.begin()) = {"Check12", T::A3, tickLine(kRight, kTickWidth, 5)};
  return ticks;
}
constexpr std::array kThreeInOneTicks = threeInOneTicks();
constexpr std::array<Place, 4> kThreeInOneScopes{
    {{300, 2600, 1500, kLine}, {1900, 2600, 1800, kLine}, {300, 3000, 1500, kLine}, {1900, 3000, 1800, kLine}}};
constexpr std::array kThreeInOneBoxes{BoxControl{"Text1", B::From, {300, 3420, 1200, kBoxLine}},
                                      BoxControl{"Text2", B::To, {2000, 3420, 1200, kBoxLine}},
                                      BoxControl{"Text3", B::FirstPage, {5700, 3420, 1200, kBoxLine}}};
constexpr std::array kThreeInOneTexts{PrintText{"Label3", captions::kTo, {1550, 3420, 400, kBoxLine}, true},
                                      PrintText{"Label2", captions::kFirstPage, {4500, 3420, 1150, kBoxLine}}};

// ---- SETPRINTFORM3: the same, and the sheet on the lower right

constexpr std::array kChartSheetTicks = curveTicks(T::DataSheet);
constexpr std::array<Place, 3> kChartSheetScopes{
    {{300, 2700, 1500, kLine}, {1900, 2700, 1800, kLine}, {300, 3120, 1100, kLine}}};
constexpr std::array kChartSheetBoxes{
    BoxControl{"Text1", B::From, {1400, 3120, 900, kBoxLine}},
    BoxControl{"Text2", B::To, {2700, 3120, 900, kBoxLine}},
    BoxControl{"Text3", B::FirstPage, {1400, 3540, 900, kBoxLine}},
    BoxControl{"Text4", B::Rows, {5950, 3540, 700, kBoxLine}},
    BoxControl{"Text5", B::Columns, {7050, 3540, 700, kBoxLine}},
    BoxControl{"Text6", B::LeftMargin, {5200, 3960, 700, kBoxLine}},
    BoxControl{"Text7", B::RightMargin, {6700, 3960, 700, kBoxLine}},
};
constexpr std::array kChartSheetTexts{
    PrintText{"Label3", captions::kTo, {2300, 3120, 400, kBoxLine}, true},
    PrintText{"Label2", captions::kFirstPage, {300, 3540, 1050, kBoxLine}},
    PrintText{"Label4", captions::kPaper, {4500, 2700, 1400, kBoxLine}},
    PrintText{"Label5", captions::kGrid, {4500, 3540, 1450, kBoxLine}},
    PrintText{"Label6", captions::kRows, {6700, 3540, 300, kBoxLine}},
    PrintText{"Label7", captions::kColumns, {7800, 3540, 300, kBoxLine}},
    PrintText{"Label8", captions::kLeftMargin, {4500, 3960, 700, kBoxLine}},
    PrintText{"Label9", captions::kRightMargin, {6000, 3960, 700, kBoxLine}},
    PrintText{"Label10", captions::kCentimetres, {7500, 3960, 700, kBoxLine}},
};
constexpr SheetControls kSheet{.paper = {5950, 2700, 1800, kBoxLine},
                               .portrait = {4500, 3120, 1200, kLine},
                               .landscape = {5950, 3120, 1200, kLine},
                               .curves = {300, 3960, 1900, kBoxLine}};

// ---- SETPRINTFORM0

constexpr std::array kTK0CurveTicks{TickControl{"Check1", T::PageNumbers, {2700, 200, 1800, kLine}},
                                    TickControl{"Check2", T::DotMatrix, {2700, 560, 1800, kLine}}};
constexpr std::array<Place, 4> kTK0CurveScopes{
    {{300, 200, 1800, kLine}, {300, 560, 1800, kLine}, {300, 920, 1800, kLine}, {300, 1280, 1800, kLine}}};
constexpr std::array kTK0CurveTexts{PrintText{"Label2", captions::kCurvesOnAPage, {2700, 1280, 3300, kLine}}};

// ---- Form3 and Form30

constexpr std::array kTableTicks{TickControl{"Check1", T::PageNumbers, {4200, 200, 2000, kLine}},
                                 TickControl{"Check2", T::DotMatrix, {4200, 600, 2000, kLine}},
                                 TickControl{"Check11", T::Picture, {4200, 1000, 2000, kLine}}};
constexpr std::array<Place, 4> kTableScopes{
    {{300, 200, 1500, kLine}, {300, 600, 1500, kLine}, {300, 1000, 1300, kLine}, {300, 1400, 1300, kLine}}};
constexpr std::array kTableBoxes{BoxControl{"Text1", B::From, {1700, 1000, 800, kBoxLine}},
                                 BoxControl{"Text3", B::PageFrom, {1700, 1400, 800, kBoxLine}},
                                 BoxControl{"Text4", B::PageTo, {2850, 1400, 800, kBoxLine}},
                                 BoxControl{"Text2", B::Copies, {4800, 1400, 700, kBoxLine}}};
constexpr std::array kTableTexts{PrintText{"Label3", captions::kTo, {2500, 1400, 350, kBoxLine}, true},
                                 PrintText{"Label2", captions::kCopies, {4200, 1400, 600, kBoxLine}}};
constexpr Place kCopiesBar{5520, 1380, 250, 370};

constexpr PrintWindowLayout tableLayout(std::string_view form) {
  return {.form = form,
          .width = 6500,
          .height = 3350,
          .ticks = kTableTicks,
          .scopes = kTableScopes,
          .boxes = kTableBoxes,
          .texts = kTableTexts,
          .printerY = 1850,
          .sendingY = 2250,
          .buttonsY = 2650,
          .copiesBar = kCopiesBar};
}

constexpr std::array kLayouts{
    PrintWindowLayout{.form = "SETPRINTFORM",
                      .width = 8100,
                      .height = 5600,
                      .ticks = kThreeInOneTicks,
                      .scopes = kThreeInOneScopes,
                      .boxes = kThreeInOneBoxes,
                      .texts = kThreeInOneTexts,
                      .printerY = 3900,
                      .sendingY = 4350,
                      .buttonsY = 4850},
    PrintWindowLayout{.form = "SETPRINTFORM3",
                      .width = 8400,
                      .height = 5900,
                      .ticks = kChartSheetTicks,
                      .scopes = kChartSheetScopes,
                      .boxes = kChartSheetBoxes,
                      .texts = kChartSheetTexts,
                      .printerY = 4400,
                      .sendingY = 4800,
                      .buttonsY = 5200,
                      .sheet = kSheet},
    PrintWindowLayout{.form = "SETPRINTFORM0",
                      .width = 6500,
                      .height = 3350,
                      .ticks = kTK0CurveTicks,
                      .scopes = kTK0CurveScopes,
                      .boxes = {},
                      .texts = kTK0CurveTexts,
                      .printerY = 1850,
                      .sendingY = 2250,
                      .buttonsY = 2650},
    tableLayout("Form3"),
    tableLayout("Form30"),
};

}  // namespace

const PrintWindowLayout& layoutOf(const PrintForm& form) {
  return *std::ranges::find(kLayouts, form.name, &PrintWindowLayout::form);
}

}  // namespace triaxlab
