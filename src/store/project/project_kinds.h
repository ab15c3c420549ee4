#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace triaxlab {

/// The kinds of project file; the values are those of `openDialogKind` for the browser.
enum class ProjectKind : std::int16_t { Triaxial = 1, Unconfined = 2, K0 = 10, TK0 = 20, OldTriaxial = 101 };

/// One row for each kind: all that its framing and its windows differ in.
struct ProjectKindInfo {
  ProjectKind kind;
  ProjectKind documentKind;     // whose table, windows and files its samples take once they are read
  std::string_view id;          // on the command line
  std::string_view filePrefix;  // of the file name, before the project number
  std::uint32_t recordSize;     // bytes on file
  std::span<const std::byte> (*blankRecord)();
  std::uint32_t sampleNoWidth;   // 14 or 15, behind the project number of 15
  bool hasEndText;               // a controlledDocNo of 100 places behind the last record
  bool boxesHoldDate;            // TextW(0) to TextW(2): the processing date; otherwise names that sign the report
  std::string_view versionTag;   // what a new file gets; empty: none
  std::string_view listCaption;  // the browser's title
  std::string_view listHeading;  // the browser's Labelname
  std::string_view openTitle;    // title of the browser's messages
  std::string_view saveMessage;  // shown when a save is complete
  std::string_view sampleListCaption;  // title of the window with a file's samples
  std::string_view listTitle;          // title when a sample list is saved; empty: the files are never written
};

extern const std::array<ProjectKindInfo, 5> kProjectKinds;

const ProjectKindInfo& infoOf(ProjectKind kind);
std::optional<ProjectKind> projectKindOfId(std::string_view id);

}  // namespace triaxlab
