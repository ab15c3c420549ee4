#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/project/project_kinds.h"

namespace triaxlab::cli {

/// Stands among the names for those that standard input names.
inline constexpr std::string_view kStandardInput = "-";

enum class NameEnd : std::uint8_t { Line, ZeroByte };

/// The project files that a command goes over.
struct ProjectFiles {
  ProjectKind kind;
  std::vector<std::string> names;  // without folder, or kStandardInput
  NameEnd inputNamesEnd = NameEnd::Line;
  /// Read as it stands, without the settings of any laboratory; none: that of the application folder.
  std::optional<std::filesystem::path> dataFolder;
  bool tellsProgress = false;
};

/// Does the work for each file, one after the other as their names come in. One that fails by a UserError is told in a
/// line, and the others go on; the worst of the exit statuses. What is left of standard input when that fails isn't
/// read, which counts as a failure.
int eachFile(const ProjectFiles& files, const std::function<int(const std::string& name)>& work);

}  // namespace triaxlab::cli
