#include "store/settings/data_folder.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

#include "common/fixed_text.h"
#include "common/gbk.h"
#include "common/small_letters.h"
#include "common/text_number.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "store/settings/settings_file.h"
#include "store/settings/source_folders.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTitle = "数据文件夹";
constexpr char kMarker = '9';
constexpr SettingsField kBehindMarker{kDataFolderField.position + 1, kDataFolderField.width - 1};
constexpr std::array<std::string_view, 3> kParts{"HSZS", "ZMSJ", "PTU"};

/// Nothing when the field can't hold the name whole.
std::optional<std::string> storableText(const fs::path& folder) {
  std::optional<std::string> gbk = utf8ToGbkExactly(textOfPath(folder));
  if (!gbk || gbk->size() > kBehindMarker.width || Trim(*gbk).size() != gbk->size()) return std::nullopt;
  return gbk;
}

bool beginsWithDrive(std::string_view text) {
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  return text.size() >= 2 && isLetter(text[0]) && text[1] == ':';
}

bool isPartOfDataFolder(const fs::path& name) {
  return std::ranges::any_of(kParts, [&](std::string_view part) { return isSameName(part, textOfPath(name)); });
}

[[noreturn]] void refuse(std::string_view sentence, const fs::path& folder) {
  throw UserError(kTitle, fmt::format(fmt::runtime(sentence), textOfPath(folder)));
}

}  // namespace

std::optional<std::string> storedDataFolder(const Workspace& workspace) {
  const SettingsFile settings = sharedSettings(workspace);
  if (ParseNumber(settings.readText(kDataFolderField)) == 0) return std::nullopt;
  return gbkToUtf8(settings.readText(kBehindMarker));
}

fs::path dataFolderNamed(const Workspace& workspace, std::string_view text) {
  if (text.empty()) return workspace.applicationFolder;
  const fs::path folder = pathFromText(text);
  return beginsWithDrive(text) ? folder : workspace.applicationFolder / folder;
}

bool isStorableDataFolder(const fs::path& folder) { return storableText(folder).has_value(); }

void storeDataFolder(const Workspace& workspace, const fs::path& folder) {
  sharedSettings(workspace).writeText(kDataFolderField, kMarker + storableText(folder).value());
}

fs::path chosenDataFolder(std::string_view typed) {
  fs::path folder = pathFromText(sourceFolderText(typed)).lexically_normal();
  if (folder.empty()) throw UserError(kTitle, "没有写数据放在哪个文件夹。");
  if (!folder.is_absolute())
    throw UserError(kTitle,
                    fmt::format("“{}”不是完整的文件夹名，请从{}写起。", textOfPath(folder), beginningOfWholeNames()));
  if (!isStorableDataFolder(folder))
    refuse("文件夹“{}”的名称太长或含有 GBK 以外的字符，不能存入设置文件。请换一个文件夹。", folder);
  if (fileExists(folder)) refuse("“{}”是一个文件，不是文件夹。", folder);
  if (!folderExists(folder)) refuse("没有文件夹“{}”。请先建立它，或者接上它所在的磁盘。", folder);
  const fs::path whole = behindLinks(folder);
  if (std::ranges::any_of(whole, isPartOfDataFolder))
    refuse("“{}”在一个数据文件夹的 HSZS、ZMSJ 或 PTU 里面，请选它们上面的文件夹。", folder);
  if (!folderIsWritable(folder)) refuse("文件夹“{}”不能写入，数据不能存放在那里。", folder);
  return folder;
}

void makeDataFolders(const fs::path& folder) {
  for (const std::string_view part : kParts) {
    const fs::path path = fileOrNew(folder, part);
    refuseLinks(folder, path);
    if (!makeFolder(path) || !folderExists(path)) refuse("不能建立文件夹“{}”。", path);
  }
}

}  // namespace triaxlab
