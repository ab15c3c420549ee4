#pragma once

#include <filesystem>
#include <memory>

#include "platform/sheet_writer.h"

namespace triaxlab {

/// The format of Excel 97 to 2003: records of BIFF8 in a compound file.
std::unique_ptr<SheetWriter> makeXlsWriter(const std::filesystem::path& file);

}  // namespace triaxlab
