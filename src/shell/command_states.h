#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "common/settings.h"
#include "shell/command_table.h"
#include "shell/document_kinds.h"
#include "shell/recent_projects.h"
#include "shell/shell_windows.h"
#include "store/workspace.h"

namespace triaxlab {

struct CommandState {
  bool visible = true;
  bool enabled = true;  // together with all submenus above it
  bool checked = false;
  std::string_view caption;
  bool operator==(const CommandState&) const = default;
};

/// What the state of some commands follows from at any moment.
struct CommandContext {
  Toggles toggles;
  EnvelopeEntries envelopes;
  InterventionEntry intervention = {};  // of the window on which RZMGANYU acts
  std::span<const RecentProject> recent = {};
  bool hasDocument = true;  // some document window is open
  /// Whether a print command has pages behind it.
  std::function<bool(Action)> hasPages = [](Action) { return true; };
};

/// Which commands are on. Start, activation and closing of document windows each switch the commands of one table and
/// leave the others as they are.
class CommandStates {
 public:
  CommandStates();  // as at program start
  void documentActivated(ActiveDocument document);
  void documentClosed(ActiveDocument document);

  CommandState of(const Command& command, const CommandContext& context) const;

 private:
  struct Switches {
    bool visible = true, enabled = true;
  };
  void turn(std::string_view name, bool on);
  void turn(std::span<const std::string_view> names, bool on);
  void turn(const CommandSwitches& switches);

  std::vector<Switches> m_switches;  // by row of the command table
};

}  // namespace triaxlab
