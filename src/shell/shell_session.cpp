#include "shell/shell_session.h"

#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <vector>

#include "platform/files.h"
#include "platform/process.h"
#include "sessions/dialogs/fill_in_session.h"
#include "sessions/dialogs/habits_session.h"
#include "sessions/dialogs/overwrite_session.h"
#include "sessions/dialogs/source_folder_session.h"
#include "sessions/dialogs/template_session.h"
#include "sessions/dialogs/workbook_saving.h"
#include "shell/data_folder_change.h"
#include "shell/document_operations.h"
#include "shell/fault_log.h"
#include "shell/printing.h"
#include "shell/start_up.h"
#include "shell/table_export.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"
#include "store/project/save_project.h"
#include "store/settings/data_folder.h"
#include "store/settings/text_settings.h"
#include "store/settings/toggles.h"
#include "workbooks/workbook_forms.h"

namespace triaxlab {
namespace {

constexpr std::string_view kReady = "就绪";
constexpr std::string_view kEarlierFaults = "程序以前运行时出过意外的错误，或者意外中断过。请点“查看”看报告。";
constexpr std::string_view kFileMenu = "RZMFILE";

/// The progress of work that may fail on the way: the bar goes when the work is over.
class ShownProgress {
 public:
  explicit ShownProgress(ShellWindows& windows) : m_windows(windows) {}
  ShownProgress(const ShownProgress&) = delete;
  ShownProgress& operator=(const ShownProgress&) = delete;
  ~ShownProgress() { m_windows.showProgress(1, 1); }
  operator Progress() const {  // NOLINT(google-explicit-constructor): stands for it
    return [this](std::size_t done, std::size_t total) { m_windows.showProgress(done, total); };
  }

