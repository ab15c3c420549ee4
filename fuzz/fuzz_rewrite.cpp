// List rewrites: whatever the file and the order are, the file holds afterwards just the samples of the order, or it is
// refused and stays as it was. The input is a byte for the kind, one for the length of the order, its positions, a byte
// each, and the project file.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_error.h"
#include "fuzz_folders.h"
#include "store/project/project_frame.h"
#include "store/project/rewrite_list.h"

namespace {

using namespace triaxlab;

constexpr std::size_t kHead = 81, kLongestOrder = 20;
/// Where a project file of a former version is upgraded first, which takes space for each sample.
constexpr int kMostOldSamples = 40;

void check(bool holds) {
  if (!holds) std::abort();
}

/// A record of the file as it is read: one that the file's end cuts is blank.
std::string recordOf(const ProjectKindInfo& info, std::string_view file, std::size_t index) {
  const auto blank = info.blankRecord();
  std::string record(reinterpret_cast<const char*>(blank.data()), blank.size());
  const std::size_t from = kHead + index * info.recordSize;
  if (from + info.recordSize <= file.size()) record = file.substr(from, info.recordSize);
  return record;
}

void checkRewritten(const ProjectKindInfo& info, std::string_view before, std::string_view after,
                    const std::vector<std::uint32_t>& order) {
  check(after.size() == kHead + order.size() * info.recordSize);
  check(claimedCount(after.substr(0, 4)) == static_cast<int>(order.size()));
  check(after.substr(4, kHead - 4) == before.substr(4, kHead - 4));
  for (std::size_t i = 0; i < order.size(); ++i)
    check(after.substr(kHead + i * info.recordSize, info.recordSize) == recordOf(info, before, order[i]));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  static Workspace workspace;
  if (size < 2) return 0;
  const ProjectKindInfo& info = kProjectKinds[data[0] % kProjectKinds.size()];
  const std::size_t length = std::min<std::size_t>({data[1], kLongestOrder, size - 2});
  const std::vector<std::uint32_t> order(data + 2, data + 2 + length);
  const std::string name = std::string(info.filePrefix) + "1.txt";
  folders.assignTo(workspace);
  folders.clear();
  folders.put("HSZS/" + name, data + 2 + length, size - 2 - length);
  const std::string before = folders.get("HSZS/" + name);
  const bool isOld = !info.versionTag.empty() && (before.size() < kHead || before.substr(59, 4) != info.versionTag);
  if (isOld && claimedCount(before.substr(0, 4)).value_or(0) > kMostOldSamples) return 0;
  try {
    rewriteProject(workspace, info.kind, name, order);
    if (order.empty())
      check(!std::filesystem::exists(folders.data() / "HSZS" / name));
    else if (!isOld)
      checkRewritten(info, before, folders.get("HSZS/" + name), order);
  } catch (const UserError&) {
    if (!isOld) check(folders.get("HSZS/" + name) == before);
  }
  folders.checkNothingStrayed();
  return 0;
}
