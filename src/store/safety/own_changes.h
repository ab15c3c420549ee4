#pragma once

#include <filesystem>
#include <span>

#include "store/safety/file_memory.h"
#include "store/safety/file_update.h"

namespace triaxlab {

/// Commits the update. What is known of these project files goes along with their change, also when the commit fails
/// and they are as they were but for the time of their last change.
void commitOwnChanges(FileUpdate& update, FileMemory& memory, std::span<const std::filesystem::path> files);

}  // namespace triaxlab
