// How blocks are laid onto sheets, and what becomes of the file.
#include "workbooks/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/user_error.h"
#include "support/posix_only.h"
#include "support/temporary_folder.h"
#include "workbooks/cells.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using testing::TemporaryFolder;
using Lines = std::vector<std::string>;

/// Keeps the sheets as lines of cells parted by blanks.
class RecordingWriter : public SheetWriter {
 public:
  explicit RecordingWriter(SheetSize largest) : m_largest(largest) {}
  SheetSize largestSheet() const override { return m_largest; }
  void beginSheet(std::string_view name) override {
    names.emplace_back(name);
    sheets.emplace_back();
  }
  void addRow(std::span<const SheetCell> cells) override {
    std::string line;
    for (const SheetCell& cell : cells) {
      if (!line.empty() && cell != SheetCell()) line += ' ';
      if (const auto* const text = std::get_if<std::string>(&cell)) line += *text;
      if (const auto* const number = std::get_if<SheetNumber>(&cell)) line += std::to_string(int(number->value));
    }
    EXPECT_LE(cells.size(), m_largest.columns);
    sheets.back().push_back(line);
    EXPECT_LE(sheets.back().size(), m_largest.rows);
  }
  void finish() override {}

  Lines names;
  std::vector<Lines> sheets;

 private:
  SheetSize m_largest;
};

/// A block of rows "a1", "a2", ….
SheetBlock blockOf(const Workbook& workbook, char name, int rows) {
  SheetBlock block = workbook.newBlock();
  for (int row = 1; row <= rows; ++row) block.add(name + std::to_string(row));
  return block;
}

TEST(Workbook, ABlockThatDoesNotFitBeginsOnTheNextSheet) {
  RecordingWriter writer({5, 9});
  Workbook workbook(writer);
  workbook.addHead("title", "name");
  workbook.add(blockOf(workbook, 'a', 2));
  workbook.add(blockOf(workbook, 'b', 2));
  workbook.add(blockOf(workbook, 'c', 3));
  workbook.add(blockOf(workbook, 'd', 1));
  EXPECT_THAT(writer.names, ElementsAre("Sheet1", "Sheet2", "Sheet3"));
  EXPECT_THAT(writer.sheets, ElementsAre(Lines{"title", "工程名称： name", "a1", "a2"},
                                         Lines{"b1", "b2", "c1", "c2", "c3"}, Lines{"d1"}));
}

TEST(Workbook, ABlockThatNoSheetHoldsRunsOn) {
  RecordingWriter writer({3, 9});
  Workbook workbook(writer);
  workbook.add(blockOf(workbook, 'a', 1));
  workbook.add(blockOf(workbook, 'b', 4));
  EXPECT_THAT(writer.sheets, ElementsAre(Lines{"a1"}, Lines{"b1", "b2", "b3"}, Lines{"b4"}));
}

TEST(Workbook, ReadingsBeyondTheLastColumnStandBelowInTheSameRows) {
  RecordingWriter writer({9, 3});
  Workbook workbook(writer);
  SheetBlock block = workbook.newBlock();
  const auto number = [](int value) { return SheetNumber{static_cast<double>(value), 0}; };
  const std::vector<SheetRow> series{{"t", number(1), number(2), number(3), number(4), number(5)}, {"u", number(7)}};
  block.add(series);
  block.add("none", std::vector<SheetCell>{});
  block.add("both", std::vector<SheetCell>{number(8), number(9)});
  workbook.add(block);
  EXPECT_THAT(writer.sheets, ElementsAre(Lines{"t 1 2", "u 7", "t 3 4", "u", "t 5", "u", "none", "both 8 9"}));
}

TEST(Cells, AValueIsANumberWhenItIsNothingButDigits) {
  const auto number = [](double value, int decimals) { return SheetCell(SheetNumber{value, decimals}); };
  EXPECT_EQ(valueCell("100"), number(100, 0));
  EXPECT_EQ(valueCell(" 007 "), number(7, 0));
  EXPECT_EQ(valueCell("+5"), number(5, 0));
  EXPECT_EQ(valueCell("-12.50"), number(-12.5, 2));
  EXPECT_EQ(valueCell(".5"), number(0.5, 1));
  EXPECT_EQ(valueCell("5."), number(5, 0));
  EXPECT_EQ(valueCell("-0.0"), number(0, 1));
  for (const char* text : {"1E5", "12kPa", "=12", "1 2", "--1", "1.2.3", "+", ".", "-.", "0x10", "1,5"})
    EXPECT_EQ(valueCell(text), SheetCell(text)) << text;
  EXPECT_EQ(valueCell("    "), SheetCell());
  EXPECT_EQ(valueCell(std::string(400, '9')), SheetCell(std::string(400, '9')));
}

struct WorkbookFile : ::testing::Test {
  TemporaryFolder folder;

  static void fill(Workbook& workbook) { workbook.addHead("title", "name"); }
  static std::string refusalOf(const fs::path& file) {
    try {
      writeWorkbook(file, fill);
    } catch (const UserError& error) {
      return error.what();
    }
    return {};
  }
};

TEST_F(WorkbookFile, AFolderOfThatNameStaysAndIsTold) {
  fs::create_directory(folder / "out.xls");
  EXPECT_EQ(refusalOf(folder / "out.xls"), "打开文件“" + (folder / "out.xls").string() + "”失败：它是一个文件夹。");
  EXPECT_TRUE(fs::is_directory(folder / "out.xls"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_F(WorkbookFile, AFillThatFailsLeavesTheOldFile) {
  folder.write("out.xlsx", "old");
  EXPECT_THROW(writeWorkbook(folder / "out.xlsx", [](Workbook&) { throw UserError("no"); }), UserError);
  EXPECT_EQ(folder.read("out.xlsx"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_F(WorkbookFile, ALinkIsKeptAndWhatItNamesIsReplaced) {
  POSIX_ONLY("links");
  folder.write("real.xls", "old");
  fs::create_symlink(folder / "real.xls", folder / "link.xls");
  EXPECT_EQ(refusalOf(folder / "link.xls"), "");
  EXPECT_TRUE(fs::is_symlink(folder / "link.xls"));
  EXPECT_NE(folder.read("real.xls"), "old");
}

}  // namespace
}  // namespace triaxlab
