#include "store/settings/toggles.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "store/settings/settings_file.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

class ToggleBytes : public StoreTest {};

TEST_F(ToggleBytes, StandEachAtAPlaceOfItsOwn) {
  std::set<std::uint32_t> positions;
  for (const ToggleByte& byte : toggleBytes()) positions.insert(byte.position);
  EXPECT_EQ(positions, (std::set<std::uint32_t>{198, 1765, 1800, 1801, 3010, 3011, 27000, 27001, 27002, 27003}));
}

TEST_F(ToggleBytes, TheCirclesAreInverted) {
  EXPECT_EQ(byteOfToggle(&Toggles::printEffectiveCircles).position, 1800U);
  EXPECT_EQ(byteOfToggle(&Toggles::printTotalCircles).position, 1801U);
  EXPECT_EQ(byteOfToggle(&Toggles::printTotalCircles).valueFor(true), 0);
  EXPECT_EQ(byteOfToggle(&Toggles::printTotalCircles).valueFor(false), 1);
  EXPECT_EQ(byteOfToggle(&Toggles::dotMatrixPrinter).valueFor(true), 1);
}

TEST_F(ToggleBytes, AByteThatIsNeitherReadsAsOff) {
  sharedSettings(workspace).writeByte(1800, 2);
  sharedSettings(workspace).writeByte(3010, 2);
  sharedSettings(workspace).writeByte(3011, 1);
  readToggles(workspace);
  EXPECT_FALSE(workspace.settings.toggles.printEffectiveCircles);
  EXPECT_FALSE(workspace.settings.toggles.printDensity);
  EXPECT_TRUE(workspace.settings.toggles.printSamplingSpot);
}

}  // namespace
}  // namespace triaxlab::testing
