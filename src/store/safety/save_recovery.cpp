#include "store/safety/save_recovery.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <functional>

#include "common/small_letters.h"
#include "store/safety/save_journal_application.h"
#include "store/summary/summary_merge.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;

/// The journal of a save, and of those that are made while it waits.
constexpr std::array<std::string_view, 9> kJournals{kSaveJournalName, "journal.2", "journal.3",
                                                    "journal.4",      "journal.5", "journal.6",
                                                    "journal.7",      "journal.8", "journal.9"};

/// A new content once went from disk to disk under this name.
constexpr std::string_view kNewContentOnItsWayOnce = "journal.new.new";

bool isRemains(std::string_view name) {
  return name == kNewContentOnce || name == kNewContentOnItsWayOnce || isPassing(name, kNewContent) ||
         isPassing(name, kUnfinishedSaveJournal);
}

std::vector<std::string> namesOfJournals(const fs::path& dataFolder) {
  return listFiles(dataFolder, kSaveJournalName, "");
}

void apply(const fs::path& dataFolder, const std::vector<SaveJournalFile>& files, const SaveJournalData& data) {
  SaveJournalApplication application(dataFolder, files, data);
  application.lengthen();
  application.exchange();
  application.overwrite();
}

/// A summary file may have changed since: what is meant for it goes where it belongs now.
Remarks apply(const fs::path& dataFolder, const FoundSaveJournal& journal) {
  std::vector<SaveJournalFile> summaries, others;
  for (const SaveJournalFile& file : journal.files())
    (isWritten(file) && isSummaryPath(file.path) ? summaries : others).push_back(file);
  apply(dataFolder, others, journal);
  Remarks remarks;
  for (const SaveJournalFile& file : summaries) {
    const SummaryMerge merge = mergeSummary(dataFolder, file, journal);
    apply(dataFolder, merge.files, merge.data);
    remarks.insert(remarks.end(), merge.remarks.begin(), merge.remarks.end());
  }
  return remarks;
}

std::vector<std::string> pathsOf(const FoundSaveJournal& journal) {
  std::vector<std::string> paths;
  for (const SaveJournalFile& file : journal.files()) paths.push_back(file.path);
  return paths;
}

WaitingSave waitingSave(const fs::path& dataFolder, const fs::path& path, const FoundSaveJournal& journal,
                        std::string_view cause) {
  return {
      path, pathsOf(journal),
      fmt::format("上次保存到{}的数据还没有写完，完整的内容在“{}”里。{}请恢复这个文件的写入权限、腾出磁盘空间或移开占了"
                  "它名称的文件夹，再打开或保存，程序会自动写完。做不到时，关闭程序，把“{}”移到别处：那次保存就丢失了，"
                  "文件可能只写了一部分，请用 HSZS/backup 里的备份核对。",
                  namesOf(dataFolder, journal.files()), textOfPath(path), cause, textOfPath(path.filename()))};
}

/// Finishes one journal that was found complete.
void finish(const fs::path& dataFolder, const fs::path& path, const FoundSaveJournal& journal, Recovery& recovery) {
  const std::vector<std::string> paths = pathsOf(journal);
  const auto* const earlier = [&]() -> const WaitingSave* {
    for (const std::string& file : paths)
      if (const WaitingSave* const waiting = recovery.waitingFor(file)) return waiting;
    return nullptr;
  }();
  if (earlier != nullptr) {  // what was saved later must not come first
    recovery.waiting.push_back({path, paths, earlier->sentence});
    return;
  }
  try {
    for (const std::string& remark : apply(dataFolder, journal)) recovery.remarks.push_back(remark);
  } catch (const UserError& cause) {
    recovery.waiting.push_back(waitingSave(dataFolder, path, journal, cause.what()));
    return;
  }
  if (const auto cause = dropSaveJournal(path))
    recovery.waiting.push_back({path, paths, leftJournalRemark("上次", path, *cause), true});
}

