#include "sessions/dialogs/source_folder_session.h"

#include <algorithm>
#include <utility>

#include "platform/files.h"
#include "platform/folders.h"
#include "sessions/dialogs/error_display.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kStep = 4;  // blanks of indentation

bool liesIn(const fs::path& folder, const fs::path& drive) {
  return std::mismatch(drive.begin(), drive.end(), folder.begin(), folder.end()).first == drive.end();
}

/// The name under which a list shows a folder: its own, of the root the whole.
std::string shownName(const fs::path& folder) { return textOfPath(folder.has_filename() ? folder.filename() : folder); }

}  // namespace

FolderQuestion sourceFolderQuestion(Workspace& workspace, std::int16_t kind) {
  const SourceFolder& folder = sourceFolderOf(kind);
  return {std::string(folder.prompt), storedSourceFolder(workspace, folder), [&](std::string_view typed) {
            storeSourceFolder(workspace, folder, typed);
            return true;
          }};
}

SourceFolderSession::SourceFolderSession(const Workspace& workspace, Dialogs& dialogs, FolderQuestion question)
    : m_dialogs(dialogs), m_question(std::move(question)), m_text(m_question.text), m_drives(mountedVolumes()) {
  const fs::path stored = pathFromText(m_text);
  open(stored.is_absolute() && folderIsAtHand(stored) ? stored : workspace.applicationFolder);
}

std::vector<std::string> SourceFolderSession::drives() const {
  std::vector<std::string> texts;
  texts.reserve(m_drives.size());
  std::transform(m_drives.begin(), m_drives.end(), std::back_inserter(texts), textOfPath);
  return texts;
}

std::size_t SourceFolderSession::currentDrive() const {
  // Disks are mounted inside each other: the innermost counts. The root, which is first, holds every folder.
  std::size_t innermost = 0, parts = 0;
  for (std::size_t drive = 0; drive < m_drives.size(); ++drive) {
    const auto count = static_cast<std::size_t>(std::distance(m_drives[drive].begin(), m_drives[drive].end()));
    if (!liesIn(m_rows[m_openRow].path, m_drives[drive]) || count < parts) continue;
    innermost = drive;
    parts = count;
  }
  return innermost;
}

void SourceFolderSession::chooseDrive(std::size_t drive) {
  if (drive >= m_drives.size()) return;
  open(m_drives[drive]);
  chooseRow(m_openRow);
}

std::string SourceFolderSession::row(std::size_t row) const {
  const Row& shown = m_rows[row];
  return std::string(shown.depth * kStep, ' ') + shownName(shown.path);
}

void SourceFolderSession::chooseRow(std::size_t row) {
  if (row >= m_rows.size()) return;
  m_currentRow = row;
  m_text = textOfPath(m_rows[row].path);
}

void SourceFolderSession::openRow(std::size_t row) {
  if (row >= m_rows.size()) return;
  open(fs::path(m_rows[row].path));
  chooseRow(m_openRow);
}

void SourceFolderSession::openParent() {
  if (m_openRow > 0) openRow(m_openRow - 1);
}

void SourceFolderSession::open(const fs::path& folder) {
  // "/lab/" and "/lab/./" name the folder "/lab".
  fs::path whole = (folder.is_absolute() ? folder : m_drives.front()).lexically_normal();
  if (!whole.has_filename() && whole != whole.root_path()) whole = whole.parent_path();
  // A root is one row, also where its name has two parts: "C:" and "\\".
  fs::path path = whole.root_path();
  m_rows.assign(1, {path, 0});
  for (const fs::path& part : whole.relative_path()) m_rows.push_back({path /= part, m_rows.size()});
  m_openRow = m_currentRow = m_rows.size() - 1;
  runShowingErrors(m_dialogs, [&] {
    for (const std::string& name : listFolders(whole)) m_rows.push_back({whole / name, m_openRow + 1});
  });
}

bool SourceFolderSession::accept() {
  bool isTaken = false;
  runShowingErrors(m_dialogs, [&] { isTaken = m_question.take(m_text); });
  return isTaken;
}

}  // namespace triaxlab
