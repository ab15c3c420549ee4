#include "store/settings/toggles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/page_fixture.h"
#include "shell/fakes.h"
#include "shell/lab.h"
#include "store/settings/settings_file.h"

namespace triaxlab {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using testing::FakeDialogs;
using testing::FakeWindows;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Lab;
using ::testing::Not;
using testing::RecordingDevice;
using testing::sample;
using ::testing::StartsWith;

class TogglesMenu : public ::testing::Test {
 protected:
  bool isChecked(const char* name) const { return shell.commandState(*findCommand(name)).checked; }
  std::uint8_t byteAt(std::uint32_t position) const { return sharedSettings(lab.workspace).readByte(position); }

  /// One sample of project P1 with what the switched lines of a page show.
  void fillTable() {
    TriaxialSampleRecord& record = lab.workspace.TriaxialSampleTable[0];
    record = sample("P1", "A-1");
    SetText(record.density, "1.92");
    SetText(lab.workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[0].samplingSpot, "left bank");
    lab.workspace.dataOf(ProjectKind::Triaxial).projectName = {"Dam", false, "P1"};
  }
  /// The texts of the first page of a print job.
  std::vector<std::string> pageTexts() const {
    PrintJob job = defaultPrintJob(lab.workspace.settings);
    RecordingDevice device;
    sendReport(*kThreeInOne.make(job, lab.workspace), job, device);
    std::vector<std::string> texts;
    for (const DrawnText& text : testing::all<DrawnText>(device.pages.at(0).drawing)) texts.push_back(text.text);
    return texts;
  }

  Lab lab;
  FakeDialogs dialogs;
  FakeWindows windows;
  ShellSession shell{lab.workspace, dialogs, windows};
};

TEST_F(TogglesMenu, EachEntryFlipsItsCheckAndItsByteAndNoOther) {
  struct Case {
    const char* command;
    std::uint32_t position;
  };
  constexpr Case kCases[] = {{"WXCS", 1765},   {"MIDU", 3010},    {"DYQYDD", 3011},   {"WCX16", 27000},
                             {"PGCMC", 27001}, {"SAMETY", 27002}, {"SENGLISH", 27003}};
  for (const Case& flipped : kCases) {
    EXPECT_TRUE(shell.trigger(flipped.command)) << flipped.command;
    for (const Case& other : kCases) {
      const bool on = other.position == flipped.position;
      EXPECT_EQ(isChecked(other.command), on) << flipped.command << " " << other.command;
      EXPECT_EQ(byteAt(other.position), on ? 1 : 0) << flipped.command << " " << other.command;
    }
    EXPECT_TRUE(shell.trigger(flipped.command)) << flipped.command;
    EXPECT_FALSE(isChecked(flipped.command)) << flipped.command;
    EXPECT_EQ(byteAt(flipped.position), 0) << flipped.command;
  }
  EXPECT_THAT(dialogs.shown, IsEmpty());
  EXPECT_GT(windows.refreshes, 0);
}

TEST_F(TogglesMenu, TheNextStartFindsThemAsTheyWereLeft) {
  shell.trigger("SAMETY");
  shell.trigger("MIDU");
  Workspace next;
  next.applicationFolder = lab.workspace.applicationFolder;
  startUp(next);
  EXPECT_TRUE(next.settings.toggles.mergePressures);
  EXPECT_TRUE(next.settings.toggles.printDensity);
  EXPECT_FALSE(next.settings.toggles.printSamplingSpot);
}

TEST_F(TogglesMenu, OneThatCannotBeStoredIsToldAndHoldsForThisRun) {
  const auto settings = lab.folder.path() / "qvb.sys";
  std::filesystem::remove(settings);
  std::filesystem::create_directory(settings);
  EXPECT_TRUE(shell.trigger("MIDU"));
  EXPECT_TRUE(isChecked("MIDU"));
  EXPECT_THAT(dialogs.take(), ElementsAre(AllOf(StartsWith("stop ["), HasSubstr("qvb.sys"))));
}

TEST_F(TogglesMenu, DensityAndSpotComeOnPaper) {
  fillTable();
  EXPECT_THAT(pageTexts(), Not(Contains("密度:1.92")));
  EXPECT_THAT(pageTexts(), Not(Contains("取样地点:left bank")));
  shell.trigger("MIDU");
  EXPECT_THAT(pageTexts(), Contains("密度:1.92"));
  shell.trigger("DYQYDD");
  EXPECT_THAT(pageTexts(), Contains("取样地点:left bank"));
}

TEST_F(TogglesMenu, TheProjectsNameIsLeftOut) {
  fillTable();
  EXPECT_THAT(pageTexts(), Contains("工程名称: Dam"));
  shell.trigger("PGCMC");
  EXPECT_THAT(pageTexts(), Not(Contains(StartsWith("工程名称"))));
}

TEST_F(TogglesMenu, PagesSpeakEnglishInTheLaboratorysOwnWords) {
  lab.folder.write("esz.ini", *utf8ToGbkExactly("[工程名称]=[Job]"));
  shell.trigger("NEW");
  fillTable();
  shell.trigger("SENGLISH");
  EXPECT_THAT(pageTexts(), AllOf(Contains("Job: Dam"), Contains("Curve of triaxial test results")));
  shell.trigger("SENGLISH");
  EXPECT_THAT(pageTexts(), Contains("工程名称: Dam"));
}

TEST_F(TogglesMenu, PressuresOfASampleAreMergedInASave) {
  const auto samplesOnFile = [&] {
    // A header of 81 bytes, a record each, a closing text of 100.
    return (std::filesystem::file_size(lab.folder.path() / "HSZS" / "WKSZP1.txt") - 81 - 100) /
           sizeof(TriaxialSampleRecord);
  };
  fillTable();
  shell.trigger("ZMSAVE");
  EXPECT_EQ(samplesOnFile(), 1U);

  TriaxialSampleRecord& record = lab.workspace.TriaxialSampleTable[0];
  SetText(record.cellPressure[0], "200");
  shell.trigger("SAMETY");
  shell.trigger("ZMSAVE");
  EXPECT_EQ(samplesOnFile(), 1U);
  EXPECT_EQ(record.cellPressure[0].trimmed(), "100") << "the stored specimen came into the row";
  EXPECT_EQ(record.cellPressure[1].trimmed(), "200");
}

}  // namespace
}  // namespace triaxlab
