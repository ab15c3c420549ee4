#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string_view>

#include "common/progress.h"
#include "triaxial/staged_test.h"

namespace triaxlab {

/// Writes tests as a controller's database holds them, each asked for when its turn comes; see writeWorkbook. The
/// label is the laboratory's of a project number.
void writeRawTests(const std::filesystem::path& file, std::size_t count,
                   const std::function<StagedTest(std::size_t index)>& test, std::string_view projectNoLabel,
                   const Progress& progress);

}  // namespace triaxlab
