#include <random>
#include <span>

#include "platform/files.h"
#include "triaxial/charts/chart_fixture.h"

namespace triaxlab::testing {
namespace {

/// A record as a damaged file may hold it: any bytes, or bytes of which numbers are made.
TriaxialSampleRecord damagedRecord(std::mt19937& random, bool numberBytes) {
  constexpr std::string_view kNumbers = "0123456789    .-+EeDd";
  TriaxialSampleRecord record;
  for (std::byte& byte : writableBytesOf(record)) {
    const auto value = random();
    byte = static_cast<std::byte>(numberBytes ? kNumbers[value % kNumbers.size()] : static_cast<char>(value & 0xFF));
  }
  return record;
}

bool isOnTheCanvas(TwipPoint point) { return point.x >= 700 && point.x <= 6700 && point.y >= 500 && point.y <= 4300; }

TEST(DamagedRecords, WhateverTheyHoldTheDrawingStaysInThePlot) {
  std::mt19937 random(20240517);
  for (int i = 0; i < 200; ++i) {
    TriaxialSampleRecord record = damagedRecord(random, i % 2 == 0);
    record.testMethod = static_cast<std::uint8_t>(i % 5);
    for (int number = 1; number <= 6; ++number) {
      const auto page = static_cast<CurvePage>(number);
      const PageResults results = computePage(record, page, FailureMode::PeakStress, NumberFormat::Hundredths);
      RecordingSurface surface;
      drawCurvePage(surface, record, page, results, {});
      for (const DrawnPolyline& polyline : all<DrawnPolyline>(surface.operations()))
        for (const TwipPoint point : polyline.points) ASSERT_TRUE(isOnTheCanvas(point)) << i << " page " << number;
      for (const DrawnLine& line : all<DrawnLine>(surface.operations()))
        ASSERT_TRUE(isOnTheCanvas(line.from) && isOnTheCanvas(line.to)) << i << " page " << number;
    }
  }
}

}  // namespace
}  // namespace triaxlab::testing
