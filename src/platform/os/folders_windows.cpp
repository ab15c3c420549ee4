#include "platform/folders.h"

#include <cstdlib>

#include "platform/os/windows_calls.h"

namespace triaxlab {

std::filesystem::path folderNamedBy(const char* variable) {
  const wchar_t* const value = _wgetenv(wideOf(variable).c_str());
  return value != nullptr ? value : L"";
}

std::filesystem::path personalDataFolder() { return folderNamedBy(personalDataVariable().data()); }

std::string_view personalDataVariable() { return "LOCALAPPDATA"; }

std::string_view beginningOfWholeNames() { return R"(盘符（如“D:\”）或“\\服务器\共享文件夹”)"; }

std::vector<std::filesystem::path> mountedVolumes(const std::filesystem::path& /*mountTable*/) {
  constexpr DWORD kLetters = 26;
  const DWORD drives = GetLogicalDrives();
  std::vector<std::filesystem::path> volumes;
  for (DWORD letter = 0; letter < kLetters; ++letter)
    if ((drives >> letter & 1) != 0) volumes.emplace_back(std::string(1, static_cast<char>('A' + letter)) + ":\\");
  return volumes;
}

}  // namespace triaxlab
