#pragma once

#include <cstdint>
#include <filesystem>
#include <set>
#include <vector>

#include "platform/files.h"
#include "store/safety/save_journal.h"

namespace triaxlab {

/// Brings what a save journal carries into the files, in an order in which a full disk can still be taken back: first
/// every file is opened for writing and lengthened, which takes all the space that is needed and touches no old byte,
/// then files change places or go, and at last the bytes inside the old lengths are written.
class SaveJournalApplication {
 public:
  SaveJournalApplication(const std::filesystem::path& dataFolder, const std::vector<SaveJournalFile>& files,
                         const SaveJournalData& data)
      : m_dataFolder(dataFolder), m_files(files), m_data(data) {}

  /// What a failure leaves can be finished later, or undone by `shorten`.
  void lengthen();
  /// Pre: `lengthen` has returned. A deed that was done already is only made durable.
  void exchange();
  /// True as long as no file has been changed but in its length.
  bool canBeUndone() const { return !m_exchanged; }
  void shorten();
  /// Pre: `exchange` has returned.
  void overwrite();

 private:
  struct Before {
    bool existed = false;
    std::uint64_t size = 0;
  };

  std::filesystem::path pathOf(const SaveJournalFile& file) const { return m_dataFolder / pathFromText(file.path); }
  void lengthenFile(const SaveJournalFile& journalFile);
  void exchangeFile(const SaveJournalFile& journalFile);
  void overwriteFile(const SaveJournalFile& journalFile, std::uint64_t oldSize);
  void write(File& file, const SaveJournalPiece& piece);

  const std::filesystem::path& m_dataFolder;
  const std::vector<SaveJournalFile>& m_files;
  const SaveJournalData& m_data;
  std::vector<Before> m_before;
  bool m_exchanged = false;
  std::set<std::filesystem::path> m_foldersWithNewFiles;
};

}  // namespace triaxlab
