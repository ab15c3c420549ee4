// What a save does with a table that came from raw data: the technician says which known samples to write over.

#include "store/project/save_project.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

class SaveImport : public StoreTest {
 protected:
  SaveImport() {
    stored =
        headerBytes({"0002", "I1"}) + triaxialBytes("I1", "S1") + triaxialBytes("I1", "S2") + field("QC", kEndTextSize);
    write("HSZS/WKSZI1.txt", stored);
    workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  }
  SaveReport save() {
    return saveProject(workspace, ProjectKind::Triaxial, [this](Workspace&, const std::vector<KnownSample>& samples) {
      known.clear();
      for (const KnownSample& sample : samples) {
        known.push_back(sample.row);
        EXPECT_FALSE(workspace.dataOf(ProjectKind::Triaxial).keepExisting[sample.row])
            << "writing over is the first state";
        if (keepAll) workspace.dataOf(ProjectKind::Triaxial).keepExisting.set(sample.row);
      }
      ++timesAsked;
      return !drop;
    });
  }

  std::string stored;
  std::vector<std::size_t> known;
  bool keepAll = false, drop = false;
  int timesAsked = 0;
};

const std::string kNewS1 = triaxialBytes("I1", "S1", 2, "250"), kNewS3 = triaxialBytes("I1", "S3", 2, "250");

TEST_F(SaveImport, AsksAboutTheKnownSamples) {
  setRow(0, kNewS1);
  setRow(1, triaxialBytes("I1", "S1", 1));  // known with another method only
  setRow(2, kNewS3);
  setRow(3, triaxialBytes("I1", "S2"));
  workspace.dataOf(ProjectKind::Triaxial).keepExisting.set();  // from the save before
  save();
  EXPECT_THAT(known, ElementsAre(0U, 3U));
  EXPECT_EQ(timesAsked, 1);
}

TEST_F(SaveImport, AsksAlsoWhenNoSampleIsKnown) {
  setRow(0, kNewS3);
  save();
  EXPECT_EQ(timesAsked, 1);
  EXPECT_TRUE(known.empty());
}

TEST_F(SaveImport, AsksOverAnEmptyTableToo) {
  workspace.dataOf(ProjectKind::Triaxial).keepExisting.set();
  save();
  EXPECT_EQ(timesAsked, 1);
  EXPECT_TRUE(known.empty());
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).keepExisting.none());
  EXPECT_SAME_BYTES(read("HSZS/WKSZI1.txt"), stored);
}

TEST_F(SaveImport, AsksAlsoWhenNoRowCanBeSaved) {
  setRow(0, triaxialBytes("a/b", "S1"));
  EXPECT_THROW(save(), UserError);
  EXPECT_EQ(timesAsked, 1);
  EXPECT_TRUE(known.empty());
}

TEST_F(SaveImport, AsksAgainAtTheNextSave) {
  setRow(0, kNewS1);
  save();
  save();
  EXPECT_EQ(timesAsked, 2);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST_F(SaveImport, OtherSavesDoNotAsk) {
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = false;
  workspace.dataOf(ProjectKind::Triaxial).keepExisting.set();
  setRow(0, kNewS1);
  save();
  EXPECT_EQ(timesAsked, 0);
  EXPECT_SAME_BYTES(read("HSZS/WKSZI1.txt").substr(kHeaderSize, kTriaxialSize), kNewS1);
}

TEST_F(SaveImport, ADroppedSaveWritesNothingAndLeavesTheImportPending) {
  setRow(0, kNewS1);
  setRow(1, kNewS3);
  SetText(workspace.processingDate.year, "2024");
  const auto before = snapshot();
  drop = true;
  EXPECT_TRUE(save().isDropped);
  EXPECT_EQ(snapshot(), before);
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
  drop = false;
  EXPECT_FALSE(save().isDropped);
  EXPECT_NE(snapshot(), before);
}

TEST_F(SaveImport, WhatThisRunWroteIsCopiedBeforeAnImportReplacesIt) {
  setRow(0, kNewS3);
  save();
  EXPECT_EQ(backups().size(), 1U);
  const std::string worked = read("HSZS/WKSZI1.txt");
  setRow(0, triaxialBytes("I1", "S3", 2, "300"));
  save();
  ASSERT_EQ(backups().size(), 2U);
  EXPECT_SAME_BYTES(read("HSZS/backup/" + backups().at(1)), worked);
}

TEST_F(SaveImport, AKnownSampleIsWrittenOver) {
  setRow(0, kNewS1);
  setRow(1, kNewS3);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZI1.txt"), headerBytes({"0003", "I1"}) + kNewS1 + triaxialBytes("I1", "S2") + kNewS3 +
                                                 field("", kEndTextSize));
}

TEST_F(SaveImport, AKeptSampleStaysAndANewOneIsAppended) {
  keepAll = true;
  setRow(0, kNewS1);
  setRow(1, kNewS3);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZI1.txt"), headerBytes({"0003", "I1"}) + triaxialBytes("I1", "S1") +
                                                 triaxialBytes("I1", "S2") + kNewS3 + field("", kEndTextSize));
}

TEST_F(SaveImport, WhenAllAreKeptTheFileStaysToItsHeaderAndEndText) {
  keepAll = true;
  SetText(workspace.processingDate.year, "2024");
  setRow(0, kNewS1);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZI1.txt"), stored);
  EXPECT_TRUE(has("ZMSJ/KHZI1.txt")) << "the summary takes the row all the same";
}

TEST_F(SaveImport, ASampleThatWasNewWhenTheSaveBeganIsNotKept) {
  keepAll = true;
  const std::string first = triaxialBytes("I2", "S1", 2, "100"), second = triaxialBytes("I2", "S1", 2, "200");
  setRow(0, first);
  setRow(1, second);
  save();
  EXPECT_SAME_BYTES(read("HSZS/WKSZI2.txt").substr(kHeaderSize), second + field("", kEndTextSize));
}

TEST_F(SaveImport, WithoutAnyoneToAskKnownSamplesAreWrittenOver) {
  workspace.dataOf(ProjectKind::Triaxial).keepExisting.set();
  setRow(0, kNewS1);
  saveProject(workspace, ProjectKind::Triaxial, nullptr);
  EXPECT_SAME_BYTES(read("HSZS/WKSZI1.txt").substr(kHeaderSize, kTriaxialSize), kNewS1);
}

}  // namespace
}  // namespace triaxlab::testing
