#include "windows/triaxial/triaxial_curve_layout.h"

#include <QFont>
#include <QFrame>
#include <QGroupBox>
#include <QPushButton>

#include "platform/drawing_surface.h"
#include "triaxial/charts/curve_chart.h"
#include "windows/controls/appearance.h"
#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/scroll_bars.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips throughout.
constexpr int kBoxHeight = 300, kButtonHeight = 280;

// The list: 21 lines, the first has the heads.
constexpr int kListTop = 60, kListPitch = 270;
constexpr int kNumberX = 60, kNumberWidth = 500, kProjectX = 560, kSampleX = 2160, kCellWidth = 1600;
constexpr int kListScrollX = 3780;

constexpr int kCanvasX = 4100, kCanvasY = 60;
constexpr int kPagesY = 4800, kPageButtonWidth = 700;

// Right of the canvas.
constexpr int kCaptionX = 11250, kFieldX = 12400, kLimitX = 13400, kApplyX = 14400;
constexpr int kCaptionWidth = kFieldX - kCaptionX - 50, kFieldWidth = 3140, kStageFieldWidth = 900;
constexpr int kFieldTop = 60, kFieldPitch = 340;
constexpr int kStageHeadY = 2480, kStageTop = 2780, kStagePitch = 300;
constexpr int kNoteY = 4380, kTableButtonY = 4340;

// The table: a first column, then three a stage.
constexpr int kTableX = 4100, kFirstColumnWidth = 950, kStagesX = 5050, kStageWidth = 2040;
constexpr std::array kColumnX{0, 560, 1300}, kColumnWidth{560, 740, 740};
constexpr int kStageHeadsY = 5140, kColumnHeadsY = 5410, kTableTop = 5680, kTablePitch = 270;
constexpr int kTableScrollX = 15270;

// Below the list.
constexpr int kDocumentX = 60, kDocumentTop = 5800, kDocumentPitch = 340;
constexpr int kDocumentFieldX = 1300, kDocumentFieldWidth = 2735;

int lineY(int line) { return kListTop + kListPitch * line; }

/// A column of the table, 0 to 15.
Place tablePlace(int column, int y) {
  if (column == 0) return {kTableX, y, kFirstColumnWidth, kTablePitch};
  const int stage = (column - 1) / 3;
  const auto part = static_cast<std::size_t>((column - 1) % 3);
  return {kStagesX + kStageWidth * stage + kColumnX.at(part), y, kColumnWidth.at(part), kTablePitch};
}

/// An edit box that lies over a cell while the person types there.
void makeOverlay(RecordEdit* box) {
  box->setFrame(false);
  box->setTextMargins(0, 0, 0, 0);
  box->hide();
}

}  // namespace

CurveControls::CurveControls(QWidget* window, CanvasWidget::Drawing drawing)
    : intervention(window), physicalValues(window), m_window(window) {
  makeList();
  makeCurves(std::move(drawing));
  makeSampleFields();
  makeStages();
  makeTable();
  makeDocumentFields();
  edits.emplace_back(intervention.text10, Input{InputName::Factor});
  edits.emplace_back(intervention.text11, Input{InputName::Summand});
  text1->raise();
  text2->raise();
  intervention.frame1->raise();
}

ClickLabel* CurveControls::caption(const QString& text, int x, int y, int width) {
  auto* const label = new ClickLabel(m_window, text);
  setPlace(label, {x, y, width, kBoxHeight});
  return label;
}

RecordEdit* CurveControls::edit(const QString& name, Input input, int x, int y, int width) {
  auto* const made = put(new RecordEdit(m_window), name, {x, y, width, kBoxHeight});
  edits.emplace_back(made, input);
  return made;
}

QPushButton* CurveControls::button(const char* name, const QString& text, int x, int y, int width) {
  return put(new QPushButton(text, m_window), name, {x, y, width, kButtonHeight});
}

