#include "store/settings/source_folders.h"

#include <fmt/core.h>

#include <optional>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/user_error.h"
#include "platform/files.h"

namespace triaxlab {

std::string storedSourceFolder(const Workspace& workspace, const SourceFolder& folder) {
  return gbkToUtf8(SettingsFile(workspace.applicationFolder, folder.file).readText(folder.field));
}

void takeSourceFolderIntoUse(Workspace& workspace, const SourceFolder& folder) {
  const std::string stored = storedSourceFolder(workspace, folder);
  workspace.*folder.inUse = stored.empty() ? textOfPath(workspace.applicationFolder) : stored;
}

std::string_view sourceFolderText(std::string_view typed) {
  const std::string_view text = Trim(typed);
  const bool endsWithMark = text.ends_with('\\') || (text.ends_with('/') && text.size() > 1);
  return endsWithMark ? text.substr(0, text.size() - 1) : text;
}

void storeSourceFolder(Workspace& workspace, const SourceFolder& folder, std::string_view typed) {
  const std::string_view text = sourceFolderText(typed);
  const std::optional<std::string> gbk = utf8ToGbkExactly(text);
  if (!gbk || gbk->size() > folder.field.width)
    throw UserError("设置",
                    fmt::format("文件夹“{}”的名称太长或含有 GBK 以外的字符，不能存入设置文件。请换一个文件夹。", text));
  SettingsFile(workspace.applicationFolder, folder.file).writeText(folder.field, *gbk);
  if (folder.inUse != nullptr) takeSourceFolderIntoUse(workspace, folder);
}

}  // namespace triaxlab
