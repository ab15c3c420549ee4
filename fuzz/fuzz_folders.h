#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "store/workspace.h"

namespace triaxlab::fuzz {

/// A laboratory's folders on disk for one fuzz target, gone at its end: an application folder, a data folder, and a
/// file beside them that nothing may touch. They lie in memory where the system has a place for that, since saves sync.
class Folders {
 public:
  Folders() : m_root(place() / ("triaxlab-fuzz-" + std::to_string(getpid()))) {
    for (const char* name : {"app", "data/HSZS", "data/ZMSJ"}) std::filesystem::create_directories(m_root / name);
    write(m_root / "precious", kPrecious);
  }
  Folders(const Folders&) = delete;
  Folders& operator=(const Folders&) = delete;
  ~Folders() {
    std::error_code ignored;
    std::filesystem::remove_all(m_root, ignored);
  }

  void assignTo(Workspace& workspace) const {
    workspace.applicationFolder = m_root / "app";
    workspace.dataFolder = data();
    workspace.fixedToday = Date{2024, 5, 6};
  }

  std::filesystem::path data() const { return m_root / "data"; }
  void put(const std::string& name, const std::uint8_t* bytes, std::size_t size) const {
    write(data() / name, {reinterpret_cast<const char*>(bytes), size});
  }
  std::string get(const std::string& name) const { return read(data() / name); }

  /// Empties HSZS and ZMSJ.
  void clear() const {
    for (const char* name : {"HSZS", "ZMSJ"}) {
      std::filesystem::remove_all(data() / name);
      std::filesystem::create_directories(data() / name);
    }
  }

  /// Ends the program when anything was written outside HSZS and ZMSJ, but for the binary settings.
  void checkNothingStrayed() const {
    const std::set<std::string> allowed{"app",  "app/qvb.sys", "app/zmsz.sys", "app/SZDATX.sys", "app/WCXDATX.sys",
                                        "data", "data/HSZS",   "data/ZMSJ",    "precious"};
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_root)) {
      const std::string name = entry.path().lexically_relative(m_root).generic_string();
      if (!name.starts_with("data/HSZS/") && !name.starts_with("data/ZMSJ/") && !allowed.contains(name)) std::abort();
    }
    if (read(m_root / "precious") != kPrecious) std::abort();
  }

 private:
  static constexpr std::string_view kPrecious = "not to be touched";

  static std::filesystem::path place() {
    const std::filesystem::path memory = "/dev/shm";
    return access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
  }
  static void write(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  static std::string read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path m_root;
};

}  // namespace triaxlab::fuzz