 private:
  ShellWindows& m_windows;
};

}  // namespace

struct ShellSession::Work {
  Action action;
  void (ShellSession::*run)(const Command&);
};

ShellSession::ShellSession(Workspace& workspace, Dialogs& dialogs, ShellWindows& windows)
    : m_workspace(workspace), m_dialogs(dialogs), m_windows(windows), m_recent(workspace.applicationFolder) {
  m_recent.look(workspace);
}

CommandState ShellSession::commandState(const Command& command) const {
  const CurveDocument* const curves = m_windows.curveDocument();
  return m_commands.of(command,
                       {m_workspace.settings.toggles, curves ? curves->envelopeEntries() : EnvelopeEntries{},
                        interventionEntry(), m_recent.projects(), !m_windows.loadedDocuments().empty(),
                        [this](Action action) { return printEntryOf(action, m_workspace.activeDocument) != nullptr; }});
}

bool ShellSession::trigger(std::string_view name) {
  static constexpr std::array kWork{
      Work{Action::NewDocument, &ShellSession::newDocument},
      Work{Action::OpenProject, &ShellSession::openProject},
      Work{Action::OpenRecent, &ShellSession::openRecent},
      Work{Action::Print, &ShellSession::print},
      Work{Action::PrintSheets, &ShellSession::print},
      Work{Action::PrintTK0Curves, &ShellSession::print},
      Work{Action::Save, &ShellSession::saveCommand},
      Work{Action::SetSourceFolder, &ShellSession::setSourceFolder},
      Work{Action::SetHabits, &ShellSession::setHabits},
      Work{Action::Exit, &ShellSession::exitCommand},
      Work{Action::Import, &ShellSession::import},
      Work{Action::OpenNanjingFile, &ShellSession::openNanjingFile},
      Work{Action::ShowCurves, &ShellSession::showCurves},
      Work{Action::FlipToggle, &ShellSession::flipToggle},
      Work{Action::StartTool, &ShellSession::startTool},
      Work{Action::StartThisProgram, &ShellSession::startThisProgram},
      Work{Action::ShowCurvePage, &ShellSession::showCurvePage},
      Work{Action::ShowDataTable, &ShellSession::showDataTable},
      Work{Action::Intervene, &ShellSession::intervene},
      Work{Action::ReprocessCurves, &ShellSession::reprocessCurves},
      Work{Action::FillIn, &ShellSession::fillIn},
      Work{Action::FillTemplates, &ShellSession::fillTemplates},
      Work{Action::SaveAsTable, &ShellSession::saveTable},
      Work{Action::SaveAsWorkbook, &ShellSession::saveWorkbook},
      Work{Action::ShowManual, &ShellSession::showManual},
      Work{Action::ShowKeys, &ShellSession::showKeys},
      Work{Action::ShowAbout, &ShellSession::showAbout},
      Work{Action::FitWindow, &ShellSession::fitWindow},
      Work{Action::StartDemonstration, &ShellSession::startDemonstration},
  };
  const Command* const command = findCommand(name);
  if (command == nullptr) return false;
  const CommandState state = commandState(*command);
  if (!state.visible || !state.enabled) return false;
  onCommand(name);
  m_remark.clear();
  finishTyping();
  const auto* const work =
      std::find_if(kWork.begin(), kWork.end(), [&](const Work& w) { return w.action == command->action; });
  // Headings do nothing.
  if (work != kWork.end()) run([&] { (this->*work->run)(*command); });
  if (!m_ending) m_windows.refresh();
  return true;
}

std::string ShellSession::title() const {
  const std::vector<ActiveDocument> loaded = m_windows.loadedDocuments();
  std::string title(kProgramTitle);
  if (!loaded.empty())
    if (const std::string project = projectOnDisplay(loaded.front()); !project.empty()) title += " - " + project;
  if (!m_workspace.dataFolder.empty()) title += " - " + textOfPath(m_workspace.dataFolder);
  const bool isChanged = std::ranges::any_of(loaded, [this](ActiveDocument document) {
    const DocumentWindow* const window = m_windows.document(document);
    return window != nullptr && window->isChanged();
  });
  return isChanged ? title + " *" : title;
}

std::string ShellSession::projectOnDisplay(ActiveDocument document) const {
  const DocumentWindow* const window = m_windows.document(document);
  if (window == nullptr) return {};
  const SampleRows rows(m_workspace, documentKindOf(document).tests);
  const std::size_t row = window->sampleRow();
  return row < rows.size() && rows.isLive(row) ? printableText(rows.projectNo(row)) : std::string();
}

std::vector<StartSection> ShellSession::startPage() const {
  return triaxlab::startPage(m_workspace, m_recent.projects(),
                             [this](const Command& command) { return commandState(command); });
}

std::array<std::string, 3> ShellSession::statusTexts() const {
  std::array<std::string, 3> texts{m_remark.empty() ? std::string(kReady) : m_remark, "", ""};
  const std::vector<ActiveDocument> loaded = m_windows.loadedDocuments();
  if (loaded.empty()) return texts;
  if (const DocumentWindow* const front = m_windows.document(loaded.front())) {
    const auto panels = front->statusPanels();
    std::copy(panels.begin(), panels.end(), texts.begin() + 1);
  }
  return texts;
}

void ShellSession::showRemarks(const Remarks& remarks) {
  m_remark = fmt::format("{}", fmt::join(remarks, " "));
  m_windows.refresh();
}

void ShellSession::warn(const Remarks& remarks, const Remarks& beside) {
  m_warnings = remarks;
  m_warnings.insert(m_warnings.end(), beside.begin(), beside.end());
  showRemarks(remarks);
}

Remarks ShellSession::warnings() const {
  Remarks warnings = m_warnings;
  if (m_faults != nullptr) warnings.emplace(warnings.begin(), kEarlierFaults);
  return warnings;
}

void ShellSession::warnOfFaults(const FaultLog& log) {
  if (log.unseen().empty()) return;
  m_faults = &log;
  m_windows.refresh();
}

void ShellSession::showFaultReport() {
  const FaultLog* const faults = std::exchange(m_faults, nullptr);
  if (faults == nullptr) return;
  const std::string report = faults->unseen();
  m_windows.showFaultReport(report, faults->setAside());
  m_windows.refresh();
}

void ShellSession::dismissWarnings() {
  if (const FaultLog* const faults = std::exchange(m_faults, nullptr)) faults->setAside();
  m_warnings.clear();
  m_windows.refresh();
}

void ShellSession::documentActivated(ActiveDocument document) {
  m_workspace.activeDocument = document;
  m_commands.documentActivated(document);
  m_windows.refresh();
}

void ShellSession::finishTyping() {
  for (const ActiveDocument document : m_windows.loadedDocuments())
    if (DocumentWindow* const window = m_windows.document(document)) window->finishTyping();
}

bool ShellSession::mayClose(ActiveDocument document) {
  finishTyping();
  DocumentWindow* const window = m_windows.document(document);
  if (window == nullptr) return true;
  if (window->interventionEntry().running) window->leaveIntervention(m_dialogs);
  const ClosingQuestion& question = documentKindOf(document).closing;
  const bool saves = window->isChanged() && m_dialogs.ask(question.title, question.text, question.icon);
  return !saves || save(documentKindOf(document));
}

void ShellSession::documentClosed(ActiveDocument document) {
  const auto front = static_cast<ActiveDocument>(m_workspace.activeDocument);
  m_commands.documentClosed(document);
  if (documentKindOf(document).master == document) m_warnings.clear();
  if (documentKindOf(document).leavesNoDocument) m_workspace.activeDocument = kNoDocument;
  // A window in front of the one that closed stays there: nothing else would switch the commands back to it.
  if (front != document && m_windows.document(front) != nullptr) return documentActivated(front);
  m_windows.refresh();
}

void ShellSession::endProgram() {
  if (m_ending) return;
  m_ending = true;
  // A document that could not be saved would be lost: it stays, and the program with it.
  const std::vector<ActiveDocument> documents = m_windows.loadedDocuments();
  m_ending = std::ranges::all_of(documents, [this](ActiveDocument document) { return mayClose(document); });
  if (m_ending) m_windows.endProgram();
}

bool ShellSession::save() { return save(documentKindOf(documentKindOf(m_workspace.activeDocument).master)); }

bool ShellSession::save(const DocumentKind& document) {
  bool complete = false;
  run([&] {
    const SaveReport report = saveDocument(
        m_workspace, document,
        [&](Workspace& workspace, const std::vector<KnownSample>& known) {
          OverwriteSession session(workspace, known);
          m_windows.showOverwriteDialog(session);
          return !session.isDropped();
        },
        [&](std::string_view title, std::string_view question) {
          return m_dialogs.ask(title, question, MessageIcon::Exclamation);
        });
    if (report.isDropped) return;
    m_dialogs.message(kSaveTitle, document.savedMessage, MessageIcon::None);
    warn(report.remarks);
    complete = report.errors.empty();
    if (complete) m_recent.noteSaved(m_workspace, document.tests);
    if (const auto failures = report.failures(); !failures.empty())
      throw UserError(fmt::format("{}", fmt::join(failures, "\n")));
  });
  // A sample that could not be written counts as unsaved, so that nobody closes it away without being asked again.
  if (DocumentWindow* const window = m_windows.document(document.document); complete && window != nullptr)
    window->markSaved();
  m_windows.refresh();
  return complete;
}

// ---- What the commands do

void ShellSession::print(const Command& command) {
  const PrintEntry& entry = *printEntryOf(command.action, m_workspace.activeDocument);
  if (command.parent == kFileMenu && !entry.fileMenuRemark.empty())
    showRemarks({std::string(entry.fileMenuRemark)});
  else
    print(entry);
}

void ShellSession::print(const PrintEntry& entry) {
  Remarks remarks = ReadPageSettings(m_workspace);
  const Remarks more = showPrintDialog(entry, m_workspace, m_dialogs, m_windows);
  remarks.insert(remarks.end(), more.begin(), more.end());
  showRemarks(remarks);
}

void ShellSession::printTable() {
  m_remark.clear();
  finishTyping();
  run([this] { print(*printEntryOf(Action::PrintTable, m_workspace.activeDocument)); });
  m_windows.refresh();
}

void ShellSession::saveCommand(const Command& /*command*/) { save(); }

void ShellSession::exitCommand(const Command& /*command*/) { endProgram(); }

void ShellSession::showCurves(const Command& /*command*/) {
  m_windows.raiseDocument(kForm1);
  documentActivated(kForm1);
}

void ShellSession::showCurvePage(const Command& command) {
  if (CurveDocument* const curves = m_windows.curveDocument())
    curves->showPage(static_cast<CurvePage>(command.argument));
  showCurves(command);
}

void ShellSession::showDataTable(const Command& /*command*/) { showTable(kForm2); }

void ShellSession::showTable(ActiveDocument table) {
  m_windows.showDocument(table);
  documentActivated(table);
}

void ShellSession::setSourceFolder(const Command& command) {
  m_workspace.openDialogKind = command.argument;
  SourceFolderSession session(m_workspace, m_dialogs, sourceFolderQuestion(m_workspace, command.argument));
  m_windows.showSourceFolder(session);
}

void ShellSession::setHabits(const Command& /*command*/) {
  HabitsSession session(m_workspace, m_dialogs, [this] { askForDataFolder(); });
  m_windows.showHabits(session);
  Remarks remarks = ReadPageSettings(m_workspace);
  const Remarks more = ReadEnglishLabels(m_workspace);
  remarks.insert(remarks.end(), more.begin(), more.end());
  if (!remarks.empty()) showRemarks(remarks);
}

void ShellSession::askForDataFolder() {
  SourceFolderSession session(m_workspace, m_dialogs,
                              {"请选择存放数据的文件夹:", textOfPath(m_workspace.dataFolder),
                               [this](std::string_view folder) { return useDataFolder(folder); }});
  m_windows.showSourceFolder(session);
}

bool ShellSession::useDataFolder(std::string_view typed) {
  const std::filesystem::path folder = chosenDataFolder(typed);
  if (folder == m_workspace.dataFolder) return true;
  const std::vector<ActiveDocument> documents = m_windows.loadedDocuments();
  if (!std::ranges::all_of(documents, [this](ActiveDocument document) { return mayClose(document); })) return false;
  const Remarks remarks = changeDataFolder(m_workspace, folder);
  m_recent.look(m_workspace);
  for (const ActiveDocument document : documents)
    if (documentKindOf(document).master == document) m_windows.showDocument(document);
  if (!documents.empty()) {
    m_windows.raiseDocument(documents.front());
    documentActivated(documents.front());
  }
  // What was told of the folder before no longer holds.
  warn(remarks);
  if (remarks.empty()) showRemarks({"数据现在存放在 " + textOfPath(folder)});
  return true;
}

void ShellSession::flipToggle(const Command& command) {
  const ToggleByte& byte = *toggleOfCommand(command.name);
  setToggle(m_workspace, byte.toggle, !(m_workspace.settings.toggles.*byte.toggle));
}

void ShellSession::showManual(const Command& /*command*/) { m_windows.showManual(); }

void ShellSession::showKeys(const Command& /*command*/) { m_windows.showKeys(); }

void ShellSession::showAbout(const Command& /*command*/) { m_windows.showAbout(); }

ActiveDocument ShellSession::interventionDocument() const {
  for (const ActiveDocument document : m_windows.loadedDocuments())
    if (const DocumentWindow* const window = m_windows.document(document);
        window != nullptr && window->interventionEntry().running)
      return document;
  return documentKindOf(m_workspace.activeDocument).intervention.value_or(kNoDocument);
}

InterventionEntry ShellSession::interventionEntry() const {
  const DocumentWindow* const window = m_windows.document(interventionDocument());
  return window != nullptr ? window->interventionEntry() : InterventionEntry{};
}

bool ShellSession::interventionKey() {
  if (!interventionEntry().running && interventionDocument() != m_workspace.activeDocument) return false;
  return trigger("RZMGANYU");
}

void ShellSession::intervene(const Command& /*command*/) {
  const ActiveDocument document = interventionDocument();
  m_windows.raiseDocument(document);
  documentActivated(document);
  DocumentWindow& window = *m_windows.document(document);
  if (window.interventionEntry().running)
    window.leaveIntervention(m_dialogs);
  else
    window.enterIntervention();
}

void ShellSession::reprocessCurves(const Command& command) {
  if (CurveDocument* const curves = m_windows.curveDocument()) curves->reprocess();
  showCurves(command);
}

void ShellSession::fillIn(const Command& /*command*/) {
  const DocumentKind& document = documentKindOf(documentKindOf(m_workspace.activeDocument).master);
  DocumentWindow* const window = m_windows.document(document.document);
  if (window == nullptr) return showRemarks({"请先打开这些土样的试验窗口。"});
  FillInSession session(m_workspace, document.tests, window->sampleRow(), [window] { window->markChanged(); });
  m_windows.showFillIn(session);
}

void ShellSession::fillTemplates(const Command& /*command*/) {
  const std::int16_t document = m_workspace.activeDocument;
  TemplateSession session(m_workspace, m_dialogs,
                          document == kNoDocument ? std::nullopt : std::optional(documentKindOf(document).tests),
                          [this](int process) { m_windows.minimizeTool(process); });
  m_windows.showTemplates(session);
}

void ShellSession::saveTable(const Command& command) {
  const ShownProgress progress(m_windows);
  showRemarks(saveAsTable(m_workspace, documentKindOf(m_workspace.activeDocument),
                          static_cast<TableContent>(command.argument), m_dialogs, progress));
}

void ShellSession::saveWorkbook(const Command& /*command*/) {
  const DocumentKind& document = documentKindOf(m_workspace.activeDocument);
  const WorkbookForm& form = workbookFormOf(document.tests);
  const auto file = askForWorkbook(m_workspace, m_dialogs, form.question, form.defaultName);
  if (!file) return;
  if (document.reducesForSave) document.reduce(m_workspace);
  const ShownProgress progress(m_windows);
  writeSamples(m_workspace, form, *file, progress);
  m_dialogs.message(kWorkbookDoneTitle, form.done, MessageIcon::None);
}

void ShellSession::fitWindow(const Command& /*command*/) { m_windows.fitDocument(); }

void ShellSession::startThisProgram(const Command& command) { showRemarks({commandHelp(command)}); }

// A tool that can't be started is passed over in silence; one that runs already is started a second time, and one of
// its windows comes to the front.
void ShellSession::startTool(const Command& command) {
  const std::array folders{m_workspace.applicationFolder, executableFolder()};
  try {
    if (const auto tool = findProgram(folders, command.target)) startProgram(*tool);
  } catch (const UserError&) {
    // A laboratory has the tools that it bought, and would be told of the others at each press.
  }
  m_windows.raiseTool(command.windowTitle);
}

}  // namespace triaxlab
