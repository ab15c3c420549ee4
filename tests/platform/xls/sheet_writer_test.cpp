// Both formats of workbooks, read back by readers that know nothing of the writers.
#include "platform/sheet_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "common/user_error.h"
#include "platform/files.h"
#include "support/packages.h"
#include "support/read_sheets.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

namespace fs = std::filesystem;
using testing::FoundCell;
using testing::FoundSheet;
using testing::TemporaryFolder;

class SheetWriters : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (file().extension() == ".xlsx") NEEDS_XLSX();
  }

  fs::path file() const { return folder / (std::string("book") + GetParam()); }

  /// Writes one sheet of these rows.
  void write(const std::vector<SheetRow>& rows) const {
    const auto writer = makeSheetWriter(file());
    writer->beginSheet("Sheet1");
    for (const SheetRow& row : rows) writer->addRow(row);
    writer->finish();
  }
  std::vector<FoundSheet> read() const {
    return file().extension() == ".xls" ? testing::readXlsStrictly(file()) : testing::readXlsx(file());
  }
  FoundSheet readBack(const std::vector<SheetRow>& rows) const {
    write(rows);
    return read().at(0);
  }

  TemporaryFolder folder;
};

INSTANTIATE_TEST_SUITE_P(BothFormats, SheetWriters, ::testing::Values(".xls", ".xlsx"),
                         [](const auto& format) { return std::string(format.param + 1); });

TEST_P(SheetWriters, ATextStaysTheTextThatItIs) {
  const std::vector<std::string> texts{"007",
                                       "1E5",
                                       "=1+1",
                                       "+8",
                                       "  two blanks in front",
                                       "<&\">",
                                       "ΔVi",
                                       "é",
                                       "三轴试验",
                                       "_x0041_",
                                       "__x004a__",
                                       "x0041_",
                                       "_xy41_",
                                       "0.10",
                                       "'",
                                       "\xF0\xA0\x80\x80"};
  std::vector<SheetRow> rows;
  for (const std::string& text : texts) rows.push_back({textCell(text)});
  const FoundSheet sheet = readBack(rows);
  for (std::size_t row = 0; row < texts.size(); ++row)
    EXPECT_EQ(sheet.cells.at({row, 0}), (FoundCell{texts[row], "@"})) << texts[row];
}

TEST_P(SheetWriters, ControlCharactersAreLeftOut) {
  const FoundSheet sheet = readBack({{textCell("a\x01\n\tb\x7F"), textCell("\r\n"), textCell("c")}});
  EXPECT_EQ(sheet.row(1), (std::vector<std::string>{"ab", "", "c"}));
}

TEST_P(SheetWriters, ANumberComesBackAsTheSameNumberWithItsDecimals) {
  const std::vector<SheetNumber> numbers{{0, 0},
                                         {-1, 0},
                                         {0.01, 2},
                                         {-128.55, 2},
                                         {0.073, 3},
                                         {0.1 + 0.2, 15},
                                         {0.5, 1},
                                         {5368709.11, 2},
                                         {5368709.12, 2},
                                         {-5368709.13, 2},
                                         {536870911, 0},
                                         {536870912, 0},
                                         {-536870912, 0},
                                         {4294967296.0, 0},
                                         {1e300, 0},
                                         {std::numeric_limits<double>::max(), 4},
                                         {std::numeric_limits<double>::denorm_min(), 5}};
  // Beside each other and below each other: neighbours may be stored together.
  SheetRow beside;
  std::vector<SheetRow> rows(1);
  for (const SheetNumber& number : numbers) {
    rows[0].emplace_back(number);
    rows.push_back({number});
  }
  const FoundSheet sheet = readBack(rows);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto decimals = static_cast<std::size_t>(numbers[i].decimals);
    const FoundCell wanted{numbers[i].value, decimals == 0 ? "0" : "0." + std::string(decimals, '0')};
    const FoundCell besides = sheet.cells.at({0, i}), below = sheet.cells.at({i + 1, 0});
    EXPECT_EQ(besides.display, wanted.display);
    // The newer format keeps 16 digits.
    EXPECT_DOUBLE_EQ(std::get<double>(besides.value), numbers[i].value);
    if (file().extension() == ".xls") {
      EXPECT_EQ(besides, wanted);
      EXPECT_EQ(below, wanted);
    }
  }
}

TEST_P(SheetWriters, EmptyCellsAndRowsStayEmpty) {
  const FoundSheet sheet =
      readBack({{}, {{}, SheetNumber{1, 0}, {}, textCell("x"), {}}, {{}, {}}, {}, {{}, textCell("y")}});
  EXPECT_EQ(sheet.cells.size(), 3U);
  EXPECT_EQ(sheet.at(2, 'B'), "1");
  EXPECT_EQ(sheet.at(2, 'D'), "x");
  EXPECT_EQ(sheet.at(5, 'B'), "y");
}

