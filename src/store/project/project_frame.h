#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/fixed_text.h"
#include "common/user_error.h"
#include "platform/files.h"
#include "store/project/project_header.h"
#include "store/project/project_kinds.h"

namespace triaxlab {

// What all kinds of project file have in common: a ProjectHeader of 81 bytes, then the records one behind the other,
// and in a triaxial file a text of 100 places behind the last. A record begins with its project and sample number.

inline constexpr std::uint32_t kEndTextWidth = 100;

/// Reads a file at a byte position, as File::readAt does: from the disk, or with a save's pending writes in place.
using ReadAt = std::function<std::size_t(std::uint64_t offset, std::span<std::byte> into)>;
/// Reads the file, which must outlive the result.
ReadAt readerOf(const File& file);

/// The number that a count field claims, at most 10000; nothing when it holds no number or a negative one.
std::optional<int> claimedCount(std::string_view field);

/// Byte position of a record, or behind the last one, of the end text. Positions are 32-bit numbers; UserError when the
/// record would lie beyond them.
std::uint32_t recordPosition(std::uint32_t recordSize, std::uint32_t index);

struct ProjectHead {
  ProjectHeader header;
  int sampleCount = 0;
};
/// The head of a project file of any format. UserError when the file is shorter than a header or sampleCount holds no
/// number.
ProjectHead readAnyProjectHead(const ReadAt& readAt, const std::filesystem::path& file);
/// True when the kind once had shorter records and the file still holds them.
bool isOldFormat(const ProjectHeader& header, const ProjectKindInfo& info);
/// That the file has not been upgraded.
UserError notUpgraded(const std::filesystem::path& file);
/// The head of a file of today's format. UserError as above, and for a file that has not been upgraded.
ProjectHead readProjectHead(const ReadAt& readAt, const ProjectKindInfo& info, const std::filesystem::path& file);

/// What a file holds of the records that its header claims. One that the file's end cuts counts as blank everywhere:
/// its first bytes may as well be the end text of a triaxial file.
struct HeldRecords {
  std::size_t whole = 0;
  bool nextIsCut = false;
};
HeldRecords heldRecords(std::uint64_t fileSize, std::size_t recordSize, int sampleCount);

/// What is said of a file that holds fewer samples than its header claims: how many of them are missing, and the place
/// (from 0) of the one that is cut.
std::string missingSamplesRemark(const std::filesystem::path& file, std::size_t missing,
                                 std::optional<std::size_t> cut);
/// The same of all samples of a file; nothing when it holds them whole.
std::optional<std::string> shortageOf(const std::filesystem::path& file, std::uint64_t fileSize, std::size_t recordSize,
                                      int sampleCount);

/// What a save and a list know a stored sample by.
struct SampleIndexEntry {
  FixedText<15> sampleNo;
  std::uint8_t testMethod = 0;  // of triaxial files, otherwise 0
};
/// The entries of the first `sampleCount` records of a file of `fileSize` bytes; blank for those that it doesn't hold
/// whole.
std::vector<SampleIndexEntry> loadSampleIndex(const ReadAt& readAt, std::uint64_t fileSize, const ProjectKindInfo& info,
                                              int sampleCount);

/// The file of that name (without folder) below `folder`, if it matches the browser's mask of the kind. UserError when
/// it doesn't or is missing.
std::filesystem::path findProjectFile(const std::filesystem::path& folder, const ProjectKindInfo& info,
                                      std::string_view fileName);

/// The kind of a project file, which its name tells; nothing for a file with another name, or without the head of one.
/// UserError when it can't be read.
std::optional<ProjectKind> kindOfProjectFile(const std::filesystem::path& file);

struct Workspace;
/// The same, after the saves that dead programs left were finished. UserError also when one that concerns this file
/// can't be; of others there is a remark.
std::filesystem::path findFinishedFile(const Workspace& workspace, const ProjectKindInfo& info,
                                       std::string_view fileName, Remarks& remarks);

}  // namespace triaxlab
