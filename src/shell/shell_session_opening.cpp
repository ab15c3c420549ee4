// What brings documents into their windows.

#include <cstddef>
#include <optional>
#include <string>

#include "importers/importer.h"
#include "platform/files.h"
#include "sessions/dialogs/browser_session.h"
#include "sessions/dialogs/import_selection.h"
#include "sessions/dialogs/range_dialog.h"
#include "shell/document_operations.h"
#include "shell/shell_session.h"
#include "store/project/project_number.h"
#include "store/project/sample_rows.h"

namespace triaxlab {

void ShellSession::show(ActiveDocument document, const Remarks& remarks) {
  m_windows.showDocument(document);
  documentActivated(document);
  warn(remarks);
}

void ShellSession::newDocument(const Command& command) {
  const auto document = static_cast<ActiveDocument>(command.argument);
  if (mayClose(document)) show(document, triaxlab::newDocument(m_workspace, documentKindOf(document)));
}

Remarks ShellSession::openFile(ProjectKind kind, std::string_view fileName) {
  Remarks remarks = openDocument(m_workspace, kind, fileName, [this](int sampleCount) {
    RangeDialog range(sampleCount);
    m_windows.showRangeDialog(range);
    return range.range();
  });
  m_recent.note(kind, fileName, m_workspace.dataFolder);
  return remarks;
}

void ShellSession::openRecent(const Command& command) {
  const RecentProject project = m_recent.projects().at(static_cast<std::size_t>(command.argument));
  const ActiveDocument document = documentOfTests(project.kind).document;
  // Somebody may have taken the file away meanwhile.
  if (mayClose(document) && !run([&] { show(document, openFile(project.kind, project.fileName)); }))
    m_recent.look(m_workspace);
}

void ShellSession::noteSavedProjects(ProjectKind kind) {
  const SampleRows rows(m_workspace, kind);
  // The first of the table comes to stand in front.
  for (std::size_t row = rows.size(); row-- > 0;) {
    if (!rows.isLive(row) || (row > 0 && rows.projectNo(row) == rows.projectNo(row - 1))) continue;
    const std::string name = projectFileName(infoOf(kind).filePrefix, rows.projectNo(row));
    if (const auto file = findFile(m_workspace.projectFolder(), name))
      m_recent.note(kind, textOfPath(file->filename()), m_workspace.dataFolder);
  }
}

void ShellSession::openProject(const Command& command) {
  m_workspace.openDialogKind = command.argument;
  const ActiveDocument document = documentOfTests(static_cast<ProjectKind>(command.argument)).document;
  if (!mayClose(document)) return;
  BrowserSession browser(m_workspace, m_dialogs,
                         [this](ProjectKind kind, std::string_view name) { return openFile(kind, name); },
                         {.showSampleList = [&](SampleListSession& list) { m_windows.showSampleList(list); },
                          .showBackups = [&](BackupSession& backups) { m_windows.showBackups(backups); }});
  m_windows.showBrowser(browser);
  if (browser.opened())
    show(document, *browser.opened());
  else if (!browser.remarks().empty())
    showRemarks(browser.remarks());
}

void ShellSession::import(const Command& command) {
  const Importer& importer = *importerOfMenuCommand(command.name);
  // The menu of imports is off while a document opens, but comes back when any of them closes.
  if (!mayClose(importer.document)) return;
  ImportSelection selection(importer, m_workspace);
  if (importer.fileFromCommand && !selection.choose(m_dialogs)) return;
  const std::optional<Remarks> remarks = m_windows.showImporter(selection);
  if (remarks) showImport(importer.document, *remarks);
}

// The file is read as soon as it is chosen, for there is nothing to select in it.
void ShellSession::openNanjingFile(const Command& command) {
  const Importer& importer = *importerOfMenuCommand(command.name);
  if (!mayClose(importer.document)) return;
  ImportSelection file(importer, m_workspace);
  if (!file.choose(m_dialogs)) return;
  file.markAll();
  const auto progress = [this](std::size_t done, std::size_t total) { m_windows.showProgress(done, total); };
  if (const auto report = file.read(m_dialogs, progress)) showImport(importer.document, report->remarks);
}

void ShellSession::showImport(ActiveDocument document, Remarks remarks) {
  const Remarks more = importedDocument(m_workspace, documentKindOf(document));
  remarks.insert(remarks.end(), more.begin(), more.end());
  show(document, remarks);
}

}  // namespace triaxlab
