#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/command_states.h"
#include "shell/recent_projects.h"
#include "store/workspace.h"

namespace triaxlab {

/// A command that can be begun while no document is open; texts UTF-8.
struct StartEntry {
  std::string_view command;
  std::string caption;
  std::string detail;  // where a project lies, what there is to import
  bool enabled = true;
  bool operator==(const StartEntry&) const = default;
};

struct StartSection {
  std::string_view heading;
  std::vector<StartEntry> entries;  // at least one
  bool operator==(const StartSection&) const = default;
};

/// What the empty main window offers.
std::vector<StartSection> startPage(const Workspace& workspace, std::span<const RecentProject> recent,
                                    const std::function<CommandState(const Command&)>& stateOf);

}  // namespace triaxlab
