#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "store/settings/text_keys.h"

namespace triaxlab {

/// A text settings file as it was last read, to be changed as a whole. A file that is missing is empty. UserErrors name
/// the file.
class StoredTextFile {
 public:
  StoredTextFile(const std::filesystem::path& applicationFolder, const TextFile& file);

  const std::string& content() const { return m_content; }
  /// Writes the file beside its place and renames it. One that somebody has changed since it was read is not written
  /// over but read again, and told by UserError.
  void write(std::string_view content);

 private:
  void read();

  std::filesystem::path m_path;
  std::optional<FileStamp> m_stamp;
  std::string m_content;
};

}  // namespace triaxlab
