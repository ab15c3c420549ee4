#include "store/safety/own_changes.h"

#include <optional>
#include <vector>

#include "common/user_error.h"

namespace triaxlab {

void commitOwnChanges(FileUpdate& update, FileMemory& memory, std::span<const std::filesystem::path> files) {
  std::vector<std::optional<FileStamp>> before;
  for (const std::filesystem::path& file : files) before.push_back(stampOf(file));
  const auto noteChanges = [&] {
    for (std::size_t i = 0; i < files.size(); ++i)
      if (update.isUnfinished())
        memory.noteUnfinishedChange(files[i]);
      else
        memory.noteOwnChange(files[i], before[i], stampAfterChange(files[i]));
  };
  try {
    update.commit();
  } catch (const UserError&) {
    noteChanges();
    throw;
  }
  noteChanges();
}

std::optional<FileStamp> stampAfterChange(const std::filesystem::path& file) {
  try {
    return stampOf(file);
  } catch (const UserError&) {
    return std::nullopt;
  }
}

}  // namespace triaxlab
