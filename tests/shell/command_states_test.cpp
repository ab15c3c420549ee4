#include "shell/command_states.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string_view>

namespace triaxlab {
namespace {

const CommandContext kUUContext{};
const CommandContext kCUContext{
    .toggles = {}, .envelopes = {.ratioEnabled = true, .ratioChecked = false}, .intervention = {}};

bool isOn(const CommandStates& states, std::string_view name, const CommandContext& context = kUUContext) {
  return states.of(*findCommand(name), context).enabled;
}
bool isShown(const CommandStates& states, std::string_view name) {
  return states.of(*findCommand(name), kUUContext).visible;
}
/// The menu of recent projects, or an entry of it.
bool isRecent(const Command& command) { return command.name.starts_with("RECENT"); }

TEST(CommandStates, AtStartCommandsOnADocumentAreOff) {
  const CommandStates states;
  const std::set<std::string_view> off{"RZMGANYU", "PEXCEL",        "RZMSAVE",        "RZMPRINT",    "QUXIAN",
                                       "RQUXIAN",  "SHUJUBIAO",     "ZMPRINT",        "SAVEASEXCEL", "RZMPRINT1",
                                       "QUXIAN1",  "QUXIAN2",       "QUXIAN3",        "QUXIAN4",     "QUXIAN5",
                                       "QUXIAN6",  "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"};
  for (const Command& command : commandTable()) {
    if (isRecent(command)) continue;
    EXPECT_EQ(isOn(states, command.name, kCUContext), !off.contains(command.name)) << command.name;
  }
}

TEST(CommandStates, AtStartAllButTwoAreShown) {
  const CommandStates states;
  for (const Command& command : commandTable()) {
    if (isRecent(command)) continue;
    EXPECT_EQ(isShown(states, command.name), command.name != "PTK0" && command.name != "RZMYULAN") << command.name;
  }
}

TEST(CommandStates, RecentProjectsAreShownAsFarAsThereAreAnyAndOnWhereTheyAreAtHand) {
  const CommandStates states;
  CommandContext context = kCUContext;
  EXPECT_FALSE(isOn(states, "RECENT", context));
  const std::array recent{RecentProject{ProjectKind::Triaxial, "WKSZP1.txt", "/lab", true},
                          RecentProject{ProjectKind::K0, "K0P2.txt", "/gone", false}};
  context.recent = recent;
  const auto state = [&](std::string_view name) { return states.of(*findCommand(name), context); };
  EXPECT_TRUE(state("RECENT").enabled);
  EXPECT_EQ(state("RECENT1"), (CommandState{.caption = "WKSZP1.txt"}));
  EXPECT_EQ(state("RECENT2"), (CommandState{.enabled = false, .caption = "K0P2.txt"}));
  EXPECT_FALSE(state("RECENT3").visible);
  context.intervention.running = true;
  EXPECT_FALSE(state("RECENT1").enabled) << "nothing takes the sample away";
}

TEST(CommandStates, TheCurveWindowSwitchesItsCommandsOnAndTheImportersOff) {
  CommandStates states;
  states.documentActivated(kForm1);
  for (const std::string_view name :
       {"RZMSAVE", "RZMPRINT", "QUXIAN", "QUXIAN1", "QUXIAN6", "ZMPRINT", "NEW", "ZMOPEN"})
    EXPECT_TRUE(isOn(states, name)) << name;
  for (const std::string_view name : {"RZMOPEN", "NEWSZ", "OLDSZ1"}) EXPECT_FALSE(isOn(states, name)) << name;
  EXPECT_FALSE(isShown(states, "PTK0"));
}

TEST(CommandStates, ClosingTheCurveWindowUndoesIt) {
  CommandStates states;
  states.documentActivated(kForm1);
  states.documentClosed(kForm1);
  for (const std::string_view name : {"RZMSAVE", "RZMPRINT", "QUXIAN", "QUXIAN1", "ZMPRINT"})
    EXPECT_FALSE(isOn(states, name)) << name;
  for (const std::string_view name : {"RZMOPEN", "NEWSZ", "OLDSZ1", "ZMSAVE"}) EXPECT_TRUE(isOn(states, name)) << name;
}

TEST(CommandStates, OnlyTheTK0WindowShowsItsPrintCommand) {
  CommandStates states;
  states.documentActivated(kForm9);
  EXPECT_TRUE(isShown(states, "PTK0"));
  EXPECT_TRUE(isOn(states, "ZMPRINT"));
  EXPECT_FALSE(isOn(states, "QUXIAN")) << "it names no command of the curve window";
  for (const ActiveDocument other : {kForm1, kForm2, kForm4, kForm6, kForm7}) {
    states.documentActivated(kForm9);
    states.documentActivated(other);
    EXPECT_FALSE(isShown(states, "PTK0")) << other;
  }
  states.documentActivated(kForm9);
  states.documentClosed(kForm9);
  EXPECT_FALSE(isShown(states, "PTK0"));
}

TEST(CommandStates, EachDocumentsClosingTurnsSaveAndPrintOff) {
  for (const ActiveDocument document : {kForm1, kForm4, kForm6, kForm9}) {
    CommandStates states;
    states.documentActivated(document);
    EXPECT_TRUE(isOn(states, "RZMSAVE") && isOn(states, "RZMPRINT") && isOn(states, "ZMPRINT")) << document;
    EXPECT_FALSE(isOn(states, "RZMOPEN")) << document;
    states.documentClosed(document);
    EXPECT_FALSE(isOn(states, "RZMSAVE") || isOn(states, "RZMPRINT") || isOn(states, "ZMPRINT")) << document;
    EXPECT_TRUE(isOn(states, "RZMOPEN")) << document;
  }
}

TEST(CommandStates, TheTableWindowsResetNothing) {
  CommandStates states;
  states.documentActivated(kForm1);
  for (const ActiveDocument table : {kForm2, kForm7}) {
    states.documentActivated(table);
    states.documentClosed(table);
    EXPECT_TRUE(isOn(states, "RZMSAVE"));
    EXPECT_FALSE(isOn(states, "RZMOPEN"));
  }
}

TEST(CommandStates, OneOfTheTwoEnvelopesIsChecked) {
  const CommandStates states;
  const auto checked = [&](std::string_view name, const CommandContext& context) {
    return states.of(*findCommand(name), context).checked;
  };
  EXPECT_FALSE(checked("QUXIAN2", kCUContext));
  EXPECT_TRUE(checked("QUXIAN3", kCUContext)) << "the one at first";
  const CommandContext ratio{
      .toggles = {}, .envelopes = {.ratioEnabled = true, .ratioChecked = true}, .intervention = {}};
  EXPECT_TRUE(checked("QUXIAN2", ratio));
  EXPECT_FALSE(checked("QUXIAN3", ratio));
  EXPECT_FALSE(checked("QUXIAN1", ratio));
}

TEST(CommandStates, TheEnvelopeByRatioIsOnForASampleThatHasIt) {
  CommandStates states;
  states.documentActivated(kForm1);
  EXPECT_TRUE(isOn(states, "QUXIAN2", kCUContext));
  EXPECT_TRUE(isOn(states, "QUXIAN3", kCUContext));
  EXPECT_FALSE(isOn(states, "QUXIAN2", kUUContext));
  EXPECT_TRUE(isOn(states, "QUXIAN3", kUUContext));
}

TEST(CommandStates, TogglesShowTheSettings) {
  const CommandStates states;
  CommandContext context;
  context.toggles.mergePressures = true;
  EXPECT_TRUE(states.of(*findCommand("SAMETY"), context).checked);
  EXPECT_FALSE(states.of(*findCommand("MIDU"), context).checked);
  EXPECT_EQ(states.of(*findCommand("SAMETY"), context).caption, "相同试样保存时合并不同压力");
}

// ---- The tables, row by row

using NameSet = std::set<std::string_view>;

/// All commands that windows switch, but for RZMGANYU, which follows what a window shows, and PTK0, which is hidden.
const NameSet kSwitched{"RZMSAVE",       "RZMPRINT",       "PEXCEL",      "QUXIAN",    "RQUXIAN",
                        "SHUJUBIAO",     "ZMPRINT",        "SAVEASEXCEL", "RZMPRINT1", "RZMOPEN",
                        "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"};
const std::array kAllDocuments{kForm1, kForm2, kForm7, kForm4, kForm6, kForm9};

/// Those of them that are on.
NameSet switchedOn(const CommandStates& states) {
  NameSet on;
  for (const std::string_view name : kSwitched)
    if (isOn(states, name)) on.insert(name);
  return on;
}

TEST(CommandStates, EachWindowsActivationTurnsItsOwnCommandsOn) {
  const std::map<ActiveDocument, NameSet> on{
      {kForm1,
       {"RZMSAVE", "RZMPRINT", "PEXCEL", "QUXIAN", "RQUXIAN", "SHUJUBIAO", "ZMPRINT", "SAVEASEXCEL", "RZMPRINT1",
        "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm4,
       {"PEXCEL", "RZMSAVE", "RZMPRINT", "ZMPRINT", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm6, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm9, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm2, {"RZMOPEN"}},  // as at start
      {kForm7, {"RZMOPEN"}},
  };
  for (const ActiveDocument document : kAllDocuments) {
    CommandStates states;
    states.documentActivated(document);
    EXPECT_EQ(switchedOn(states), on.at(document)) << document;
    EXPECT_EQ(isShown(states, "PTK0"), document == kForm9) << document;
  }
}

TEST(CommandStates, AnActivationLeavesWhatItDoesNotName) {
  for (const ActiveDocument document : kAllDocuments) {
    CommandStates states;
    states.documentActivated(kForm1);
    const NameSet before = switchedOn(states);
    states.documentActivated(document);
    EXPECT_EQ(switchedOn(states), before) << document;
  }
}

TEST(CommandStates, EachWindowsClosingTurnsItsOwnCommandsOff) {
  const std::map<ActiveDocument, NameSet> off{
      {kForm1,
       {"RZMSAVE", "PEXCEL", "RZMPRINT", "QUXIAN", "RQUXIAN", "SHUJUBIAO", "ZMPRINT", "SAVEASEXCEL", "RZMPRINT1",
        "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm4,
       {"RZMSAVE", "RZMPRINT", "ZMPRINT", "PEXCEL", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm6, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm9, {"RZMSAVE", "RZMPRINT", "ZMPRINT", "SAVEASEXCEL", "SAVEASRESULTS", "SAVEASREADINGS", "FILLIN"}},
      {kForm2, {}},
      {kForm7, {}},
  };
  for (const ActiveDocument document : kAllDocuments) {
    CommandStates states;
    for (const ActiveDocument all : {kForm1, kForm9}) states.documentActivated(all);
    NameSet wanted = switchedOn(states);
    for (const std::string_view name : off.at(document)) wanted.erase(name);
    const bool resets = document != kForm2 && document != kForm7;
    if (resets) wanted.insert("RZMOPEN");
    states.documentClosed(document);
    EXPECT_EQ(switchedOn(states), wanted) << document;
    EXPECT_EQ(isShown(states, "PTK0"), document != kForm9) << document;
  }
}

}  // namespace
}  // namespace triaxlab
