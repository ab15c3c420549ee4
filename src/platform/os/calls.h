#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the files here that know no system ask of the one that they are compiled for.

namespace triaxlab {

/// The cause of a failed call in the technician's language; `error` is a value of errno or one of those below.
std::string causeOf(int error);

// Causes that no system call tells: a link where none is followed, a device or pipe where a file is to be.
inline constexpr int kLinkInTheWay = -1, kNoPlainFile = -2;

/// UserError: what was being done, to which file, and why it failed.
[[noreturn]] void failCall(std::string_view deed, const std::filesystem::path& path, int error);

/// How the system itself tells a cause that causeOf has no words for.
std::string systemWordsFor(int error);

/// The system ends a name at a zero byte, and would reach for another file than the one meant.
inline bool holdsZeroByte(const std::filesystem::path& path) {
  return path.native().find(std::filesystem::path::value_type{}) != std::filesystem::path::string_type::npos;
}

/// True for a name that stands for one place in the folder itself.
bool isNameInFolder(std::string_view name);

enum class Links { Follow, LookAt };
enum class PathKind { Nothing, File, Folder, Link, Other };
/// What stands under a name; a link only where links are looked at. UserError when the system doesn't say.
PathKind kindOf(const std::filesystem::path& path, Links links = Links::Follow);

/// Permissions of a file that takes the place of another; a file without forerunner keeps its own.
void takePermissions(const std::filesystem::path& file, const std::filesystem::path& from);

/// Without a word when it fails.
void dropFile(const std::filesystem::path& path);

/// Renames over what stands there; false when the two lie on different disks.
bool renameOver(const std::filesystem::path& from, const std::filesystem::path& to);

/// The name, as it is spelled there, of what the system finds by this name in the folder. Pre: isNameInFolder(name).
std::optional<std::string> spelledInFolder(const std::filesystem::path& folder, std::string_view name);

struct FolderEntry {
  std::string name;  // UTF-8
  PathKind kind;     // Link also where the system doesn't say at once: who wants to know looks at it
};
/// What is in a folder, in no order; nothing when there is no such folder.
std::vector<FolderEntry> entriesOf(const std::filesystem::path& folder);

/// As the network knows it; empty when the system doesn't say.
std::string nameOfMachine();
int numberOfProcess();

}  // namespace triaxlab
