#include "reports/print_options.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/conversions.h"
#include "common/text_number.h"
#include "common/user_error.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

constexpr const char* kJobTitle = "打印三轴试验成果曲线";
constexpr const char* kNoCurve = "请选择要打印的曲线类型！";

/// A choice that is stored as a byte of qvb.sys. Only `chosenByte` reads as chosen; the circles are inverted, so that a
/// new file prints both kinds.
struct StoredChoice {
  PrintCheck check;
  std::uint32_t position;
  std::uint8_t chosenByte;
  bool Toggles::*toggle;

  std::uint8_t byteFor(bool chosen) const { return chosen ? chosenByte : static_cast<std::uint8_t>(1 - chosenByte); }
};
constexpr std::array kStoredChoices{
    StoredChoice{PrintCheck::DotMatrix, kDotMatrixByte.position, 1, &Toggles::dotMatrixPrinter},
    StoredChoice{PrintCheck::EffectiveCircles, kEffectiveCirclesByte.position, 0, &Toggles::printEffectiveCircles},
    StoredChoice{PrintCheck::TotalCircles, kTotalCirclesByte.position, 0, &Toggles::printTotalCircles},
};

int liveSamples(const Workspace& workspace) {
  return static_cast<int>(
      std::count_if(workspace.TriaxialSampleTable.begin(), workspace.TriaxialSampleTable.end(), isLive));
}

/// The number typed in a range box without its sign, at most `largest`.
std::int16_t typedNumber(const std::string& text, int largest) {
  const double number = std::min(std::abs(ParseNumber(text)), static_cast<double>(largest));
  return toInt16(number).value_or(1);
}

/// The curve of a check box: Check2 to Check7 are the six pages.
CurvePage curveOf(PrintCheck check) { return static_cast<CurvePage>(static_cast<int>(check) - 1); }

/// Without circles an envelope has nothing to lie on.
void dropEnvelopesWithoutCircles(PrintOptionsState& state) {
  if (state.ticked(PrintCheck::EffectiveCircles) || state.ticked(PrintCheck::TotalCircles)) return;
  for (const PrintCheck envelope : {PrintCheck::StressRatioEnvelope, PrintCheck::StressDifferenceEnvelope})
    state.checks[static_cast<std::size_t>(envelope) - 1] = false;
}

PrintJob jobOf(const PrintOptionsState& state, const Workspace& workspace) {
  PrintJob job;
  job.scope = state.scope;
  // Samples are counted here, pages when the job is laid out.
  const int largest =
      state.scope == PrintScope::Pages ? std::numeric_limits<std::int16_t>::max() : liveSamples(workspace);
  job.printRangeFrom = typedNumber(state.texts[0], largest);
  job.printRangeTo = typedNumber(state.texts[1], largest);
  job.lineWeight = state.ticked(PrintCheck::DotMatrix) ? 2 : 4;
  job.printToPicture = state.ticked(PrintCheck::Picture);
  job.printToA3 = state.ticked(PrintCheck::A3);
  job.printPageNumbers = state.ticked(PrintCheck::PageNumbers);
  job.effectiveCircles = state.ticked(PrintCheck::EffectiveCircles);
  job.totalCircles = state.ticked(PrintCheck::TotalCircles);
  for (auto check = static_cast<int>(PrintCheck::StressStrain); check <= static_cast<int>(PrintCheck::StressRatio);
       ++check)
    if (state.ticked(static_cast<PrintCheck>(check))) job.curves.push_back(curveOf(static_cast<PrintCheck>(check)));
  return job;
}

}  // namespace

PrintOptions::PrintOptions(Workspace& workspace, std::size_t currentRow, FailureMode checkedMode)
    : m_workspace(workspace), m_currentRow(currentRow), m_checkedMode(checkedMode) {
  for (const PrintCheck first :
       {PrintCheck::StressStrain, PrintCheck::StressDifferenceEnvelope, PrintCheck::PageNumbers})
    tick(first) = true;
  const SettingsFile settings = sharedSettings(workspace);
  for (const StoredChoice& choice : kStoredChoices)
    tick(choice.check) = settings.readByte(choice.position) == choice.chosenByte;
  m_state.texts = {"1", std::to_string(liveSamples(workspace)), "1"};
}

void PrintOptions::setTicked(PrintCheck check, bool ticked) { tick(check) = ticked; }

bool PrintOptions::choose(PrintScope scope) {
  m_state.scope = scope;
  return scope == PrintScope::Range || scope == PrintScope::Pages;
}

void PrintOptions::enterBox(PrintBox box) {
  if (box != PrintBox::FirstPage && m_state.scope != PrintScope::Pages) m_state.scope = PrintScope::Range;
}

void PrintOptions::setText(PrintBox box, std::string_view utf8) {
  m_state.texts.at(static_cast<std::size_t>(box) - 1) = utf8;
  // A number that is none keeps the page with which the last one would have begun.
  if (box == PrintBox::FirstPage)
    if (const auto number = toInt16(ParseNumber(utf8))) m_firstPageNumber = std::max<std::int16_t>(*number, 1);
}

PrintJob PrintOptions::job() const {
  PrintOptionsState state = m_state;
  dropEnvelopesWithoutCircles(state);
  PrintJob job = jobOf(state, m_workspace);
  job.currentRow = m_currentRow;
  job.checkedMode = m_checkedMode;
  job.firstPageNumber = m_firstPageNumber;
  return job;
}

std::optional<PrintJob> PrintOptions::accept(Dialogs& dialogs) {
  storeChoices(dialogs);
  dropEnvelopesWithoutCircles(m_state);
  PrintJob accepted = job();
  if (!accepted.curves.empty()) return accepted;
  dialogs.message(kJobTitle, kNoCurve, MessageIcon::Stop);
  return std::nullopt;
}

void PrintOptions::storeChoices(Dialogs& dialogs) {
  for (const StoredChoice& choice : kStoredChoices)
    m_workspace.settings.toggles.*choice.toggle = m_state.ticked(choice.check);
  SettingsFile settings = sharedSettings(m_workspace);
  try {
    for (const StoredChoice& choice : kStoredChoices) {
      const std::uint8_t byte = choice.byteFor(m_state.ticked(choice.check));
      if (settings.readByte(choice.position) != byte) settings.writeByte(choice.position, byte);
    }
  } catch (const UserError& error) {
    // Settings that can't be stored are no reason not to print.
    dialogs.message(error.title(), error.what(), MessageIcon::Stop);
  }
}

}  // namespace triaxlab
