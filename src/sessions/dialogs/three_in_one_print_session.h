#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "sessions/dialogs/print_dialog_session.h"

namespace triaxlab {

/// What is ticked or not.
enum class PrintTick : std::uint8_t {
  StressStrain,  // 主应力差与轴向应变曲线, and the other five curves in their order
  StressRatioEnvelope,
  StressDifferenceEnvelope,
  StressPath,
  PorePressure,
  StressRatio,
  DotMatrix,         // 针式打印机
  PageNumbers,       // 打印页码
  EffectiveCircles,  // 有效应力圆
  TotalCircles,      // 总应力圆
  Picture,           // 打印到图片文件
  A3,                // 打印到A3
};
inline constexpr std::size_t kPrintTicks = 12;

/// Where numbers are typed: both ends of a range of samples or pages, and the number of the first page.
enum class PrintBox : std::uint8_t { From, To, FirstPage };
inline constexpr std::size_t kPrintBoxes = 3;

namespace print_captions {
inline constexpr std::array<const char*, kPrintTicks> kTicks{
    "主应力差与轴向应变曲线",   "应力比强度包线", "应力差强度包线", "应力路径曲线", "孔隙压力与轴向应变曲线",
    "有效应力比与轴向应变曲线", "针式打印机",     "打印页码",       "有效应力圆",   "总应力圆",
    "打印到图片文件",           "打印到A3"};
inline constexpr std::array<const char*, 4> kScopes{"全部", "当前土样", "序号", "页码"};
inline constexpr const char* kTo = "至";
inline constexpr const char* kFirstPage = "起始页码";
}  // namespace print_captions

/// Everything that the dialog shows. All but 预 览 is always on.
struct ThreeInOnePrintState {
  std::array<bool, kPrintTicks> ticks{};
  PrintScope scope = PrintScope::All;
  std::array<std::string, kPrintBoxes> texts;
  bool canPreview = true;

  bool ticked(PrintTick tick) const { return ticks[static_cast<std::size_t>(tick)]; }
};

/// What the curve window shows.
struct CurvesOnDisplay {
  std::size_t row = 0;                                // of the sample in its table
  FailureMode checkedMode = FailureMode::PeakStress;  // the menu's entry for envelopes
};

/// What stands behind SETPRINTFORM, the dialog of the three-in-one pages. Nothing is kept from one opening to the next
/// but the printer and the circles.
class ThreeInOnePrintSession : public PrintDialogSession {
 public:
  /// Opens with the first values.
  ThreeInOnePrintSession(Workspace& workspace, Dialogs& dialogs, CurvesOnDisplay onDisplay);

  ThreeInOnePrintState state() const;

  /// A click that leaves the box ticked or not.
  void setTicked(PrintTick tick, bool ticked);
  /// A click on an option button. True when the focus goes to the first box of the range now: both ranges are typed
  /// there.
  bool choose(PrintScope scope);
  /// The box got the focus: with one of a range, a range of samples is chosen unless one of pages is.
  void enterBox(PrintBox box);
  /// The box now holds this text.
  void setText(PrintBox box, std::string_view utf8);

  /// Without a curve it has no page.
  PrintJob job() const override;
  /// Also false when no curve is chosen.
  bool accept() override;

 private:
  bool& tick(PrintTick tick) { return m_state.ticks[static_cast<std::size_t>(tick)]; }

  CurvesOnDisplay m_onDisplay;
  ThreeInOnePrintState m_state;
  std::int16_t m_firstPageNumber = 1;
};

}  // namespace triaxlab
