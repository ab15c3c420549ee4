// The calibration tables of the K0 stations: what stands where, and what is looked up in them.
#include "importers/pressure_calibration.h"

#include <gtest/gtest.h>

#include "importers/k0_builder.h"
#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

constexpr std::string_view kHeading = "123456\r\n";

PressureCalibration from(const std::string& table) {
  PressureCalibration calibration;
  calibration.add(table);
  return calibration;
}

TEST(PressureCalibration, GoesStraightFromPointToPoint) {
  const PressureCalibration calibration = from(std::string(kHeading) + calibrationLine({"0", "100", "300"}) +
                                               calibrationLine({"-0.40", "40.60", "140.60"}));
  EXPECT_EQ(calibration.pressureAt(0, 0), -0.40);
  EXPECT_DOUBLE_EQ(calibration.pressureAt(50, 0), 20.1);   // (40.6 + 0.4) / 100 x 50 - 0.4
  EXPECT_DOUBLE_EQ(calibration.pressureAt(150, 0), 65.6);  // 100 / 200 x 50 + 40.6
  EXPECT_DOUBLE_EQ(calibration.pressureAt(300, 0), 140.6);
}

TEST(PressureCalibration, OutsideThePointsIsZero) {
  const PressureCalibration calibration = from(calibrationTable({2}));
  EXPECT_EQ(calibration.pressureAt(2100, 0), 4200);
  EXPECT_EQ(calibration.pressureAt(2101, 0), 0);
  EXPECT_EQ(calibration.pressureAt(-1, 0), 0);
  EXPECT_EQ(calibration.pressureAt(100, 1), 0) << "a channel that doesn't exist";
}

TEST(PressureCalibration, ColumnsStandAtTheirBytes) {
  // The name has four bytes, whatever they are; two columns that fill their seven bytes touch.
  const PressureCalibration calibration = from(std::string(kHeading) + "\xB1\xA8\xB1\xA8      0    1001000.00\n" +
                                               "\xB1\xA8\xB1\xA8   0.001000.002000.00\n");
  EXPECT_DOUBLE_EQ(calibration.pressureAt(50, 0), 500);
  EXPECT_DOUBLE_EQ(calibration.pressureAt(550, 0), 1500);
}

TEST(PressureCalibration, ABlankLineBetweenChannelsIsAChannelOfZeros) {
  const PressureCalibration calibration =
      from(calibrationTable({1}) + "\r\n" + calibrationLine({"5", "5"}) + "\r\n \r\n");
  EXPECT_EQ(calibration.channelCount(), 3U) << "but not behind the last one";
  EXPECT_EQ(calibration.pressureAt(100, 1), 0);
  EXPECT_EQ(calibration.pressureAt(100, 2), 5);
}

TEST(PressureCalibration, PointsThatFallOrRepeatGiveZeroWhereTheyDo) {
  const PressureCalibration calibration =
      from(std::string(kHeading) + calibrationLine({"0", "100", "100", "50", "400"}) +
           calibrationLine({"0", "10", "20", "30", "100"}));
  EXPECT_FALSE(calibration.pointsAscend());
  EXPECT_EQ(calibration.pressureAt(50, 0), 5);
  EXPECT_EQ(calibration.pressureAt(100, 0), 10) << "the first two points about it";
  EXPECT_EQ(calibration.pressureAt(225, 0), 65) << "between 50 and 400: 70 / 350 x 175 + 30";
  EXPECT_EQ(from(std::string(kHeading) + calibrationLine({"7", "7"}) + calibrationLine({"1", "2"})).pressureAt(7, 0),
            0);
  EXPECT_TRUE(from(calibrationTable({1})).pointsAscend());
}

TEST(PressureCalibration, ColumnsThatAreNoNumbersAreZeros) {
  const PressureCalibration calibration =
      from(std::string(kHeading) + calibrationLine({"0", "100", "200"}) + calibrationLine({"x", "50", "1e999"}));
  EXPECT_EQ(calibration.pressureAt(50, 0), 25);
  EXPECT_EQ(calibration.pressureAt(150, 0), 0) << "no number comes of an infinite one";
}

TEST(PressureCalibration, WithoutAHeadingATextIsNoTable) {
  const PressureCalibration calibration = from(calibrationLine({"0", "100"}) + calibrationLine({"0", "10"}));
  EXPECT_FALSE(calibration.isFound());
  EXPECT_EQ(calibration.channelCount(), 0U);
}

TEST(PressureCalibration, EveryShorterTextIsRead) {
  const std::string whole = calibrationTable({1, 2});
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const PressureCalibration calibration = from(whole.substr(0, size));
    EXPECT_LE(calibration.channelCount(), 2U);
    calibration.pressureAt(150, 0);
  }
}

TEST(PressureCalibration, SeveralFilesFollowOneAnother) {
  const TemporaryFolder folder;
  folder.write("kgjybxl2.tb", calibrationTable({1, 2}));
  folder.write("KGJYBXL3.TB", "no heading");
  folder.write("KGJYBXL5.TB", std::string(kHeading) + calibrationLine({"0", "1"}) + calibrationLine({"0", "300"}));
  folder.write("KGJYBXL8.TB", calibrationTable({9}));
  const PressureCalibration calibration(folder.path());
  EXPECT_EQ(calibration.channelCount(), 3U);
  EXPECT_EQ(calibration.pressureAt(100, 1), 200);
  EXPECT_EQ(calibration.pressureAt(100, 2), 300) << "at the raw points of the first file";
}

TEST(PressureCalibration, HasAtMost64Channels) {
  PressureCalibration calibration = from(calibrationTable(std::vector<int>(40, 1)));
  calibration.add(calibrationTable(std::vector<int>(40, 2)));
  EXPECT_EQ(calibration.channelCount(), 64U);
  EXPECT_EQ(calibration.pressureAt(100, 63), 200);
}

TEST(PressureCalibration, AFileThatCanNotBeReadIsAnError) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "KGJYBXL4.TB");
  EXPECT_THROW(PressureCalibration(folder.path()), UserError);
  EXPECT_FALSE(PressureCalibration(folder.path() / "missing").isFound());
}

}  // namespace
}  // namespace triaxlab::testing
