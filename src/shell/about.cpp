#include "shell/about.h"

#include <fmt/core.h>

#include <array>

#include "platform/files.h"
#include "store/safety/backup.h"

namespace triaxlab {
namespace {

struct Part {
  std::string_view name, use, licence;
};
constexpr std::array kParts{
    Part{"Qt 6", "窗口、打印", "LGPL-3.0"},
    Part{"cairo", "PDF", "LGPL-2.1，MPL-1.1"},
    Part{"fontconfig", "找字体", "MIT"},
    Part{"libxlsxwriter", "写 .xlsx 文件", "BSD-2-Clause"},
    Part{"minizip", "检查写成的 .xlsx 文件", "Zlib"},
    Part{"fmt", "文字", "MIT"},
    Part{"nlohmann/json", "命令行的输出", "MIT"},
    Part{"CLI11", "命令行的选项", "BSD-3-Clause"},
    Part{"mdbtools", "读 WIN 版的数据库，在另一个程序里", "LGPL-2.0，GPL-2.0"},
    Part{"SQLite", "读 WIN 版的数据库", "公有领域"},
};

std::string folders(const Workspace& workspace) {
  std::string rows;
  const auto add = [&rows](std::string_view use, const std::filesystem::path& folder) {
    rows += fmt::format("| {} | {} |\n", use, textOfPath(folder));
  };
  add("程序文件夹（设置）", workspace.applicationFolder);
  if (!workspace.dataFolderProblem.empty())
    return rows + fmt::format("| 数据文件夹 | {} |\n", workspace.dataFolderProblem);
  add("数据文件夹", workspace.dataFolder);
  add("工程文件", workspace.projectFolder());
  add("备份", workspace.projectFolder() / kBackupFolder);
  add("成果文件", workspace.summaryFolder());
  add("图片文件", workspace.pictureFolder());
  return rows;
}

}  // namespace

std::string aboutText(const Workspace& workspace, const Versions& versions) {
  std::string text = fmt::format("# QVB三轴试验数据处理\n\n版本 {}\n\n", versions.program);
  text += fmt::format("## 正在使用的文件夹\n\n| 用途 | 文件夹 |\n|---|---|\n{}\n", folders(workspace));
  text += "## 许可\n\n本程序按 MIT 许可发布：可以自由使用、复制、修改和分发，作者不作任何担保。它使用下列软件：\n\n";
  text += "| 软件 | 用来 | 许可 |\n|---|---|---|\n";
  for (const Part& part : kParts) text += fmt::format("| {} | {} | {} |\n", part.name, part.use, part.licence);
  return text + fmt::format("\n这里的 Qt 是 {}。\n", versions.toolkit);
}

std::string programVersion(std::string_view commit) {
  return commit.empty() ? TRIAXLAB_VERSION : fmt::format("{} ({})", TRIAXLAB_VERSION, commit);
}

}  // namespace triaxlab
