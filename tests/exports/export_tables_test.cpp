// What the tables of each kind of test hold.
#include <gmock/gmock.h>

#include <map>
#include <set>

#include "exports/export_fixture.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;

constexpr auto kResults = TableContent::Results;
constexpr auto kReadings = TableContent::Readings;

class ExportedTables : public testing::ExportTest {
 protected:
  template <class Record>
  Record& named(Record& record) {
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, "A-1");
    return record;
  }
  /// The line of the results, by column; empty values left out.
  std::map<std::string, std::string> result(ProjectKind kind) const {
    const std::vector<std::string> all = lines(kind, kResults);
    EXPECT_EQ(all.size(), 2U);
    std::map<std::string, std::string> values;
    const auto names = cells(all.at(0)), texts = cells(all.at(1));
    EXPECT_EQ(names.size(), texts.size());
    for (std::size_t i = 0; i < names.size(); ++i)
      if (!texts.at(i).empty()) values[names[i]] = texts[i];
    return values;
  }

 private:
  static std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> cells{""};
    for (const char c : line)
      if (c == ',')
        cells.emplace_back();
      else
        cells.back() += c;
    return cells;
  }
};

using Values = std::map<std::string, std::string>;

TEST_F(ExportedTables, HaveNamesThatAnyProgramCanRead) {
  for (const ExportTables* const tables : exportTables())
    for (const TableContent content : {kResults, kReadings}) {
      std::set<std::string> names;
      for (const TableColumn& column : tables->columns(content))
        for (const std::string& name : namesOf(column)) {
          EXPECT_TRUE(names.insert(name).second) << name << " stands twice";
          for (const char c : name)
            EXPECT_TRUE((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_') << name;
        }
    }
}

TEST_F(ExportedTables, OfOldTriaxialFilesAreThoseOfTriaxialTests) {
  EXPECT_EQ(&exportTablesOf(ProjectKind::OldTriaxial), &kTriaxialTables);
}

// ---- Triaxial

TEST_F(ExportedTables, OfTriaxialResultsTellTheSampleAndItsStages) {
  TriaxialSampleRecord& record = named(workspace.TriaxialSampleTable[0]);
  record.testMethod = kCU;
  record.shearMode = 1;
  SetText(record.testDate, "2024-05-06");
  SetText(record.cohesionText, "12.50");
  record.cohesionTenths = 125;
  record.frictionAngle = 23.45F;
  SetText(record.cohesionEffText, "0.0");
  record.frictionAngleEff = 30.06F;
  SetText(record.cellPressure[0], "100");
  SetText(record.cellPressure[1], "0200");
  SetText(record.sigma1Failure[1], "345");
  record.coefficientB[0] = 0.125F;
  record.shearRate[0] = 80;
  SetText(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].boreholeNo, "ZK1");
  EXPECT_EQ(result(ProjectKind::Triaxial), (Values{{"projectNo", "P1"},
                                                   {"sample", "1"},
                                                   {"sampleNo", "A-1"},
                                                   {"testMethod", "CU"},
                                                   {"shearMode", "1"},
                                                   {"testDate", "2024-05-06"},
                                                   {"boreholeNo", "ZK1"},
                                                   {"cohesion_kPa", "12.50"},
                                                   {"frictionAngle_deg", "23.5"},
                                                   {"cohesionEff_kPa", "0.0"},
                                                   {"frictionAngleEff_deg", "30.1"},
                                                   {"adjusted", "0"},
                                                   {"cellPressure1_kPa", "100"},
                                                   {"cellPressure2_kPa", "0200"},
                                                   {"sigma1Failure2_kPa", "345"},
                                                   {"coefficientB1", "0.13"},
                                                   {"shearRate1_percent_per_min", "0.080"}}));
}

TEST_F(ExportedTables, OfTriaxialResultsLeaveOutWhatWasNotFound) {
  TriaxialSampleRecord& record = named(workspace.TriaxialSampleTable[0]);
  record.testMethod = kUU;
  SetText(record.cohesionText, "0.0");
  SetText(record.cohesionEffText, "5.0");
  record.frictionAngleEff = 20;
  EXPECT_EQ(result(ProjectKind::Triaxial), (Values{{"projectNo", "P1"},
                                                   {"sample", "1"},
                                                   {"sampleNo", "A-1"},
                                                   {"testMethod", "UU"},
                                                   {"shearMode", "0"},
                                                   {"adjusted", "0"}}));
}

TEST_F(ExportedTables, OfTriaxialReadingsHaveBothPhasesOfEachStage) {
  TriaxialSampleRecord& record = named(workspace.TriaxialSampleTable[0]);
  record.testMethod = kCU;
  SetText(record.cellPressure[0], "100");
  SetText(record.cellPressure[1], "200");
  record.consolidationPorePressure[0][0] = 985;
  record.consolidationTime[1][0] = 90;
  record.consolidationVolume[1][0] = 5;
  record.axialStrain[0][0] = 0.2F;
  SetText(record.deviatorStress[0][0], "012");
  SetText(record.porePressure[0][0], "3.5");
  SetText(record.sigma1Eff[0][0], "108.5");
  SetText(record.sigma3Eff[0][0], "96.5");
  record.volumeChange[0][0] = -7;
  record.axialStrain[1][0] = 0.4F;  // of a fixed step, without a reading
  record.axialStrain[4][1] = 1.25F;
  SetText(record.deviatorStress[4][1], "88");
  EXPECT_THAT(
      lines(ProjectKind::Triaxial, kReadings),
      ElementsAre(
          "projectNo,sample,sampleNo,testMethod,phase,stage,cellPressure_kPa,reading,time_s,"
          "axialStrain_percent,deviatorStress_kPa,porePressure_kPa,volumeChange_ml,sigma1Eff_kPa,sigma3Eff_kPa",
          "P1,1,A-1,CU,consolidation,1,100,1,0,,,98.5,0.00,,", "P1,1,A-1,CU,consolidation,1,100,2,90,,,0.0,0.05,,",
          "P1,1,A-1,CU,shear,1,100,1,,0.2,012,3.5,-0.07,108.5,96.5", "P1,1,A-1,CU,shear,2,200,5,,1.25,88,,0.00,,"));
}

// ---- Unconfined

TEST_F(ExportedTables, OfUnconfinedTestsTellBothSpecimens) {
  UnconfinedSampleRecord& record = named(workspace.UnconfinedSampleTable[0]);
  SetText(record.qu, "85.0");
  SetText(record.sensitivity, "4.3");
  SetText(record.sampleHeight[1], "8.00");
  record.ringCoefficient[0] = 2345;
  record.strainLimit = {150, 80};
  for (std::size_t row = 0; row < 3; ++row)
    SetNumber(record.undisturbedStrain[row], static_cast<double>(row), NumberFormat::Tenths);
  SetText(record.undisturbedReading[1], "36");
  SetText(record.undisturbedStress[1], "40.1");
  SetText(record.remouldedStrain[0], "0.5");
  SetText(record.remouldedStress[0], "9");
  EXPECT_THAT(
      lines(ProjectKind::Unconfined, kReadings),
      ElementsAre("projectNo,sample,sampleNo,specimen,reading,strain_percent,dialReading_hundredths_mm,stress_kPa",
                  "P1,1,A-1,undisturbed,2,1.0,36,40.1", "P1,1,A-1,remoulded,1,0.5,,9"));
  Values values = result(ProjectKind::Unconfined);
  std::erase_if(values, [](const auto& value) { return value.first.starts_with("strainAtPeak"); });
  EXPECT_EQ(values, (Values{{"projectNo", "P1"},
                            {"sample", "1"},
                            {"sampleNo", "A-1"},
                            {"qu_kPa", "85.0"},
                            {"sensitivity", "4.3"},
                            {"sampleHeight2_cm", "8.00"},
                            {"ringCoefficient1_N_per_hundredth_mm", "2.345"},
                            {"strainLimit1_percent", "15.0"},
                            {"strainLimit2_percent", "8.0"}}));
}

// ---- K0 and TK0

TEST_F(ExportedTables, OfK0ReadingsHaveALineALoadStage) {
  K0SampleRecord& record = named(workspace.K0SampleTable[0]);
  SetText(record.axialPressure[0], "50");
  SetText(record.axialDeformation[0], "0.120");
  SetText(record.lateralPressure[0], "22.5");
  SetText(record.axialPressure[2], "200");
  EXPECT_THAT(lines(ProjectKind::K0, kReadings),
              ElementsAre("projectNo,sample,sampleNo,stage,axialPressure_kPa,axialDeformation_mm,lateralPressure_kPa",
                          "P1,1,A-1,1,50,0.120,22.5", "P1,1,A-1,3,200,,"));
}

TEST_F(ExportedTables, OfK0ResultsTakeTheRecordsOwnDepth) {
  K0SampleRecord& record = named(workspace.K0SampleTable[0]);
  SetText(record.samplingDepth, "3.0-3.3");
  SetText(workspace.dataOf(ProjectKind::K0).SampleDisplayTable[0].samplingDepth, "9.9");
  EXPECT_EQ(result(ProjectKind::K0)["samplingDepth"], "3.0-3.3");
}

TEST_F(ExportedTables, OfTK0ReadingsHaveALineATime) {
  TK0SampleRecord& record = workspace.TK0SampleTable[0];
  named(record.k0);
  SetText(record.k0.axialPressure[1], "100");
  record.elapsedSeconds[0] = 0;
  record.elapsedSeconds[1] = 15;
  SetText(record.deformationSeries[0][1], "0.000");
  SetText(record.deformationSeries[1][1], "0.015");
  SetText(record.pressureSeries[1][1], "41.2");
  EXPECT_THAT(
      lines(ProjectKind::TK0, kReadings),
      ElementsAre("projectNo,sample,sampleNo,stage,axialPressure_kPa,reading,time_s,deformation_mm,pressure_kPa",
                  "P1,1,A-1,2,100,1,0,0.000,", "P1,1,A-1,2,100,2,15,0.015,41.2"));
}

TEST_F(ExportedTables, OfTK0ResultsTellTheT90OfLoadedStages) {
  // Without readings the construction finds no T90, which is 0; a stage without load has none.
  TK0SampleRecord& record = workspace.TK0SampleTable[0];
  named(record.k0);
  SetText(record.k0.axialPressure[0], "50");
  const Values values = result(ProjectKind::TK0);
  EXPECT_EQ(values.at("axialPressure1_kPa"), "50");
  EXPECT_EQ(values.at("t90Stage1_min"), "0.0");
  EXPECT_FALSE(values.contains("t90Stage2_min"));
}

}  // namespace
}  // namespace triaxlab
