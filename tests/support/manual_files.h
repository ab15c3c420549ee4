#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "sessions/dialogs/manual.h"

namespace triaxlab::testing {

inline std::filesystem::path manualFolder() { return std::filesystem::path(TRIAXLAB_SOURCE) / "docs/manual"; }

inline std::string manualText(std::string_view file) {
  std::ostringstream text;
  text << std::ifstream(manualFolder() / file, std::ios::binary).rdbuf();
  return text.str();
}

inline Manual manualOfTheProgram() { return Manual(manualText); }

}  // namespace triaxlab::testing
