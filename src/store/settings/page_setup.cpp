#include "store/settings/page_setup.h"

#include <algorithm>

#include "platform/files.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

constexpr std::int16_t kMostCharts = 30;  // in a row or column
constexpr float kLeastMargin = 0.5F, kLargestMargin = 10;
constexpr std::uint8_t kPortrait = 1, kLandscape = 0;

SettingsFile file(const Workspace& workspace) { return {workspace.applicationFolder, "zmsz.sys"}; }

PageSetupFile stored(const Workspace& workspace) {
  PageSetupFile bytes{};
  file(workspace).read(1, writableBytesOf(bytes));
  return bytes;
}

std::int16_t limitedCount(std::uint8_t count) { return std::clamp<std::int16_t>(count, 1, kMostCharts); }

float limitedMargin(float centimetres) {
  // Foreign bytes may be no number at all, and such a margin is not at least the least one either.
  if (!(centimetres >= kLeastMargin)) return kLeastMargin;
  return std::min(centimetres, kLargestMargin);
}

/// A statement that puts a larger number into a byte is abandoned.
void setByte(Little<std::uint8_t>& byte, std::int16_t value) {
  if (value >= 0 && value <= UINT8_MAX) byte = static_cast<std::uint8_t>(value);
}

}  // namespace

PageSetup readPageSetup(const Workspace& workspace) {
  const PageSetupFile bytes = stored(workspace);
  return {.paperCode = bytes.paper,
          .rows = limitedCount(bytes.rows),
          .columns = limitedCount(bytes.columns),
          .portrait = bytes.orientation == kPortrait,
          .leftMarginCm = limitedMargin(bytes.leftMarginCm),
          .rightMarginCm = limitedMargin(bytes.rightMarginCm)};
}

void writePageSetup(const Workspace& workspace, const PageSetup& setup) {
  PageSetupFile bytes = stored(workspace);
  bytes.paper = setup.paperCode;
  setByte(bytes.rows, setup.rows);
  setByte(bytes.columns, setup.columns);
  bytes.orientation = setup.portrait ? kPortrait : kLandscape;
  bytes.leftMarginCm = setup.leftMarginCm;
  bytes.rightMarginCm = setup.rightMarginCm;
  file(workspace).write(1, bytesOf(bytes));
}

}  // namespace triaxlab
