#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "common/settings.h"
#include "store/workspace.h"

namespace triaxlab {

/// One byte of qvb.sys that holds a yes or no.
struct ToggleByte {
  std::uint32_t position;  // 1-based
  bool Toggles::*toggle;
  std::uint8_t on;           // the value that means on; of the other two values 0 and 1 is written for off
  std::string_view command;  // its checked menu entry; empty: a choice of the print dialogs
};

std::span<const ToggleByte> toggleBytes();
/// The toggle behind a menu entry; null when the command is none.
const ToggleByte* toggleOfCommand(std::string_view command);

/// All of them from qvb.sys. UserError when the file is there and can't be read.
void readToggles(Workspace& workspace);
/// Sets one and writes its byte. The setting holds for this run even when the write fails, which is a UserError.
void setToggle(Workspace& workspace, bool Toggles::*toggle, bool on);

}  // namespace triaxlab
