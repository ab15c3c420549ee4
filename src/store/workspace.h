#pragma once

#include <array>
#include <bitset>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/date.h"
#include "common/fixed_text.h"
#include "common/settings.h"
#include "k0/record.h"
#include "platform/files.h"
#include "store/project/project_header.h"
#include "store/project/project_kind.h"
#include "store/safety/data_lock.h"
#include "store/safety/file_memory.h"
#include "store/sample_table.h"
#include "triaxial/record.h"
#include "unconfined/record.h"

namespace triaxlab {

/// Rows of the project date table.
inline constexpr std::size_t kProjectDateRows = 101;
/// The largest number of samples in a file; its four-place count ends one below.
inline constexpr int kLargestSampleCount = 10000;

/// Values of `activeDocument`: the window on which save, print and intervention act.
enum ActiveDocument : std::int16_t {
  kNoDocument = 0,
  kForm1 = 1,
  kForm2 = 2,
  kForm7 = 7,
  kForm4 = 10,
  kForm6 = 20,
  kForm9 = 30,
};

/// Borehole, depth and place of the sample in the same row of the sample table.
struct SampleLocation {
  FixedText<15> boreholeNo;
  FixedText<15> samplingDepth;
  FixedText<30> samplingSpot;
  bool operator==(const SampleLocation&) const = default;
};

struct ProjectDate {
  FixedText<15> projectNo;
  FixedText<10> testDate;
  bool operator==(const ProjectDate&) const = default;
};

/// Year, month and day under which a save dates a project; blank for today.
struct ProcessingDate {
  FixedText<4> year;
  FixedText<2> month;
  FixedText<2> day;

  /// False when the three texts sum to 0 as numbers.
  bool isSet() const { return year.number() + month.number() + day.number() != 0; }
  bool operator==(const ProcessingDate&) const = default;
};

/// A text box of the document window over a field of each project's summary file. A typed text is saved to every
/// project of the table, another to the project that it came from.
struct TitleText {
  std::string text;       // GBK
  bool typed = false;     // since it was read
  std::string projectNo;  // whose summary file it was read from, or would be if that existed
};

/// What a document keeps beside its records. The tests of each kind have their own, since several windows may be loaded
/// at a time: what one of them shows must not go with the save of another.
struct DocumentData {
  DocumentData();

  std::vector<SampleLocation> SampleDisplayTable;  // kTableRows
  /// Boxes TextW(0) to TextW(2) as last typed, GBK. A text that is no number dates nothing: it is the name that signs
  /// the report.
  std::array<std::optional<std::string>, 3> typedDateTexts;
  FixedText<100> controlledDocNo;  // Text9
  TitleText projectName;           // Text5
  TitleText secondTitleLine;       // TextW(3)
  /// The table holds an import: a save first asks which known samples to overwrite.
  bool rawImportPending = false;
  std::bitset<kTableRows> keepExisting;  // rows whose known sample a save of an import leaves alone
  std::array<ProjectDate, kProjectDateRows> ProjectDateTable;
  /// What the imported database calls its projects, by their numbers, both GBK and trimmed. A save gives the name to
  /// the project's summary file where that has none.
  std::map<std::string, std::string, std::less<>> importedProjectNames;

  void clearLocations();
  /// The first row of ProjectDateTable with this project (trimmed); nothing when there is none.
  std::optional<std::string_view> projectTestDate(std::string_view projectNo) const;
  /// Empty when the import named no such project.
  std::string_view importedProjectName(std::string_view projectNo) const;
  /// The imported names of the projects go with their dates.
  void clearProjectDates();
};

/// The tables and variables that all share, alive from start to end. Built by main and handed down by reference;
/// windows and operations work on the rows in place, and a table outlives the closing of its window.
struct Workspace {
  Workspace();

  std::filesystem::path applicationFolder;  // settings files and sibling tools
  std::filesystem::path dataFolder;         // HSZS, ZMSJ and PTU
  std::string dataFolderProblem;            // why nobody knows the data folder; empty as a rule
  std::string sourceFolder = "c:\\qvb";     // UTF-8; folder of the current raw source
  std::string winTriaxialDatxFolder;
  std::string winUnconfinedDatxFolder;
  std::optional<Date> fixedToday;                          // taken as today, for results that can be repeated
  std::chrono::milliseconds lockPatience = kLockPatience;  // for another program that is writing
  FileMemory fileMemory;                                   // of the project files

  Settings settings;

  std::int16_t activeDocument = kNoDocument;
  std::int16_t openDialogKind = 0;

  SampleTable<TriaxialSampleRecord> TriaxialSampleTable;
  SampleTable<UnconfinedSampleRecord> UnconfinedSampleTable;
  SampleTable<K0SampleRecord> K0SampleTable;
  SampleTable<TK0SampleRecord> TK0SampleTable;

  ProjectHeader projectHeader;
  ProcessingDate processingDate;

  /// Of the tests of a kind; those of an old kind of file are those of the kind as which it is saved.
  DocumentData& dataOf(ProjectKind tests);
  const DocumentData& dataOf(ProjectKind tests) const;

  /// What a box of the triaxial window shows and a save remembers: the text last typed, else the year, month or day of
  /// the processing date.
  std::string dateText(std::size_t box) const;

  Date today() const { return fixedToday.value_or(systemToday()); }
  /// UserError as long as nobody knows which folder it is: nothing is then read from or saved to another.
  const std::filesystem::path& knownDataFolder() const;
  // A data folder that comes from elsewhere may spell them in small letters.
  std::filesystem::path projectFolder() const { return fileOrNew(knownDataFolder(), "HSZS"); }
  std::filesystem::path summaryFolder() const { return fileOrNew(knownDataFolder(), "ZMSJ"); }
  std::filesystem::path pictureFolder() const { return fileOrNew(knownDataFolder(), "PTU"); }

 private:
  std::map<ProjectKind, DocumentData> m_data;
};

}  // namespace triaxlab
