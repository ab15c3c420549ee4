#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "platform/dialogs.h"
#include "store/workspace.h"
#include "triaxial/curve_page.h"
#include "triaxial/failure.h"

namespace triaxlab {

class BackupSession;
class BrowserSession;
class FillInSession;
class ImportSelection;
class HabitsSession;
class OverwriteSession;
class RangeDialog;
class SourceFolderSession;
class SampleListSession;
class PrintDialogSession;
class TemplateSession;

/// 干预 in a document window.
struct InterventionEntry {
  bool possible = false;  // what the window shows can be corrected by hand
  bool running = false;   // and somebody is at it
};

/// A loaded document window as the shell needs it: the window hands each call on to its session.
class DocumentWindow {
 public:
  virtual ~DocumentWindow() = default;
  /// There is something to save.
  virtual bool isChanged() const = 0;
  virtual void markSaved() = 0;
  /// Another window has changed samples: there is something to save, and what is on display shows it.
  virtual void markChanged() {}
  /// What is still being typed is stored: a command is about to act on the tables.
  virtual void finishTyping() {}
  /// Second and third panel of the status bar, project and test date of the sample on display; UTF-8.
  virtual std::array<std::string, 2> statusPanels() const = 0;
  /// The table row of the sample on display.
  virtual std::size_t sampleRow() const = 0;
  /// Which of its load stages has a chart of its own on display, from 0.
  virtual std::size_t stageOnDisplay() const { return 0; }

  virtual InterventionEntry interventionEntry() const { return {}; }
  virtual void enterIntervention() {}
  /// Asks whether the work is to be kept, and ends the intervention after either answer.
  virtual void leaveIntervention(Dialogs& /*dialogs*/) {}
};

/// The two exclusive checks of the menu as the sample on display sets them. One of them is always checked.
struct EnvelopeEntries {
  bool ratioEnabled = false;  // QUXIAN2; QUXIAN3 always is
  bool ratioChecked = false;  // otherwise QUXIAN3 is checked

  /// How failure rows are looked for on pages that have no way of their own.
  FailureMode checkedMode() const { return ratioChecked ? FailureMode::PeakRatio : FailureMode::PeakStress; }
};

/// Form1.
class CurveDocument : public DocumentWindow {
 public:
  virtual void showPage(CurvePage page) = 0;
  virtual EnvelopeEntries envelopeEntries() const = 0;
  /// What was set by hand for the sample on display is forgotten and fitted anew.
  virtual void reprocess() = 0;
};

/// The windows as the shell needs them, made by the main window. Dialogs are modal: the calls return when the dialog
/// has closed.
class ShellWindows {
 public:
  virtual ~ShellWindows() = default;

  virtual void showBrowser(BrowserSession& session) = 0;  // OPENFORM
  virtual void showBackups(BackupSession& session) = 0;
  virtual void showSampleList(SampleListSession& session) = 0;      // Form14, Form13
  virtual void showRangeDialog(RangeDialog& dialog) = 0;            // Form21
  virtual void showSourceFolder(SourceFolderSession& session) = 0;  // Form5
  virtual void showHabits(HabitsSession& session) = 0;
  virtual void showFillIn(FillInSession& session) = 0;
  virtual void showOverwriteDialog(OverwriteSession& session) = 0;  // Form10
  virtual void showPrintDialog(PrintDialogSession& session) = 0;    // SETPRINTFORM and its kin
  virtual void showTemplates(TemplateSession& session) = 0;         // Form24
  /// OPENFORM0 and its kin; a selection with nothing open is loaded. The remarks of the import; nothing when the dialog
  /// was left without 处理.
  virtual std::optional<Remarks> showImporter(ImportSelection& selection) = 0;

  /// The manual where it tells of the window in front; it stays open beside that window, as the next two.
  virtual void showManual() = 0;
  virtual void showKeys() = 0;  // of the window in front
  virtual void showAbout() = 0;

  /// What went wrong in earlier runs, and the file in which it stands.
  virtual void showFaultReport(const std::string& report, const std::filesystem::path& file) = 0;

  /// Loads the document window when it isn't there, shows its table as if freshly loaded, and brings it to the front.
  /// Form2 and Form7 open for the sample that Form1 has on display.
  virtual void showDocument(ActiveDocument document) = 0;
  /// Brings a loaded window to the front as it is.
  virtual void raiseDocument(ActiveDocument document) = 0;
  /// The loaded document windows, the front one first.
  virtual std::vector<ActiveDocument> loadedDocuments() const = 0;
  /// Null when the window isn't loaded.
  virtual DocumentWindow* document(ActiveDocument document) = 0;
  virtual CurveDocument* curveDocument() = 0;
  /// The document in front takes all the room there is, now and when it opens again.
  virtual void fitDocument() = 0;

  /// Moves ProgressBar1, which is painted at once: no event is handled. It hides when all is done.
  virtual void showProgress(std::size_t done, std::size_t total) = 0;
  /// Command states, captions or status texts may have changed: take them over from the shell session.
  virtual void refresh() = 0;
  /// Brings the window of a sibling tool, which may still be opening it, to the front. Nothing happens where the
  /// desktop can't do that.
  virtual void raiseTool(std::string_view windowTitle) = 0;
  /// Puts the windows of a process, which may still be opening them, away where the desktop can do that.
  virtual void minimizeTool(int process) = 0;
  /// Starts this program once more, with another application folder.
  virtual void startAgain(const std::filesystem::path& applicationFolder) = 0;
  /// Ends the process at once; nothing is asked any more.
  virtual void endProgram() = 0;
};

}  // namespace triaxlab
