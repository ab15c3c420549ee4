#pragma once

#include <QMainWindow>
#include <array>
#include <map>

#include "platform/dialogs.h"
#include "platform/qt/qt_page_devices.h"
#include "shell/shell_session.h"
#include "shell/shell_windows.h"
#include "store/workspace.h"
#include "triaxial/failure.h"
#include "windows/document_windows.h"
#include "windows/help/help_windows.h"
#include "windows/tool_windows.h"

class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QProgressBar;

namespace triaxlab {

class CommandMenuBar;
class DocumentFrames;
class StartPageView;
class WarningBar;
class WindowMemory;

/// The main window: menu, status bar, and the document windows as its children.
class MDIForm1 : public QMainWindow, private ShellWindows {
  Q_OBJECT

 public:
  /// What is handed in outlives the window. Without a memory windows open in their given sizes.
  MDIForm1(Workspace& workspace, Dialogs& dialogs, WindowMemory* memory = nullptr);
  ~MDIForm1() override;

  /// Somebody wants to see it, whatever is in front of it now.
  void comeToFront();

  ShellSession& shell() { return m_shell; }
  /// Shown in the first panel of the status bar until the next command.
  void showRemarks(const Remarks& remarks) { m_shell.showRemarks(remarks); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // ShellWindows
  void showBrowser(BrowserSession& session) override;
  void showBackups(BackupSession& session) override;
  void showSampleList(SampleListSession& session) override;
  void showRangeDialog(RangeDialog& dialog) override;
  void showSourceFolder(SourceFolderSession& session) override;
  void showHabits(HabitsSession& session) override;
  void showFillIn(FillInSession& session) override;
  void showOverwriteDialog(OverwriteSession& session) override;
  void showPrintDialog(PrintDialogSession& session) override;
  void showTemplates(TemplateSession& session) override;
  std::optional<Remarks> showImporter(ImportSelection& selection) override;
  void showManual() override;
  void showKeys() override;
  void showAbout() override;
  void showFaultReport(const std::string& report, const std::filesystem::path& file) override;
  void showDocument(ActiveDocument document) override;
  void raiseDocument(ActiveDocument document) override;
  std::vector<ActiveDocument> loadedDocuments() const override;
  DocumentWindow* document(ActiveDocument document) override;
  CurveDocument* curveDocument() override;
  void fitDocument() override;
  void showProgress(std::size_t done, std::size_t total) override;
  void refresh() override;
  void raiseTool(std::string_view windowTitle) override;
  void minimizeTool(int process) override;
  void startAgain(const std::filesystem::path& applicationFolder) override;
  void endProgram() override;

  void makeCentre();
  void makeStatusBar();
  /// What the mouse points at, in the first panel; an empty text brings the program's own back.
  void showHelp(const QString& help);
  void refreshStatusBar();
  void refreshStartPage();
  void takeFirstPlace();
  void rememberSizes();
  bool hasFirstSize() const;
  void listOpenWindows();
  void addDocument(ActiveDocument document);
  void documentHasClosed(ActiveDocument document);
  void documentCameToFront(QMdiSubWindow* frame);
  QMdiSubWindow* frameOf(ActiveDocument document) const;
  /// The window that a person works in: the modal one, else the document in front, else this one.
  QWidget* frontWindow();

  Workspace& m_workspace;
  Dialogs& m_dialogs;
  ShellSession m_shell;
  CommandMenuBar* m_menu;
  WarningBar* m_warnings;
  QMdiArea* m_area;
  WindowMemory* m_memory;
  DocumentFrames* m_frames;
  StartPageView* m_startPage;
  QSize m_firstSize;  // that it asked the screen for, its frame counted
  std::array<QLabel*, 3> m_panels{};
  QProgressBar* m_progress = nullptr;
  std::map<ActiveDocument, LoadedDocument> m_documents;
  QtPageDevices m_pageDevices;
  ToolWindows m_toolWindows;
  HelpWindows m_help;
};

}  // namespace triaxlab
