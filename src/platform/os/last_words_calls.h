#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace triaxlab {

// What the last words need of the system.

/// The file as the system is told of it.
std::filesystem::path::string_type nameForSystem(const std::filesystem::path& file);

/// From now on sayLastWords is called before the system ends the process.
void listenForTheEnd();

// The rest may be called where a process has broken down: nothing is allocated, locked or thrown.

/// Adds texts to a file, which is made when it isn't there and begun anew when it is larger than that.
void addToFile(const std::filesystem::path::value_type* file, std::uint64_t largestFile,
               std::span<const char* const> texts) noexcept;
void addToStandardError(std::span<const char* const> texts) noexcept;

}  // namespace triaxlab
