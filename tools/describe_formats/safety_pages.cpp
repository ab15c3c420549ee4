#include <fmt/format.h>

#include <array>

#include "format_pages.h"
#include "page.h"
#include "store/project/old_formats.h"
#include "store/safety/backup.h"
#include "store/safety/data_lock.h"
#include "store/safety/leftovers.h"
#include "store/safety/save_journal.h"
#include "store/safety/save_journal_format.h"

namespace triaxlab::formats {

std::string saveJournalPage() {
  Page page("The journal of a save");
  page.text(fmt::format(R"(
A save reaches the disk in all its files or in none. The file `{0}` in the data folder first takes every byte that
the save is about to write and says where it belongs: it is made as `{2}…{3}`, synced, and gets its name; then the
files are written and synced, then it is removed. One that is found at a start or an open was left by a program that
died: a complete one is applied, once more if need be; an incomplete one means that no file had changed yet, and is
dropped. `{4}…{1}` beside it is the new content of a file that is replaced as a whole; without a complete journal it is worth nothing. The … is a word that no other program
has, on this machine or another. A journal that can't be applied waits, and keeps its files from all other saves; the
journals of saves of other files are then called `{0}.2` to `{0}.9`.

Of a record of a summary file that was there the journal carries this system's fields alone, and the sample number with
them. When it is applied after a crash, each record is found again by its sample number, wherever a sibling tool has
moved it; a sample that is no longer there is added behind the last, and the count is that of the file as it stands. In
records that stand there nothing else is written. A summary file that is damaged or another project's by then is left
alone.

    head
    index     for each file: its entry, its path, and for each of its pieces an entry
    data      the bytes of the pieces, in the order of the index
    foot

A journal counts only when the size of the file, both marks, the checksum and every place in it are right. A path is
`HSZS/file` or `ZMSJ/file` below the data folder, UTF-8, the folder in any case; any other path, or a place beyond 2^31,
makes the whole journal void, so that no journal can reach another file. Numbers are little-endian.
)",
                        kSaveJournalName, kNewContent.end, kUnfinishedSaveJournal.begin, kUnfinishedSaveJournal.end,
                        kNewContent.begin));
  page.heading("Head");
  page.record(fieldRows<SaveJournalHead>(), sizeof(SaveJournalHead));
  page.heading("Index: a file");
  page.text("The path follows, then the pieces.");
  page.record(fieldRows<SaveJournalIndexFile>(), sizeof(SaveJournalIndexFile));
  page.heading("Index: a piece");
  page.record(fieldRows<SaveJournalIndexPiece>(), sizeof(SaveJournalIndexPiece));
  page.heading("Foot");
  page.record(fieldRows<SaveJournalFoot>(), sizeof(SaveJournalFoot));
  page.heading("Checksum");
  page.text(R"(
Arithmetic is modulo 2^64. mix(v, w): v = (v XOR w) × 9E3779B97F4A7C15 (hexadecimal), then v XOR (v shifted right by 29).
Four lanes begin as 1, 2, 3, 4. Of each whole group of 32 bytes, word i is mixed into lane i. The result begins as the
number of bytes behind the last whole group; the four lanes and then those bytes, one by one, are mixed into it.
)");
  return page.markdown();
}

std::string backupsPage() {
  Page page("Backups and passing files");
  page.heading("Copies of project files");
  page.text(fmt::format(R"(
Before a run of the program first changes a project file, a copy of it goes into the folder `{0}` beside it:
`HSZS\{0}\WKSZ17_20240506-143015-000000.txt` is `WKSZ17.txt` as it was on 2024-05-06 at 14:30:15, local time to the
microsecond. The bytes are those of the project file. The newest {1} copies of a project are kept, and {2} MB of all
together; the oldest go first. A file that the newest of its copies equals is not copied again. Before an import replaces
samples that the file knows, and before a copy is restored, the file is copied as well when this run itself has written
it.
)",
                        kBackupFolder, kMostBackupsOfAProject, kLargestBackups >> 20));
  page.heading("Files that are there for a moment");
  const auto quoted = [](std::string_view name) { return fmt::format("`{}`", name); };
  const auto passing = [](const PassingName& name) { return fmt::format("`{}…{}`", name.begin, name.end); };
  const std::vector<std::vector<std::string>> rows{
      {quoted(kSaveJournalName), "data",
       "[the journal](save-journal.md) of a save that is under way or was interrupted"},
      {passing(kUnfinishedSaveJournal), "data", "a save journal that isn't complete yet"},
      {passing(kNewContent), "data", "the new content of a file that such a save replaces"},
      {quoted(kLockFileName), "data", "held by the program that is changing files of the data folder"},
      {passing(kUnfinishedCopy), "backup", "a copy that isn't complete yet"},
      {passing(kReorderedFile), "application", "a project file with its samples in a new order"},
      {passing(kOldTriaxialFormat.temporaryName), "application",
       "a triaxial project file of a former version in today's format"},
      {passing(kOldUnconfinedFormat.temporaryName), "application",
       "an unconfined project file of a former version in today's format"},
      {"`NAME.new`", "any", "the new content of a file that is written as a whole, before it is renamed over `NAME`"},
  };
  page.table(std::array<std::string_view, 3>{"file", "folder", "what it is"}, rows);
  page.text(R"(
The … is a word of the maker's own, so that two programs never write one file. What a dead program has left goes at the
next start. All of them can be deleted while no program runs, but for `journal` and its new contents: they may be the only
whole copy of the last save.
)");
  return page.markdown();
}

}  // namespace triaxlab::formats
