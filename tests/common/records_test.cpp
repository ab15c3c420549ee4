#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "k0/record.h"
#include "platform/files.h"
#include "store/project/project_header.h"
#include "store/summary/summary_record.h"
#include "triaxial/record.h"
#include "unconfined/record.h"

namespace triaxlab {
namespace {

template <class Record>
class RecordOnFile : public testing::Test {};

using Records = testing::Types<TriaxialSampleRecord, UnconfinedSampleRecord, K0SampleRecord, TK0SampleRecord,
                               ProjectHeader, SummaryHeader, SummaryRecord>;
TYPED_TEST_SUITE(RecordOnFile, Records, );

TYPED_TEST(RecordOnFile, AnyBytesComeBackAsTheyWere) {
  std::mt19937 random{81};
  for (int round = 0; round < 100; ++round) {
    Bytes file(sizeof(TypeParam));
    for (std::byte& byte : file) byte = static_cast<std::byte>(random());
    TypeParam record;
    std::copy(file.begin(), file.end(), writableBytesOf(record).begin());
    const TypeParam copied = record;  // as the tables copy their rows
    TypeParam assigned;
    assigned = copied;
    ASSERT_TRUE(std::ranges::equal(bytesOf(assigned), file));
  }
}

struct Stretch {
  std::size_t size;
  char value;
};

template <class Record>
std::string blankBytes() {
  const Record blank{};
  const auto bytes = bytesOf(blank);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string joined(std::initializer_list<Stretch> stretches) {
  std::string bytes;
  for (const auto& [size, value] : stretches) bytes.append(size, value);
  return bytes;
}

TEST(BlankTemplate, TextsAreBlankAndNumbersZero) {
  EXPECT_EQ(blankBytes<TriaxialSampleRecord>(),
            joined({{29, ' '},                // project and sample number
                    {56 - 29, '\0'},          // flags, methods, rates, C and phi
                    {321 - 56, ' '},          // measures and failure values
                    {5, '\0'},                // strain limits
                    {25916 - 326, ' '},       // shear rows that are text
                    {38366 - 25916, '\0'},    // consolidation rows, strains, path, B, Af
                    {38576 - 38366, ' '}}));  // test date, shown C, reserve
  EXPECT_EQ(blankBytes<UnconfinedSampleRecord>(), joined({{1890, ' '}, {4, '\0'}, {18, ' '}, {2, '\0'}, {10, ' '}}));
  const std::string k0 = joined({{30, ' '}, {1, '\0'}, {212, ' '}});
  EXPECT_EQ(blankBytes<K0SampleRecord>(), k0);
  EXPECT_EQ(blankBytes<TK0SampleRecord>(), k0 + joined({{4340, ' '}, {298, '\0'}}));
}

TEST(BlankTemplate, HeadersAndSummaryAreBlank) {
  EXPECT_EQ(blankBytes<ProjectHeader>(), joined({{79, ' '}, {2, '\0'}}));
  EXPECT_EQ(blankBytes<SummaryHeader>(), std::string(600, ' '));
  EXPECT_EQ(blankBytes<SummaryRecord>(), std::string(2747, ' '));
}

/// Where the only byte that differs from the blank record stands.
template <class Record>
std::size_t placeOfChange(const Record& record) {
  const Record blank{};
  const auto now = bytesOf(record), before = bytesOf(blank);
  return static_cast<std::size_t>(std::ranges::mismatch(now, before).in1 - now.begin());
}

TEST(TriaxialRecord, TheStageVariesFastest) {
  // Element (stage s, row r) stands at s + 5 r: six bytes a text, two a volume, four a strain.
  TriaxialSampleRecord record;
  SetText(record.deviatorStress[3][2], "7");
  EXPECT_EQ(placeOfChange(record), 476U + (2 + 5 * 3) * 6);
  record = {};
  SetText(record.porePressure[211][4], "7");
  EXPECT_EQ(placeOfChange(record), 19556U + (4 + 5 * 211) * 6);
  record = {};
  record.volumeChange[10][1] = 1;
  EXPECT_EQ(placeOfChange(record), 31956U + (1 + 5 * 10) * 2);
  record = {};
  record.consolidationTime[150][3] = 1;
  EXPECT_EQ(placeOfChange(record), 25916U + (3 + 5 * 150) * 4);
}

TEST(TK0Record, TheStageVariesFastest) {
  TK0SampleRecord record;
  SetText(record.deformationSeries[30][9], "7");
  EXPECT_EQ(placeOfChange(record), 2413U + (9 + 10 * 30) * 7);
}

TEST(TriaxialRecord, ANarrowFieldCutsItsNumber) {
  TriaxialSampleRecord record;
  SetNumber(record.failureRadiusEff[0], 1234, NumberFormat::Whole);
  EXPECT_EQ(record.failureRadiusEff[0].view(), "1234");
  SetNumber(record.failureRadiusEff[0], 12345, NumberFormat::Whole);
  EXPECT_EQ(record.failureRadiusEff[0].view(), "1234");
  SetText(record.cellPressure[0], "12345678");
  EXPECT_EQ(record.cellPressure[0].view(), "123456");
}

TEST(TriaxialRecord, IsLiveWithBothNumbers) {
  TriaxialSampleRecord record;
  EXPECT_FALSE(isLive(record));
  SetText(record.projectNo, "2024-018");
  EXPECT_FALSE(isLive(record));
  SetText(record.sampleNo, "A-1");
  EXPECT_TRUE(isLive(record));
  SetText(record.projectNo, " ");
  EXPECT_FALSE(isLive(record));
}

}  // namespace
}  // namespace triaxlab
