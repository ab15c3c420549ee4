// Summary files: whatever the bytes are, boreholes and titles are read from them, and a save puts its samples in or
// leaves the file as it is and says so; what stood in the sections of the sibling tools stands there afterwards.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz_folders.h"
#include "store/project/project_frame.h"
#include "store/project/save_project.h"
#include "store/summary/summary_file.h"

namespace {

using namespace triaxlab;

constexpr std::size_t kHeader = 600, kRecord = 2747;

void fill(Workspace& workspace) {
  constexpr std::size_t kSamples = 3;
  for (std::size_t row = 0; row < kSamples; ++row) {
    TriaxialSampleRecord record;
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, "S" + std::to_string(row + 1));
    record.testMethod = static_cast<std::uint8_t>(row + 1);
    SetText(record.cellPressure[0], "100");
    workspace.TriaxialSampleTable[row] = record;
  }
}

/// The sections WS: and KF: of every record that was counted and whole before.
void checkSiblings(const std::string& before, const std::string& after) {
  if (after.size() < before.size()) std::abort();
  const std::size_t counted = kHeader + static_cast<std::size_t>(claimedCount(before.substr(0, 4)).value()) * kRecord;
  const std::size_t end = std::min(counted, before.size());
  for (std::size_t record = kHeader; record + kRecord <= end; record += kRecord)
    if (after.compare(record + 59, 305 - 59, before, record + 59, 305 - 59) != 0) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Folders folders;
  static Workspace workspace;
  folders.assignTo(workspace);
  folders.clear();
  folders.put("ZMSJ/KHZP1.txt", data, size);
  const std::string before = folders.get("ZMSJ/KHZP1.txt");
  fill(workspace);
  const bool isReadable = readLocations(workspace, ProjectKind::Triaxial).empty();
  // Of a file that is full something is told, too.
  const bool isTold = !saveProject(workspace, ProjectKind::Triaxial, nullptr).summaryErrors.empty();
  if ((!isReadable && !isTold) || folders.get("HSZS/WKSZP1.txt").empty()) std::abort();
  const std::string after = folders.get("ZMSJ/KHZP1.txt");
  if (isReadable)
    checkSiblings(before, after);
  else if (after != before)
    std::abort();
  folders.checkNothingStrayed();
  return 0;
}
