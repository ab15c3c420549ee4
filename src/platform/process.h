#pragma once

#include <filesystem>
#include <string_view>

namespace triaxlab {

/// Starts a program without waiting for it. A program that isn't there, or that can't be started, is silent.
void startProgram(const std::filesystem::path& program);

}  // namespace triaxlab
