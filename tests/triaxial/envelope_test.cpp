#include "triaxial/envelope.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "common/angles.h"
#include "triaxial/samples.h"

namespace triaxlab {
namespace {

using tests::open;
using tests::sampleOf;
using tests::setRow;
using tests::setStage;
using tests::text;

struct Circle {
  std::string centre, radius;
  std::string sigma3 = "100";
};

/// A sample with failure points as a page finds them.
TriaxialSampleRecord withCircles(const std::vector<Circle>& circles, TestMethod method = kUU) {
  TriaxialSampleRecord record = sampleOf(method);
  for (std::size_t stage = 0; stage < circles.size(); ++stage) {
    setStage(record, stage, circles[stage].sigma3);
    SetText(record.failureCentre[stage], circles[stage].centre);
    SetText(record.failureRadius[stage], circles[stage].radius);
  }
  return record;
}

void setEffective(TriaxialSampleRecord& record, std::size_t stage, std::string_view centre, std::string_view radius) {
  SetText(record.failureCentreEff[stage], centre);
  SetText(record.failureRadiusEff[stage], radius);
}

// Two circles with centres 200 and 300: sum p = 500, sum p^2 = 130000, 2 x 130000 - 500^2 = 10000.
// Radii 110 and 160: sum q = 270, sum pq = 70000, a = (140000 - 135000) / 10000 = 0.5, so sin phi = 0.5, phi = 30
// degrees, tan phi = 0.57735, C = (160 - 300 x 0.5) / cos phi = 10 / 0.8660254 = 11.547.
const std::vector<Circle> kThirtyDegrees{{"200", "110"}, {"300", "160"}};

TEST(TotalEnvelope, OfTwoCircles) {
  TriaxialSampleRecord record = withCircles(kThirtyDegrees);
  const Envelope total = envelopesOfPage(record, NumberFormat::Hundredths).total;
  EXPECT_TRUE(total.exists);
  EXPECT_NEAR(total.tanPhi, 1 / std::sqrt(3.0), 1e-12);
  EXPECT_NEAR(total.cohesion, 20 / std::sqrt(3.0), 1e-9);
  EXPECT_FLOAT_EQ(record.frictionAngle, 30.0F);
  EXPECT_EQ(record.cohesionTenths, 115);  // Int(115.47)
  EXPECT_EQ(text(record.cohesionText), "11.55");
}

TEST(TotalEnvelope, StandsOnTheLargestCentreAndTheLargestRadius) {
  // Centres 200, 300, 400, radii 100, 120, 110: sum p = 900, q = 330, p^2 = 290000, pq = 100000,
  // a = (300000 - 297000) / (870000 - 810000) = 0.05. C = (120 - 400 x 0.05) / sqrt(1 - 0.0025) = 100.125...
  TriaxialSampleRecord record = withCircles({{"200", "100"}, {"300", "120"}, {"400", "110"}});
  const Envelope total = envelopesOfPage(record, NumberFormat::Tenths).total;
  EXPECT_NEAR(total.tanPhi, 0.05 / std::sqrt(0.9975), 1e-12);
  EXPECT_NEAR(total.cohesion, 100 / std::sqrt(0.9975), 1e-9);
  EXPECT_EQ(text(record.cohesionText), "100.1");
  EXPECT_EQ(record.cohesionTenths, 1001);
}

TEST(TotalEnvelope, EqualRadiiLieUnderALevelLine) {
  TriaxialSampleRecord record = withCircles({{"200", "50"}, {"300", "50"}});
  const Envelope total = envelopesOfPage(record, NumberFormat::Whole).total;
  EXPECT_EQ(total.tanPhi, 0);
  EXPECT_EQ(total.cohesion, 50);
  EXPECT_EQ(record.frictionAngle, 0.0F);
  EXPECT_EQ(text(record.cohesionText), "50");
}

TEST(TotalEnvelope, ARadiusThatFallsGivesThePositiveAngle) {
  // Radii 150 and 100: sum q = 250, pq = 60000, a = (120000 - 125000) / 10000 = -0.5; C = (150 - 300 x 0.5) / cos = 0.
  TriaxialSampleRecord record = withCircles({{"200", "150"}, {"300", "100"}});
  const Envelope total = envelopesOfPage(record, NumberFormat::Whole).total;
  EXPECT_NEAR(total.tanPhi, 1 / std::sqrt(3.0), 1e-12);
  EXPECT_NEAR(total.cohesion, 0, 1e-9);
  EXPECT_FLOAT_EQ(record.frictionAngle, 30.0F);
  EXPECT_EQ(text(record.cohesionText), "0");
}

TEST(TotalEnvelope, ANegativeCohesionRoundsDownInTenths) {
  // Radii 90 and 140: a = 0.5 again, C = (140 - 150) / 0.8660254 = -11.547: Int(-115.47) = -116.
  TriaxialSampleRecord record = withCircles({{"200", "90"}, {"300", "140"}});
  envelopesOfPage(record, NumberFormat::Hundredths);
  EXPECT_EQ(record.cohesionTenths, -116);
  EXPECT_EQ(text(record.cohesionText), "-11.55");
}

TEST(TotalEnvelope, TenthsBeyondAnIntegerStayAndTheTextIsTaken) {
  TriaxialSampleRecord record = withCircles({{"9000", "5000"}, {"9001", "5000"}});  // level at 5000: 50000 tenths
  record.cohesionTenths = std::int16_t{77};
  envelopesOfPage(record, NumberFormat::Whole);
  EXPECT_EQ(record.cohesionTenths, 77);
  EXPECT_EQ(text(record.cohesionText), "5000");
}

/// A sample that holds results from before.
TriaxialSampleRecord withOldResults(const std::vector<Circle>& circles) {
  TriaxialSampleRecord record = withCircles(circles);
  record.frictionAngle = 12.5F;
  record.cohesionTenths = std::int16_t{345};
  SetText(record.cohesionText, "34.5");
  return record;
}

void expectOldResults(const TriaxialSampleRecord& record) {
  EXPECT_EQ(record.frictionAngle, 12.5F);
  EXPECT_EQ(record.cohesionTenths, 345);
  EXPECT_EQ(text(record.cohesionText), "34.5");
}

TEST(TotalEnvelope, AFitWithoutAValueKeepsTheOldResults) {
  const std::vector<Circle> kOneCentre{{"200", "100"}, {"200", "120"}};
  const std::vector<Circle> kSlopeOne{{"200", "100"}, {"300", "200"}};   // a = 1
  const std::vector<Circle> kSlopeTwo{{"200", "100"}, {"300", "300"}};   // a = 2
  const std::vector<Circle> kSlopeLess{{"200", "300"}, {"300", "100"}};  // a = -2
  for (const auto& circles : {kOneCentre, kSlopeOne, kSlopeTwo, kSlopeLess}) {
    TriaxialSampleRecord record = withOldResults(circles);
    const Envelope total = envelopesOfPage(record, NumberFormat::Tenths).total;
    expectOldResults(record);
    EXPECT_TRUE(total.exists);  // what the record holds is what is shown
    EXPECT_EQ(total.tanPhi, tangentOfDegrees(12.5));
    EXPECT_EQ(total.cohesion, 34.5);

    TriaxialSampleRecord fresh = withCircles(circles);
    EXPECT_FALSE(envelopesOfPage(fresh, NumberFormat::Tenths).total.exists);
    fitTotalEnvelope(record, 2, NumberFormat::Tenths);
    expectOldResults(record);
  }
}

TEST(TotalEnvelope, OneCircleHasNone) {
  TriaxialSampleRecord record = withOldResults({{"200", "100"}, {"300", ""}});
  const Envelope total = envelopesOfPage(record, NumberFormat::Tenths).total;
  EXPECT_FALSE(total.exists);
  EXPECT_EQ(total.tanPhi, 0);
  EXPECT_EQ(total.cohesion, 0);
  expectOldResults(record);
}

TEST(TotalEnvelope, AdjustedByHandIsReadBack) {
  for (const auto& circles : {kThirtyDegrees, std::vector<Circle>{{"200", "100"}}}) {
    TriaxialSampleRecord record = withOldResults(circles);
    record.adjustedFlag = 1;
    const Envelope total = envelopesOfPage(record, NumberFormat::Whole).total;
    EXPECT_TRUE(total.exists);  // even of one circle
    EXPECT_EQ(total.tanPhi, std::tan(12.5 * 3.1415926 / 180));
    EXPECT_EQ(total.cohesion, 34.5);
    expectOldResults(record);
  }
}

TEST(TotalEnvelope, CountsEveryFailedStageButSumsThoseUnderPressure) {
  // Three radii, the third stage without pressure: n = 3, sums over two.
  // a = (3 x 70000 - 500 x 270) / (3 x 130000 - 250000) = 75000 / 140000 = 0.535714...
  // C = (160 - 300 a) / sqrt(1 - a^2) = -0.714286 / 0.844390 = -0.8459
  TriaxialSampleRecord record = withCircles({{"200", "110"}, {"300", "160"}, {"900", "500", "-10"}});
  const Envelope total = envelopesOfPage(record, NumberFormat::Hundredths).total;
  const double a = 75000.0 / 140000.0;
  EXPECT_NEAR(total.tanPhi, a / std::sqrt(1 - a * a), 1e-12);
  EXPECT_EQ(text(record.cohesionText), "-0.85");
}

TEST(TotalEnvelope, AStageOfNoStressUnderPressureTakesPartInTheSums) {
  // Radii 110 and 160 and a stage at centre 100 without radius: n = 2, sum p = 600, p^2 = 140000, q = 270, pq = 70000:
  // a = (140000 - 162000) / (280000 - 360000) = 0.275; C = (160 - 300 x 0.275) / sqrt(1 - 0.075625) = 80.6068
  TriaxialSampleRecord record = withCircles({{"200", "110"}, {"300", "160"}, {"100", ""}});
  envelopesOfPage(record, NumberFormat::Hundredths);
  EXPECT_EQ(text(record.cohesionText), "80.61");
}

TEST(EffectiveEnvelope, OfCuOnly) {
  for (const TestMethod method : {kUU, kCU, kCD}) {
    TriaxialSampleRecord record = withCircles({{"200", "50"}, {"300", "50"}}, method);
    setEffective(record, 0, "200", "110");
    setEffective(record, 1, "300", "160");
    const Envelopes found = envelopesOfPage(record, NumberFormat::Hundredths);
    EXPECT_EQ(found.effective.exists, method == kCU);
    EXPECT_EQ(text(record.cohesionText), "50.00");
    EXPECT_EQ(text(record.cohesionEffText), method == kCU ? "11.55" : "");
    EXPECT_EQ(record.cohesionEffTenths, method == kCU ? 115 : 0);
    if (method == kCU) {
      EXPECT_FLOAT_EQ(record.frictionAngleEff, 30.0F);
      EXPECT_NEAR(found.effective.tanPhi, 1 / std::sqrt(3.0), 1e-12);
    }
  }
}

/// CU stages at 100 and 200 kPa that fail at 80 and 130 kPa: centres 140 and 265, radii 40 and 65.
/// sum p = 405, q = 105, p^2 = 89825, pq = 22825; a = (45650 - 42525) / (179650 - 164025) = 3125 / 15625 = 0.2;
/// C = (65 - 265 x 0.2) / sqrt(0.96) = 12.2474
TriaxialSampleRecord twoCurves() {
  TriaxialSampleRecord record = sampleOf(kCU);
  setStage(record, 0, "100");
  setStage(record, 1, "200");
  setRow(record, 0, 0, 1, "80", "20");
  setRow(record, 1, 0, 1, "130", "60");
  return record;
}

TEST(OpeningFit, StoresTheTotalEnvelopeAlone) {
  TriaxialSampleRecord record = twoCurves();
  open(record, NumberFormat::Hundredths);
  EXPECT_FLOAT_EQ(record.frictionAngle, static_cast<float>(std::asin(0.2) * 180 / 3.1415926535));
  EXPECT_EQ(record.cohesionTenths, 122);
  EXPECT_EQ(text(record.cohesionText), "12.25");
  EXPECT_EQ(record.frictionAngleEff, 0.0F);
  EXPECT_EQ(text(record.cohesionEffText), "");
}

TEST(OpeningFit, NeedsTwoFailedStages) {
  TriaxialSampleRecord record = twoCurves();
  setRow(record, 1, 0, 1, "0");
  open(record);
  EXPECT_EQ(text(record.cohesionText), "");
}

TEST(OpeningFit, AsksForZeroAndThePageForOne) {
  TriaxialSampleRecord record = twoCurves();
  record.adjustedFlag = 2;
  open(record);
  EXPECT_EQ(text(record.cohesionText), "");
  envelopesOfPage(record, NumberFormat::Whole);
  EXPECT_EQ(text(record.cohesionText), "12");
  record.adjustedFlag = 1;
  SetText(record.cohesionText, "99");
  open(record);
  envelopesOfPage(record, NumberFormat::Whole);
  EXPECT_EQ(text(record.cohesionText), "99");
}

TEST(OpeningFit, EveryFormatOfTheCohesion) {
  const char* const kTexts[] = {"12", "12.2", "12.25", "12.247", "12.2474"};
  for (std::size_t decimals = 0; decimals < std::size(kTexts); ++decimals) {
    TriaxialSampleRecord record = twoCurves();
    open(record, static_cast<NumberFormat>(decimals));
    EXPECT_EQ(text(record.cohesionText), kTexts[decimals]);
  }
}

// ---- set by hand

TEST(AdjustedEnvelopes, AreKeptAndReadBack) {
  TriaxialSampleRecord record = tests::sampleOf(kCU);
  storeAdjustedEnvelopes(record, {.total = {1, 12.57, true}, .effective = {0, -3.55, true}}, NumberFormat::Tenths);
  EXPECT_EQ(record.adjustedFlag, 1);
  EXPECT_EQ(record.frictionAngle, 45.0F);
  EXPECT_EQ(record.cohesionTenths, 125);  // Int(125.7)
  EXPECT_EQ(tests::text(record.cohesionText), "12.6");
  EXPECT_EQ(record.frictionAngleEff, 0.0F);
  EXPECT_EQ(record.cohesionEffTenths, -36);  // Int(-35.5)
  EXPECT_EQ(tests::text(record.cohesionEffText), "-3.6");
  const Envelopes shown = envelopesOfPage(record, NumberFormat::Tenths);
  EXPECT_EQ(shown.total.cohesion, 12.6);
  EXPECT_DOUBLE_EQ(shown.total.tanPhi, std::tan(45 * 3.1415926 / 180));
  EXPECT_EQ(shown.effective.cohesion, -3.6);
}

TEST(AdjustedEnvelopes, TheEffectiveOneIsOfCUAlone) {
  TriaxialSampleRecord record = tests::sampleOf(kUU);
  storeAdjustedEnvelopes(record, {.total = {0, 5000, true}, .effective = {1, 7, true}}, NumberFormat::Whole);
  EXPECT_EQ(tests::text(record.cohesionText), "5000");
  EXPECT_EQ(record.cohesionTenths, 0) << "50000 is no 16-bit number";
  EXPECT_TRUE(record.cohesionEffText.isBlank());
  EXPECT_EQ(record.cohesionEffTenths, 0);
  EXPECT_EQ(record.frictionAngleEff, 0.0F);
}

}  // namespace
}  // namespace triaxlab
