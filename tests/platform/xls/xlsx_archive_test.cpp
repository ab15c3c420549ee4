// A temporary file that takes no more leaves a sheet shorter than what was written into it, or without its end.
#include "platform/xls/xlsx_archive.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/sheet_writer.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

using Sizes = std::vector<std::uint64_t>;

TEST(XlsxArchive, IsWholeWhenEachSheetHasAllThatWasWritten) {
  const testing::TemporaryFolder folder;
  const auto writer = makeSheetWriter(folder / "book.xlsx");
  for (const char* name : {"Sheet1", "Sheet2"}) {
    writer->beginSheet(name);
    for (int row = 0; row < 1000; ++row) writer->addRow(SheetRow{textCell("a cell of the row"), SheetNumber{1, 0}});
  }
  writer->finish();
  constexpr std::uint64_t kWritten = 1000 * 40, kMoreThanWritten = 1000 * 1000;
  EXPECT_TRUE(isWholeXlsx(folder / "book.xlsx", Sizes{kWritten, kWritten}));
  EXPECT_FALSE(isWholeXlsx(folder / "book.xlsx", Sizes{kWritten, kMoreThanWritten}));
  EXPECT_FALSE(isWholeXlsx(folder / "book.xlsx", Sizes{kWritten})) << "a sheet too many";
  EXPECT_FALSE(isWholeXlsx(folder / "book.xlsx", Sizes{kWritten, kWritten, kWritten})) << "a sheet that is missing";
}

}  // namespace
}  // namespace triaxlab
