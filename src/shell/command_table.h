#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace triaxlab {

enum class CommandKind : std::uint8_t {
  Submenu,         // on the menu bar when it has no parent
  Entry,           //
  Toggle,          // a checked entry that stands for a byte of qvb.sys
  ExclusiveCheck,  // checked or not together with its companion
};

/// What a command does; `argument` and `target` of its row say with what.
enum class Action : std::uint8_t {
  None,              // a heading
  NewDocument,       // argument: ActiveDocument
  OpenProject,       // argument: openDialogKind
  OpenRecent,        // argument: its place among the recent projects, from 0
  OpenNanjingFile,   //
  Print,             // the dialog for activeDocument
  PrintSheets,       // target: dialog
  PrintTK0Curves,    // target: dialog
  PrintTable,        // of the unconfined test; a button of its window
  SaveAsWorkbook,    //
  SaveAsTable,       // argument: TableContent
  Save,              //
  SetSourceFolder,   // argument: openDialogKind of Form5
  SetHabits,         //
  Exit,              //
  Import,            // target: the importer's window
  ShowCurves,        //
  ShowCurvePage,     // argument: CurvePage
  ShowDataTable,     //
  Intervene,         //
  ReprocessCurves,   //
  FillIn,            // of the samples of the document in front
  FillTemplates,     //
  FlipToggle,        //
  StartTool,         // target: program; windowTitle
  StartThisProgram,  // which runs already: nothing happens but that this is said
  ShowManual,        // at the place of the window in front
  ShowKeys,          // of the window in front
  ShowAbout,         //
  FitWindow,         // the document in front
  StartDemonstration,
};

/// One menu command; the rows stand in the order of the menu.
struct Command {
  std::string_view name;
  std::string_view caption;
  std::string_view parent;  // empty: on the menu bar
  CommandKind kind = CommandKind::Entry;
  Action action = Action::None;
  std::int16_t argument = 0;
  std::string_view target = {};
  std::string_view windowTitle = {};  // of the tool
  std::string_view shortcut = {};     // in the spelling of QKeySequence
  bool lineAbove = false;             // a separator in front
};

std::span<const Command> commandTable();
/// What the status bar says of a command under the pointer, UTF-8.
std::string commandHelp(const Command& command);
/// Null when there is no such command. Names count letter for letter.
const Command* findCommand(std::string_view name);

}  // namespace triaxlab