void CurveControls::makeList() {
  for (int line = 0; line <= kCurveListLines; ++line) {
    const auto at = static_cast<std::size_t>(line);
    const auto look = line == 0 ? ClickLabel::Look::Head : ClickLabel::Look::Cell;
    const auto cell = [&](const char* name, int index, int x, int width) {
      return put(new ClickLabel(m_window, {}, look), arrayName(name, index), {x, lineY(line), width, kListPitch});
    };
    label5.at(at) = cell("Label5", line, kNumberX, kNumberWidth);
    label5.at(at)->setAlignment(kNumberAlignment);
    label1.at(2 * at) = cell("Label1", 2 * line, kProjectX, kCellWidth);
    label1.at(2 * at + 1) = cell("Label1", 2 * line + 1, kSampleX, kCellWidth);
  }
  text1 = edit("Text1", {InputName::ListCell}, kProjectX, lineY(1), kCellWidth);
  makeOverlay(text1);
  vScroll1 =
      uprightScrollBar(m_window, "VScroll1",
                       {kListScrollX, kListTop, kScrollBarWidth, kListPitch * (kCurveListLines + 1)}, kCurveListLines);
}

void CurveControls::makeCurves(CanvasWidget::Drawing drawing) {
  constexpr int kWidth = static_cast<int>(kChartWidth), kHeight = static_cast<int>(kChartHeight);
  picture1 = put(new CanvasWidget(m_window, kWidth, kHeight, std::move(drawing)), "Picture1",
                 {kCanvasX, kCanvasY, kWidth, kHeight});
  command3 = button("Command3", "<<", 6300, kPagesY, kPageButtonWidth);
  command4 = button("Command4", ">>", 8200, kPagesY, kPageButtonWidth);
}

void CurveControls::makeSampleFields() {
  int y = kFieldTop;
  const auto field = [&](const QString& name, Input input, const char* heading) {
    ClickLabel* const label = caption(words(heading), kCaptionX, y, kCaptionWidth);
    RecordEdit* const made = edit(name, input, kFieldX, y, kFieldWidth);
    made->setAccessibleName(words(heading));
    y += kFieldPitch;
    return std::pair(made, label);
  };
  text3 = field("Text3", {InputName::SoilName}, curve_captions::kSoilName).first;
  text4 = field("Text4", {InputName::Density}, curve_captions::kDensity).first;
  for (int i = 0; i < 2; ++i) {
    auto* const box = put(new RecordEdit(m_window), arrayName("Text6", i), {kFieldX, y, kFieldWidth, kBoxHeight});
    box->setReadOnly(true);
    // Keys choose its value, but nothing is typed here.
    QPalette palette = box->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    box->setPalette(palette);
    text6.at(static_cast<std::size_t>(i)) = box;
    y += kFieldPitch;
  }
  // Text7 goes on behind the pressures of the stages.
  static constexpr std::array kLocation{InputName::Borehole, InputName::SamplingDepth, InputName::SamplingSpot};
  for (std::size_t i = 0; i < kLocation.size(); ++i) {
    const std::size_t index = kStages + i;
    const auto [box, label] = field(arrayName("Text7", static_cast<int>(index)), {kLocation.at(i)}, "");
    text7.at(index) = box;
    locationCaptions.at(i) = label;
  }
}

void CurveControls::makeStages() {
  caption(curve_captions::kStageNumber, kCaptionX, kStageHeadY, kCaptionWidth);
  caption(curve_captions::kStagePressure, kFieldX, kStageHeadY, kStageFieldWidth);
  label8 = caption(curve_captions::kFailurePoint, kLimitX, kStageHeadY, kStageFieldWidth);
  label8->setObjectName("Label8");
  for (int stage = 0; stage < static_cast<int>(kStages); ++stage) {
    const int y = kStageTop + kStagePitch * stage;
    const auto at = static_cast<std::size_t>(stage);
    caption(curve_captions::kStageRows.at(at), kCaptionX, y, kCaptionWidth);
    text7.at(at) = edit(arrayName("Text7", stage), {InputName::CellPressure, stage}, kFieldX, y, kStageFieldWidth);
    text7.at(at)->setAlignment(kNumberAlignment);
  }
  for (int stage = 0; stage < static_cast<int>(kStages); ++stage) {
    const int y = kStageTop + kStagePitch * stage;
    const auto at = static_cast<std::size_t>(stage);
    text8.at(at) = edit(arrayName("Text8", stage), {InputName::StrainLimit, stage}, kLimitX, y, kStageFieldWidth);
    text8.at(at)->setAlignment(kNumberAlignment);
  }
  command8 = button("Command8", curve_captions::kApplyLimits, kApplyX, kStageTop, kStageFieldWidth);
  label4 = caption({}, kCaptionX, kNoteY, kLimitX - kCaptionX - 50);
  label4->setObjectName("Label4");
  command5 = button("Command5", curve_captions::kConsolidationTable, kLimitX, kTableButtonY, kStageFieldWidth);
}

