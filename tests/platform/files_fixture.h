#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {

namespace fs = std::filesystem;

inline Bytes bytesOfText(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

inline void write(const fs::path& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }

inline std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

/// The sentence of the UserError that `deed` throws; empty when it throws none.
inline std::string complaintOf(const std::function<void()>& deed) {
  try {
    deed();
  } catch (const UserError& error) {
    return error.what();
  }
  return {};
}

class Files : public ::testing::Test {
 protected:
  TemporaryFolder folder;

  std::string read(const File& file, std::uint64_t offset, std::size_t size) {
    std::string text(size, '#');
    const std::size_t got = file.readAt(offset, std::as_writable_bytes(std::span(text)));
    return text.substr(0, got);
  }
};

}  // namespace triaxlab::testing
