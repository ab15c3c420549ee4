#pragma once

#include <filesystem>
#include <memory>

#include "platform/sheet_writer.h"

namespace triaxlab {

/// The format of Excel since 2007.
std::unique_ptr<SheetWriter> makeXlsxWriter(const std::filesystem::path& file);

}  // namespace triaxlab
