#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <span>

#include "platform/files.h"

namespace triaxlab {

/// Through a buffer of a megabyte, as any program would: large pieces get help from File.
inline void writeAndSync(const std::filesystem::path& path, std::span<const std::byte> content) {
  constexpr std::size_t kBuffer = std::size_t{1} << 20;
  File file(path, File::Mode::Shared);
  for (std::size_t at = 0; at < content.size(); at += kBuffer)
    file.writeAt(at, content.subspan(at, std::min(kBuffer, content.size() - at)));
  file.sync();
}

}  // namespace triaxlab
