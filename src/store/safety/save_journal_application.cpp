#include "store/safety/save_journal_application.h"

#include <algorithm>

namespace triaxlab {
namespace {

bool reachesBelow(const SaveJournalFile& file, std::uint64_t end) {
  return std::any_of(file.pieces.begin(), file.pieces.end(),
                     [end](const SaveJournalPiece& piece) { return piece.offset < end; });
}

}  // namespace

void SaveJournalApplication::lengthen() {
  m_before.reserve(m_files.size());
  for (const SaveJournalFile& file : m_files) {
    if (isWritten(file))
      lengthenFile(file);
    else
      m_before.emplace_back();
  }
  for (const std::filesystem::path& folder : m_foldersWithNewFiles) syncFolder(folder);
}

void SaveJournalApplication::exchange() {
  for (const SaveJournalFile& file : m_files)
    if (!isWritten(file)) exchangeFile(file);
}

void SaveJournalApplication::shorten() {
  for (std::size_t i = 0; i < m_before.size(); ++i) {
    if (!isWritten(m_files[i])) continue;
    const std::filesystem::path path = pathOf(m_files[i]);
    if (m_before[i].existed) {
      File file = File::below(m_dataFolder, path, File::Mode::Update);
      file.resize(m_before[i].size);
      file.sync();
    } else if (fileExists(path)) {  // it was made before something failed
      removeFile(path);
      syncFolder(path.parent_path());
    }
  }
}

void SaveJournalApplication::overwrite() {
  for (std::size_t i = 0; i < m_files.size(); ++i)
    if (reachesBelow(m_files[i], m_before[i].size)) overwriteFile(m_files[i], m_before[i].size);
}

void SaveJournalApplication::exchangeFile(const SaveJournalFile& journalFile) {
  const bool isReplaced = journalFile.deed == SaveJournalDeed::Replace;
  const std::filesystem::path path = pathOf(journalFile);
  const std::filesystem::path vanishing = isReplaced ? m_dataFolder / journalFile.newContent : path;
  refuseLinks(m_dataFolder, path);
  refuseLinks(m_dataFolder, vanishing);
  if (fileExists(vanishing)) {
    if (isReplaced)
      moveFile(vanishing, path);
    else
      removeFile(path);
    m_exchanged = true;
  }
  syncFolder(path.parent_path());
}

void SaveJournalApplication::lengthenFile(const SaveJournalFile& journalFile) {
  const std::filesystem::path path = pathOf(journalFile);
  const bool existed = fileExists(path);
  if (!existed) {
    // Told before it is made: also one that can't be looked at afterwards must go again.
    m_before.push_back({false, 0});
    m_foldersWithNewFiles.insert(path.parent_path());
  }
  File file = File::below(m_dataFolder, path, File::Mode::Shared);
  const std::uint64_t size = file.size();
  if (existed) m_before.push_back({true, size});
  bool longer = !existed;
  for (const SaveJournalPiece& piece : journalFile.pieces) {
    const std::uint64_t inside = size > piece.offset ? std::min(size - piece.offset, piece.size) : 0;
    if (inside == piece.size) continue;
    write(file, {piece.offset + inside, piece.size - inside, piece.dataPosition + inside});
    longer = true;
  }
  if (longer) file.sync();
}

void SaveJournalApplication::overwriteFile(const SaveJournalFile& journalFile, std::uint64_t oldSize) {
  File file = File::below(m_dataFolder, pathOf(journalFile), File::Mode::Update);
  for (const SaveJournalPiece& piece : journalFile.pieces)
    if (piece.offset < oldSize)
      write(file, {piece.offset, std::min(piece.size, oldSize - piece.offset), piece.dataPosition});
  file.sync();
}

void SaveJournalApplication::write(File& file, const SaveJournalPiece& piece) {
  std::uint64_t at = piece.offset;
  m_data.read(piece.dataPosition, piece.size, [&](std::span<const std::byte> bytes) {
    file.writeAt(at, bytes);
    at += bytes.size();
  });
}

}  // namespace triaxlab
