#include "shell/start_page.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>

#include "common/user_error.h"
#include "importers/importer.h"
#include "platform/files.h"
#include "sessions/dialogs/import_selection.h"
#include "shell/command_table.h"

namespace triaxlab {
namespace {

constexpr std::array<std::string_view, 4> kHeadings{"最近的工程", "打开工程", "读入原始数据，也可以把文件拖进来",
                                                    "帮助"};

/// Where the commands of an action stand.
struct Part {
  Action action;
  std::size_t section;  // of kHeadings
};
constexpr std::array kParts{
    Part{Action::OpenRecent, 0},      Part{Action::OpenProject, 1}, Part{Action::Import, 2},
    Part{Action::OpenNanjingFile, 2}, Part{Action::ShowManual, 3},  Part{Action::StartDemonstration, 3},
};

/// Whether there is anything to import where the source looks.
std::string stateOfSource(const Importer& importer, const Workspace& workspace) {
  try {
    const std::string folder = importFolder(importer, workspace);
    const std::string_view file = importer.defaultFile;
    if (!folderIsAtHand(pathFromText(folder))) return fmt::format("没有文件夹 {}", folder);
    // Files that go by a mask are asked for one by one.
    if (file.find('*') != std::string_view::npos) return fmt::format("{}，{}", folder, file);
    const bool isThere = findFile(pathFromText(folder), file).has_value();
    return fmt::format("{} 中{} {}", folder, isThere ? "有" : "没有", file);
  } catch (const UserError& error) {
    return error.what();
  }
}

std::string detailOf(const Command& command, const Workspace& workspace, std::span<const RecentProject> recent) {
  if (command.action == Action::OpenRecent)
    return textOfPath(recent[static_cast<std::size_t>(command.argument)].dataFolder);
  if (command.action == Action::StartDemonstration) return commandHelp(command);
  const Importer* const importer = importerOfMenuCommand(command.name);
  return importer != nullptr ? stateOfSource(*importer, workspace) : std::string();
}

}  // namespace

std::vector<StartSection> startPage(const Workspace& workspace, std::span<const RecentProject> recent,
                                    const std::function<CommandState(const Command&)>& stateOf) {
  std::vector<StartSection> sections;
  sections.reserve(kHeadings.size());
  for (const std::string_view heading : kHeadings) sections.push_back({heading, {}});
  for (const Command& command : commandTable()) {
    const auto* const part = std::ranges::find(kParts, command.action, &Part::action);
    if (part == kParts.end()) continue;
    const CommandState state = stateOf(command);
    if (!state.visible) continue;
    sections[part->section].entries.push_back(
        {command.name, std::string(state.caption), detailOf(command, workspace, recent), state.enabled});
  }
  std::erase_if(sections, [](const StartSection& section) { return section.entries.empty(); });
  return sections;
}

}  // namespace triaxlab
