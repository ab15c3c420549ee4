#include "platform/program_parts.h"

#include "platform/files.h"
#include "platform/process.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

// Where CMakeLists.txt installs them.
constexpr const char* kPrograms = "bin";
constexpr const char* kHelpers = "libexec/triaxlab";
constexpr const char* kData = "share/triaxlab";

/// The folder that a program is installed in, if it is.
fs::path installationAround(const fs::path& executableFolder) {
  const fs::path above = executableFolder.parent_path();
  return executableFolder == above.parent_path() / kHelpers ? above.parent_path() : above;
}

}  // namespace

ProgramParts programPartsAround(const fs::path& executableFolder) {
  const fs::path root = installationAround(executableFolder);
  ProgramParts installed{root / kPrograms, root / kHelpers, root / kData, true};
  const bool isAmongThem = executableFolder == installed.programs || executableFolder == installed.helpers;
  if (isAmongThem && folderIsAtHand(installed.data)) return installed;
  return {executableFolder, executableFolder, executableFolder, false};
}

ProgramParts programParts() { return programPartsAround(executableFolder()); }

}  // namespace triaxlab