void CurveControls::makeTable() {
  command1 = button("Command1", "<<", 11250, kPagesY, kPageButtonWidth);
  command2 = button("Command2", ">>", 12150, kPagesY, kPageButtonWidth);
  for (int stage = 0; stage < static_cast<int>(kStages); ++stage) {
    auto* const head =
        put(new ClickLabel(m_window, curve_captions::kStageColumns.at(static_cast<std::size_t>(stage)),
                           ClickLabel::Look::Head),
            arrayName("StageHead", stage), {kStagesX + kStageWidth * stage, kStageHeadsY, kStageWidth, kTablePitch});
    head->setAlignment(Qt::AlignCenter);
  }
  // Heads of effective stresses are twice as wide as their columns in letters of the usual width.
  QFont narrow;
  narrow.setFamilies(QStringList(kArialNarrow) + windowFonts());
  for (int column = 0; column < kTableColumns; ++column) {
    ClickLabel*& head = columnHeads.at(static_cast<std::size_t>(column));
    head = put(new ClickLabel(m_window, {}, ClickLabel::Look::Head), arrayName("ColumnHead", column),
               tablePlace(column, kColumnHeadsY));
    head->setFont(narrow);
    if (column > 0) head->setAlignment(kNumberAlignment);
  }
  for (int cell = 0; cell < kTableCells; ++cell) {
    const int y = kTableTop + kTablePitch * (cell / kTableColumns);
    auto* const made = put(new ClickLabel(m_window, {}, ClickLabel::Look::Cell), arrayName("Label2", cell),
                           tablePlace(cell % kTableColumns, y));
    // The first column has names.
    if (cell % kTableColumns > 0) made->setAlignment(kNumberAlignment);
    label2.at(static_cast<std::size_t>(cell)) = made;
  }
  text2 = edit("Text2", {InputName::ResultCell}, kTableX, kTableTop, kFirstColumnWidth);
  makeOverlay(text2);
  text2->setAlignment(kNumberAlignment);
  vScroll2 = uprightScrollBar(m_window, "VScroll2",
                              {kTableScrollX, kTableTop, kScrollBarWidth, kTablePitch * kTableLines}, kTableLines);
}

void CurveControls::makeDocumentFields() {
  int y = kDocumentTop;
  caption(document_captions::kProjectName, kDocumentX, y, kDocumentFieldX - kDocumentX);
  text5 = edit("Text5", {InputName::ProjectName}, kDocumentFieldX, y, kDocumentFieldWidth);
  y += kDocumentPitch;

  // Year, month and day of processing on one line, each box in front of its caption.
  static constexpr std::array kDateX{60, 1350, 2500}, kDateWidth{900, 800, 800};
  for (int i = 0; i < 3; ++i) {
    const auto at = static_cast<std::size_t>(i);
    textW.at(at) = edit(arrayName("TextW", i), {InputName::DatePart, i}, kDateX.at(at), y, kDateWidth.at(at));
    caption(curve_captions::kDateParts.at(at), kDateX.at(at) + kDateWidth.at(at) + 50, y, 250);
  }
  y += kDocumentPitch;

  caption(document_captions::kArchiveNo, kDocumentX, y, kDocumentFieldX - kDocumentX);
  textW[3] = edit(arrayName("TextW", 3), {InputName::SecondTitleLine}, kDocumentFieldX, y, kDocumentFieldWidth);
  y += kDocumentPitch;

  text9Caption = caption(curve_captions::kControlledDocNo, kDocumentX, y, kDocumentFieldX - kDocumentX);
  text9 = edit("Text9", {InputName::ControlledDocNo}, kDocumentFieldX, y, kDocumentFieldWidth);
}

}  // namespace triaxlab
