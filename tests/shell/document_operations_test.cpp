#include "shell/document_operations.h"

#include <gtest/gtest.h>

#include <string>

#include "shell/lab.h"

namespace triaxlab {
namespace {

using testing::Lab;
using testing::sample;

const RangeChooser kWholeFile = [](int count) { return SampleRange{1, count}; };

/// A CU sample of two stages whose peaks are 60 kPa at 100 kPa and 100 kPa at 200 kPa, without pore pressure.
TriaxialSampleRecord twoStages(std::string_view sampleNo) {
  TriaxialSampleRecord record = sample("P1", sampleNo, kCU);
  SetText(record.cellPressure[1], "200");
  SetText(record.deviatorStress[0][1], "100");
  record.axialStrain[0][1] = 2.0F;
  return record;
}

TEST(DocumentOperations, AnOpenedDocumentIsReduced) {
  Lab lab;
  lab.writeProject("P1", {sample("P1", "A-1"), sample("P1", "A-2")});
  lab.folder.write("esz.ini", *utf8ToGbkExactly("[工程名称]=[Job]"));
  EXPECT_EQ(openDocument(lab.workspace, ProjectKind::Triaxial, "WKSZP1.txt", kWholeFile), Remarks{});
  for (const std::size_t row : {0U, 1U}) {
    const TriaxialSampleRecord& record = lab.workspace.TriaxialSampleTable[row];
    EXPECT_EQ(record.failureRadius[0].trimmed(), "30");   // 60 / 2
    EXPECT_EQ(record.failureCentre[0].trimmed(), "130");  // (2 x 100 + 60) / 2
  }
  EXPECT_EQ(lab.workspace.settings.english.projectName, "Job");
}

TEST(DocumentOperations, AFileThatIsRefusedLeavesEverythingAsItWas) {
  Lab lab;
  lab.folder.write("HSZS/WKSZP1.txt", "short");
  lab.workspace.TriaxialSampleTable[0] = sample("P9", "A-1");
  SetText(lab.workspace.processingDate.year, "2012");
  EXPECT_THROW(openDocument(lab.workspace, ProjectKind::Triaxial, "WKSZP1.txt", kWholeFile), UserError);
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].projectNo.trimmed(), "P9");
  EXPECT_TRUE(lab.workspace.TriaxialSampleTable[0].failureRadius[0].isBlank()) << "not reduced either";
  EXPECT_EQ(lab.workspace.processingDate.year.trimmed(), "2012");
}

TEST(DocumentOperations, ADamagedSummaryFileIsARemark) {
  Lab lab;
  lab.writeProject("P1", {sample("P1", "A-1")});
  lab.folder.write("ZMSJ/khzp1.txt", "short");
  const Remarks remarks = openDocument(lab.workspace, ProjectKind::Triaxial, "WKSZP1.txt", kWholeFile);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_NE(remarks[0].find("khzp1.txt"), std::string::npos) << remarks[0];
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].failureRadius[0].trimmed(), "30");
}

TEST(DocumentOperations, AnImportIsReducedAndDropsTheDocumentNumber) {
  Lab lab;
  lab.workspace.TriaxialSampleTable[0] = sample("P1", "A-1");
  lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  SetText(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo, "QR-07");
  EXPECT_EQ(importedDocument(lab.workspace, documentKindOf(kForm1)), Remarks{});
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].failureRadius[0].trimmed(), "30");
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  EXPECT_TRUE(lab.workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST(DocumentOperations, ShowingAPageFindsTheEffectiveEnvelopeOfEverySample) {
  Lab lab;
  lab.workspace.settings.habits.cohesionDecimals = 1;
  lab.workspace.TriaxialSampleTable[0] = twoStages("A-1");
  lab.workspace.TriaxialSampleTable[1000] = twoStages("A-2");
  importedDocument(lab.workspace, documentKindOf(kForm1));
  // Centres 130 and 250, radii 30 and 50: slope a = 20 / 120, C = (50 - 250 sin) / cos with sin = a, so
  // (50 - 41.6667) / 0.986013 = 8.4515.
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].cohesionText.trimmed(), "8.5")
      << "the opening fits the total stresses";
  EXPECT_TRUE(lab.workspace.TriaxialSampleTable[0].cohesionEffText.isBlank());
  documentKindOf(kForm1).showPage(lab.workspace, CurvePage::StressDifferenceEnvelope);
  // Without pore pressure the effective stresses are the total ones.
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[0].cohesionEffText.trimmed(), "8.5");
  EXPECT_EQ(lab.workspace.TriaxialSampleTable[1000].cohesionEffText.trimmed(), "8.5");
}

