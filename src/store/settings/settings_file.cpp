#include "store/settings/settings_file.h"

#include <algorithm>

#include "common/fixed_text.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "store/workspace.h"

namespace triaxlab {

SettingsFile::SettingsFile(const std::filesystem::path& applicationFolder, std::string_view name)
    : m_path(applicationFolder.empty() ? std::filesystem::path() : fileOrNew(applicationFolder, name)) {}

bool SettingsFile::exists() const { return fileExists(m_path); }

void SettingsFile::read(std::uint32_t position, std::span<std::byte> into) const {
  std::ranges::fill(into, std::byte{0});
  if (exists()) File(m_path, File::Mode::Read).readAt(position - 1, into);
}

void SettingsFile::write(std::uint32_t position, std::span<const std::byte> from) {
  File(m_path, File::Mode::Shared).writeAt(position - 1, from);
}

std::string SettingsFile::readText(SettingsField field) const {
  std::string bytes(field.width, '\0');
  read(field.position, std::as_writable_bytes(std::span(bytes)));
  return std::string(Trim(std::string_view(bytes).substr(0, bytes.find('\0'))));
}

std::uint8_t SettingsFile::readByte(std::uint32_t position) const {
  std::uint8_t value = 0;
  read(position, writableBytesOf(value));
  return value;
}

void SettingsFile::writeText(SettingsField field, std::string_view gbk) {
  std::string places(cutWhole(gbk, field.width));
  places.resize(field.width, ' ');
  write(field.position, std::as_bytes(std::span(places)));
}

void SettingsFile::writeByte(std::uint32_t position, std::uint8_t value) { write(position, bytesOf(value)); }

SettingsFile sharedSettings(const Workspace& workspace) { return {workspace.applicationFolder, "qvb.sys"}; }

}  // namespace triaxlab
