#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "support/file_bytes.h"

namespace triaxlab::testing {

/// An empty folder that is gone with all its content at the end of the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device lot;
    do m_path = std::filesystem::temp_directory_path() / ("triaxlab-test-" + std::to_string(lot()));
    while (!std::filesystem::create_directory(m_path));
    // One person's own: as a runtime folder the toolkit takes no other.
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    // A test may have forbidden writing here.
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(m_path, ignored);
  }

  const std::filesystem::path& path() const { return m_path; }
  std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

  /// Makes the file, and its folders below this one.
  std::filesystem::path write(const std::filesystem::path& name, std::string_view bytes) const {
    const std::filesystem::path file = m_path / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }
  std::string read(const std::filesystem::path& name) const { return fileBytes(m_path / name); }

 private:
  std::filesystem::path m_path;
};

}  // namespace triaxlab::testing