TEST_P(SheetWriters, SheetsFollowEachOtherUnderTheirNames) {
  const auto writer = makeSheetWriter(file());
  for (const char* name : {"Sheet1", "Sheet2", "Sheet3"}) {
    writer->beginSheet(name);
    if (std::string_view(name) == "Sheet2") continue;
    for (int row = 0; row < 100; ++row) writer->addRow(SheetRow{textCell(name), SheetNumber{row + 0.5, 1}});
  }
  writer->finish();
  const std::vector<FoundSheet> sheets = read();
  ASSERT_EQ(sheets.size(), 3U);
  EXPECT_EQ(sheets[0].name, "Sheet1");
  EXPECT_EQ(sheets[1], FoundSheet{"Sheet2"});
  EXPECT_EQ(sheets[2].row(100), (std::vector<std::string>{"Sheet3", "99.5"}));
}

TEST_P(SheetWriters, ThousandsOfTextsAndLongOnesComeBack) {
  std::string chinese, latin;
  for (int i = 0; i < 9000; ++i) chinese += "土", latin += "x";
  std::vector<SheetRow> rows{{textCell(chinese), textCell(latin)}};
  for (int row = 0; row < 3000; ++row)
    rows.push_back({textCell("试样" + std::to_string(row)), textCell("sample " + std::to_string(row)), textCell("CU")});
  rows.push_back({textCell(latin + chinese)});
  const FoundSheet sheet = readBack(rows);
  EXPECT_EQ(sheet.at(1, 'A'), chinese);
  EXPECT_EQ(sheet.at(1, 'B'), latin);
  EXPECT_EQ(sheet.row(3001), (std::vector<std::string>{"试样2999", "sample 2999", "CU"}));
  EXPECT_EQ(sheet.at(3002, 'A'), latin + chinese);
}

TEST_P(SheetWriters, ATextBeyondWhatACellHoldsIsCut) {
  std::string text;
  for (int i = 0; i < 40000; ++i) text += "土";
  EXPECT_EQ(readBack({{textCell(text)}}).at(1, 'A'), text.substr(0, std::size_t{3} * 32767));
}

TEST_P(SheetWriters, TheSameCellsGiveTheSameBytes) {
  const std::vector<SheetRow> rows{{textCell("σ3"), SheetNumber{100, 0}}, {textCell("u"), SheetNumber{0.5, 1}}};
  write(rows);
  const std::string first = folder.read(file().filename().string());
  write(rows);
  EXPECT_EQ(folder.read(file().filename().string()), first);
}

TEST_P(SheetWriters, TheOldFileStandsUntilTheNewOneIsFinished) {
  folder.write(file().filename().string(), "old");
  {
    const auto dropped = makeSheetWriter(file());
    dropped->beginSheet("Sheet1");
    dropped->addRow(SheetRow{textCell("half")});
  }
  EXPECT_EQ(folder.read(file().filename().string()), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
  EXPECT_EQ(readBack({{textCell("new")}}).at(1, 'A'), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
}

TEST_P(SheetWriters, AFileInAFolderThatIsNotThereIsNamed) {
  const fs::path missing = folder / (std::string("none/book") + GetParam());
  try {
    makeSheetWriter(missing);
    FAIL();
  } catch (const UserError& error) {
    EXPECT_THAT(error.what(), ::testing::HasSubstr(textOfPath(missing)));
  }
  EXPECT_FALSE(fs::exists(folder / "none"));
}

TEST(SheetWriter, AnyCaseOfTheTwoExtensionsNamesAWorkbook) {
  for (const char* name : {"a.xls", "a.XLS", "/b/a.xlsx", "a.b.XlsX"}) EXPECT_TRUE(isWorkbookName(name)) << name;
  for (const char* name : {"", "xls", "a", "a.xls ", "a.xlsm", "a.xls.new"}) EXPECT_FALSE(isWorkbookName(name)) << name;
}

// 109 sectors of the table of sectors are told in the head of the file, which is 7 MB; then others tell them.
TEST(SheetWriter, AnOldFormatOfManyMegabytesIsWhole) {
  const TemporaryFolder folder;
  const auto writer = makeSheetWriter(folder / "large.xls");
  writer->beginSheet("Sheet1");
  constexpr int kRows = 4000, kColumns = 256;
  for (int row = 0; row < kRows; ++row) {
    SheetRow cells;
    for (int column = 0; column < kColumns; ++column)
      cells.emplace_back(SheetNumber{(row * kColumns + column) / 1024.0 + 0.001, 3});
    writer->addRow(cells);
  }
  writer->finish();
  EXPECT_GT(fs::file_size(folder / "large.xls"), 16U << 20);
  const FoundSheet sheet = testing::readXlsStrictly(folder / "large.xls").at(0);
  EXPECT_EQ(sheet.cells.size(), std::size_t{kRows} * kColumns);
  EXPECT_EQ(std::get<double>(sheet.cells.at({3999, 255}).value), (4000 * 256 - 1) / 1024.0 + 0.001);
}

}  // namespace
}  // namespace triaxlab
