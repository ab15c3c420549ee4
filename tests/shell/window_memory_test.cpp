#include "shell/window_memory.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/temporary_folder.h"

namespace triaxlab::testing {
namespace {

constexpr const char* kFile = "triaxlab-windows.json";
constexpr WindowMemory::MainWindow kChosen{1600, 900, true};

class Sizes : public ::testing::Test {
 protected:
  WindowMemory memory() const { return WindowMemory(folder.path()); }

  TemporaryFolder folder;
};

TEST_F(Sizes, NothingIsKnownAtFirst) {
  EXPECT_EQ(memory().mainWindow(), std::nullopt);
  EXPECT_EQ(memory().scaleOf("Form1"), std::nullopt);
}

TEST_F(Sizes, WhatWasChosenIsThereInTheNextRun) {
  WindowMemory chosen = memory();
  chosen.setMainWindow(kChosen);
  chosen.setScale("Form1", 1.25);
  chosen.setScale("Form2", 2);
  chosen.setScale("Form2", std::nullopt);
  chosen.write();
  EXPECT_EQ(memory().mainWindow(), kChosen);
  EXPECT_EQ(memory().scaleOf("Form1"), 1.25);
  EXPECT_EQ(memory().scaleOf("Form2"), std::nullopt);
}

TEST_F(Sizes, WhereNothingWasChosenNoFileIsMade) {
  memory().write();
  EXPECT_FALSE(std::filesystem::exists(folder / kFile));
}

TEST_F(Sizes, AFileThatIsNoneOfOursCountsAsNone) {
  for (const char* const content : {"", "{", "[1, 2]", "\xFF\xFE", R"({"mainWindow": 7, "scales": "large"})"}) {
    folder.write(kFile, content);
    EXPECT_EQ(memory().mainWindow(), std::nullopt) << content;
    EXPECT_EQ(memory().scaleOf("Form1"), std::nullopt) << content;
  }
}

TEST_F(Sizes, AValueThatMakesNoSenseDoesNotTakeTheOthersWithIt) {
  folder.write(kFile, R"({"mainWindow": {"width": -5, "height": 900}, "scales": {"Form1": "1.5", "Form2": 1.5}})");
  EXPECT_EQ(memory().mainWindow(), std::nullopt);
  EXPECT_EQ(memory().scaleOf("Form1"), std::nullopt);
  EXPECT_EQ(memory().scaleOf("Form2"), 1.5);
}

TEST_F(Sizes, WhatCannotBeReadIsNotWrittenOver) {
  std::filesystem::create_directory(folder / kFile);
  WindowMemory chosen = memory();
  chosen.setScale("Form1", 1.25);
  EXPECT_NO_THROW(chosen.write());
  EXPECT_TRUE(std::filesystem::is_directory(folder / kFile));
}

TEST_F(Sizes, WhereNothingCanBeWrittenNothingIsSaid) {
  WindowMemory chosen(folder / "gone");
  chosen.setScale("Form1", 1.25);
  EXPECT_NO_THROW(chosen.write());
}

}  // namespace
}  // namespace triaxlab::testing
