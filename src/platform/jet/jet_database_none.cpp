#include <fmt/core.h>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/jet_database.h"

namespace triaxlab {

class JetDatabase::Tables {};

JetDatabase::JetDatabase(const std::filesystem::path& path, std::span<const JetTable> /*tables*/,
                         const JetReader& /*reader*/) {
  // Whether the file is there and may be read is told as for every other file.
  const File file(path, File::Mode::Read);
  throw UserError(
      fmt::format("不能读数据库文件“{}”：本程序编译时没有读这种数据库的组件。数据没有读入。", textOfPath(path)));
}
JetDatabase::JetDatabase(JetDatabase&& other) noexcept = default;
JetDatabase& JetDatabase::operator=(JetDatabase&& other) noexcept = default;
JetDatabase::~JetDatabase() = default;

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): its twin has tables
JetRows JetDatabase::run(std::string_view /*sql*/) const { return {{}, {}}; }

}  // namespace triaxlab
