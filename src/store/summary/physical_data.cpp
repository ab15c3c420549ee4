#include "store/summary/physical_data.h"

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "common/user_error.h"
#include "platform/files.h"
#include "store/project/project_number.h"
#include "store/summary/physical_record.h"

namespace triaxlab {
namespace {

/// Without what a tool may have left behind a zero byte.
std::string shown(std::string_view places) { return std::string(Trim(places.substr(0, places.find('\0')))); }

PhysicalValues valuesOf(const PhysicalRecord& record) {
  return {{
      {"  取土深度：", shown(record.samplingDepth.view())},
      {"天然含水率：", shown(record.waterContent.view())},
      {"  天然密度：", shown(record.density.view())},
      {"      比重：", shown(record.specificGravity.view())},
      {"天然孔隙比：", shown(record.voidRatio.view())},
      {"      流限：", shown(record.liquidLimit.view())},
      {"      塑限：", shown(record.plasticLimit.view())},
      {"  塑性指数：", shown(record.plasticityIndex.view())},
      {"  液性指数：", shown(record.liquidityIndex.view())},
      {"备注：", shown(record.remark.view())},
  }};
}

/// The first record of the sample, of those that the count promises and the file holds whole; a blank one when there is
/// none.
PhysicalRecord findRecord(const File& file, std::string_view sampleNo) {
  constexpr std::size_t kBlockRecords = 256;  // about 500 KB
  PhysicalHead head;
  file.readAt(0, writableBytesOf(head));
  const auto count = static_cast<std::size_t>(std::max<int>(head.recordCount, 0));
  std::vector<PhysicalRecord> block(std::min(count, kBlockRecords));
  for (std::size_t first = 0; first < count; first += block.size()) {
    const auto wanted = std::span(block).first(std::min(block.size(), count - first));
    const std::uint64_t position = sizeof head + first * sizeof(PhysicalRecord);
    const auto got = wanted.first(file.readAt(position, std::as_writable_bytes(wanted)) / sizeof(PhysicalRecord));
    for (const PhysicalRecord& record : got)
      if (shown(record.sampleNo.view()) == sampleNo) return record;
    if (got.size() < wanted.size()) break;
  }
  return {};
}

PhysicalRecord recordOf(const Workspace& workspace, std::string_view projectNo, std::string_view sampleNo) {
  if (whyNoFileName(projectNo) || sampleNo.empty()) return {};
  try {
    const auto path = findFile(workspace.summaryFolder(), projectFileName("", projectNo, ".dat"));
    return path ? findRecord(File::below(workspace.dataFolder, *path, File::Mode::Read), sampleNo) : PhysicalRecord{};
  } catch (const UserError&) {
    return {};  // a help that isn't there, and no reason to interrupt an adjustment
  }
}

}  // namespace

PhysicalValues physicalValues(const Workspace& workspace, std::string_view projectNo, std::string_view sampleNo) {
  return valuesOf(recordOf(workspace, Trim(projectNo), Trim(sampleNo)));
}

}  // namespace triaxlab
