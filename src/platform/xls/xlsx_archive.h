#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace triaxlab {

/// Whether the parts of an .xlsx have come into it whole: none is empty or lacks its end, and each sheet has at least
/// so many bytes. libxlsxwriter doesn't notice when a temporary file takes no more, and puts in what there is of it.
bool isWholeXlsx(const std::filesystem::path& file, std::span<const std::uint64_t> sheetSizes);

}  // namespace triaxlab
