#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "common/settings.h"

namespace triaxlab {

struct Workspace;

/// A place in a binary settings file: 1-based position and width in bytes.
struct SettingsField {
  std::uint32_t position;
  std::uint32_t width;
};

inline constexpr SettingsField kDataFolderField{6999, 170};
inline constexpr SettingsField kYearField{910, 60}, kMonthField{970, 60}, kDayField{1030, 60};

/// A binary settings file of fixed positions (qvb.sys, zmsz.sys, SZDATX.sys, WCXDATX.sys). Bytes beyond its end read as
/// 0; a write beyond the end fills the gap with zero bytes. A missing file reads as empty, also where a folder has its
/// name, and where there is no application folder; one that can't be read is never empty, but a UserError.
class SettingsFile {
 public:
  SettingsFile(const std::filesystem::path& applicationFolder, std::string_view name);

  bool exists() const;
  /// GBK, cut at the first zero byte, then trimmed.
  std::string readText(SettingsField field) const;
  std::uint8_t readByte(std::uint32_t position) const;
  /// Blank-padded to the field's width. The file is made when it is missing. UserError when it can't be written.
  void writeText(SettingsField field, std::string_view gbk);
  void writeByte(std::uint32_t position, std::uint8_t value);
  /// Bytes as they stand, from a position on.
  void read(std::uint32_t position, std::span<std::byte> into) const;
  void write(std::uint32_t position, std::span<const std::byte> from);

 private:
  std::filesystem::path m_path;
};

/// qvb.sys of the workspace's application folder.
SettingsFile sharedSettings(const Workspace& workspace);

}  // namespace triaxlab
