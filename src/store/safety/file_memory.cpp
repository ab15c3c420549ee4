#include "store/safety/file_memory.h"

namespace triaxlab {

void FileMemory::remember(FileUse use, const std::filesystem::path& file, const FileStamp& stamp) {
  m_files[file].*member(use) = stamp;
}

bool FileMemory::isChanged(FileUse use, const std::filesystem::path& file, const std::optional<FileStamp>& now) const {
  const States* const states = find(file);
  if (states == nullptr) return false;
  const std::optional<FileStamp>& remembered = states->*member(use);
  return remembered && remembered != now;
}

void FileMemory::noteCopy(const std::filesystem::path& file, const FileStamp& stamp) { m_files[file].copied = stamp; }

bool FileMemory::hasCopy(const std::filesystem::path& file, const FileStamp& stamp) const {
  const States* const states = find(file);
  return states != nullptr && states->copied == stamp;
}

void FileMemory::noteOwnChange(const std::filesystem::path& file, const std::optional<FileStamp>& before,
                               const std::optional<FileStamp>& after) {
  States& states = m_files[file];
  for (std::optional<FileStamp> States::*const state : {&States::document, &States::list, &States::copied})
    if (states.*state == before) states.*state = after;
}

void FileMemory::noteUnfinishedChange(const std::filesystem::path& file) {
  States& states = m_files[file];
  states.document.reset();
  states.copied.reset();
}

const FileMemory::States* FileMemory::find(const std::filesystem::path& file) const {
  const auto found = m_files.find(file);
  return found != m_files.end() ? &found->second : nullptr;
}

}  // namespace triaxlab
