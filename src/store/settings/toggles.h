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
  std::uint8_t on, off;           // what is written; every other value reads as off
  std::string_view command;       // its checked menu entry; empty: a choice of the print dialogs
  std::string_view meaning = {};  // English, of what has no menu entry, for the page about the file

  std::uint8_t valueFor(bool isOn) const { return isOn ? on : off; }
};

std::span<const ToggleByte> toggleBytes();
/// The toggle behind a menu entry; null when the command is none.
const ToggleByte* toggleOfCommand(std::string_view command);

/// std::out_of_range for a member that is stored nowhere.
const ToggleByte& byteOfToggle(bool Toggles::*toggle);

/// All of them from qvb.sys. UserError when it can't be read; they are then as they were.
void readToggles(Workspace& workspace);
/// Sets one and writes its byte. It holds for this run even when it can't be written, which is a UserError.
void setToggle(Workspace& workspace, bool Toggles::*toggle, bool on);

}  // namespace triaxlab
