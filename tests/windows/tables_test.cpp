#include <gtest/gtest.h>

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "played_program.h"

namespace triaxlab::testing {
namespace {

/// The CU sample of the demonstration database on display.
constexpr const char* kOpen = "file HSZSJ.KU\nmenu NEWSZ\ndblcell OPENFORM0.Grid1 2\nclick OPENFORM0.Command1\n";

// Places of a project file: its header, then one record a sample.
constexpr std::size_t kHeader = 81, kTimes = 25916, kPressures = 28936, kVolumes = 30446, kStages = 5;

std::int32_t littleAt(const std::string& bytes, std::size_t at, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < size; ++i)
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes.at(at + i))) << (8 * i);
  return size == 2 ? static_cast<std::int16_t>(value) : static_cast<std::int32_t>(value);
}

std::size_t element(std::size_t row, std::size_t stage) { return stage + kStages * row; }

TEST(TableWindows, TypedReadingsAreSaved) {
  const PlayedProgram program;
  const std::string open(kOpen);
  // The record takes its date from the first save and has it in the second.
  ASSERT_EQ(program.play(open + "reply OK\nmenu ZMSAVE\nkey Enter\n").errors, "");
  ASSERT_EQ(program.play("menu ZMOPEN\nkey Enter\nreply OK\nmenu ZMSAVE\n").errors, "");
  const std::string before = program.folder().read("HSZS/WKSZ2024-018.txt");
  const PlayResult typed = program.play(
      "menu ZMOPEN\nkey Enter\nclick Form1.Command5\nchoose Form7.Combo1 周围压力:200\ntype Form7.Text2 45.67\n"
      "click Form7.Label1(5)\ntype Form7.Text1 1.58\nkey Enter\nclick Form7.Label1(10)\ntype Form7.Text1 12.36\n"
      "click Form7.Label1(15)\ntype Form7.Text1 0.07\nreply OK\nmenu ZMSAVE\n");
  ASSERT_EQ(typed.errors, "");
  const std::string after = program.folder().read("HSZS/WKSZ2024-018.txt");
  ASSERT_EQ(before.size(), after.size());
  const auto int16At = [&](std::size_t array, std::size_t row) {
    return littleAt(after, kHeader + array + 2 * element(row, 1), 2);
  };
  EXPECT_EQ(int16At(kPressures, 0), 456);                                   // Int(456.7)
  EXPECT_EQ(littleAt(after, kHeader + kTimes + 4 * element(1, 1), 4), 95);  // 94.8 s
  EXPECT_EQ(int16At(kPressures, 2), 124);                                   // 123.6
  EXPECT_EQ(int16At(kVolumes, 3), 7);
  std::size_t changed = 0;
  for (std::size_t at = kHeader; at < after.size(); ++at) changed += before[at] != after[at];
  EXPECT_LE(changed, 4U + 2 + 2 + 2) << "and nothing else of the record";
}

TEST(TableWindows, BFollowsWhenTheSampleIsOpenedAgain) {
  const PlayedProgram program;
  // Typed by hand: B is 0 as long as there is no start pore pressure. 95.0 kPa of 200 kPa give 0.475, "0.48".
  const PlayResult result = program.play(
      "menu NEW\ntype Form1.Text1 GC\nkey Right\ntype Form1.Text1 T1\nfocus Form1.Text6(1)\nkey 2\n"
      "type Form1.Text7(0) 200\nclick Form1.Command5\ntype Form7.Text2 95\nreply OK\nmenu ZMSAVE\nreply OK\n"
      "menu QUXIAN3\nscroll Form1.VScroll2 3\nget Form1.Label2(162)\nmenu ZMOPEN\nkey Enter\nmenu QUXIAN3\n"
      "scroll Form1.VScroll2 3\nget Form1.Label2(162)\nget Form7.Text2\n");
  EXPECT_EQ(result.out, "Form1.Label2(162)=0.00\nForm1.Label2(162)=0.48\nForm7.Text2=95.0\n") << result.errors;
}

TEST(TableWindows, TheDataTableIsDrawnAtItsPlaces) {
  const PlayedProgram program;
  ASSERT_EQ(program.play(std::string(kOpen) + "menu SHUJUBIAO\nops Form2.Picture1 table.json\n").errors, "");
  const auto drawing = nlohmann::json::parse(program.folder().read("table.json"));
  EXPECT_EQ(drawing.at("height"), 8300);
  const auto text = [&](int x, int y) {
    for (const auto& op : drawing.at("pages").at(0))
      if (op.at("op") == "text" && op.at("x") == x && op.at("y") == y) return op.at("text").get<std::string>();
    return std::string("nothing");
  };
  EXPECT_EQ(text(300, 250), "工程编号:2024-018");
  EXPECT_EQ(text(4200, 600), "固结不排水试验");
  EXPECT_EQ(text(7400, 250), "周围压力:100 kPa");
  // 0.40 % and the numbers of the first reading: 210 to the left of the middle, then one of two figures.
  EXPECT_EQ(text(800 - 210, 1950), "0.40");
  EXPECT_EQ(text(1800 - 105, 1950), "12");
  EXPECT_TRUE(text(300, 7650).starts_with("起始孔压:")) << text(300, 7650);
}

}  // namespace
}  // namespace triaxlab::testing
