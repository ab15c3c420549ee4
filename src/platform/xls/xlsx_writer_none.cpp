#include <fmt/core.h>

#include "common/user_error.h"
#include "platform/files.h"
#include "platform/xls/xlsx_writer.h"

namespace triaxlab {

std::unique_ptr<SheetWriter> makeXlsxWriter(const std::filesystem::path& file) {
  throw UserError(fmt::format("不能写“{}”：本程序编译时没有写 .xlsx 的组件，请写成 .xls。", textOfPath(file)));
}

}  // namespace triaxlab
