#pragma once

#include <filesystem>
#include <string>

#include "sessions/dialogs/manual.h"
#include "support/file_bytes.h"

namespace triaxlab::testing {

inline std::filesystem::path manualFolder() { return std::filesystem::path(TRIAXLAB_SOURCE) / "docs/manual"; }

inline std::string manualText(std::string_view file) { return fileBytes(manualFolder() / file); }

inline Manual manualOfTheProgram() { return Manual(manualText); }

}  // namespace triaxlab::testing
