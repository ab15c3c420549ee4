#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "triaxial/opening_pass.h"
#include "triaxial/plain_reduction.h"

namespace triaxlab {
namespace {

using Random = std::mt19937;

template <class T, std::size_t N>
T oneOf(Random& random, const std::array<T, N>& choices) {
  return choices[random() % N];
}

int between(Random& random, int low, int high) { return std::uniform_int_distribution(low, high)(random); }

/// Texts that a field may hold: mostly whole numbers, some with decimals, some that only begin like numbers.
std::string anyText(Random& random, int largest) {
  static const std::array<std::string, 18> kOdd{"",       " 12",   "+7",    "-",   "1E3",   "2d1",
                                                "9E99",   "1E999", "-1E99", "12x", "1.2.3", "999999",
                                                "-99999", "0.5",   "32767", ".5",  "32768", "-0"};
  switch (random() % 16) {
    case 0:
      return oneOf(random, kOdd);
    case 1:
      return std::to_string(between(random, -largest, largest)) + '.' + std::to_string(random() % 100);
    case 2:
      return "";
    default:
      return std::to_string(between(random, -largest / 8, largest));
  }
}

float anyStrain(Random& random, std::size_t row, double limit) {
  switch (random() % 12) {
    case 0:
      return static_cast<float>(limit + 1e-6 * between(random, -9, 9));
    case 1:
      return oneOf(random, std::array{0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN(),
                                      std::numeric_limits<float>::infinity(), 1e-30F});
    default:
      return static_cast<float>(0.1 * static_cast<double>(row + 1));
  }
}

float anyCoefficient(Random& random) {
  return oneOf(
      random, std::array{0.0F, 0.0F, 0.0001F, 0.00005F, -0.3F, 0.95F, 1e-44F, std::numeric_limits<float>::quiet_NaN()});
}

void fillStage(TriaxialSampleRecord& record, std::size_t stage, Random& random) {
  const int largest = oneOf(random, std::array{30, 300, 3000, 60000});
  SetText(record.cellPressure[stage], random() % 4 == 0 ? anyText(random, largest) : std::to_string(100 * (stage + 1)));
  record.failureStrainLimit[stage] = static_cast<std::uint8_t>(random());
  record.coefficientB[stage] = anyCoefficient(random);
  record.coefficientAf[stage] = anyCoefficient(random);
  record.consolidationPorePressure[0][stage] = static_cast<std::int16_t>(random());
  for (auto* field : {&record.sigma1Failure[stage], &record.sigma1FailureEff[stage], &record.sigma3FailureEff[stage]})
    SetText(*field, anyText(random, largest));
  const std::size_t rows = random() % (kShearRows + 1);
  const bool sparse = random() % 3 == 0;
  for (std::size_t row = 0; row < kShearRows; ++row) {
    record.axialStrain[row][stage] = anyStrain(random, row, record.failureStrainLimit[stage] / 10.0);
    if (row >= rows && !sparse) continue;
    SetText(record.deviatorStress[row][stage], anyText(random, largest));
    SetText(record.porePressure[row][stage], anyText(random, random() % 2 == 0 ? largest / 2 : 9));
    SetText(record.sigma1Eff[row][stage], anyText(random, largest));
    SetText(record.sigma3Eff[row][stage], anyText(random, largest));
  }
}

TriaxialSampleRecord anyRecord(Random& random) {
  TriaxialSampleRecord record;
  SetText(record.projectNo, random() % 50 == 0 ? " " : "P");
  SetText(record.sampleNo, random() % 50 == 0 ? "" : "T");
  record.testMethod = oneOf(random, std::array<std::uint8_t, 8>{0, 1, 2, 2, 2, 2, 3, 4});
  record.shearMode = static_cast<std::uint8_t>(random() % 5);
  record.adjustedFlag = oneOf(random, std::array<std::uint8_t, 6>{0, 0, 0, 0, 1, 2});
  for (std::size_t stage = 0; stage < kStages; ++stage) fillStage(record, stage, random);
  return record;
}

/// Where two records differ first, or their size.
std::size_t firstDifference(const TriaxialSampleRecord& left, const TriaxialSampleRecord& right) {
  std::array<unsigned char, sizeof(TriaxialSampleRecord)> a, b;
  std::memcpy(a.data(), &left, a.size());
  std::memcpy(b.data(), &right, b.size());
  std::size_t at = 0;
  while (at < a.size() && a[at] == b[at]) ++at;
  return at;
}

TEST(OpeningPassIdentity, TheFastPassLeavesTheBytesOfThePlainOne) {
  Random random(20240506);
  for (int sample = 0; sample < 400; ++sample) {
    TriaxialSampleRecord fast = anyRecord(random);
    TriaxialSampleRecord plain = fast;
    const auto format = static_cast<NumberFormat>(random() % 5);
    for (int opening = 1; opening <= 2; ++opening) {
      runOpeningPass({&fast, 1}, format);
      tests::plainOpeningPass(plain, format);
      ASSERT_EQ(firstDifference(fast, plain), sizeof(TriaxialSampleRecord))
          << "sample " << sample << ", opening " << opening;
    }
  }
}

}  // namespace
}  // namespace triaxlab
