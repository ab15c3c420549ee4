#pragma once

#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "store/settings/settings_file.h"
#include "store/workspace.h"

namespace triaxlab {

/// Where the raw data of one kind of apparatus are looked for. The person sets each folder in Form5; an importer looks
/// for its database there.
struct SourceFolder {
  std::int16_t kind;        // `openDialogKind` while Form5 asks for it
  std::string_view prompt;  // of Form5, UTF-8
  std::string_view file;    // of the settings, in the application folder
  SettingsField field;
  std::string Workspace::*inUse = nullptr;  // kept in memory from start to end as well
};

inline constexpr std::array kSourceFolders{
    SourceFolder{1, "请输入全自动三轴源文件所在目录:", "qvb.sys", {2000, 170}},
    SourceFolder{2, "请输入无侧限源文件所在目录:", "qvb.sys", {2200, 170}},
    SourceFolder{3, "请输入QVB98三轴源文件所在目录:", "qvb.sys", {20, 170}},
    SourceFolder{4, "请输入Ko源文件所在目录:", "qvb.sys", {9000, 170}},
    SourceFolder{5, "请输入新QVB三轴源文件所在目录:", "qvb.sys", {13500, 170}},
    SourceFolder{6, "请输入新无侧限源文件所在目录:", "qvb.sys", {13900, 170}},
    SourceFolder{7, "请输入新Ko源文件所在目录:", "qvb.sys", {14100, 170}},
    SourceFolder{8, "请输入TKo源文件所在目录:", "qvb.sys", {14300, 170}},
    SourceFolder{10, "请输入WIN版三轴源文件所在目录:", "qvb.sys", {14500, 170}},
    SourceFolder{11, "请输入WIN版无侧限源文件所在目录:", "qvb.sys", {14700, 170}},
    SourceFolder{12, "请输入WIN版三轴DATX格式文件所在目录:", "SZDATX.sys", {1, 170}, &Workspace::winTriaxialDatxFolder},
    SourceFolder{
        13, "请输入WIN版无侧限DATX格式文件所在目录:", "WCXDATX.sys", {1, 170}, &Workspace::winUnconfinedDatxFolder},
};

/// The row of a kind. std::out_of_range when there is none.
constexpr const SourceFolder& sourceFolderOf(std::int16_t kind) {
  for (const SourceFolder& row : kSourceFolders)
    if (row.kind == kind) return row;
  throw std::out_of_range("no such kind of source folder");
}
/// What an importer reads its folder from; a kind that doesn't exist is refused by the compiler.
consteval SettingsField sourceFolderField(std::int16_t kind) { return sourceFolderOf(kind).field; }

/// Where an importer looks as long as no folder is set. The text stays this on every system; where there are no drives
/// no such folder exists, and a file is asked for.
inline constexpr std::string_view kUsualSourceFolder = "c:\\qvb";

/// The stored text, UTF-8; empty when none is set.
std::string storedSourceFolder(const Workspace& workspace, const SourceFolder& folder);

/// Reads `folder.inUse` from the settings; the application folder when none is set. Pre: the kind has one.
void takeSourceFolderIntoUse(Workspace& workspace, const SourceFolder& folder);

/// A folder as the settings keep it: trimmed, without one backslash or slash at its end. "/" alone stays; "c:\" becomes
/// "c:". UTF-8.
std::string_view sourceFolderText(std::string_view typed);

/// Stores a typed or chosen folder, which need not exist, and takes it into use. UserError when the text doesn't fit
/// the field whole or isn't GBK, since a changed path would name another folder, and when it can't be written.
void storeSourceFolder(Workspace& workspace, const SourceFolder& folder, std::string_view typed);

}  // namespace triaxlab
