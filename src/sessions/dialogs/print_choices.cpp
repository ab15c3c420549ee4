#include "sessions/dialogs/print_choices.h"

#include <array>
#include <cstdint>

#include "sessions/dialogs/error_display.h"
#include "store/settings/settings_file.h"
#include "store/settings/toggles.h"

namespace triaxlab {
namespace {

/// A choice and the toggle that keeps it.
struct KeptTick {
  PrintTick tick;
  bool Toggles::*toggle;
};
constexpr std::array kKeptTicks{
    KeptTick{PrintTick::DotMatrix, &Toggles::dotMatrixPrinter},
    KeptTick{PrintTick::EffectiveCircles, &Toggles::printEffectiveCircles},
    KeptTick{PrintTick::TotalCircles, &Toggles::printTotalCircles},
};

bool isStored(const PrintForm& form, PrintTick tick) {
  return form.has(tick) && (tick != PrintTick::DotMatrix || form.choosesPrinter);
}

}  // namespace

void readKeptTicks(const Workspace& workspace, ByTick<bool>& ticks) {
  const SettingsFile settings = sharedSettings(workspace);
  for (const auto& [tick, toggle] : kKeptTicks) {
    const ToggleByte& byte = byteOfToggle(toggle);
    ticks[tick] = settings.readByte(byte.position) == byte.on;
  }
}

void storeKeptTicks(Workspace& workspace, const PrintForm& form, const ByTick<bool>& ticks, Dialogs& dialogs) {
  for (const auto& [tick, toggle] : kKeptTicks)
    if (isStored(form, tick)) workspace.settings.toggles.*toggle = ticks[tick];
  runShowingErrors(dialogs, [&] {
    SettingsFile settings = sharedSettings(workspace);
    for (const auto& [tick, toggle] : kKeptTicks) {
      if (!isStored(form, tick)) continue;
      const ToggleByte& byte = byteOfToggle(toggle);
      const std::uint8_t value = byte.valueFor(ticks[tick]);
      if (settings.readByte(byte.position) != value) settings.writeByte(byte.position, value);
    }
  });
}

}  // namespace triaxlab
