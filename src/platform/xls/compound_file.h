#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "platform/replaced_file.h"

namespace triaxlab {

/// Writes a compound file with one stream, whose bytes are those of the parts one behind the other. UserError when they
/// are more than such a file can hold.
void writeCompoundFile(ReplacedFile& file, std::u16string_view streamName,
                       std::span<const std::span<const std::byte>> parts);

}  // namespace triaxlab
