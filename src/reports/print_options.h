#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/dialogs.h"
#include "reports/print_job.h"
#include "store/workspace.h"

namespace triaxlab {

/// The check boxes of SETPRINTFORM; the values are the numbers in their names, Check1 to Check12.
enum class PrintCheck : std::uint8_t {
  DotMatrix = 1,  // 针式打印机
  StressStrain,   // 主应力差与轴向应变曲线, and the other five curves in their order
  StressRatioEnvelope,
  StressDifferenceEnvelope,
  StressPath,
  PorePressure,
  StressRatio,
  PageNumbers,       // 打印页码
  EffectiveCircles,  // 有效应力圆
  TotalCircles,      // 总应力圆
  Picture,           // 打印到图片文件
  A3,                // 打印到A3
};
inline constexpr std::size_t kPrintChecks = 12;

/// Text1 to Text3 of SETPRINTFORM.
enum class PrintBox : std::uint8_t { From = 1, To, FirstPage };

namespace print_captions {
inline constexpr const char* kTitle = "数据打印";
inline constexpr std::array<const char*, kPrintChecks> kChecks{"针式打印机",
                                                               "主应力差与轴向应变曲线",
                                                               "应力比强度包线",
                                                               "应力差强度包线",
                                                               "应力路径曲线",
                                                               "孔隙压力与轴向应变曲线",
                                                               "有效应力比与轴向应变曲线",
                                                               "打印页码",
                                                               "有效应力圆",
                                                               "总应力圆",
                                                               "打印到图片文件",
                                                               "打印到A3"};
inline constexpr std::array<const char*, 4> kScopes{"全部", "当前土样", "序号", "页码"};
inline constexpr const char* kTo = "至";  // Label3, between Text1 and Text2
inline constexpr const char* kFirstPage = "起始页码";
inline constexpr const char* kAccept = "确 定";                             // Command1
inline constexpr const char* kCancel = "取 消";                             // Command2
inline constexpr const char* kSending = "正在将数据送往打印机，请稍候...";  // while a job runs
}  // namespace print_captions

/// Everything that the dialog shows. All its controls are always enabled.
struct PrintOptionsState {
  std::array<bool, kPrintChecks> checks{};  // [n - 1] is Check n
  PrintScope scope = PrintScope::All;       // Option1 to Option4
  std::array<std::string, 3> texts;         // Text1 to Text3

  bool ticked(PrintCheck check) const { return checks[static_cast<std::size_t>(check) - 1]; }
};

/// What stands behind SETPRINTFORM, the dialog of the three-in-one pages. Nothing is kept from one opening to the next
/// but the printer and the circles, which are stored in qvb.sys.
class PrintOptions {
 public:
  /// Opens with the first values. `currentRow` is the table row of the sample on display, `checkedMode` the menu's
  /// entry for envelopes. The workspace outlives this.
  PrintOptions(Workspace& workspace, std::size_t currentRow, FailureMode checkedMode);

  const PrintOptionsState& state() const { return m_state; }

  /// A click on a check box that leaves it ticked or not.
  void setTicked(PrintCheck check, bool ticked);
  /// A click on an option button. True when the focus goes to Text1 now: both ranges are typed there.
  bool choose(PrintScope scope);
  /// Text1 or Text2 got the focus: a range of samples is chosen, unless one of pages is.
  void enterBox(PrintBox box);
  /// The box now holds this text.
  void setText(PrintBox box, std::string_view utf8);

  /// The job as the dialog stands, as 确 定 would give it, with nothing stored or said: for the preview. Without a
  /// curve it has none.
  PrintJob job() const;
  /// 确 定: stores the choices of printer and circles. Nothing when no curve is chosen: that has been said, and the
  /// dialog stays open. A choice that can't be stored is said as well and holds for this run.
  std::optional<PrintJob> accept(Dialogs& dialogs);

 private:
  bool& tick(PrintCheck check) { return m_state.checks[static_cast<std::size_t>(check) - 1]; }
  void storeChoices(Dialogs& dialogs);

  Workspace& m_workspace;
  std::size_t m_currentRow;
  FailureMode m_checkedMode;
  PrintOptionsState m_state;
  std::int16_t m_firstPageNumber = 1;
};

}  // namespace triaxlab
