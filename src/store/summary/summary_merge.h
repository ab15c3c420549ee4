#pragma once

#include <deque>
#include <filesystem>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "store/safety/save_journal.h"

namespace triaxlab {

/// What a save journal carries for a summary file, at the places where it belongs now. Between the save and its
/// recovery a sibling tool may have written into records, added some or put them in another order: each record is found
/// again by its sample number, gets this system's fields alone, and the count of the file as it stands goes on.
struct SummaryMerge {
  std::vector<SaveJournalFile> files;  // the summary file with its pieces; none when nothing is to be done
  SaveJournalSpans data;
  std::deque<Bytes> bytes;  // what `data` stands for
  Remarks remarks;          // why nothing is put into the file, or a sample not
};

/// True for the path by which a journal names a summary file.
bool isSummaryPath(std::string_view path);

/// A record that is gone is added anew, if its sample was put there; a file that is damaged or another project's now is
/// left alone. Merging anew what was merged in part comes to the same. UserError when the file can't be read.
SummaryMerge mergeSummary(const std::filesystem::path& dataFolder, const SaveJournalFile& journalled,
                          const SaveJournalData& data);

}  // namespace triaxlab
