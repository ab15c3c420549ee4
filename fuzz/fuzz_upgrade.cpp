// Project files of former versions: whatever the bytes are, the file is brought into today's format, with the samples
// that it holds, or it is refused and stays as it was; an oldest triaxial file opens or is refused. The last byte of
// the input chooses the kind of file, and is part of it.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "common/user_error.h"
#include "fuzz_folders.h"
#include "store/project/old_formats.h"
#include "store/project/project_file.h"
#include "store/project/project_frame.h"
#include "store/project/upgrade.h"

namespace {

using namespace triaxlab;

constexpr std::array kKinds{ProjectKind::Triaxial, ProjectKind::Unconfined, ProjectKind::OldTriaxial};
constexpr std::size_t kHead = 81, kVersionTag = 59;
/// An old file of thousands of samples becomes hundreds of megabytes, which is slow and shows nothing new.
constexpr int kMostSamples = 40;

void check(bool holds) {
  if (!holds) std::abort();
}

/// What an upgrade that went well has made of the file. Both records begin with project and sample number.
void checkUpgraded(const ProjectKindInfo& info, std::string_view before, std::string_view after) {
  const auto count = static_cast<std::size_t>(claimedCount(before.substr(0, 4)).value());
  check(after.size() == kHead + count * info.recordSize + (info.hasEndText ? kEndTextWidth : 0));
  check(after.substr(0, kVersionTag) == before.substr(0, kVersionTag) && after.substr(kVersionTag, 4) == "V2.0");
  const std::size_t oldSize = info.oldFormat->recordSize, shared = 15 + info.identity.sampleNoWidth;
  for (std::size_t k = 0; k < count && kHead + (k + 1) * oldSize <= before.size(); ++k)
    check(after.substr(kHead + k * info.recordSize, shared) == before.substr(kHead + k * oldSize, shared));
}

void upgrade(Workspace& workspace, const fuzz::Folders& folders, const ProjectKindInfo& info, const std::string& name) {
  const std::string before = folders.get("HSZS/" + name);
  const bool isOld = before.size() >= kHead && info.oldFormat != nullptr && before.substr(kVersionTag, 4) != "V2.0";
  try {
    upgradeProject(workspace, info, folders.data() / "HSZS" / name);
    if (isOld)
      checkUpgraded(info, before, folders.get("HSZS/" + name));
    else
      check(folders.get("HSZS/" + name) == before);
  } catch (const UserError&) {
    check(folders.get("HSZS/" + name) == before);
  }
}

/// The oldest files are converted while they are read. An open makes a table of 38 MB, so the others, which are today's
/// by now, are left to the target of today's files.
void open(Workspace& workspace, const ProjectKindInfo& info, const std::string& name) {
  try {
    openProject(workspace, info.kind, name, nullptr);
    check(workspace.TriaxialSampleTable.used().size() <= kTableRows);
  } catch (const UserError&) {
    // Damaged, and said so.
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  static Workspace workspace;
  folders.assignTo(workspace);
  const std::string_view head(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 4));
  if (claimedCount(head).value_or(0) > kMostSamples) return 0;
  const ProjectKindInfo& info = infoOf(kKinds[size == 0 ? 0 : data[size - 1] % kKinds.size()]);
  const std::string name = std::string(info.filePrefix) + "1.txt";
  folders.clear();
  folders.put("HSZS/" + name, data, size);
  upgrade(workspace, folders, info, name);
  if (info.oldFormat == nullptr) open(workspace, info, name);
  folders.checkNothingStrayed();
  return 0;
}
