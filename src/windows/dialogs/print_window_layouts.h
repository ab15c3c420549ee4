#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "sessions/dialogs/print_form.h"
#include "windows/controls/layout.h"

namespace triaxlab {

// Where a print dialog has its controls, twips, and by what names a script finds them. The order is that of Tab.

struct TickControl {
  const char* name;
  PrintTick tick;
  Place place;
};
struct BoxControl {
  const char* name;
  PrintBox box;
  Place place;
};
struct PrintText {
  const char* name;  // of a text that nobody looks for: none
  const char* text;
  Place place;
  bool centred = false;
};
/// Paper and orientation of the chart sheets.
struct SheetControls {
  Place paper, portrait, landscape;
  Place curves;  // a list with one entry
};

struct PrintWindowLayout {
  std::string_view form;  // a name that several forms may have
  int width, height;
  std::span<const TickControl> ticks;
  std::span<const Place> scopes;  // Option1 and on
  std::span<const BoxControl> boxes;
  std::span<const PrintText> texts;
  int printerY, sendingY, buttonsY;
  std::optional<SheetControls> sheet = {};
  std::optional<Place> copiesBar = {};
};

const PrintWindowLayout& layoutOf(const PrintForm& form);

}  // namespace triaxlab