TEST(DocumentOperations, ShowingAPagePassesOverEmptySlots) {
  Lab lab;
  lab.workspace.TriaxialSampleTable[3] = twoStages("");
  const TriaxialSampleRecord before = lab.workspace.TriaxialSampleTable[3];
  documentKindOf(kForm1).showPage(lab.workspace, CurvePage::StressDifferenceEnvelope);
  EXPECT_TRUE(std::ranges::equal(bytesOf(lab.workspace.TriaxialSampleTable[3]), bytesOf(before)));
}

/// A reading of 100 divisions at 1 %: 1.25 x 10 x 100 x 0.99 / 12 = 103.125 kPa.
UnconfinedSampleRecord unconfinedSample() {
  UnconfinedSampleRecord record;
  SetText(record.projectNo, "P1");
  SetText(record.sampleNo, "U-1");
  SetText(record.sampleArea[0], "12.00");
  record.ringCoefficient[0] = 1250;
  SetText(record.undisturbedStrain[0], "1.0");
  SetText(record.undisturbedReading[0], "100");
  return record;
}

TEST(DocumentOperations, ASaveOfUnconfinedSamplesTakesWhatWasTypedSinceTheyWereShown) {
  Lab lab;
  lab.workspace.UnconfinedSampleTable[0] = unconfinedSample();
  importedDocument(lab.workspace, documentKindOf(kForm4));
  EXPECT_EQ(lab.workspace.UnconfinedSampleTable[0].qu.trimmed(), "103.1");
  SetText(lab.workspace.UnconfinedSampleTable[0].undisturbedReading[0], "200.0");
  UnconfinedSampleRecord& withoutNumber = lab.workspace.UnconfinedSampleTable[1] = unconfinedSample();
  withoutNumber.sampleNo.clear();
  EXPECT_TRUE(saveDocument(lab.workspace, documentKindOf(kForm4), {}).errors.empty());
  EXPECT_EQ(lab.workspace.UnconfinedSampleTable[0].qu.trimmed(), "206.3") << "206.25, away from zero";
  EXPECT_TRUE(withoutNumber.qu.isBlank()) << "an empty slot is left alone";
  EXPECT_EQ(lab.folder.read("HSZS/KWCXP1.txt").substr(81 + 1894, 6), "206.3 ");
  EXPECT_EQ(lab.folder.read("ZMSJ/KHZP1.txt").substr(600 + 2735, 10), "206.3     ") << "qu and qu'";
}

TEST(DocumentOperations, ASaveOfK0SamplesFitsNothingThatWasNotShown) {
  Lab lab;
  K0SampleRecord& record = lab.workspace.K0SampleTable[0];
  SetText(record.projectNo, "P1");
  SetText(record.sampleNo, "S-1");
  for (const std::size_t stage : {0U, 1U}) {
    SetText(record.axialPressure[stage], stage == 0 ? "100" : "200");
    SetText(record.lateralPressure[stage], stage == 0 ? "50" : "100");
  }
  importedDocument(lab.workspace, documentKindOf(kForm6));
  SetText(record.lateralPressure[1], "150");
  EXPECT_TRUE(saveDocument(lab.workspace, documentKindOf(kForm6), {}).errors.empty());
  EXPECT_EQ(lab.folder.read("HSZS/KOP1.txt").substr(81 + 211, 6), "0.500 ");
  EXPECT_EQ(lab.folder.read("ZMSJ/KHZP1.txt").substr(600 + 1137, 6), "0.500 ");
}

TEST(DocumentOperations, TheSensitivityHasTheDecimalsOfTheLaboratory) {
  Lab lab;
  lab.folder.write("zmqvb.ini", "[无侧限灵敏度]3\n");  // since the start
  UnconfinedSampleRecord& record = lab.workspace.UnconfinedSampleTable[0] = unconfinedSample();
  SetText(record.remouldedStrain[0], "1.0");
  SetText(record.remouldedStress[0], "30.0");
  importedDocument(lab.workspace, documentKindOf(kForm4));
  EXPECT_EQ(record.sensitivity.trimmed(), "3.437") << "103.1 / 30";
}

}  // namespace
}  // namespace triaxlab
