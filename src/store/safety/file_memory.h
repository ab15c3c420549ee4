#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>

#include "platform/files.h"

namespace triaxlab {

/// What a project file was read for.
enum class FileUse : std::uint8_t {
  Document,  // its samples are in a table
  List,      // its sample list is on display
};

/// The state of each project file as this run of the program last read or wrote it, so that nobody's work is written
/// over unseen, and a copy is kept of every state that the program itself did not make.
class FileMemory {
 public:
  /// The file was read in this state.
  void remember(FileUse use, const std::filesystem::path& file, const FileStamp& stamp);
  /// True when the file was read for this and is no longer as it was then, or gone.
  bool isChanged(FileUse use, const std::filesystem::path& file, const std::optional<FileStamp>& now) const;

  /// A copy of the file in this state exists.
  void noteCopy(const std::filesystem::path& file, const FileStamp& stamp);
  /// True when this run has a copy of the file in this state, or has brought it there from such a state or from
  /// nothing.
  bool hasCopy(const std::filesystem::path& file, const FileStamp& stamp) const;

  /// This program brought the file from one state into another; nothing stands for no file. What was known of the old
  /// state goes for the new one.
  void noteOwnChange(const std::filesystem::path& file, const std::optional<FileStamp>& before,
                     const std::optional<FileStamp>& after);
  /// This program began to change the file and did not come to the end; the journal will. What comes out is its own
  /// work to the document, but no longer the file that was listed.
  void noteUnfinishedChange(const std::filesystem::path& file);

 private:
  struct States {
    std::optional<FileStamp> document, list, copied;
  };
  static std::optional<FileStamp> States::*member(FileUse use) {
    return use == FileUse::Document ? &States::document : &States::list;
  }
  const States* find(const std::filesystem::path& file) const;

  std::map<std::filesystem::path, States> m_files;
};

}  // namespace triaxlab
