#include "shell/command_states.h"

#include <algorithm>
#include <array>
#include <span>

#include "shell/document_kinds.h"
#include "shell/printing.h"
#include "store/settings/toggles.h"

namespace triaxlab {
namespace {

constexpr std::string_view kRatioEnvelope = "QUXIAN2";
constexpr std::string_view kRecentMenu = "RECENT";
constexpr std::string_view kLeaveIntervention = "退出干预";

/// While somebody corrects by hand, nothing may take the sample or the page away; tools could change its files.
constexpr std::array<std::string_view, 9> kOffInIntervention{"NEW0",      "FILLIN", "DAKAI",   "RECENT",   "SET0",
                                                             "SETUPMIDU", "QUXIAN", "RQUXIAN", "SHUJUBIAO"};
bool isOffInIntervention(const Command& command) {
  return command.action == Action::StartTool ||
         std::find(kOffInIntervention.begin(), kOffInIntervention.end(), command.name) != kOffInIntervention.end();
}

/// The one command that is shown and hidden instead of being switched on and off.
constexpr std::string_view kShownOrHidden = "PTK0";

// RZMPRINT1 needs Form1 as the others do, which turns it on.
constexpr std::array<std::string_view, 13> kOffAtStart{
    "FILLIN",  "SAVEASRESULTS", "SAVEASREADINGS", "PEXCEL",      "RZMSAVE",   "RZMPRINT", "QUXIAN",
    "RQUXIAN", "SHUJUBIAO",     "ZMPRINT",        "SAVEASEXCEL", "RZMPRINT1", "PTK0"};

std::size_t rowOf(const Command& command) { return static_cast<std::size_t>(&command - commandTable().data()); }

bool hasEntries(const Command& submenu) {
  return std::any_of(commandTable().begin(), commandTable().end(),
                     [&](const Command& command) { return command.parent == submenu.name; });
}

bool isChecked(const Command& command, const CommandContext& context) {
  if (command.kind == CommandKind::ExclusiveCheck)
    return context.envelopes.ratioChecked == (command.name == kRatioEnvelope);
  const ToggleByte* const byte = toggleOfCommand(command.name);
  return byte != nullptr && context.toggles.*byte->toggle;
}

/// A place among the recent projects in which none is yet is no entry.
void showRecent(const Command& command, std::span<const RecentProject> recent, CommandState& state) {
  const auto place = static_cast<std::size_t>(command.argument);
  state.visible = place < recent.size();
  if (!state.visible) return;
  state.enabled = recent[place].isAtHand;
  state.caption = recent[place].fileName;
}

}  // namespace

CommandStates::CommandStates() : m_switches(commandTable().size()) { turn(kOffAtStart, false); }

void CommandStates::turn(std::string_view name, bool on) {
  Switches& switches = m_switches[rowOf(*findCommand(name))];
  (name == kShownOrHidden ? switches.visible : switches.enabled) = on;
}

void CommandStates::turn(std::span<const std::string_view> names, bool on) {
  for (const std::string_view name : names) turn(name, on);
}

void CommandStates::turn(const CommandSwitches& switches) {
  turn(switches.on, true);
  turn(switches.off, false);
}

void CommandStates::documentActivated(ActiveDocument document) { turn(documentKindOf(document).activation); }

void CommandStates::documentClosed(ActiveDocument document) { turn(documentKindOf(document).close); }

CommandState CommandStates::of(const Command& command, const CommandContext& context) const {
  const Switches& own = m_switches[rowOf(command)];
  CommandState state{.visible = own.visible,
                     .enabled = own.enabled,
                     .checked = isChecked(command, context),
                     .caption = command.caption};
  if (command.kind == CommandKind::Submenu && !hasEntries(command)) state.visible = false;
  if (command.name == kRecentMenu) state.enabled = !context.recent.empty();
  if (command.action == Action::OpenRecent) showRecent(command, context.recent, state);
  if (isPrintAction(command.action) && !context.hasPages(command.action)) state.enabled = false;
  if (command.action == Action::FitWindow) state.enabled = context.hasDocument;
  if (command.name == kRatioEnvelope && !context.envelopes.ratioEnabled) state.enabled = false;
  if (command.action == Action::Intervene) {
    state.enabled = context.intervention.possible || context.intervention.running;
    if (context.intervention.running) state.caption = kLeaveIntervention;
  }
  if (context.intervention.running && isOffInIntervention(command)) state.enabled = false;
  if (const Command* const above = findCommand(command.parent)) {
    const CommandState menu = of(*above, context);
    state.visible = state.visible && menu.visible;
    state.enabled = state.enabled && menu.enabled;
  }
  return state;
}

}  // namespace triaxlab
