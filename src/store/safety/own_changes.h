#pragma once

#include <filesystem>
#include <optional>
#include <span>

#include "store/safety/file_memory.h"
#include "store/safety/file_update.h"

namespace triaxlab {

/// Commits the update. What is known of these project files goes along with their change, also when the commit fails
/// and they are as they were but for the time of their last change.
void commitOwnChanges(FileUpdate& update, FileMemory& memory, std::span<const std::filesystem::path> files);

/// The state of a file that this program has just written. Nothing also when it can't be looked at: the change stands,
/// and what isn't known of the file is only remembered as that.
std::optional<FileStamp> stampAfterChange(const std::filesystem::path& file);

}  // namespace triaxlab
