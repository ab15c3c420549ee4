#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "played_program.h"
#include "store/project/project_header.h"
#include "triaxial/record.h"

namespace triaxlab::testing {
namespace {

constexpr const char* kOpen = "file HSZSJ.KU\nmenu NEWSZ\ndblcell OPENFORM0.Grid1 2\nclick OPENFORM0.Command1\n";
constexpr const char* kSave = "menu RZMSAVE\nreply OK\nkey Enter\n";

/// Bytes of the first sample of the saved project.
std::string saved(const PlayedProgram& program, std::size_t offset, std::size_t size) {
  const std::string file = program.folder().read("HSZS/WKSZ2024-018.txt");
  return file.size() < sizeof(ProjectHeader) + offset + size ? "" : file.substr(sizeof(ProjectHeader) + offset, size);
}

TEST(PlayedIntervention, AKeptCurveIsSaved) {
  const PlayedProgram program;
  // The second stage begins with 20, 38, 57 kPa at 0.4, 0.8, 1.2 %. One row to the left, and times 2.
  const PlayResult result = program.play(
      std::string(kOpen) +
      "key F4\nchoose Form1.Option4 P2\nkey Left\ntype Form1.Text10 2\nclick Form1.Command6\nreply Yes\nkey F4\n" +
      kSave);
  ASSERT_EQ(result.errors, "");
  constexpr std::size_t kRow = kStages * 6;
  const std::size_t stage = offsetof(TriaxialSampleRecord, deviatorStress) + 6;
  EXPECT_EQ(saved(program, stage, 6), "76.0  ");
  EXPECT_EQ(saved(program, stage + kRow, 6), "114.0 ");
  EXPECT_EQ(saved(program, stage + 211 * kRow, 6), "      ");
  EXPECT_EQ(saved(program, stage - 6, 6), "12    ") << "the first stage";
}

TEST(PlayedIntervention, ASaveMeanwhileTakesTheSampleAsItStands) {
  const PlayedProgram program;
  const PlayResult result =
      program.play(std::string(kOpen) + "key F4\nkey Left\n" + kSave + "get Form1.Label12\nstate Form1.Frame1\n");
  ASSERT_EQ(result.errors, "");
  EXPECT_EQ(result.out, "Form1.Label12=\nForm1.Frame1: visible enabled not checked\n") << "the phase goes on";
  EXPECT_EQ(saved(program, offsetof(TriaxialSampleRecord, deviatorStress), 6), "12    ");
}

TEST(PlayedIntervention, AKeptEnvelopeIsSaved) {
  const PlayedProgram program;
  // From C 22 of the fit two steps of 1.5 up.
  const PlayResult result = program.play(
      std::string(kOpen) +
      "menu QUXIAN3\nkey F4\ninput 1.5\ndoubleclick Form1.Label14\nkey Right\nkey Right\nreply Yes\nkey F4\n" + kSave);
  ASSERT_EQ(result.errors, "");
  EXPECT_EQ(saved(program, offsetof(TriaxialSampleRecord, adjustedFlag), 1), "\x01");
  EXPECT_EQ(saved(program, offsetof(TriaxialSampleRecord, cohesionText), 9), "25       ");
}

TEST(PlayedIntervention, TheSelectedCurveIsDrawnBlueAndWide) {
  const PlayedProgram program;
  ASSERT_EQ(program.play(std::string(kOpen) + "key F4\nops Form1.Picture1 page.json\nreply No\nkey F4\n").errors, "");
  const auto drawing = nlohmann::json::parse(program.folder().read("page.json"));
  int wide = 0, narrow = 0;
  std::string title;
  for (const auto& op : drawing.at("pages").at(0)) {
    if (op.at("op") == "polyline") (op.at("color") == 9 && op.at("width") == 2 ? wide : narrow) += 1;
    if (op.at("op") == "text" && op.at("y") == 150) title = op.at("text");
  }
  EXPECT_EQ(wide, 1);
  EXPECT_EQ(narrow, 3);
  EXPECT_EQ(title, "曲线主应力差与轴向应变曲线调整");
}

/// The file of the physical tests: a head of 22699 bytes, the number of records at 49, then one record.
std::string physicalFile() {
  std::string file(22699 + 2004, ' ');
  const auto put = [&file](std::size_t at, const std::string& text) { file.replace(at, text.size(), text); };
  put(49, std::string("\x01\0", 2));
  put(22699 + 4, "ZK2-03");
  put(22699 + 34, "5.00-5.20");
  put(22699 + 189, "32.5");
  return file;
}

TEST(PlayedIntervention, PhysicalValuesAreShownWhileAPhaseRunsIfWanted) {
  const PlayedProgram program;
  std::filesystem::create_directory(program.folder().path() / "ZMSJ");
  program.folder().write("ZMSJ/2024-018.dat", physicalFile());
  const std::string phase =
      "key F4\nstate Form1.PhysicalFrame\nget Form1.PhysicalLabel(1)\nget Form1.PhysicalValue(1)\n"
      "reply No\nkey F4\nstate Form1.PhysicalFrame\n";
  const PlayResult result = program.play(std::string(kOpen) + phase + "menu WXCS\n" + phase);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.out,
            "Form1.PhysicalFrame: not visible enabled not checked\nForm1.PhysicalLabel(1)=\nForm1.PhysicalValue(1)=\n"
            "Form1.PhysicalFrame: not visible enabled not checked\n"
            "Form1.PhysicalFrame: visible enabled not checked\nForm1.PhysicalLabel(1)=天然含水率：\n"
            "Form1.PhysicalValue(1)=32.5\nForm1.PhysicalFrame: not visible enabled not checked\n");
}

}  // namespace
}  // namespace triaxlab::testing
