#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "sessions/dialogs/error_display.h"
#include "shell/command_states.h"
#include "shell/document_kinds.h"
#include "shell/recent_projects.h"
#include "shell/shell_windows.h"
#include "shell/start_page.h"
#include "store/project/project_file.h"
#include "store/workspace.h"

namespace triaxlab {

class FaultLog;
class ImportSelection;
struct Importer;
struct Openable;
struct PrintEntry;

/// The session behind the main window: what the menu offers, what a command does, which document is active, what a
/// closing window asks.
///
/// The main window triggers commands here, reports what happens to document windows, and takes menu and status texts
/// from here at every ShellWindows::refresh and whenever a document window shows another sample.
class ShellSession {
 public:
  /// The three outlive the session.
  ShellSession(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows);

  // The menu
  CommandState commandState(const Command& command) const;
  /// Does what the command says. False when there is no such command or it is off: nothing happens then. A UserError on
  /// the way is shown, and the command ends there.
  bool trigger(std::string_view name);
  /// Told of each command before it is done.
  std::function<void(std::string_view name)> onCommand = [](std::string_view) {};

  /// F4: leaves the intervention that runs, whichever window is in front, or begins one in the curve window. False when
  /// the key means nothing now.
  bool interventionKey();
  /// Files and folders were dropped on the main window: what they are is opened as if by its command; of several things
  /// the person chooses one. What nothing can open is told.
  void openDropped(const std::vector<std::filesystem::path>& dropped);
  /// Some window is being worked on by 干预.
  bool interventionRuns() const { return interventionEntry().running; }

  // The title of the main window
  /// The program; then, of the document in front, the project; where the data lie; a star while there is something to
  /// save.
  std::string title() const;

  /// What can be begun while no document is open.
  std::vector<StartSection> startPage() const;

  // The status bar
  /// 就绪 or the last remark; project; test date.
  std::array<std::string, 3> statusTexts() const;
  /// Shows them in the first panel until the next command.
  void showRemarks(const Remarks& remarks);

  // The bar over the documents
  /// What nobody may overlook, until it is taken note of, or the next document or save has something else to say.
  Remarks warnings() const;
  /// Warns of the remarks, which the status bar shows as well, and of what it doesn't show.
  void warn(const Remarks& remarks, const Remarks& beside = {});
  void dismissWarnings();
  /// Warns of the faults of earlier runs that nobody was shown yet, whatever else there is to say. The log outlives the
  /// session.
  void warnOfFaults(const FaultLog& log);
  /// There is a report of them to look at.
  bool hasFaultReport() const { return m_faults != nullptr; }
  void showFaultReport();

  // What happens to document windows
  /// A document window came to the front.
  void documentActivated(ActiveDocument document);
  /// A document is to be closed or replaced: asks about unsaved changes and saves them; goes on after either answer.
  /// False when not all could be saved: the document stays, since its changes would be lost.
  bool mayClose(ActiveDocument document);
  /// A document window is gone. The activation of the window that comes to the front is to follow.
  void documentClosed(ActiveDocument document);
  /// The main window closes: every document window gets its close step, front window first, then the program ends,
  /// unless a document could not be saved.
  void endProgram();

  // For the windows' own buttons and keys
  /// A document is loaded that could be saved.
  bool hasDocument() const { return !m_windows.loadedDocuments().empty(); }
  /// Saves the document on which the commands act and shows what the save has to say. False when not all samples could
  /// be written.
  bool save();
  /// Opens the table of readings, Form2 or Form7, of the sample on display.
  void showTable(ActiveDocument table);
  /// 打印数表 of the window of unconfined samples.
  void printTable();
  /// Runs an operation; a UserError ends it, is shown, and gives false.
  template <class Operation>
  bool run(Operation&& operation) {
    return runShowingErrors(m_dialogs, std::forward<Operation>(operation));
  }

 private:
  struct Work;

  void newDocument(const Command& command);
  void openProject(const Command& command);
  void import(const Command& command);
  void openRecent(const Command& command);
  void openNanjingFile(const Command& command);
  void print(const Command& command);
  void print(const PrintEntry& entry);
  void saveCommand(const Command& command);
  void exitCommand(const Command& command);
  void showCurves(const Command& command);
  void showCurvePage(const Command& command);
  void showDataTable(const Command& command);
  void intervene(const Command& command);
  void reprocessCurves(const Command& command);
  void fillIn(const Command& command);
  void fillTemplates(const Command& command);
  void saveTable(const Command& command);
  void saveWorkbook(const Command& command);
  void setSourceFolder(const Command& command);
  void setHabits(const Command& command);
  void startTool(const Command& command);
  void startThisProgram(const Command& command);
  void flipToggle(const Command& command);
  void showManual(const Command& command);
  void showKeys(const Command& command);
  void showAbout(const Command& command);
  void fitWindow(const Command& command);
  void startDemonstration(const Command& command);

  void askForDataFolder();
  /// Goes over to the folder, as chosen or typed, once the loaded documents may be left; they follow. False when one
  /// of them could not be saved.
  bool useDataFolder(std::string_view typed);
  bool save(const DocumentKind& document);
  std::string projectOnDisplay(ActiveDocument document) const;
  Remarks openFile(ProjectKind kind, std::string_view fileName);
  /// An importer has filled the table of a document: prepares it and shows it.
  void showImport(ActiveDocument document, Remarks remarks);
  /// Lets the person choose from the open database, or takes all of one that there is nothing to choose from.
  void importFrom(ImportSelection& selection);
  void open(const Openable& openable);
  void openRawFile(const Importer& importer, const std::filesystem::path& path);
  void openProjectFile(ProjectKind kind, const std::filesystem::path& path);
  void openDataFolder(const std::filesystem::path& folder);
  void show(ActiveDocument document, const Remarks& remarks);
  void finishTyping();
  /// The document on which 干预 acts: the one where it runs, else that of the window in front.
  ActiveDocument interventionDocument() const;
  InterventionEntry interventionEntry() const;

  Workspace& m_workspace;
  Dialogs& m_dialogs;
  ShellWindows& m_windows;
  CommandStates m_commands;
  RecentProjects m_recent;
  std::string m_remark;
  Remarks m_warnings;
  const FaultLog* m_faults = nullptr;  // with reports that nobody was shown
  bool m_ending = false;
};

}  // namespace triaxlab
