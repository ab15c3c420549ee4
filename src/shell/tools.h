#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

namespace triaxlab {

/// A sibling tool by its Windows name ("zmgj.exe"), in the first of the folders that has it, with or without ".exe".
/// Nothing when none has: a missing tool is passed over in silence.
std::optional<std::filesystem::path> findTool(std::span<const std::filesystem::path> folders, std::string_view program);

}  // namespace triaxlab
