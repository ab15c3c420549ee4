#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "store/safety/passing_file.h"

namespace triaxlab {

// The journal of a save: the file `journal` in the data folder. It holds every byte that the save is about to write and
// says where it belongs, so that a save that was interrupted can be finished. All numbers are little-endian.
//
//    0  8  mark "TXJRNL1\n"
//    8  8  size of the index
//   16  8  size of the data
//   24     index: for each file  path length 2, deed 1, count of pieces 4, path, and for each piece
//          place in the file 8, size 8
//          data: the bytes of the pieces in the order of the index
//          checksum of all before 8, end mark "ENDTXJ1\n" 8
//
// A deed is 0 for a file that is written to, in pieces; 1 for the one file, if any, whose place a finished file beside
// the journal takes, which its only piece names (without a piece it is `journal.new`); 2 for one that is removed. A
// path is "HSZS/file" or "ZMSJ/file" below the data folder, UTF-8; any other path makes the whole journal void, so no
// journal can name a file outside. A journal counts only when its size, marks, checksum and every place in it are
// right; a cut or damaged one means that the save had not begun to change anything.

inline constexpr std::string_view kSaveJournalName = "journal";
/// A save journal that isn't complete yet. Complete and on the disk it gets its name.
inline constexpr PassingName kUnfinishedSaveJournal{"journal.", ".part"};
/// The new content of a file that a journal replaces. Without a complete journal it is worth nothing.
inline constexpr PassingName kNewContent{"journal.", ".new"};
inline constexpr std::string_view kNewContentOnce = "journal.new";  // of a former version

/// Some bytes of a file, and where in the journal's data they are.
struct SaveJournalPiece {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
  std::uint64_t dataPosition = 0;
};

/// What becomes of a file. The values are on disk.
enum class SaveJournalDeed : std::uint8_t { Write = 0, Replace = 1, Remove = 2 };

struct SaveJournalFile {
  std::string path;
  std::vector<SaveJournalPiece> pieces;  // of a file that is written to; the name of a new content
  SaveJournalDeed deed = SaveJournalDeed::Write;
  std::string newContent = std::string(kNewContentOnce);  // of a file that is replaced
};
inline bool isWritten(const SaveJournalFile& file) { return file.deed == SaveJournalDeed::Write; }

/// True for a path that a journal may name: a file in the folder of the project files or of the summary files.
bool isSaveJournalPath(std::string_view path);

/// The bytes that a journal carries, wherever they are.
class SaveJournalData {
 public:
  using Visitor = std::function<void(std::span<const std::byte>)>;

  virtual ~SaveJournalData() = default;
  /// Calls `visit` with the bytes from `position` on, `size` of them in all, in order and in one or several spans.
  virtual void read(std::uint64_t position, std::uint64_t size, const Visitor& visit) const = 0;
};

/// Bytes in memory that are to become a journal's data. They stay where they are; the owner keeps them there.
class SaveJournalSpans : public SaveJournalData {
 public:
  std::uint64_t size() const { return m_size; }
  /// Adds bytes behind those that are there and returns the position of the first.
  std::uint64_t append(std::span<const std::byte> bytes);
  void read(std::uint64_t position, std::uint64_t size, const Visitor& visit) const override;

 private:
  std::map<std::uint64_t, std::span<const std::byte>> m_spans;  // by position
  std::uint64_t m_size = 0;
};

/// Writes a complete journal. The pieces of the files follow each other in the data. Nothing stands under its name
/// before its bytes are on the disk; syncFolder makes the name durable. UserError when nothing of it stands there, also
/// because a complete one does, which is another program's.
void writeSaveJournal(const std::filesystem::path& journal, const std::vector<SaveJournalFile>& files,
                      const SaveJournalSpans& data);

/// A journal file that was found complete.
class FoundSaveJournal : public SaveJournalData {
 public:
  /// Nothing when the journal is cut, damaged, or not one of ours. UserError when it can't be read at all.
  static std::optional<FoundSaveJournal> open(const std::filesystem::path& journal);

  const std::vector<SaveJournalFile>& files() const { return m_files; }
  void read(std::uint64_t position, std::uint64_t size, const Visitor& visit) const override;

 private:
  FoundSaveJournal(File file, std::uint64_t dataStart, std::vector<SaveJournalFile> files);
  bool readName(SaveJournalFile& file) const;

  File m_file;
  std::uint64_t m_dataStart;
  std::vector<SaveJournalFile> m_files;
};

}  // namespace triaxlab
