#include "sessions/k0/ko_session.h"

#include "common/angles.h"
#include "common/gbk.h"
#include "common/user_error.h"
#include "k0/charts/ko_chart.h"
#include "k0/ko_line.h"
#include "store/summary/summary_file.h"

namespace triaxlab {
namespace {

/// Deformation and the two pressures of a stage.
struct Reading {
  PerLoadStage<FixedText<6>> K0SampleRecord::*texts;
  NumberFormat format;
};
constexpr std::array kReadings{Reading{&K0SampleRecord::axialDeformation, NumberFormat::Thousandths},
                               Reading{&K0SampleRecord::axialPressure, NumberFormat::Tenths},
                               Reading{&K0SampleRecord::lateralPressure, NumberFormat::Tenths}};
static_assert(kReadings.size() == ko_captions::kReadings.size());

/// What is told while a line is moved.
struct ModeTexts {
  NumberFormat intercept;
  const char* unit;
  std::array<const char*, 3> help;
};
constexpr ModeTexts kKoTexts{
    NumberFormat::Tenths,
    "kPa",
    {"←、→ 减、加截距 1.0 kPa    ↑、↓ 加、减角度 0.1 度", "鼠标左键 拖动直线中部上下移动，拖动右端转动",
     "Ctrl+Z 撤销    Ctrl+Y 重做    F4 退出干预"}};
constexpr ModeTexts kT90Texts{
    NumberFormat::Hundredths,
    "mm",
    {"←、→ 加、减截距 0.01 mm    ↑、↓ 减、加角度 0.1 度", "鼠标左键 拖动第一条直线中部上下移动，拖动末端转动",
     "Ctrl+Z 撤销    Ctrl+Y 重做    F5 退出干预"}};

}  // namespace

KoSession::KoSession(Workspace& workspace, ProjectKind tests)
    : ListedSession(workspace, {.tests = tests, .readingHeads = ko_captions::kReadings, .readingRows = kLoadStages}) {}

// ---- what is shown

void KoSession::fit() {
  K0SampleRecord& record = head();
  std::string depth;
  try {
    if (isLive(record)) depth = lookupSamplingDepth(workspace(), record.projectNo.trimmed(), record.sampleNo.trimmed());
  } catch (const UserError&) {
    // Said when the table came in; the depth that was read then stays.
    depth = record.samplingDepth.trimmed();
  }
  fitKoLine(record, depth);
}

void KoSession::takePicture() {
  fit();
  m_drawn = head();
}

void KoSession::show(bool changed) {
  if (changed) pictureChanged();
}

KoState KoSession::koState() const {
  KoState state{.lineNote = m_drawn.koAdjusted != 0 ? "已经调整" : "原始数据",
                .samplingDepth = gbkToUtf8(m_drawn.samplingDepth.trimmed()),
                .idle = !m_intervention.running(),
                .subject = {},
                .help = {}};
  const std::optional<StraightLine> line = m_intervention.line();
  if (!line) return state;
  const ModeTexts& texts = mode() == LineMode::Ko ? kKoTexts : kT90Texts;
  state.subject = workspace().settings.habits.sampleNoLabel + ":" + gbkToUtf8(m_drawn.sampleNo.trimmed()) +
                  "    截距:" + FormatNumber(line->intercept, texts.intercept) + " " + texts.unit +
                  "    角度:" + FormatNumber(degreesOfTangent(line->slope), NumberFormat::Tenths) + " 度";
  for (std::size_t i = 0; i < texts.help.size(); ++i) state.help.at(i) = texts.help.at(i);
  return state;
}

std::optional<StraightLine> KoSession::movedKoLine() const {
  return mode() == LineMode::Ko ? m_intervention.line() : std::nullopt;
}

std::optional<DrawnLineOnCanvas> KoSession::koLineDrawn() const {
  const std::optional<StraightLine> line = movedKoLine();
  if (!line) return std::nullopt;
  const PlotScale scale = koScale(m_drawn);
  const auto ends = koLineOnCanvas(scale, *line, KoLineOf::Person);
  return ends ? std::optional<DrawnLineOnCanvas>({scale, *ends}) : std::nullopt;
}

void KoSession::drawKo(DrawingSurface& surface) const { drawKoChart(surface, m_drawn, {.moved = movedKoLine()}); }

void KoSession::drawKoEdges(DrawingSurface& surface, const ChartView& view) const {
  drawKoChartEdges(surface, m_drawn, view);
}

std::string KoSession::koReadoutAt(Point place) const { return koReadout(m_drawn, place); }

// ---- what is done

void KoSession::redraw() {
  if (!isHeld()) showSample();
}

void KoSession::reprocess() {
  if (isHeld()) return;
  head().koAdjusted = 0;
  markChanged();
  showSample();
}

void KoSession::moveKoLine() {
  if (isHeld()) return;
  showSample();
  m_intervention.enter(LineMode::Ko, koLineOf(m_drawn));
}

void KoSession::leaveIntervention(Dialogs& dialogs) {
  const std::optional<StraightLine> line = m_intervention.line();
  if (!line) return;
  if (asksToKeepLine(dialogs)) {
    if (mode() == LineMode::Ko)
      storeAdjustedKoLine(head(), *line);
    else
      acceptLine(*line);
    markChanged();
  }
  m_intervention.end();
  showSample();
}

LineGrip KoSession::gripOnKoChart(Point place) const { return gripAt(koLineDrawn(), place); }

// ---- typing

EditableField KoSession::listField(std::size_t row, bool isProject) const {
  K0SampleRecord& record = head(row);
  return numberField(isProject ? record.projectNo : record.sampleNo);
}

EditableField KoSession::readingField(std::size_t row, std::size_t column) const {
  const Reading& reading = kReadings.at(column);
  FixedText<6>& text = (head().*reading.texts).at(row);
  EditableField field = editable(text);
  field.store = [&text, format = reading.format](std::string_view gbk) {
    if (Trim(gbk).empty())
      text.clear();
    else
      SetNumber(text, ParseNumber(gbk), format);
  };
  return field;
}

std::string KoSession::readingText(std::size_t row, std::size_t column) const {
  return std::string((head().*kReadings.at(column).texts).at(row).trimmed());
}

// ---- Form6

K0Session::K0Session(Workspace& workspace) : KoSession(workspace, ProjectKind::K0) { load(); }

K0SampleRecord& K0Session::head(std::size_t row) const { return workspace().K0SampleTable.at(row); }

}  // namespace triaxlab
