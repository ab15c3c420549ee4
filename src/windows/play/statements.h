#pragma once

#include <filesystem>
#include <string>

#include "windows/play/play_dialogs.h"
#include "windows/play/script.h"

namespace triaxlab {

/// What statements work on besides the open windows.
struct Stage {
  PlayDialogs& dialogs;
  std::filesystem::path folder;  // of the script; paths are relative to it
  bool leftButtonDown = false;   // since a press on a canvas
};

/// Runs one statement. ScriptError when it can't be carried out.
void runStatement(const ScriptLine& line, Stage& stage);

}  // namespace triaxlab
