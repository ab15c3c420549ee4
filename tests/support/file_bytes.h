#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>

namespace triaxlab::testing {

/// All bytes of a file; the test fails when it can't be opened. By whole buffers: a test that looks at many files would
/// otherwise do little else, as its own lines are not optimised.
inline std::string fileBytes(const std::filesystem::path& path) {
  const std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return std::move(bytes).str();
}

}  // namespace triaxlab::testing
