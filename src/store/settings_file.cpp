#include "store/settings_file.h"

#include <algorithm>
#include <vector>

#include "common/fixed_text.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

/// The bytes of a field, zero where the file has none. A file that is missing or can't be read counts as empty: the
/// program then runs on its defaults, and the technician hears of the file when a setting can't be written.
std::string readField(const std::filesystem::path& path, SettingsField field) {
  std::string bytes(field.width, '\0');
  if (!fileExists(path)) return bytes;
  try {
    const File file(path, File::Mode::Read);
    file.readAt(field.position - 1, std::as_writable_bytes(std::span(bytes)));
  } catch (const UserError&) {
    bytes.assign(field.width, '\0');
  }
  return bytes;
}

void writeField(const std::filesystem::path& path, std::uint32_t position, std::string_view bytes) {
  File file(path, File::Mode::Shared);
  file.writeAt(position - 1, std::as_bytes(std::span(bytes)));
}

}  // namespace

SettingsFile::SettingsFile(const std::filesystem::path& applicationFolder, std::string_view name)
    : m_path(fileOrNew(applicationFolder, name)) {}

bool SettingsFile::exists() const { return fileExists(m_path); }

std::string SettingsFile::readText(SettingsField field) const {
  const std::string bytes = readField(m_path, field);
  return std::string(Trim(std::string_view(bytes).substr(0, bytes.find('\0'))));
}

std::uint8_t SettingsFile::readByte(std::uint32_t position) const {
  return static_cast<std::uint8_t>(readField(m_path, {position, 1}).front());
}

void SettingsFile::writeText(SettingsField field, std::string_view gbk) {
  std::string places(cutWhole(gbk, field.width));
  places.resize(field.width, ' ');
  writeField(m_path, field.position, places);
}

void SettingsFile::writeByte(std::uint32_t position, std::uint8_t value) {
  const char byte = static_cast<char>(value);
  writeField(m_path, position, {&byte, 1});
}

SettingsFile sharedSettings(const Workspace& workspace) { return {workspace.applicationFolder, "qvb.sys"}; }

}  // namespace triaxlab
