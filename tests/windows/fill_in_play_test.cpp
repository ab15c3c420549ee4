// 填写土样资料 over the projects of every test: what is filled in is saved, and is there when the project is opened
// again.

#include <gtest/gtest.h>

#include <string>

#include "played_program.h"
#include "shell/lab.h"

namespace triaxlab::testing {
namespace {

struct KindOfTest {
  ProjectKind kind;
  const char *command, *file, *window;
  int borehole;  // its column; depth and place stand behind it
};
const KindOfTest kKinds[] = {
    {ProjectKind::Triaxial, "ZMOPEN", "HSZS/WKSZP1.TXT", "Form1", 5},
    {ProjectKind::Unconfined, "ZMOPEN0", "HSZS/KWCXP1.TXT", "Form4", 3},
    {ProjectKind::K0, "OK0", "HSZS/KOP1.TXT", "Form6", 3},
    {ProjectKind::TK0, "TK0", "HSZS/TKOP1.TXT", "Form9", 3},
};

class FilledIn : public ::testing::TestWithParam<KindOfTest> {
 protected:
  /// The statements with the project open and the table in front: "$" stands for the window of the test, a word in
  /// pointed brackets for a column of the table.
  static std::string inTable(std::string statements) {
    const auto put = [&statements](const std::string& mark, const std::string& text) {
      for (std::size_t at = statements.find(mark); at != std::string::npos; at = statements.find(mark, at))
        statements.replace(at, mark.size(), text);
    };
    put("$", GetParam().window);
    put("<borehole>", std::to_string(GetParam().borehole));
    put("<depth>", std::to_string(GetParam().borehole + 1));
    put("<place>", std::to_string(GetParam().borehole + 2));
    return std::string("menu ") + GetParam().command + "\nkey Enter\nmenu FILLIN\n" + statements;
  }
};

TEST_P(FilledIn, LocationsAreSavedAndReadBack) {
  const PlayedProgram program;
  program.folder().write(GetParam().file, sampleFileBytes(GetParam().kind, "P1", {"S1", "S2"}));
  const PlayResult filled =
      program.play(inTable("cell FILLFORM.Samples 1 <borehole>\nkey 7\nkey Tab\nkey 3\nkey .\nkey 5\nkey Tab\nkey 4\n"
                           "click FILLFORM.Return\nreply Yes\nreply OK\nclose $\n"));
  EXPECT_EQ(filled.errors, "");
  const PlayResult read = program.play(
      inTable("get FILLFORM.Samples 1 <borehole>\nget FILLFORM.Samples 1 <depth>\nget FILLFORM.Samples 1 <place>\n"
              "get FILLFORM.Samples 2 <borehole>\nclose FILLFORM\nclose $\nmessages\n"));
  EXPECT_EQ(read.errors, "");
  EXPECT_EQ(read.out, "FILLFORM.Samples=7\nFILLFORM.Samples=3.5\nFILLFORM.Samples=4\nFILLFORM.Samples=\n")
      << "and nothing is asked: a look changes nothing";
}

INSTANTIATE_TEST_SUITE_P(Windows, FilledIn, ::testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.command); });

}  // namespace
}  // namespace triaxlab::testing
