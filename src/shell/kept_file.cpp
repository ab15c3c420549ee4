#include "shell/kept_file.h"

#include <nlohmann/json.hpp>
#include <span>

#include "common/user_error.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

using Json = nlohmann::json;

constexpr std::uint64_t kLargestFile = std::uint64_t{64} * 1024;

bool isMissing(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::symlink_status(file, error).type() == std::filesystem::file_type::not_found;
}

}  // namespace

KeptFile::KeptFile(const std::filesystem::path& applicationFolder, const char* name)
    : m_file(applicationFolder / name), m_isOutOfReach(applicationFolder.empty()) {}

Json KeptFile::read() try {
  const Bytes content = readWholeFile(m_file, kLargestFile);
  Json kept = Json::parse(reinterpret_cast<const char*>(content.data()),
                          reinterpret_cast<const char*>(content.data()) + content.size(), nullptr, false);
  return kept.is_object() ? kept : Json::object();
} catch (const UserError&) {
  // Missing at the first start.
  m_isOutOfReach = m_isOutOfReach || !isMissing(m_file);
  return Json::object();
}

void KeptFile::write(const Json& content) const try {
  if (m_isOutOfReach) return;
  const std::string text = content.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
  writeWholeFile(m_file, std::as_bytes(std::span(text)));
} catch (const UserError&) {
  // A folder that nothing can be written to.
}

}  // namespace triaxlab
