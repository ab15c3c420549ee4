#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

class ExportCommand : public CliTest {
 protected:
  ExportCommand() {
    for (const char* project : {"P1", "P2"})
      EXPECT_EQ(run({"import", "auto", database({sampleEntry(project, std::string("S-") + project)})}).status, 0);
  }
  std::string table() const { return (folder / "table.csv").string(); }
};

TEST_F(ExportCommand, WritesALineASampleOfEachFile) {
  const ProgramRun ran = run({"export", "triaxial", "WKSZP1.txt", "WKSZP2.txt", "--format", "csv", "--out", table()});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out + ran.err, "");
  const std::string written = folder.read("table.csv");
  EXPECT_EQ(lineCount(written), 3U);
  EXPECT_EQ(written.find("projectNo,sample,sampleNo,testMethod,"), 0U);
  EXPECT_NE(written.find("\r\nP1,1,S-P1,UU,"), std::string::npos);
  EXPECT_NE(written.find("\r\nP2,1,S-P2,UU,"), std::string::npos);
}

TEST_F(ExportCommand, WritesALineAReading) {
  // Three stages of three readings.
  EXPECT_EQ(run({"export", "triaxial", "WKSZP1.txt", "--format", "jsonl", "--readings", "--out", table()}).status, 0);
  const std::string written = folder.read("table.csv");
  EXPECT_EQ(lineCount(written), 9U) << written;
  EXPECT_EQ(written.find(R"({"projectNo": "P1", "sample": "1", "sampleNo": "S-P1", "testMethod": "UU", )"
                         R"("phase": "shear", "stage": "1", "cellPressure_kPa": "100", "reading": "1", )"),
            0U)
      << written;
}

TEST_F(ExportCommand, GoesOnBehindAFileThatFails) {
  const ProgramRun ran = run({"export", "triaxial", "NONE.txt", "WKSZP2.txt", "--format", "csv", "--out", table()});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(lineCount(ran.err), 1U);
  EXPECT_NE(ran.err.find("NONE.txt"), std::string::npos) << ran.err;
  EXPECT_EQ(lineCount(folder.read("table.csv")), 2U);
}

TEST_F(ExportCommand, LeavesTheOldTableWhenNoFileCanBeRead) {
  folder.write("table.csv", "old");
  EXPECT_EQ(run({"export", "triaxial", "NONE.txt", "--format", "csv", "--out", table()}).status, 1);
  EXPECT_EQ(folder.read("table.csv"), "old");
}

TEST_F(ExportCommand, LeavesTheOldTableWhenTheDiskIsFull) {
  folder.write("table.csv", "old");
  setShell("ulimit -f 1; ", "");
  const ProgramRun ran = runBare({"--app", app().string(), "export", "triaxial", "WKSZP1.txt", "--format", "jsonl",
                                  "--readings", "--out", table()},
                                 "/dev/null");
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find("table.csv"), std::string::npos) << ran.err;
  EXPECT_EQ(folder.read("table.csv"), "old");
  EXPECT_FALSE(std::filesystem::exists(folder / "table.csv.new"));
}

TEST_F(ExportCommand, WritesBesideItselfByABareName) {
  setShell("cd '" + folder.path().string() + "'; ", "");
  const ProgramRun ran = run({"export", "triaxial", "WKSZP1.txt", "--format", "csv", "--out", "bare.csv"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(lineCount(folder.read("bare.csv")), 2U);
}

TEST_F(ExportCommand, WithoutAFormatItKnowsIsAWrongCommandLine) {
  EXPECT_EQ(run({"export", "triaxial", "WKSZP1.txt", "--format", "xml", "--out", table()}).status, 2);
  EXPECT_EQ(run({"export", "triaxial", "WKSZP1.txt", "--out", table()}).status, 2);
  EXPECT_EQ(run({"export", "triaxial", "WKSZP1.txt", "--format", "csv"}).status, 2);
}

}  // namespace
}  // namespace triaxlab::testing
