// Commands that take many project files in one run.
#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

class ManyFiles : public CliTest {
 protected:
  ManyFiles() {
    for (const char* project : {"P1", "P2"})
      EXPECT_EQ(run({"import", "auto", database({sampleEntry(project, std::string("S-") + project)})}).status, 0);
  }
};

TEST_F(ManyFiles, ResultsStandBelowOneHeading) {
  const std::string first = run({"results", "triaxial", "WKSZP1.txt"}).out;
  const std::string second = run({"results", "triaxial", "WKSZP2.txt"}).out;
  const std::string heading = first.substr(0, first.find('\n') + 1);
  ASSERT_EQ(second.substr(0, heading.size()), heading);
  const ProgramRun both = run({"results", "triaxial", "WKSZP1.txt", "WKSZP2.txt"});
  EXPECT_EQ(both.status, 0);
  EXPECT_EQ(both.err, "");
  EXPECT_EQ(both.out, first + second.substr(heading.size()));
  EXPECT_EQ(lineCount(both.out), 3U);
}

TEST_F(ManyFiles, OneThatFailsIsToldAndTheOthersGoOn) {
  const ProgramRun ran = run({"results", "triaxial", "WKSZNONE.txt", "WKSZP1.txt", "WKSZP2.txt"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(lineCount(ran.err), 1U);
  EXPECT_NE(ran.err.find("WKSZNONE.txt"), std::string::npos) << ran.err;
  EXPECT_EQ(ran.out, run({"results", "triaxial", "WKSZP1.txt", "WKSZP2.txt"}).out);
}

TEST_F(ManyFiles, EachIsOpenedAndSaved) {
  for (const char* project : {"WKSZP1.txt", "WKSZP2.txt"}) {
    std::string bytes = folder.read(std::string("app/HSZS/") + project);
    bytes.resize(kHeaderSize + kSampleSize);  // without the text at the end, which a save writes
    folder.write(std::string("app/HSZS/") + project, bytes);
  }
  const ProgramRun ran = run({"open", "triaxial", "WKSZP1.txt", "WKSZP2.txt", "--save"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.err, "[保存数据] 三轴试验数据保存完毕\n[保存数据] 三轴试验数据保存完毕\n");
  for (const char* project : {"WKSZP1.txt", "WKSZP2.txt"})
    EXPECT_EQ(std::filesystem::file_size(projectFile(project)), kHeaderSize + kSampleSize + kEndTextSize) << project;
}

}  // namespace
}  // namespace triaxlab::testing