/// Finishes or drops what stands under a journal's name. The locks of its files may be long in coming: afterwards the
/// journal is looked at again, which its own program may have finished in the meantime, and others saved after it.
void finishOne(const fs::path& dataFolder, const fs::path& path, DataLock& lock, Recovery& recovery) {
  while (const std::optional<FileStamp> stamp = stampOf(path)) {
    const std::optional<FoundSaveJournal> journal = FoundSaveJournal::open(path);
    if (!journal) {
      dropSaveJournal(path);
      return;
    }
    for (const SaveJournalFile& file : journal->files()) lock.take(dataFolder / pathFromText(file.path));
    if (stampOf(path) == stamp) {
      finish(dataFolder, path, *journal, recovery);
      return;
    }
  }
}

/// Unfinished journals, and new contents that no journal stands for. One that can't be removed does no harm.
void dropRemains(const fs::path& dataFolder, const Recovery& recovery) {
  if (!recovery.waiting.empty()) return;  // they may need their contents
  for (const std::string& name : namesOfJournals(dataFolder))
    if (isRemains(name)) removeLeftBehind(dataFolder / name);
}

}  // namespace

const WaitingSave* Recovery::waitingFor(std::string_view path) const {
  const std::string wanted = caseless(path);
  const auto names = [&wanted](const std::string& named) { return caseless(named) == wanted; };
  const auto found = std::find_if(waiting.begin(), waiting.end(), [&names](const WaitingSave& save) {
    return std::any_of(save.paths.begin(), save.paths.end(), names);
  });
  return found == waiting.end() ? nullptr : &*found;
}

bool mayHoldRemains(const fs::path& dataFolder) {
  const std::vector<std::string> names = namesOfJournals(dataFolder);
  return std::any_of(names.begin(), names.end(), [](const std::string& name) {
    return isRemains(name) || std::find(kJournals.begin(), kJournals.end(), name) != kJournals.end();
  });
}

Recovery finishInterrupted(const fs::path& dataFolder, DataLock& lock) {
  Recovery recovery;
  for (const std::string_view name : kJournals) finishOne(dataFolder, dataFolder / std::string(name), lock, recovery);
  dropRemains(dataFolder, recovery);
  return recovery;
}

fs::path journalForSave(const fs::path& dataFolder, const Recovery& recovery) {
  for (const std::string_view name : kJournals) {
    fs::path journal = dataFolder / std::string(name);
    if (std::none_of(recovery.waiting.begin(), recovery.waiting.end(),
                     [&journal](const WaitingSave& save) { return save.journal == journal; }))
      return journal;
  }
  throw UserError(recovery.waiting.front().sentence);
}

std::optional<std::string> dropSaveJournal(const fs::path& journal) {
  const std::array<std::function<void()>, 3> ways{
      [&] {
        if (fileExists(journal)) removeFile(journal);  // a folder is no journal
      },
      [&] { File::below(journal.parent_path(), journal, File::Mode::Update).resize(0); },
      [&] { File::below(journal.parent_path(), journal, File::Mode::Update).writeAt(0, Bytes(1)); },
  };
  std::optional<std::string> firstCause;
  for (const auto& voidIt : ways) {
    try {
      voidIt();
    } catch (const UserError& cause) {
      if (!firstCause) firstCause = cause.what();
      continue;
    }
    try {
      syncFolder(journal.parent_path());
    } catch (const UserError&) {
      // A journal that comes back after a power cut holds what the files hold already.
    }
    return std::nullopt;
  }
  return firstCause;
}

std::string namesOf(const fs::path& dataFolder, const std::vector<SaveJournalFile>& files) {
  if (files.empty()) return {};
  const std::string first = fmt::format("“{}”", textOfPath(dataFolder / pathFromText(files.front().path)));
  return files.size() == 1 ? first : fmt::format("{}等 {} 个文件", first, files.size());
}

std::string leftJournalRemark(std::string_view whichTime, const fs::path& journal, std::string_view cause) {
  return fmt::format(
      "{}保存的数据已全部写入各文件，但保存日志“{}”删不掉：{}请排除故障后删除它；它还在时，这些文件不能再保存，"
      "也不要把备份换回来。",
      whichTime, textOfPath(journal), cause);
}

}  // namespace triaxlab
