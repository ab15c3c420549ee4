// What brings documents into their windows.

#include <fmt/ranges.h>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "common/small_letters.h"
#include "importers/importer.h"
#include "platform/files.h"
#include "platform/program_parts.h"
#include "sessions/dialogs/browser_session.h"
#include "sessions/dialogs/import_selection.h"
#include "sessions/dialogs/range_dialog.h"
#include "shell/demonstration.h"
#include "shell/document_operations.h"
#include "shell/dropped_files.h"
#include "shell/shell_session.h"

namespace triaxlab {
namespace {

constexpr std::string_view kOpenTitle = "打开";

}  // namespace

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
  importFrom(selection);
}

// The file is read as soon as it is chosen, for there is nothing to select in it.
void ShellSession::openNanjingFile(const Command& command) {
  const Importer& importer = *importerOfMenuCommand(command.name);
  if (!mayClose(importer.document)) return;
  ImportSelection file(importer, m_workspace);
  if (file.choose(m_dialogs)) importFrom(file);
}

void ShellSession::importFrom(ImportSelection& selection) {
  const Importer& importer = selection.importer();
  if (!importer.form.empty()) {
    const std::optional<Remarks> remarks = m_windows.showImporter(selection);
    if (remarks) showImport(importer.document, *remarks);
    return;
  }
  selection.markAll();
  const auto progress = [this](std::size_t done, std::size_t total) { m_windows.showProgress(done, total); };
  if (const auto report = selection.read(m_dialogs, progress)) showImport(importer.document, report->remarks);
}

void ShellSession::showImport(ActiveDocument document, Remarks remarks) {
  const Remarks more = importedDocument(m_workspace, documentKindOf(document));
  remarks.insert(remarks.end(), more.begin(), more.end());
  show(document, remarks);
}

void ShellSession::startDemonstration(const Command& /*command*/) {
  if (isDemonstration(m_workspace.applicationFolder)) return showRemarks({"现在打开的就是演示。"});
  const std::filesystem::path folder = demonstrationFolder(m_workspace.applicationFolder);
  prepareDemonstration(folder, programParts().data / "samples");
  m_windows.startAgain(folder);
  showRemarks({"演示在另一个窗口里打开。"});
}

// ---- what was dropped on the main window

void ShellSession::openDropped(const std::vector<std::filesystem::path>& dropped) {
  onCommand("DROP");
  m_remark.clear();
  finishTyping();
  run([&] {
    if (interventionRuns()) throw UserError("请先退出干预，再打开别的文件。");
    const DroppedFiles files = lookAtDropped(dropped);
    if (!files.unknown.empty())
      m_dialogs.message(kOpenTitle, fmt::format("{}", fmt::join(files.unknown, "\n")), MessageIcon::Exclamation);
    if (files.openable.empty()) return;
    if (files.openable.size() == 1) return open(files.openable.front());
    const OpeningQuestion question = questionWhichToOpen(files.openable);
    if (const auto chosen = m_dialogs.choose(kOpenTitle, question.text, question.choices))
      open(files.openable[*chosen]);
  });
  m_windows.refresh();
}

void ShellSession::open(const Openable& openable) {
  if (openable.project) return openProjectFile(*openable.project, openable.path);
  if (openable.source != nullptr) return openRawFile(*openable.source, openable.path);
  openDataFolder(openable.path);
}

void ShellSession::openRawFile(const Importer& importer, const std::filesystem::path& path) {
  if (!commandState(*findCommand(importer.menuCommand)).enabled)
    throw UserError("试验窗口打开着的时候不能读入原始数据：请先关闭它，再把文件拖进来。");
  if (!mayClose(importer.document)) return;
  ImportSelection selection(importer, m_workspace);
  selection.open(path);
  importFrom(selection);
}

void ShellSession::openProjectFile(ProjectKind kind, const std::filesystem::path& path) {
  const std::filesystem::path folder = path.parent_path();
  std::error_code ignored;  // a folder that can't be looked at is not the one in use
  if (!std::filesystem::equivalent(folder, m_workspace.projectFolder(), ignored)) {
    if (!isSameName(textOfPath(folder.filename()), "HSZS"))
      throw UserError(fmt::format("工程文件“{}”不在数据文件夹里。请先把它复制到“{}”，再打开。", textOfPath(path),
                                  textOfPath(m_workspace.projectFolder())));
    openDataFolder(folder.parent_path());
    if (m_workspace.dataFolder != folder.parent_path()) return;
  }
  const ActiveDocument document = documentOfTests(kind).document;
  if (mayClose(document)) show(document, openFile(kind, textOfPath(path.filename())));
}

void ShellSession::openDataFolder(const std::filesystem::path& folder) {
  const std::string name = textOfPath(folder);
  if (folder == m_workspace.dataFolder) return showRemarks({fmt::format("正在使用的就是数据文件夹“{}”。", name)});
  if (m_dialogs.ask(kOpenTitle,
                    fmt::format("“{}”是另一个数据文件夹。\n以后都在那里打开和保存工程吗？\n\n现在的数据文件夹是“{}”。",
                                name, textOfPath(m_workspace.dataFolder)),
                    MessageIcon::None))
    useDataFolder(name);
}

}  // namespace triaxlab
