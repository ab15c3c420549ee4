#include "unconfined/reduction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "unconfined/smoothed_curve.h"

namespace triaxlab {
namespace {

constexpr NumberFormat kSt = NumberFormat::Hundredths;

/// A row of a specimen as texts; blank ones stay blank.
struct Row {
  std::string_view strain, stress, reading;
};

void put(UnconfinedSampleRecord& record, Specimen specimen, std::initializer_list<Row> rows) {
  std::size_t at = 0;
  for (const Row& row : rows) {
    SetText(strainOf(record, specimen)[at], row.strain);
    SetText(stressOf(record, specimen)[at], row.stress);
    SetText(readingOf(record, specimen)[at], row.reading);
    ++at;
  }
}

UnconfinedSampleRecord namedSample() {
  UnconfinedSampleRecord record;
  SetText(record.projectNo, "P");
  SetText(record.sampleNo, "1");
  return record;
}

/// A sample whose stresses are given, without readings.
UnconfinedSampleRecord withStresses(std::initializer_list<Row> undisturbed, std::initializer_list<Row> remoulded = {}) {
  UnconfinedSampleRecord record = namedSample();
  put(record, Specimen::Undisturbed, undisturbed);
  put(record, Specimen::Remoulded, remoulded);
  return record;
}

std::string_view textOf(const FixedText<6>& field) { return field.trimmed(); }

TEST(UnconfinedStress, IsTheRingForceOverTheAreaAtThatStrain) {
  UnconfinedSampleRecord record = namedSample();
  record.ringCoefficient = {1250, 1000};
  SetText(record.sampleArea[0], "12.00");
  SetText(record.sampleArea[1], "20.00");
  put(record, Specimen::Undisturbed, {{"1.0", "", "100"}});
  put(record, Specimen::Remoulded, {{"0.0", "", "24.5"}});
  reduceUnconfinedSample(record, kSt);
  // 1.25 x 10 x 100 = 1250; x 0.99 = 1237.5; / 12 = 103.125
  EXPECT_EQ(textOf(record.undisturbedStress[0]), "103.1");
  // 10 x 24.5 / 20 = 12.25, which rounds away from zero
  EXPECT_EQ(textOf(record.remouldedStress[0]), "12.3");
}

TEST(UnconfinedStress, StaysWhereNoneIsComputed) {
  UnconfinedSampleRecord record = namedSample();
  record.ringCoefficient = {1000, 0};
  SetText(record.sampleArea[0], "10.00");
  SetText(record.sampleArea[1], "10.00");
  put(record, Specimen::Undisturbed, {{"0.5", "11.0", "0.01"}, {"1.0", "12.0", ""}, {"1.5", "", "0.02"}});
  put(record, Specimen::Remoulded, {{"0.5", "13.0", "50"}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.undisturbedStress[0]), "11.0") << "0.01 is no reading yet";
  EXPECT_EQ(textOf(record.undisturbedStress[1]), "12.0");
  EXPECT_EQ(textOf(record.undisturbedStress[2]), "0.0") << "10 x 0.02 x 0.985 / 10 = 0.0197";
  EXPECT_EQ(textOf(record.remouldedStress[0]), "13.0") << "without a ring coefficient the stress is 0";
}

TEST(UnconfinedStress, NeedsAnArea) {
  UnconfinedSampleRecord record = namedSample();
  record.ringCoefficient = {1000, 1000};
  SetText(record.sampleArea[0], "0.00");
  SetText(record.sampleHeight[0], "0");
  SetText(record.sampleHeight[1], "8.00");
  put(record, Specimen::Undisturbed, {{"0.5", "7.0", "50"}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.undisturbedStress[0]), "7.0");
  EXPECT_TRUE(record.sampleArea[0].isBlank());
  EXPECT_TRUE(record.sampleHeight[0].isBlank());
  EXPECT_EQ(textOf(record.sampleHeight[1]), "8.00");
}

TEST(UnconfinedStress, StaysWhereASingleCannotHoldIt) {
  UnconfinedSampleRecord record = namedSample();
  record.ringCoefficient = {32767, 0};
  SetText(record.sampleArea[0], "1");
  put(record, Specimen::Undisturbed, {{"0.5", "7.0", "1e38"}, {"1.0", "", "10"}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.undisturbedStress[0]), "7.0");
  EXPECT_EQ(textOf(record.undisturbedStress[1]), "3243.9") << "32.767 x 10 x 10 x 0.99 = 3243.933";
}

TEST(UnconfinedReading, OfZeroIsBlanked) {
  UnconfinedSampleRecord record = namedSample();
  put(record, Specimen::Undisturbed, {{"0.5", "", "0"}, {"1.0", "", "3"}});
  put(record, Specimen::Remoulded, {{"0.5", "", "0.0"}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_TRUE(record.undisturbedReading[0].isBlank());
  EXPECT_EQ(textOf(record.undisturbedReading[1]), "3");
  EXPECT_TRUE(record.remouldedReading[0].isBlank());
}

TEST(UnconfinedStrain, ASampleWithoutNumberGetsItsLadder) {
  UnconfinedSampleRecord half;
  reduceUnconfinedSample(half, kSt);
  EXPECT_EQ(textOf(half.undisturbedStrain[0]), "0.5");
  EXPECT_EQ(textOf(half.remouldedStrain[50]), "25.5");

  UnconfinedSampleRecord whole;
  put(whole, Specimen::Remoulded, {{"0.0", "", ""}, {"0.52", "", ""}});
  reduceUnconfinedSample(whole, kSt);
  EXPECT_EQ(textOf(whole.undisturbedStrain[0]), "1.0");
  EXPECT_EQ(textOf(whole.undisturbedStrain[50]), "51.0");

  UnconfinedSampleRecord notAbove;  // 0.51 - 0 is not above 0.51
  put(notAbove, Specimen::Undisturbed, {{"0", "", ""}, {"0.51", "", ""}});
  reduceUnconfinedSample(notAbove, kSt);
  EXPECT_EQ(textOf(notAbove.remouldedStrain[1]), "1.0");

  UnconfinedSampleRecord named = namedSample();
  reduceUnconfinedSample(named, kSt);
  EXPECT_TRUE(named.undisturbedStrain[0].isBlank());
}

TEST(UnconfinedStrainLimit, FallsToTheUsualOneOutsideItsBounds) {
  for (int limit = 0; limit < 256; ++limit) {
    UnconfinedSampleRecord record;
    record.strainLimit = {static_cast<std::uint8_t>(limit), 200};
    reduceUnconfinedSample(record, kSt);
    EXPECT_EQ(record.strainLimit[0], limit >= 35 && limit <= 220 ? limit : 150) << limit;
    EXPECT_EQ(record.strainLimit[1], 200);
  }
}

TEST(UnconfinedPeak, OfOneRowIsThatRow) {
  UnconfinedSampleRecord record = withStresses({{"2.0", "31.5", ""}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.qu), "31.5");
  EXPECT_TRUE(record.quRemoulded.isBlank());
  EXPECT_TRUE(record.sensitivity.isBlank());
}

TEST(UnconfinedPeak, CountsRowsUpToTheLimit) {
  UnconfinedSampleRecord record = withStresses({{"10.0", "40.0", ""}}, {{"10.1", "50.0", ""}});
  record.strainLimit = {100, 100};
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.qu), "40.0");
  EXPECT_TRUE(record.quRemoulded.isBlank()) << "one row makes no parabola, and this one lies beyond the limit";
}

TEST(UnconfinedPeak, IsTheTopOfTheParabolaBetweenTheRows) {
  // (0, 0), (1, 15), (3, 15): y = 20 x - 5 x², whose top is 20 at 2.
  UnconfinedSampleRecord record = withStresses({{"1.0", "15.0", ""}, {"3.0", "15.0", ""}}, {{"1.0", "7.5", ""}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.qu), "20.0");
  EXPECT_EQ(textOf(record.quRemoulded), "7.5");
  EXPECT_EQ(textOf(record.sensitivity), "2.67") << "20 / 7.5";
}

TEST(UnconfinedPeak, LiesInSegmentsThatBeginBelowFifteenPercent) {
  // A parabola through the origin and two rows of one stress: y = A (1 - (x - 16)² / 256).
  UnconfinedSampleRecord from15 = withStresses({{"15.0", "30.0", ""}, {"17.0", "30.0", ""}});
  reduceUnconfinedSample(from15, kSt);
  EXPECT_EQ(textOf(from15.qu), "30.0") << "its top of 30 x 256 / 255 = 30.12 doesn't count";

  UnconfinedSampleRecord below15 = withStresses({{"14.9", "30.0", ""}, {"17.1", "30.0", ""}}, {{"1.0", "10.0", ""}});
  reduceUnconfinedSample(below15, NumberFormat::TenThousandths);
  EXPECT_EQ(textOf(below15.qu), "30.1") << "30 / (1 - 1.21 / 256) = 30.14247";
  EXPECT_EQ(textOf(below15.sensitivity), "3.0142") << "of the peaks before they are rounded";
}

TEST(UnconfinedPeak, MayLieBeyondTheSamplesOwnLimit) {
  UnconfinedSampleRecord record = withStresses({{"11.0", "15.0", ""}, {"13.0", "15.0", ""}});
  record.strainLimit = {100, 100};
  reduceUnconfinedSample(record, kSt);
  EXPECT_EQ(textOf(record.qu), "15.1") << "y = A (1 - (x - 12)² / 144): 15 x 144 / 143 = 15.1049";
}

TEST(UnconfinedPeak, TakesRowsUpTo21AndAHalfPercent) {
  const auto points = [](std::string_view strain) {
    const UnconfinedSampleRecord record = withStresses({{"0.0", "5.0", ""}, {strain, "9.0", ""}, {"3.0", "0.0", ""}});
    return curvePoints(record, Specimen::Undisturbed, 21.5).size();
  };
  EXPECT_EQ(points("21.5"), 2U) << "the origin and this row";
  EXPECT_EQ(points("21.6"), 1U);
}

TEST(SmoothedCurve, ThreePointsAtTwoStrainsHaveNoParabola) {
  const std::array<Point, 4> points{{{0, 0}, {2, 10}, {2, 12}, {4, 20}}};
  std::vector<Point> straight;
  int smooth = 0;
  walkCurve(points, [&](const CurveChord& chord) {
    if (chord.isSmooth)
      ++smooth;
    else
      straight.push_back(chord.to);
  });
  EXPECT_EQ(smooth, 0);
  EXPECT_THAT(straight, ::testing::ElementsAre(Point{2, 10}, Point{2, 12}, Point{4, 20}));
  EXPECT_EQ(peakOfCurve(points, {1, 3}), (Point{1, 3}));
}

TEST(SmoothedCurve, TwoPointsAreOneChord) {
  const std::array<Point, 2> points{{{0, 0}, {4, 20}}};
  int chords = 0;
  walkCurve(points, [&](const CurveChord& chord) {
    ++chords;
    EXPECT_FALSE(chord.isSmooth);
    EXPECT_EQ(chord.to, (Point{4, 20}));
  });
  EXPECT_EQ(chords, 1);
}

TEST(SmoothedCurve, StrainsThatGoBackAreNotWalked) {
  const std::array<Point, 3> points{{{0, 0}, {3, 10}, {1, 5}}};
  double furthest = 0;
  walkCurve(points, [&](const CurveChord& chord) { furthest = std::max(furthest, chord.segmentStart); });
  EXPECT_EQ(furthest, 0) << "the segment from 3 back to 1 has no step";
}

/// Segments that can't hold the peak are passed over; the peak is that of the whole walk to the last bit.
TEST(SmoothedCurve, ThePeakIsThatOfEveryChord) {
  std::mt19937 random(5);
  const auto tenths = [&random](unsigned limit) { return static_cast<double>(random() % limit) / 10; };
  for (int curve = 0; curve < 3000; ++curve) {
    std::vector<Point> points{{0, 0}};
    const std::size_t count = 2 + random() % 40;
    const double scatter = std::pow(10.0, static_cast<double>(random() % 5));
    double strain = 0;
    for (std::size_t i = 0; i < count; ++i) {
      strain = random() % 20 == 0 ? 0.1 + tenths(210) : strain + 0.5;
      points.push_back({std::min(strain, 21.5), 10 * std::exp(-strain / 8) * strain + tenths(10) * scatter});
    }
    Point highest{0, points[1 + random() % count].y};
    const Point start = highest;
    walkCurve(points, [&highest](const CurveChord& chord) {
      if (!chord.isSmooth || chord.segmentStart >= 15) return;
      for (const Point point : {chord.from, chord.to})
        if (point.y > highest.y) highest = point;
    });
    ASSERT_EQ(peakOfCurve(points, start), highest) << curve;
  }
}

TEST(UnconfinedSensitivity, NeedsBothPeaks) {
  UnconfinedSampleRecord record = withStresses({}, {{"1.0", "10.0", ""}});
  SetText(record.qu, "99.9");
  SetText(record.sensitivity, "9.99");
  reduceUnconfinedSample(record, kSt);
  EXPECT_TRUE(record.qu.isBlank());
  EXPECT_EQ(textOf(record.quRemoulded), "10.0");
  EXPECT_TRUE(record.sensitivity.isBlank());
}

TEST(UnconfinedTable, LeavesRowsWithoutNumbersAlone) {
  std::array<UnconfinedSampleRecord, 2> table{namedSample(), UnconfinedSampleRecord{}};
  const UnconfinedSampleRecord blank;
  reduceAllUnconfinedSamples(table, kSt);
  EXPECT_EQ(table[0].strainLimit[0], 150);
  EXPECT_EQ(std::memcmp(&table[1], &blank, sizeof blank), 0);
}

TEST(StrainAtPeak, IsWhereTheCurveOrItsRowIsHighest) {
  // The parabola 20 x - 5 x² has its top at 2, between the rows.
  UnconfinedSampleRecord smooth = withStresses({{"1.0", "15.0", ""}, {"3.0", "15.0", ""}});
  reduceUnconfinedSample(smooth, kSt);
  ASSERT_TRUE(strainAtPeak(smooth, Specimen::Undisturbed));
  EXPECT_NEAR(*strainAtPeak(smooth, Specimen::Undisturbed), 2.0, 1e-5);
  EXPECT_FALSE(strainAtPeak(smooth, Specimen::Remoulded)) << "it has no strength";

  UnconfinedSampleRecord row = withStresses({{"2.5", "31.5", ""}});
  reduceUnconfinedSample(row, kSt);
  EXPECT_EQ(strainAtPeak(row, Specimen::Undisturbed), 2.5);

  UnconfinedSampleRecord ties = withStresses({{"2.0", "9.0", ""}, {"2.0", "9.0", ""}, {"4.0", "9.0", ""}});
  reduceUnconfinedSample(ties, kSt);
  EXPECT_EQ(strainAtPeak(ties, Specimen::Undisturbed), 2.0) << "of equal rows the first";
}

/// Strains that no apparatus writes: the walk along them ends, and what has no value leaves no text.
TEST(OddStrains, EndTheWalk) {
  const std::initializer_list<std::initializer_list<Row>> columns{
      {{"1e-30", "5", ""}, {"2e-30", "6", ""}, {"3e-30", "7", ""}},
      {{"1e30", "5", ""}, {"2e30", "6", ""}, {"1e999", "7", ""}},
      {{"1e-30", "5", ""}, {"21.5", "6", ""}, {"1e-30", "7", ""}, {"21.5", "8", ""}},
      {{"3", "5", ""}, {"2", "6", ""}, {"1", "7", ""}},
      {{"2", "5", ""}, {"2", "6", ""}, {"2", "7", ""}},
      {{"-1e-3", "5", ""}, {"x", "6", ""}, {"", "7", ""}},
  };
  for (const auto& rows : columns) {
    UnconfinedSampleRecord record = withStresses(rows, rows);
    reduceUnconfinedSample(record, kSt);
    EXPECT_TRUE(std::isfinite(record.qu.number()));
  }
}

TEST(OddStresses, BeyondAnyNumberDoNotCount) {
  UnconfinedSampleRecord record = withStresses({{"1", "5", ""}, {"2", "1e999", ""}, {"3", "4", ""}});
  reduceUnconfinedSample(record, kSt);
  // (0, 0), (1, 5), (3, 4): a = (1 x 4 + (-3) x 5) / 6 = -11/6, b = 5 + 11/6; top at b / (-2 a) = 1.8636.
  EXPECT_EQ(textOf(record.qu), "6.4") << "41² / 36 / (4 x 11 / 6) = 6.3674";
  EXPECT_EQ(halfPeakOf(record, Specimen::Undisturbed).stress, 2.5);
}

TEST(OddStresses, BeyondAnyNumberLeaveNoStrength) {
  UnconfinedSampleRecord record = withStresses({{"1", "1e999", ""}, {"2", "1e999", ""}, {"3", "1e999", ""}});
  reduceUnconfinedSample(record, kSt);
  EXPECT_TRUE(record.qu.isBlank());
  EXPECT_TRUE(record.sensitivity.isBlank());
}

TEST(HalfPeak, LiesWhereTheCurveFirstCrossesHalfItsPeak) {
  const UnconfinedSampleRecord record =
      withStresses({{"1.0", "10.0", ""}, {"2.0", "30.0", ""}, {"3.0", "5.0", ""}, {"15.1", "90.0", ""}});
  // half of 30; 1 + (1 - 2) / (10 - 30) x (15 - 10)
  EXPECT_EQ(halfPeakOf(record, Specimen::Undisturbed), (HalfPeak{15, 1.25}));
  EXPECT_EQ(halfPeakOf(record, Specimen::Remoulded), HalfPeak{});
}

TEST(HalfPeak, PassesOverTextsBeyondAnyNumber) {
  const UnconfinedSampleRecord record = withStresses(
      {{"1e999", "10.0", ""}, {"1.0", "-1e999", ""}, {"1.5", "10.0", ""}, {"2.0", "30.0", ""}, {"-1e999", "99.0", ""}});
  EXPECT_EQ(halfPeakOf(record, Specimen::Undisturbed), (HalfPeak{15, 1.625}));
}

TEST(HalfPeak, ACrossingAtOneStrainIsNotTheLast) {
  const UnconfinedSampleRecord record =
      withStresses({{"1.0", "10.0", ""}, {"1.0", "20.0", ""}, {"1.5", "10.0", ""}, {"2.0", "30.0", ""}});
  // 1.0 stays until the next crossing: 1.5 + (1.5 - 2) / (10 - 30) x (15 - 10)
  EXPECT_EQ(halfPeakOf(record, Specimen::Undisturbed), (HalfPeak{15, 1.625}));
}

}  // namespace
}  // namespace triaxlab
