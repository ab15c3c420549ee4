#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "reports/print_job.h"
#include "store/settings/page_setup.h"

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
  DataSheet,         // 打印数表
};
inline constexpr std::size_t kPrintTicks = 13;

/// Where numbers are typed.
enum class PrintBox : std::uint8_t {
  From,       // a range of samples or, where pages are typed there too, of pages; the only sample of a table dialog
  To,         //
  PageFrom,   // 页码范围 of a table dialog
  PageTo,     //
  FirstPage,  // 起始页码
  Copies,     // 份数
  Rows,       // 行
  Columns,    // 列
  LeftMargin,
  RightMargin,
};
inline constexpr std::size_t kPrintBoxes = 10;

/// One thing for each tick, each box.
template <class Value, class Key, std::size_t kKeys>
struct ByKey {
  std::array<Value, kKeys> values{};
  Value& operator[](Key key) { return values.at(static_cast<std::size_t>(key)); }
  const Value& operator[](Key key) const { return values.at(static_cast<std::size_t>(key)); }
  bool operator==(const ByKey&) const = default;
};
template <class Value>
using ByTick = ByKey<Value, PrintTick, kPrintTicks>;
template <class Value>
using ByBox = ByKey<Value, PrintBox, kPrintBoxes>;

namespace print_captions {
inline constexpr ByTick<const char*> kTicks{{"主应力差与轴向应变曲线", "应力比强度包线", "应力差强度包线",
                                             "应力路径曲线", "孔隙压力与轴向应变曲线", "有效应力比与轴向应变曲线",
                                             "针式打印机", "打印页码", "有效应力圆", "总应力圆", "打印到图片文件",
                                             "打印到A3", "打印数表"}};
inline constexpr const char* kAccept = "确 定";
inline constexpr const char* kPreview = "预 览";
inline constexpr const char* kCancel = "取 消";
inline constexpr const char* kTo = "至";
inline constexpr const char* kFirstPage = "起始页码";
inline constexpr const char* kCopies = "份数";
inline constexpr const char* kSending = "正在将数据送往打印机，请稍候...";  // while a job runs
inline constexpr const char* kCurvesOnAPage = "每页可打印 2 个曲线";
inline constexpr const char* kPaper = "纸张类型：";
inline constexpr const char* kGrid = "页面曲线排列：";
inline constexpr const char* kRows = "行";
inline constexpr const char* kColumns = "列";
inline constexpr const char* kLeftMargin = "左边距";
inline constexpr const char* kRightMargin = "右边距";
inline constexpr const char* kCentimetres = "(厘米)";
inline constexpr const char* kPortrait = "纵向";
inline constexpr const char* kLandscape = "横向";
inline constexpr const char* kAllCurves = "全部";
inline constexpr const char* kPrinter = "打印到：";
inline constexpr const char* kPdfFile = "PDF文件";
}  // namespace print_captions

/// A paper of the chart sheets by its name, in the order of the list.
struct PaperName {
  SheetPaper paper;
  const char* name;
};
inline constexpr std::array kPaperNames{PaperName{SheetPaper::A3, "A3纸"}, PaperName{SheetPaper::A4, "A4纸"},
                                        PaperName{SheetPaper::WideForm, "宽行打印纸"},
                                        PaperName{SheetPaper::NarrowForm, "窄行打印纸"}};

/// The two boxes in which a range is typed; both the same where it is one number.
struct RangeBoxes {
  PrintBox from, to;
};

/// An option button: what goes on paper.
struct ScopeOption {
  PrintScope scope;
  const char* caption;
  std::optional<RangeBoxes> range = {};
};

/// A print dialog for one kind of pages: what it has to choose, and what differs between dialogs that look alike.
struct PrintForm {
  std::string_view name;  // of the window
  std::string_view title;
  std::span<const PrintTick> ticks;
  std::span<const ScopeOption> scopes;  // Option1 and on
  std::span<const PrintBox> boxes;

  bool boxesFollowScope = false;  // boxes of an option that isn't chosen are off; else entering one chooses it
  bool choosesPrinter = true;     // false: 针式打印机 is looked at by nobody, the choice that stands counts
  bool pagesAsPictures = true;    // false: pages chosen by their numbers can't go into pictures
  bool has(PrintTick tick) const;
  bool has(PrintBox box) const;
  const ScopeOption& option(PrintScope scope) const;
};

extern const PrintForm kThreeInOneForm;     // SETPRINTFORM
extern const PrintForm kChartSheetForm;     // SETPRINTFORM3
extern const PrintForm kTK0CurveForm;       // SETPRINTFORM0
extern const PrintForm kTriaxialTableForm;  // Form30
extern const PrintForm kConsolidationForm;  // Form3, and so the rest
extern const PrintForm kUnconfinedForm;
extern const PrintForm kK0Form;
extern const PrintForm kTK0Form;

}  // namespace triaxlab
