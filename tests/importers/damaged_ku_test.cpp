// Raw databases that are cut short, point outside themselves, or can't be read.
#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

// Where things stand in the file of twoRows: the first byte behind each. The readings are small, so the first byte of
// their two tells them whole.
constexpr std::size_t kIndexEnd = 2 + 2 * 30;
constexpr std::size_t kFirstSpecimen = kIndexEnd + 1;  // behind the group count
constexpr std::size_t kNumberEnd = kFirstSpecimen + 15 + 5;
constexpr std::size_t kFirstStressEnd = kFirstSpecimen + 140 + 2 + 1;
constexpr std::size_t kSecondStressEnd = kFirstSpecimen + 140 + 4 + 1;
constexpr std::size_t kFirstPoreEnd = kFirstSpecimen + 244 + 2 + 1;
constexpr std::size_t kWholeSize = kIndexEnd + 2301 + 461;

/// An older block of one group, then a newer one of one specimen.
std::string twoRows() {
  Specimen first{.sampleNo = "OLD-1", .testMethod = 0, .stress = {{1, 110}, {2, 120}}, .pore = {{1, 10}}};
  Specimen second{.sampleNo = "NEW-1", .testMethod = 0, .stress = {{1, 210}, {2, 220}}};
  return kuFile({olderEntry({{first}}), newerEntry({second})});
}

class DamagedKu : public ImportTest {};

TEST_F(DamagedKu, EveryShorterIndexGivesTheEntriesThatAreThere) {
  const std::string whole = twoRows();
  for (std::size_t size = 0; size <= kIndexEnd; ++size) {
    const auto source = openFile(std::string_view(whole).substr(0, size));
    const std::size_t entries = size <= 2 ? 0 : (size - 2 + 29) / 30;  // a part of one counts
    EXPECT_EQ(source->rows().size(), entries) << size;
    EXPECT_EQ(source->remarks().empty(), size == 0 || size == kIndexEnd) << size;
    EXPECT_NO_THROW(importPath(folder.path() / "HSZSJ.KU")) << size;
  }
}

TEST_F(DamagedKu, EveryShorterFileGivesTheReadingsThatAreThere) {
  const std::string whole = twoRows();
  ASSERT_EQ(whole.size(), kWholeSize);
  for (std::size_t size = kIndexEnd; size < whole.size(); size += size < kFirstPoreEnd ? 1 : 97) {
    const ImportReport report = importFile(std::string_view(whole).substr(0, size));
    EXPECT_FALSE(report.remarks.empty()) << size;
    EXPECT_EQ(row(0).sampleNo.trimmed() == "OLD-1", size >= kNumberEnd) << size;
    EXPECT_EQ(stress(0), size >= kFirstStressEnd ? "11" : "") << size;
    EXPECT_EQ(stress(1), size >= kSecondStressEnd ? "12" : "") << size;
    EXPECT_EQ(pore(0), size >= kFirstPoreEnd ? "1" : size >= kFirstStressEnd ? "0" : "") << size;
  }
  EXPECT_TRUE(importFile(whole).remarks.empty());
  EXPECT_EQ(row(1).sampleNo.trimmed(), "NEW-1");
}

TEST_F(DamagedKu, AnEntryThatTheEndCutsKeepsWhatIsThere) {
  const std::string whole = kuFile({newerEntry({Specimen{}})});
  // Project number and four places of the date.
  const auto source = openFile(std::string_view(whole).substr(0, 2 + 11));
  ASSERT_EQ(source->rows().size(), 1U);
  EXPECT_EQ(source->rows()[0].cells, (std::vector<std::string>{"P1", "2024/  /", "0组", ""}));
}

TEST_F(DamagedKu, ARemarkNamesTheFileAndTheRow) {
  const std::string whole = twoRows();
  const ImportReport report = importFile(std::string_view(whole).substr(0, whole.size() - 1));
  ASSERT_EQ(report.remarks.size(), 1U);
  EXPECT_EQ(report.remarks[0], "文件“" + (folder.path() / "HSZSJ.KU").string() +
                                   "”不完整：第2行的数据超出了文件末尾，缺少的部分按空白处理。");
}

TEST_F(DamagedKu, OffsetsBeyondTheEndBringNothingButARemark) {
  Entry entry = olderEntry({{Specimen{}}});
  for (const bool newer : {false, true}) {
    entry.format = newer ? ' ' : 0;
    entry.groupCount = 255;
    for (const std::size_t offset : {std::size_t{100}, std::size_t{0x7FFFFFFF}, std::size_t{0xFFFFFFFF}}) {
      const ImportReport report = importFile(word(1) + indexEntry(entry, offset));
      EXPECT_EQ(report.sampleRows, 0U);
      EXPECT_EQ(report.remarks.size(), 1U);
    }
  }
}

TEST_F(DamagedKu, GroupCountsBeyondTheEndAreBlankGroups) {
  // The count says 255 groups, one is there; the blank ones gather in one blank row.
  Entry entry = olderEntry({{Specimen{}}});
  entry.block[0] = '\xFF';
  const ImportReport report = importAll({entry});
  EXPECT_EQ(report.sampleRows, 2U);
  EXPECT_EQ(report.remarks.size(), 1U);
  EXPECT_EQ(row(0).sampleNo.trimmed(), "S-1");
  EXPECT_TRUE(row(1).sampleNo.isBlank());
}

TEST_F(DamagedKu, AnOffsetIntoTheIndexIsReadAsItStands) {
  // Whatever the bytes there are taken for, nothing is read outside the file.
  for (std::size_t offset = 0; offset < 32; ++offset) {
    Entry entry = newerEntry({});
    entry.groupCount = 3;
    EXPECT_EQ(importFile(word(1) + indexEntry(entry, offset)).remarks.size(), 1U) << offset;
  }
}

TEST_F(DamagedKu, AMissingFileAFolderAndAnUnreadableOneAreNamed) {
  std::filesystem::create_directory(folder.path() / "folder.ku");
  const std::filesystem::path paths[] = {folder.path() / "missing.ku", folder.path() / "folder.ku",
                                         "/proc/self/mem"};  // opens, and fails at the first read
  const ImportedState before(workspace);
  for (const auto& path : paths) {
    try {
      importPath(path);
      ADD_FAILURE() << path;
    } catch (const UserError& error) {
      EXPECT_NE(std::string(error.what()).find(textOfPath(path)), std::string::npos) << error.what();
    }
    EXPECT_TRUE(ImportedState(workspace) == before);
  }
}

TEST_F(DamagedKu, AFileThatIsGoneWhenItIsReadChangesNothing) {
  const auto source = openFile(twoRows());
  std::filesystem::remove(folder.path() / "HSZSJ.KU");
  const ImportedState before(workspace);
  const std::size_t marked[] = {0};
  EXPECT_THROW(source->read(marked, workspace, {}), UserError);
  EXPECT_TRUE(ImportedState(workspace) == before);
}

}  // namespace
}  // namespace triaxlab::testing
