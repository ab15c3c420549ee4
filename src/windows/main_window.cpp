#include "windows/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QProgressBar>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/process.h"
#include "sessions/dialogs/import_selection.h"
#include "shell/document_kinds.h"
#include "shell/window_memory.h"
#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/warning_bar.h"
#include "windows/controls/words.h"
#include "windows/dialogs/backup_window.h"
#include "windows/dialogs/fill_in_window.h"
#include "windows/dialogs/habits_window.h"
#include "windows/dialogs/importer_window.h"
#include "windows/dialogs/overwrite_window.h"
#include "windows/dialogs/print_window.h"
#include "windows/dialogs/project_browser_window.h"
#include "windows/dialogs/range_window.h"
#include "windows/dialogs/sample_list_window.h"
#include "windows/dialogs/source_folder_window.h"
#include "windows/dialogs/template_window.h"
#include "windows/document_frames.h"
#include "windows/file_drop.h"
#include "windows/first_place.h"
#include "windows/help/fault_report_window.h"
#include "windows/help/help_key.h"
#include "windows/menu_bar.h"
#include "windows/start_page_view.h"

namespace triaxlab {
namespace {

constexpr QSize kFirstSize(pixels(16800), pixels(11400));
constexpr int kProgressWidth = pixels(3000);
/// Beside the shortcuts of the menu.
constexpr std::array kOwnKeys{KeyRow{Qt::Key_F4, Action::Intervene, "开始、结束干预"}};
/// Where a frame keeps which document it holds.
constexpr const char* kDocumentProperty = "activeDocument";

ActiveDocument documentOf(const QMdiSubWindow* frame) {
  return static_cast<ActiveDocument>(frame->property(kDocumentProperty).toInt());
}

}  // namespace

MDIForm1::MDIForm1(Workspace& workspace, Dialogs& dialogs, WindowMemory* memory)
    : m_workspace(workspace),
      m_dialogs(dialogs),
      m_shell(workspace, dialogs, *this),
      m_menu(new CommandMenuBar(this, m_shell)),
      m_warnings(new WarningBar(this)),
      m_area(new QMdiArea(this)),
      m_memory(memory),
      m_frames(new DocumentFrames(m_area, memory)),
      m_startPage(new StartPageView(m_area)) {
  setObjectName("MDIForm1");
  setAccessibleName(kProgramTitle);
  setMenuBar(m_menu);
  makeCentre();
  makeStatusBar();
  connect(m_menu, &CommandMenuBar::entryShown, this, &MDIForm1::showHelp);
  connect(m_menu->menu("RZMWINDOW"), &QMenu::aboutToShow, this, &MDIForm1::listOpenWindows);
  connect(m_startPage, &StartPageView::chosen, this, [this](std::string_view command) { m_shell.trigger(command); });
  connect(m_area, &QMdiArea::subWindowActivated, this, &MDIForm1::documentCameToFront);
  new HelpKey(
      this, [this] { m_shell.trigger("MANUAL"); }, [this] { m_shell.trigger("KEYS"); });
  new FileDrop(this, [this](const FileDrop::Paths& paths) { m_shell.openDropped(paths); });
  takeFirstPlace();
  refresh();
}

MDIForm1::~MDIForm1() {
  // A window that is hidden by its destructor tells the loss of the focus to what is no longer there.
  hide();
  // Frames that go down one by one would still activate each other.
  m_area->disconnect(this);
}

void MDIForm1::takeFirstPlace() {
  const auto chosen = m_memory != nullptr ? m_memory->mainWindow() : std::nullopt;
  m_firstSize = chosen ? QSize(chosen->width, chosen->height) : kFirstSize;
  if (!chosen || !chosen->maximized) {
    new FirstPlace(this, m_firstSize);
    return;
  }
  resize(m_firstSize);
  setWindowState(windowState() | Qt::WindowMaximized);
}

void MDIForm1::rememberSizes() {
  if (m_memory == nullptr) return;
  for (const QMdiSubWindow* const frame : m_area->subWindowList())
    if (documentOf(frame) != kNoDocument) m_frames->note(*frame);
  const QSize size = isMaximized() || hasFirstSize() ? m_firstSize : outerSize(*this);
  if (m_memory->mainWindow() || isMaximized() || size != m_firstSize)
    m_memory->setMainWindow({size.width(), size.height(), isMaximized()});
  m_memory->write();
}

bool MDIForm1::hasFirstSize() const {
  // On a smaller screen the window has less than it asked for, and wants it still.
  const QSize now = outerSize(*this);
  return now == m_firstSize || now == m_firstSize.boundedTo(screen()->availableGeometry().size());
}

void MDIForm1::makeCentre() {
  m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  auto* const centre = new QWidget(this);
  auto* const column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(m_warnings);
  column->addWidget(m_area, 1);
  setCentralWidget(centre);
  connect(m_warnings, &WarningBar::dismissed, this, [this] { m_shell.dismissWarnings(); });
  connect(m_warnings, &WarningBar::reportWanted, this, [this] { m_shell.showFaultReport(); });
}

void MDIForm1::makeStatusBar() {
  statusBar()->setObjectName("StatusBar1");
  static constexpr std::array kStretches{3, 2, 1};
  for (int i = 0; i < static_cast<int>(m_panels.size()); ++i) {
    auto* const panel = new ClickLabel(statusBar());
    panel->setObjectName(arrayName("StatusBar1", i + 1));
    panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    // A long text doesn't widen the window.
    panel->setMinimumWidth(1);
    statusBar()->addWidget(panel, kStretches.at(static_cast<std::size_t>(i)));
    m_panels.at(static_cast<std::size_t>(i)) = panel;
  }
  m_progress = new QProgressBar(statusBar());
  m_progress->setObjectName("ProgressBar1");
  m_progress->setFixedWidth(kProgressWidth);
  statusBar()->addPermanentWidget(m_progress);
  m_progress->hide();
}

void MDIForm1::closeEvent(QCloseEvent* event) {
  event->ignore();
  m_shell.endProgram();
}

void MDIForm1::keyPressEvent(QKeyEvent* event) {
  // No shortcut of the entry: a document may have a use of its own for the key.
  if (exactKeyOf(*event, kOwnKeys) && m_shell.interventionKey()) return;
  QMainWindow::keyPressEvent(event);
}

// ---- dialogs

void MDIForm1::showBrowser(BrowserSession& session) { OPENFORM(this, session).exec(); }

void MDIForm1::showBackups(BackupSession& session) { BackupWindow(QApplication::activeModalWidget(), session).exec(); }

void MDIForm1::showSampleList(SampleListSession& session) {
  SampleListWindow(QApplication::activeModalWidget(), session).exec();
}

void MDIForm1::showRangeDialog(RangeDialog& dialog) { Form21(QApplication::activeWindow(), dialog).exec(); }

void MDIForm1::showSourceFolder(SourceFolderSession& session) {
  Form5(QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : this, session).exec();
}

void MDIForm1::showHabits(HabitsSession& session) { HabitsWindow(this, session).exec(); }

void MDIForm1::showFillIn(FillInSession& session) { FillInWindow(this, session).exec(); }

void MDIForm1::showOverwriteDialog(OverwriteSession& session) { Form10(this, session).exec(); }

void MDIForm1::showPrintDialog(PrintDialogSession& session) { PrintWindow(this, session, m_pageDevices).exec(); }

void MDIForm1::showTemplates(TemplateSession& session) { Form24(this, session).exec(); }

std::optional<Remarks> MDIForm1::showImporter(ImportSelection& selection) {
  ImporterWindow window(this, selection, m_dialogs,
                        [this](std::size_t done, std::size_t total) { showProgress(done, total); });
  window.exec();
  return window.remarks();
}

// ---- help

QWidget* MDIForm1::frontWindow() {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  const QMdiSubWindow* const frame = m_area->currentSubWindow();
  return frame != nullptr && documentOf(frame) != kNoDocument ? frame->widget() : this;
}

void MDIForm1::showManual() { m_help.showManual(frontWindow()); }

void MDIForm1::showKeys() {
  KeyGroup menu{"主窗口", {}};
  for (const Command& command : commandTable())
    if (!command.shortcut.empty() && m_shell.commandState(command).enabled)
      menu.keys.push_back({words(command.shortcut), words(command.caption)});
  const std::vector<KeyHelp> own = keyHelpOf(kOwnKeys);
  menu.keys.insert(menu.keys.end(), own.begin(), own.end());
  m_help.showKeys(frontWindow(), {menu});
}

void MDIForm1::showAbout() { HelpWindows::showAbout(this, m_workspace); }

void MDIForm1::showFaultReport(const std::string& report, const std::filesystem::path& file) {
  FaultReportWindow(this, report, file).exec();
}

// ---- documents

void MDIForm1::addDocument(ActiveDocument document) {
  const DocumentHost host{m_workspace,
                          m_dialogs,
                          m_shell,
                          *this,
                          [this](const QString& help) { showHelp(help); },
                          [this](ActiveDocument closed) { documentHasClosed(closed); }};
  const LoadedDocument loaded = makeDocumentWindow(document, host);
  m_documents.emplace(document, loaded);
  QMdiSubWindow* const frame = m_area->addSubWindow(loaded.widget);
  frame->setProperty(kDocumentProperty, static_cast<int>(document));
  frame->setAttribute(Qt::WA_DeleteOnClose);
  m_frames->opened(*frame);
  frame->move(0, 0);
}

void MDIForm1::documentHasClosed(ActiveDocument document) {
  // The frame is deleted only when the event loop gets to it; nobody may find it meanwhile.
  if (QMdiSubWindow* const frame = frameOf(document)) {
    m_frames->note(*frame);
    frame->setProperty(kDocumentProperty, static_cast<int>(kNoDocument));
  }
  m_documents.erase(document);
  m_shell.documentClosed(document);
}

void MDIForm1::showDocument(ActiveDocument document) {
  const ActiveDocument master = documentKindOf(document).master;
  if (master != document && !m_documents.contains(master)) return raiseDocument(document);
  if (const auto known = m_documents.find(document); known != m_documents.end())
    known->second.load();
  else
    addDocument(document);
  for (const auto& [other, loaded] : m_documents)
    if (other != document && documentKindOf(other).master == document) loaded.reload();
  raiseDocument(document);
}

void MDIForm1::raiseDocument(ActiveDocument document) {
  QMdiSubWindow* const frame = frameOf(document);
  if (frame == nullptr) return;
  frame->widget()->show();
  frame->show();
  m_area->setActiveSubWindow(frame);
}

void MDIForm1::documentCameToFront(QMdiSubWindow* frame) {
  // The area tells "none" whenever another window of the desktop takes the front; the document stays the active one.
  if (frame == nullptr || documentOf(frame) == kNoDocument) return;
  m_shell.documentActivated(documentOf(frame));
}

QMdiSubWindow* MDIForm1::frameOf(ActiveDocument document) const {
  for (QMdiSubWindow* const frame : m_area->subWindowList())
    if (documentOf(frame) == document) return frame;
  return nullptr;
}

std::vector<ActiveDocument> MDIForm1::loadedDocuments() const {
  std::vector<ActiveDocument> documents;
  const QList<QMdiSubWindow*> frames = m_area->subWindowList(QMdiArea::StackingOrder);
  for (const QMdiSubWindow* const frame : frames)
    if (documentOf(frame) != kNoDocument) documents.push_back(documentOf(frame));
  std::reverse(documents.begin(), documents.end());
  return documents;
}

DocumentWindow* MDIForm1::document(ActiveDocument document) {
  const auto loaded = m_documents.find(document);
  return loaded != m_documents.end() ? loaded->second.window : nullptr;
}

CurveDocument* MDIForm1::curveDocument() { return dynamic_cast<CurveDocument*>(document(kForm1)); }

void MDIForm1::fitDocument() {
  QMdiSubWindow* const frame = m_area->currentSubWindow();
  if (frame != nullptr && documentOf(frame) != kNoDocument) m_frames->fit(*frame);
}

// ---- menu and status bar

void MDIForm1::refresh() {
  m_menu->refresh();
  refreshStatusBar();
  setWindowTitle(words(m_shell.title()));
  m_warnings->show(m_shell.warnings(), m_shell.hasFaultReport());
  refreshStartPage();
  for (const auto& [document, loaded] : m_documents) loaded.refresh();
}

void MDIForm1::showHelp(const QString& help) {
  if (help.isEmpty()) return refreshStatusBar();
  m_panels[0]->setText(help);
}

void MDIForm1::refreshStartPage() {
  if (m_documents.empty())
    m_startPage->show(m_shell.startPage());
  else
    m_startPage->hide();
}

void MDIForm1::refreshStatusBar() {
  const std::array<std::string, 3> texts = m_shell.statusTexts();
  for (std::size_t i = 0; i < texts.size(); ++i) m_panels.at(i)->setText(words(texts.at(i)));
}

void MDIForm1::showProgress(std::size_t done, std::size_t total) {
  m_progress->setVisible(done < total);
  if (done == total) return;
  m_progress->setRange(0, static_cast<int>(total));
  // Laid out and painted here: work that tells its progress lets no event run.
  statusBar()->layout()->activate();
  m_progress->setValue(static_cast<int>(done));
  m_progress->repaint();
}

void MDIForm1::listOpenWindows() {
  QMenu* const menu = m_menu->menu("RZMWINDOW");
  static constexpr const char* kOpenWindow = "openWindow";
  for (QAction* const entry : menu->actions())
    if (entry->property(kOpenWindow).toBool()) delete entry;
  const auto mark = [](QAction* entry) { entry->setProperty(kOpenWindow, true); };
  if (!loadedDocuments().empty()) mark(menu->addSeparator());
  for (const ActiveDocument document : loadedDocuments()) {
    QAction* const entry = menu->addAction(frameOf(document)->windowTitle());
    mark(entry);
    connect(entry, &QAction::triggered, this, [this, document] { raiseDocument(document); });
  }
}

void MDIForm1::raiseTool(std::string_view windowTitle) { m_toolWindows.raise(windowTitle); }

void MDIForm1::minimizeTool(int process) { m_toolWindows.minimize(process); }

void MDIForm1::startAgain(const std::filesystem::path& applicationFolder) {
  const std::array<std::string, 2> arguments{"--app", textOfPath(applicationFolder)};
  startProgram(QFileInfo(QCoreApplication::applicationFilePath()).filesystemFilePath(), arguments);
}

void MDIForm1::comeToFront() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
  // A desktop that keeps its front for itself lets others be brought there.
  raiseTool(utf8(windowTitle()));
}

void MDIForm1::endProgram() {
  rememberSizes();
  m_help.close();
  hide();
  QCoreApplication::exit(0);
}

}  // namespace triaxlab
