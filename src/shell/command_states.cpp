#include "shell/command_states.h"

#include <algorithm>
#include <array>
#include <span>

#include "shell/toggles.h"

namespace triaxlab {
namespace {

using Names = std::initializer_list<std::string_view>;

/// What commands become when a window is activated or has closed; those in neither list stay as they are.
struct Switching {
  ActiveDocument document;
  Names on, off;
};

constexpr std::string_view kRatioEnvelope = "QUXIAN2";
constexpr std::string_view kLeaveIntervention = "退出干预";

/// While somebody corrects by hand, nothing may take the sample or the page away; tools could change its files.
constexpr std::array<std::string_view, 7> kOffInIntervention{"NEW0",   "DAKAI",   "SET0",     "SETUPMIDU",
                                                             "QUXIAN", "RQUXIAN", "SHUJUBIAO"};
bool isOffInIntervention(const Command& command) {
  return command.action == Action::StartTool ||
         std::find(kOffInIntervention.begin(), kOffInIntervention.end(), command.name) != kOffInIntervention.end();
}

/// The one command that is shown and hidden instead of being switched on and off.
constexpr std::string_view kShownOrHidden = "PTK0";

// RZMPRINT1 needs Form1 as the others do, which turns it on.
const Names kOffAtStart{"PEXCEL",    "RZMSAVE", "RZMPRINT",    "QUXIAN",    "RQUXIAN",
                        "SHUJUBIAO", "ZMPRINT", "SAVEASEXCEL", "RZMPRINT1", "PTK0"};

// RZMGANYU stands in no list: it follows what the document on which it acts has on display.

// RZMOPEN is off while a document is open, so that a second raw import can't start over it.
// NOLINTNEXTLINE(modernize-avoid-c-arrays): only here the lists live as long as the array that they stand in
const Switching kActivation[] = {
    {kForm1,
     {"RZMSAVE", "RZMPRINT", "PEXCEL", "QUXIAN", "RQUXIAN", "SHUJUBIAO", "ZMPRINT", "SAVEASEXCEL", "RZMPRINT1"},
     {"PTK0", "RZMOPEN"}},
    {kForm4, {"PEXCEL", "RZMSAVE", "RZMPRINT", "ZMPRINT"}, {"PTK0", "RZMOPEN"}},
    {kForm6, {"RZMSAVE", "RZMPRINT", "ZMPRINT"}, {"PTK0", "RZMOPEN"}},
    {kForm9, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "PTK0"}, {"RZMOPEN"}},
    {kForm2, {}, {"PTK0"}},
    {kForm7, {}, {"PTK0"}},
};

// Form2 and Form7 reset nothing.
// NOLINTNEXTLINE(modernize-avoid-c-arrays)
const Switching kClosing[] = {
    {kForm1,
     {"RZMOPEN"},
     {"RZMSAVE", "PEXCEL", "RZMPRINT", "QUXIAN", "RQUXIAN", "SHUJUBIAO", "ZMPRINT", "SAVEASEXCEL", "RZMPRINT1"}},
    {kForm4, {"RZMOPEN"}, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "PEXCEL"}},
    {kForm6, {"RZMOPEN"}, {"RZMSAVE", "RZMPRINT", "ZMPRINT"}},
    {kForm9, {"RZMOPEN"}, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "PTK0"}},
};

/// The row of a document; empty lists when it has none.
Switching rowFor(ActiveDocument document, std::span<const Switching> table) {
  const auto row = std::find_if(table.begin(), table.end(), [&](const Switching& s) { return s.document == document; });
  return row == table.end() ? Switching{document, {}, {}} : *row;
}

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

}  // namespace

CommandStates::CommandStates() : m_switches(commandTable().size()) { turn(kOffAtStart, false); }

void CommandStates::turn(std::string_view name, bool on) {
  Switches& switches = m_switches[rowOf(*findCommand(name))];
  (name == kShownOrHidden ? switches.visible : switches.enabled) = on;
}

void CommandStates::turn(Names names, bool on) {
  for (const std::string_view name : names) turn(name, on);
}

void CommandStates::documentActivated(ActiveDocument document) {
  const Switching row = rowFor(document, kActivation);
  turn(row.on, true);
  turn(row.off, false);
}

void CommandStates::documentClosed(ActiveDocument document) {
  const Switching row = rowFor(document, kClosing);
  turn(row.on, true);
  turn(row.off, false);
}

CommandState CommandStates::of(const Command& command, const CommandContext& context) const {
  const Switches& own = m_switches[rowOf(command)];
  CommandState state{.visible = own.visible,
                     .enabled = own.enabled && command.built,
                     .checked = isChecked(command, context),
                     .caption = command.caption};
  if (command.kind == CommandKind::Submenu && !hasEntries(command)) state.visible = false;
  if (command.action == Action::Print && !context.canPrint) state.enabled = false;
  if (command.name == kRatioEnvelope && !context.envelopes.ratioEnabled) state.enabled = false;
  if (command.action == Action::Intervene) {
    state.enabled = command.built && (context.intervention.possible || context.intervention.running);
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
