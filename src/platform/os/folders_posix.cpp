#include "platform/folders.h"

#include <mntent.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string_view>
#include <system_error>

#include "platform/files.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 8> kNetworkTypes{"nfs", "nfs4",       "cifs",   "smb3",
                                                        "9p",  "fuse.sshfs", "vboxsf", "virtiofs"};
/// Disks below these belong to the system.
constexpr std::array<std::string_view, 4> kSystemFolders{"/boot", "/snap", "/var", "/usr"};

bool isVolume(const mntent& mount) {
  const std::string_view folder = mount.mnt_dir, type = mount.mnt_type, device = mount.mnt_fsname;
  const bool ofSystem = std::any_of(kSystemFolders.begin(), kSystemFolders.end(), [&](std::string_view system) {
    return folder == system || (folder.starts_with(system) && folder[system.size()] == '/');
  });
  if (ofSystem || type == "squashfs") return false;
  // A share whose server is away would let us wait, so it isn't looked at.
  if (std::find(kNetworkTypes.begin(), kNetworkTypes.end(), type) != kNetworkTypes.end()) return true;
  return device.starts_with("/dev/") && folderIsAtHand(folder);
}

}  // namespace

fs::path folderNamedBy(const char* variable) {
  const char* const value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): read before any thread starts
  return value != nullptr ? value : "";
}

fs::path personalDataFolder() {
  const fs::path home = folderNamedBy("HOME");
  fs::path shared = folderNamedBy("XDG_DATA_HOME");
  if (shared.is_absolute()) return shared;
  return home.is_absolute() ? home / ".local/share" : fs::path();
}

std::string_view personalDataVariable() { return "HOME"; }

std::string_view beginningOfWholeNames() { return "“/”"; }

std::vector<fs::path> mountedVolumes(const fs::path& mountTable) {
  std::set<fs::path> mounted;
  if (const std::unique_ptr<std::FILE, int (*)(std::FILE*)> table{setmntent(mountTable.c_str(), "re"), endmntent}) {
    mntent mount{};
    std::array<char, 4096> texts{};
    while (getmntent_r(table.get(), &mount, texts.data(), static_cast<int>(texts.size())) != nullptr)
      if (isVolume(mount)) mounted.insert(mount.mnt_dir);
  }
  mounted.erase("/");
  std::vector<fs::path> volumes{"/"};
  volumes.insert(volumes.end(), mounted.begin(), mounted.end());
  return volumes;
}

}  // namespace triaxlab
