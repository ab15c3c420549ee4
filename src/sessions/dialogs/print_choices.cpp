#include "sessions/dialogs/print_choices.h"

#include <array>
#include <cstdint>

#include "common/user_error.h"
#include "sessions/dialogs/error_display.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

/// A choice that is stored as a byte. Only `chosenByte` reads as chosen; the circles are inverted, so that a new file
/// prints both kinds.
struct StoredChoice {
  bool PrintChoices::*choice;
  std::uint32_t position;
  std::uint8_t chosenByte;
  bool Toggles::*toggle;

  std::uint8_t byteFor(bool chosen) const { return chosen ? chosenByte : static_cast<std::uint8_t>(1 - chosenByte); }
};
constexpr std::array kStoredChoices{
    StoredChoice{&PrintChoices::dotMatrix, kDotMatrixByte.position, 1, &Toggles::dotMatrixPrinter},
    StoredChoice{&PrintChoices::effectiveCircles, kEffectiveCirclesByte.position, 0, &Toggles::printEffectiveCircles},
    StoredChoice{&PrintChoices::totalCircles, kTotalCirclesByte.position, 0, &Toggles::printTotalCircles},
};

}  // namespace

PrintChoices readPrintChoices(const Workspace& workspace) {
  PrintChoices choices;
  const SettingsFile settings = sharedSettings(workspace);
  for (const StoredChoice& stored : kStoredChoices)
    choices.*stored.choice = settings.readByte(stored.position) == stored.chosenByte;
  return choices;
}

void storePrintChoices(Workspace& workspace, const PrintChoices& choices, Dialogs& dialogs) {
  for (const StoredChoice& stored : kStoredChoices) workspace.settings.toggles.*stored.toggle = choices.*stored.choice;
  runShowingErrors(dialogs, [&] {
    SettingsFile settings = sharedSettings(workspace);
    for (const StoredChoice& stored : kStoredChoices) {
      const std::uint8_t byte = stored.byteFor(choices.*stored.choice);
      if (settings.readByte(stored.position) != byte) settings.writeByte(stored.position, byte);
    }
  });
}

}  // namespace triaxlab
