// What stands under a name, and the names in a folder, on every system.
#include <algorithm>
#include <optional>
#include <utility>

#include "common/small_letters.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/os/calls.h"

namespace triaxlab {
namespace {

bool comesBefore(const std::string& a, const std::string& b) {
  const std::string lowA = caseless(a), lowB = caseless(b);
  return lowA != lowB ? lowA < lowB : a < b;
}

/// Whether an entry is a folder or leads to one; nothing for a link that leads nowhere. What can't be looked at stands
/// there all the same: it is no folder, and whoever opens it hears why.
std::optional<bool> leadsToFolder(const std::filesystem::path& folder, const FolderEntry& entry) {
  if (entry.kind != PathKind::Link) return entry.kind == PathKind::Folder;
  try {
    const PathKind target = kindOf(folder / entry.name);
    if (target == PathKind::Nothing) return std::nullopt;
    return target == PathKind::Folder;
  } catch (const UserError&) {
    return false;
  }
}

}  // namespace

bool isNameInFolder(std::string_view name) {
#ifdef _WIN32
  constexpr std::string_view kNotInNames("/\\:*?\"<>|\0", 10);
#else
  constexpr std::string_view kNotInNames("/\0", 2);
#endif
  return !name.empty() && name != "." && name != ".." && name.find_first_of(kNotInNames) == std::string_view::npos;
}

bool fileExists(const std::filesystem::path& path) {
  const PathKind kind = kindOf(path);
  return kind != PathKind::Nothing && kind != PathKind::Folder;
}

bool folderExists(const std::filesystem::path& path) { return kindOf(path) == PathKind::Folder; }

void refuseLinks(const std::filesystem::path& root, const std::filesystem::path& path) {
  std::filesystem::path place = root;
  for (const std::filesystem::path& part : path.lexically_relative(root)) {
    place /= part;
    const PathKind kind = kindOf(place, Links::LookAt);
    if (kind == PathKind::Nothing) return;
    if (kind == PathKind::Link) failCall("查看文件", path, kLinkInTheWay);
  }
}

std::optional<std::filesystem::path> findFile(const std::filesystem::path& folder, std::string_view name) {
  if (!isNameInFolder(name)) return std::nullopt;
  if (const auto spelled = spelledInFolder(folder, name); spelled && isSameName(*spelled, name))
    return folder / *spelled;
  const std::string wanted = caseless(name);
  std::optional<std::string> first;
  for (FolderEntry& candidate : entriesOf(folder))
    if (caseless(candidate.name) == wanted && (!first || candidate.name < *first)) first = std::move(candidate.name);
  if (!first) return std::nullopt;
  return folder / *first;
}

std::filesystem::path fileOrNew(const std::filesystem::path& folder, std::string_view name) {
  return findFile(folder, name).value_or(folder / std::string(name));
}

std::vector<std::string> listFiles(const std::filesystem::path& folder, std::string_view prefix,
                                   std::string_view suffix) {
  const std::string begin = caseless(prefix), end = caseless(suffix);
  std::vector<std::string> names;
  for (FolderEntry& entry : entriesOf(folder)) {
    const std::string low = caseless(entry.name);
    if (low.size() >= begin.size() + end.size() && low.starts_with(begin) && low.ends_with(end) &&
        leadsToFolder(folder, entry) == false)
      names.push_back(std::move(entry.name));
  }
  std::sort(names.begin(), names.end(), comesBefore);
  return names;
}

std::vector<std::string> listFolders(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (FolderEntry& entry : entriesOf(folder))
    if (!entry.name.starts_with('.') && leadsToFolder(folder, entry) == true) names.push_back(std::move(entry.name));
  std::sort(names.begin(), names.end(), comesBefore);
  return names;
}

}  // namespace triaxlab
