#include "sessions/dialogs/three_in_one_print_session.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/conversions.h"
#include "common/text_number.h"
#include "reports/three_in_one.h"
#include "sessions/dialogs/print_choices.h"

namespace triaxlab {
namespace {

constexpr const char* kJobTitle = "打印三轴试验成果曲线";
constexpr const char* kNoCurve = "请选择要打印的曲线类型！";

constexpr std::array kCurveTicks{
    PrintTick::StressStrain, PrintTick::StressRatioEnvelope, PrintTick::StressDifferenceEnvelope,
    PrintTick::StressPath,   PrintTick::PorePressure,        PrintTick::StressRatio};

/// The six pages count from 1.
CurvePage curveOf(PrintTick tick) { return static_cast<CurvePage>(static_cast<int>(tick) + 1); }

int liveSamples(const Workspace& workspace) {
  return static_cast<int>(
      std::ranges::count_if(workspace.TriaxialSampleTable.used(), [](const auto& record) { return isLive(record); }));
}

/// The number typed in a range box without its sign, at most `largest`.
std::int16_t typedNumber(const std::string& text, int largest) {
  const double number = std::min(std::abs(ParseNumber(text)), static_cast<double>(largest));
  return toInt16(number).value_or(1);
}

/// Without circles an envelope has nothing to lie on.
void dropEnvelopesWithoutCircles(ThreeInOnePrintState& state) {
  if (state.ticked(PrintTick::EffectiveCircles) || state.ticked(PrintTick::TotalCircles)) return;
  for (const PrintTick envelope : {PrintTick::StressRatioEnvelope, PrintTick::StressDifferenceEnvelope})
    state.ticks[static_cast<std::size_t>(envelope)] = false;
}

CurveOptions curveOptionsOf(const ThreeInOnePrintState& state) {
  CurveOptions options{.pages = {},
                       .totalCircles = state.ticked(PrintTick::TotalCircles),
                       .effectiveCircles = state.ticked(PrintTick::EffectiveCircles)};
  for (const PrintTick curve : kCurveTicks)
    if (state.ticked(curve)) options.pages.push_back(curveOf(curve));
  return options;
}

}  // namespace

ThreeInOnePrintSession::ThreeInOnePrintSession(Workspace& workspace, Dialogs& dialogs, CurvesOnDisplay onDisplay)
    : PrintDialogSession(kThreeInOne, workspace, dialogs), m_onDisplay(onDisplay) {
  for (const PrintTick first : {PrintTick::StressStrain, PrintTick::StressDifferenceEnvelope, PrintTick::PageNumbers})
    tick(first) = true;
  const PrintChoices choices = readPrintChoices(workspace);
  tick(PrintTick::DotMatrix) = choices.dotMatrix;
  tick(PrintTick::TotalCircles) = choices.totalCircles;
  tick(PrintTick::EffectiveCircles) = choices.effectiveCircles;
  m_state.texts = {"1", std::to_string(liveSamples(workspace)), "1"};
}

ThreeInOnePrintState ThreeInOnePrintSession::state() const {
  ThreeInOnePrintState state = m_state;
  state.canPreview = !job().curves.pages.empty();
  return state;
}

void ThreeInOnePrintSession::setTicked(PrintTick tick, bool ticked) { this->tick(tick) = ticked; }

bool ThreeInOnePrintSession::choose(PrintScope scope) {
  m_state.scope = scope;
  return scope == PrintScope::Range || scope == PrintScope::Pages;
}

void ThreeInOnePrintSession::enterBox(PrintBox box) {
  if (box != PrintBox::FirstPage && m_state.scope != PrintScope::Pages) m_state.scope = PrintScope::Range;
}

void ThreeInOnePrintSession::setText(PrintBox box, std::string_view utf8) {
  m_state.texts.at(static_cast<std::size_t>(box)) = utf8;
  // A number that is none keeps the page with which the last one would have begun.
  if (box == PrintBox::FirstPage)
    if (const auto number = toInt16(ParseNumber(utf8))) m_firstPageNumber = std::max<std::int16_t>(*number, 1);
}

PrintJob ThreeInOnePrintSession::job() const {
  ThreeInOnePrintState state = m_state;
  dropEnvelopesWithoutCircles(state);
  PrintJob job;
  job.scope = state.scope;
  // Samples are counted here, pages when the job is laid out.
  const int largest =
      state.scope == PrintScope::Pages ? std::numeric_limits<std::int16_t>::max() : liveSamples(workspace());
  job.printRangeFrom = typedNumber(state.texts[0], largest);
  job.printRangeTo = typedNumber(state.texts[1], largest);
  job.currentRow = m_onDisplay.row;
  job.lineWeight = state.ticked(PrintTick::DotMatrix) ? 2 : 4;
  job.printToPicture = state.ticked(PrintTick::Picture);
  job.printToA3 = state.ticked(PrintTick::A3);
  job.printPageNumbers = state.ticked(PrintTick::PageNumbers);
  job.firstPageNumber = m_firstPageNumber;
  job.curves = curveOptionsOf(state);
  job.curves.checkedMode = m_onDisplay.checkedMode;
  return job;
}

bool ThreeInOnePrintSession::accept() {
  storePrintChoices(workspace(),
                    {.dotMatrix = m_state.ticked(PrintTick::DotMatrix),
                     .totalCircles = m_state.ticked(PrintTick::TotalCircles),
                     .effectiveCircles = m_state.ticked(PrintTick::EffectiveCircles)},
                    dialogs());
  dropEnvelopesWithoutCircles(m_state);
  if (!job().curves.pages.empty()) return true;
  dialogs().message(kJobTitle, kNoCurve, MessageIcon::Stop);
  return false;
}

}  // namespace triaxlab
