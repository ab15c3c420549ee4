#include "format_pages.h"

#include <fmt/format.h>

#include <array>

#include "page.h"

namespace triaxlab::formats {
namespace {

constexpr std::array kPagesOfOwnFiles{
    FormatPage{"project-files.md", "project files: their names, head and frame", projectFilesPage},
    FormatPage{"triaxial-record.md", "the sample record of a triaxial project file", triaxialRecordPage},
    FormatPage{"unconfined-record.md", "the sample record of an unconfined project file", unconfinedRecordPage},
    FormatPage{"k0-record.md", "the sample record of a K0 project file", k0RecordPage},
    FormatPage{"tk0-record.md", "the sample record of a TK0 project file", tk0RecordPage},
    FormatPage{"old-project-files.md", "project files of former versions", oldProjectFilesPage},
    FormatPage{"summary-file.md", "the summary file that all tools of the laboratory share", summaryFilePage},
    FormatPage{"physical-data.md", "the file of the tool for physical tests (read only)", physicalDataPage},
    FormatPage{"binary-settings.md", "`qvb.sys`, `SZDATX.sys`, `WCXDATX.sys`, `zmsz.sys`", binarySettingsPage},
    FormatPage{"text-settings.md", "`zmqvb.ini`, `sz.ini`, `esz.ini`, `szshezhi.txt`", textSettingsPage},
    FormatPage{"save-journal.md", "the journal of a save", saveJournalPage},
    FormatPage{"backups.md", "copies of project files, and files that are there for a moment", backupsPage},
    FormatPage{"export-tables.md", "tables for other programs, `*.csv` and `*.jsonl` (written only)", exportTablesPage},
};

}  // namespace

std::vector<FormatPage> formatPages() {
  std::vector<FormatPage> pages(kPagesOfOwnFiles.begin(), kPagesOfOwnFiles.end());
  for (const FormatPage& page : rawFilePages()) pages.push_back(page);
  return pages;
}

std::string indexPage() {
  Page page("File formats");
  page.text(R"(
Every file that the program reads or writes, byte by byte. The pages are made from the program's own tables, so they
tell what the code does; edit the tables or the texts in `tools/describe_formats`, not the pages, and renew them with

    build/dev/bin/describe_formats docs/formats
)");
  std::vector<std::vector<std::string>> rows;
  for (const FormatPage& entry : formatPages())
    rows.push_back({fmt::format("[{0}]({0})", entry.file), std::string(entry.subject)});
  page.table(std::array<std::string_view, 2>{"page", "about"}, rows);
  page.heading("What all of them share");
  page.text(R"(
- Offsets count from 0. Settings files are told by positions, which count from 1, as their users know them.
- `text N` is N bytes of GBK, left-justified, padded with blanks, never terminated. A Chinese character takes two of the
  places; a text that is too long is cut in front of the character that doesn't fit whole.
- Most numbers are texts, for the text that a person sees is the value: it is read again at each use. Reading takes the
  number that the text begins with, with a point for the decimals; a blank text, or one that begins with no number, is 0.
- `byte` is unsigned, `intN` and `uintN` are whole numbers of N bits, `floatN` IEEE 754 numbers; all little-endian.
- `5 × text 6` is five texts side by side. Of `212 × 5 × text 6` the last number varies fastest: 212 rows of five.
- Nothing lies between two fields; records follow each other without a gap and without an index.
- File names are compared without regard to the case of A to Z.
- A file that is shorter than it says is read as far as it goes: what is missing is blank text and 0. Every count and
  offset is checked before it is used.
)");
  return page.markdown();
}

}  // namespace triaxlab::formats
