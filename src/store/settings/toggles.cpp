#include "store/settings/toggles.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

using T = Toggles;
// The two circle bytes are inverted, so that a new file prints both.
constexpr std::array kToggleBytes{
    ToggleByte{198, &T::dotMatrixPrinter, 1, 0, "", "dot-matrix printer, thinner lines"},
    ToggleByte{1765, &T::showPhysicalIndices, 1, 0, "WXCS"},
    ToggleByte{1800, &T::printEffectiveCircles, 0, 1, "", "effective-stress circles on paper"},
    ToggleByte{1801, &T::printTotalCircles, 0, 1, "", "total-stress circles on paper"},
    ToggleByte{3010, &T::printDensity, 1, 0, "MIDU"},
    ToggleByte{3011, &T::printSamplingSpot, 1, 0, "DYQYDD"},
    ToggleByte{27000, &T::sixteenUnconfined, 1, 0, "WCX16"},
    ToggleByte{27001, &T::omitProjectName, 1, 0, "PGCMC"},
    ToggleByte{27002, &T::mergePressures, 1, 0, "SAMETY"},
    ToggleByte{27003, &T::english, 1, 0, "SENGLISH"},
};

}  // namespace

std::span<const ToggleByte> toggleBytes() { return kToggleBytes; }

const ToggleByte* toggleOfCommand(std::string_view command) {
  if (command.empty()) return nullptr;
  const auto* const found = std::find_if(kToggleBytes.begin(), kToggleBytes.end(),
                                         [&](const ToggleByte& byte) { return byte.command == command; });
  return found == kToggleBytes.end() ? nullptr : found;
}

const ToggleByte& byteOfToggle(bool Toggles::*toggle) {
  const auto* const row = std::ranges::find(kToggleBytes, toggle, &ToggleByte::toggle);
  if (row == kToggleBytes.end()) throw std::out_of_range("no byte for this toggle");
  return *row;
}

void readToggles(Workspace& workspace) {
  const SettingsFile settings = sharedSettings(workspace);
  Toggles toggles = workspace.settings.toggles;
  for (const ToggleByte& byte : kToggleBytes) toggles.*byte.toggle = settings.readByte(byte.position) == byte.on;
  workspace.settings.toggles = toggles;
}

void setToggle(Workspace& workspace, bool Toggles::*toggle, bool on) {
  workspace.settings.toggles.*toggle = on;
  const ToggleByte& byte = byteOfToggle(toggle);
  sharedSettings(workspace).writeByte(byte.position, byte.valueFor(on));
}

}  // namespace triaxlab
