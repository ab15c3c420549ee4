#include "shell/tools.h"

#include "platform/files.h"

namespace triaxlab {

std::optional<std::filesystem::path> findTool(std::span<const std::filesystem::path> folders,
                                              std::string_view program) {
  const std::string_view bare = program.substr(0, program.rfind('.'));
  for (const std::filesystem::path& folder : folders)
    for (const std::string_view name : {program, bare})
      if (auto tool = findFile(folder, name)) return tool;
  return std::nullopt;
}

}  // namespace triaxlab
