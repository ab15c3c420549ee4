#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>

namespace triaxlab {

/// A file of this program's own in the application folder, for what is convenient to know again in the next run. It is
/// never worth a word: what can't be read or understood counts as not there, and where nothing can be written nothing
/// is kept.
class KeptFile {
 public:
  KeptFile(const std::filesystem::path& applicationFolder, const char* name);

  /// An object; an empty one when there is no such file, or none of ours.
  nlohmann::json read();
  void write(const nlohmann::json& content) const;

 private:
  std::filesystem::path m_file;
  /// What is there and can't be read today isn't written over either.
  bool m_isOutOfReach;
};

}  // namespace triaxlab
