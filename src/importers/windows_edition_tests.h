#pragma once

#include <filesystem>
#include <memory>

#include "importers/importer.h"

namespace triaxlab {

/// All tests of a database of the triaxial controller's Windows edition, of every kind and without the limits of a
/// record.
std::unique_ptr<RawTests> openWindowsTests(const std::filesystem::path& path);

}  // namespace triaxlab
