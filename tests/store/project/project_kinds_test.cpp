#include "store/project/project_kinds.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "store/project/project_frame.h"
#include "store/store_fixture.h"
#include "store/workspace.h"

namespace triaxlab {
namespace {

TEST(ProjectKinds, HaveTheRecordWidthsOfTheFiles) {
  EXPECT_EQ(infoOf(ProjectKind::Triaxial).recordSize, 38576U);
  EXPECT_EQ(infoOf(ProjectKind::Unconfined).recordSize, 1924U);
  EXPECT_EQ(infoOf(ProjectKind::K0).recordSize, 243U);
  EXPECT_EQ(infoOf(ProjectKind::TK0).recordSize, 4881U);
  EXPECT_EQ(infoOf(ProjectKind::OldTriaxial).recordSize, 5966U);
}

TEST(ProjectKinds, FileNamesHaveTheLetterO) {
  EXPECT_EQ(infoOf(ProjectKind::K0).filePrefix, "KO");
  EXPECT_EQ(infoOf(ProjectKind::TK0).filePrefix, "TKO");
}

TEST(ProjectKinds, AreFoundByTheNumberOfTheBrowserAndByTheirId) {
  for (const ProjectKindInfo& info : kProjectKinds) {
    EXPECT_EQ(infoOf(info.kind).id, info.id);
    EXPECT_EQ(projectKindOfId(info.id), info.kind);
  }
  EXPECT_EQ(static_cast<int>(ProjectKind::OldTriaxial), 101);
  EXPECT_EQ(projectKindOfId("ko"), std::nullopt);
}

TEST(ProjectKinds, ANumberThatIsNoneIsRefused) {
  for (const int number : {0, 3, 30, 102}) EXPECT_THROW(infoOf(static_cast<ProjectKind>(number)), std::out_of_range);
}

TEST(ProjectKinds, TheOldestFilesAreSavedAsTodays) {
  for (const ProjectKindInfo& info : kProjectKinds)
    EXPECT_EQ(info.savedAs, info.kind == ProjectKind::OldTriaxial ? ProjectKind::Triaxial : info.kind) << info.id;
  EXPECT_EQ(infoOf(ProjectKind::OldTriaxial).makeSave, nullptr);
}

TEST(RecordPosition, TheLargestFileFitsThirtyTwoBits) {
  // 81 + 10000 x 38576 = 385 760 081, below 2^31.
  EXPECT_EQ(recordPosition(38576, 10000), 385'760'081U);
}

TEST(RecordPosition, OneThatWouldNotFitIsRefused) {
  // (2^31 - 1 - 81) / 38576 = 55668.9: record 55668 is the last one whose position a 32-bit number holds.
  EXPECT_EQ(recordPosition(38576, 55668), 81U + 55668U * 38576U);
  EXPECT_THROW(recordPosition(38576, 55669), UserError);
  EXPECT_THROW(recordPosition(38576, 0xFFFFFFFF), UserError);
}

TEST(ClaimedCount, ReadsWhatTheFieldBeginsWith) {
  EXPECT_EQ(claimedCount("0003"), 3);
  EXPECT_EQ(claimedCount("0   "), 0);
  EXPECT_EQ(claimedCount("  12"), 12);
  EXPECT_EQ(claimedCount("7x9 "), 7);
  EXPECT_EQ(claimedCount("9E9 "), 10000) << "capped";
}

TEST(ClaimedCount, IsNoneWithoutANumber) {
  for (const char* text : {"    ", "abcd", "-1  ", "E3  ", "+   ", "...."})
    EXPECT_EQ(claimedCount(text), std::nullopt) << text;
  EXPECT_EQ(claimedCount(std::string_view("\0\0\0\0", 4)), std::nullopt);
}

}  // namespace
}  // namespace triaxlab
