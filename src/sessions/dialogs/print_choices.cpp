#include "sessions/dialogs/print_choices.h"

#include <array>
#include <cstdint>

#include "common/user_error.h"
#include "sessions/dialogs/error_display.h"
#include "store/settings/settings_file.h"
#include "store/settings/toggles.h"

namespace triaxlab {
namespace {

/// A choice and the toggle that keeps it.
struct StoredChoice {
  bool PrintChoices::*choice;
  bool Toggles::*toggle;
};
constexpr std::array kStoredChoices{
    StoredChoice{&PrintChoices::dotMatrix, &Toggles::dotMatrixPrinter},
    StoredChoice{&PrintChoices::effectiveCircles, &Toggles::printEffectiveCircles},
    StoredChoice{&PrintChoices::totalCircles, &Toggles::printTotalCircles},
};

}  // namespace

PrintChoices readPrintChoices(const Workspace& workspace) {
  PrintChoices choices;
  const SettingsFile settings = sharedSettings(workspace);
  for (const StoredChoice& stored : kStoredChoices) {
    const ToggleByte& byte = byteOfToggle(stored.toggle);
    choices.*stored.choice = settings.readByte(byte.position) == byte.on;
  }
  return choices;
}

void storePrintChoices(Workspace& workspace, const PrintChoices& choices, Dialogs& dialogs) {
  for (const StoredChoice& stored : kStoredChoices) workspace.settings.toggles.*stored.toggle = choices.*stored.choice;
  runShowingErrors(dialogs, [&] {
    SettingsFile settings = sharedSettings(workspace);
    for (const StoredChoice& stored : kStoredChoices) {
      const ToggleByte& byte = byteOfToggle(stored.toggle);
      const std::uint8_t value = byte.valueFor(choices.*stored.choice);
      if (settings.readByte(byte.position) != value) settings.writeByte(byte.position, value);
    }
  });
}

}  // namespace triaxlab
