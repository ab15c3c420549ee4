// What the demonstration databases of the unconfined sources hold, as their maker wrote it down: the strengths of the
// soils, over whose curves a little scatter was laid.
#include <array>
#include <map>

#include "importers/import_fixture.h"
#include "unconfined/reduction.h"

namespace triaxlab::testing {
namespace {

struct Soil {
  double strength, strain, sensitivity;  // kPa, %, -; a sensitivity of 0: no remoulded specimen
};

struct Demonstration {
  std::string_view source, file;
  std::map<std::string, Soil, std::less<>> soils;
};

const std::array kDemonstrations{
    Demonstration{"unconfined-kzj",
                  "KZJSJ.KU",
                  {{"ZK1-1-01", {86, 7.5, 3.1}},
                   {"ZK1-1-02", {142, 6.0, 4.4}},
                   {"ZK1-2-01", {210, 5.2, 5.8}},
                   {"ZK2-1-01", {48, 10.4, 2.2}},
                   {"ZK2-1-02", {325, 3.6, 7.9}},
                   {"ZK2-2-01", {118, 8.3, 2.7}},
                   {"1-1", {260, 2.9, 6.4}},
                   {"1-2", {175, 3.8, 4.0}},
                   {"1-3", {95, 5.1, 2.9}}}},
    Demonstration{"unconfined-hwx",
                  "HWXSJ.KU",
                  {{"ZK5-1", {64, 8.6, 2.6}},
                   {"ZK5-2", {118, 6.4, 3.8}},
                   {"ZK5-3", {187, 5.0, 5.1}},
                   {"ZK6-1", {41, 11.2, 1.9}},
                   {"B2-1", {232, 3.9, 6.7}},
                   {"B2-2", {305, 3.2, 0}},
                   {"B2-3", {96, 7.3, 3.2}}}},
};

class UnconfinedSamples : public ImportTest, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(UnconfinedSamples, HaveTheStrengthsOfTheirSoils) {
  const Demonstration& demonstration = kDemonstrations.at(GetParam());
  importPath(std::filesystem::path(TRIAXLAB_SAMPLES) / demonstration.file, demonstration.source);
  const auto records = workspace.UnconfinedSampleTable.used();
  reduceAllUnconfinedSamples(records, NumberFormat::Hundredths);
  ASSERT_EQ(records.size(), demonstration.soils.size());
  for (const UnconfinedSampleRecord& record : records) {
    const auto found = demonstration.soils.find(record.sampleNo.trimmed());
    ASSERT_NE(found, demonstration.soils.end()) << record.sampleNo.trimmed();
    const auto& [number, soil] = *found;
    EXPECT_NEAR(record.qu.number(), soil.strength, 1) << number;
    EXPECT_NEAR(record.sensitivity.number(), soil.sensitivity, 0.05) << number;
    EXPECT_EQ(record.sensitivity.isBlank(), soil.sensitivity == 0) << number;
    EXPECT_NEAR(strainAtPeak(record, triaxlab::Specimen::Undisturbed).value_or(0), soil.strain, 0.6) << number;
  }
}
INSTANTIATE_TEST_SUITE_P(Demonstration, UnconfinedSamples, ::testing::Values(0, 1));

}  // namespace
}  // namespace triaxlab::testing
