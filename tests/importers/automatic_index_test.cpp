// The selection grid of HSZSJ.KU: count, entries, project numbers.
#include "importers/import_fixture.h"

namespace triaxlab::testing {
namespace {

class AutomaticIndex : public ImportTest {};

TEST_F(AutomaticIndex, ShowsProjectDateGroupsAndMethod) {
  Entry older = olderEntry({{Specimen{}}, {Specimen{}}});
  older.projectNo = "DT2-07";
  older.date = "20081103";
  older.method = 2;
  Entry newer = newerEntry({Specimen{}});
  newer.projectNo = "ZK7";
  newer.method = 3;
  const auto source = openFile(kuFile({older, newer}));

  ASSERT_EQ(source->rows().size(), 2U);
  EXPECT_EQ(source->rows()[0].cells, (std::vector<std::string>{"DT2-07", "2008/11/03", "2组", "CU"}));
  EXPECT_EQ(source->rows()[1].cells, (std::vector<std::string>{"ZK7", "2024/04/12", "1个", "CD"}));
  EXPECT_TRUE(source->remarks().empty());
}

TEST_F(AutomaticIndex, AMethodThatIsNoneHasNoName) {
  Entry entry = olderEntry({{Specimen{}}});
  for (const int method : {0, 4, 255}) {
    entry.method = method;
    EXPECT_EQ(openFile(kuFile({entry}))->rows()[0].cells[3], "") << method;
  }
}

struct ProjectNumber {
  const char* name;
  std::string head, tail;
  int format;
  std::string tail2;
  std::string shown, shownByOldReader;
};

class AutomaticProjectNumber : public ImportTest, public ::testing::WithParamInterface<ProjectNumber> {
 protected:
  std::string shownBy(std::string_view source) {
    const ProjectNumber& number = GetParam();
    Entry entry = olderEntry({{Specimen{}}});
    entry.projectNo = number.head;
    entry.projectTail = number.tail;
    entry.format = number.format;
    entry.projectTail2 = number.tail2;
    return openFile(kuFile({entry}), source)->rows()[0].cells[0];
  }
};

TEST_P(AutomaticProjectNumber, IsPutTogetherFromTheEntry) {
  EXPECT_EQ(shownBy("auto"), GetParam().shown);
  EXPECT_EQ(shownBy("auto-old"), GetParam().shownByOldReader);
}

const ProjectNumber kProjectNumbers[] = {
    {"TenPlacesInAnOlderEntry", "OLD-NU", "MB10", 0, "", "OLD-NUMB10", "OLD-NUMB10"},
    {"TenPlacesInANewerEntry", "2023-1", "   1", '7', "AB", "2023-117AB", "2023-11"},
    {"TheLastOfSeveralPlacesCounts", "2023-1", "WXY ", 'Z', "  ", "2023-1YZ", "2023-1WXY"},
    {"ABlankTailBeginsWithTheFormatByte", "2023-1", "    ", '7', "8 ", "2023-178", "2023-1"},
    {"FormatTenIsAnOlderEntry", "2023-1", "   1", 10, "AB", "2023-11", "2023-11"},
    {"FormatElevenIsANewerEntry", "2023-1", "   1", 11, "AB", "2023-11\vAB", "2023-11"},
    {"SixPlacesEndAtAZeroByte", std::string("P1\0XYZ", 6), "-3", 0, "", "P1-3", "P1-3"},
    {"ATailEndsAtAZeroByte", "2023-1", std::string("4\0Z", 3) + " ", 0, "", "2023-14", "2023-14"},
    // The byte in front of the format byte is 0, so nothing behind it is shown.
    {"ATailIsPutTogetherBeforeItIsCut", "2023-1", std::string("AB\0\0", 4), '7', "8 ", "2023-1", "2023-1AB"},
    // 勘 is BF B1: its halves stand in front of and in the format byte.
    {"ACharacterMayStandOnBothSides", "2023-1", "   \xBF", 0xB1, "7 ", "2023-1勘7", "2023-1?"},
};
INSTANTIATE_TEST_SUITE_P(Numbers, AutomaticProjectNumber, ::testing::ValuesIn(kProjectNumbers),
                         [](const auto& number) { return number.param.name; });

TEST_F(AutomaticIndex, DatesAreCutIntoYearMonthAndDayWhateverTheyHold) {
  Entry entry = olderEntry({{Specimen{}}});
  const std::pair<std::string, std::string> dates[] = {{"20081103", "2008/11/03"},
                                                       {"        ", "/  /"},
                                                       {std::string(8, '\0'), ""},
                                                       {std::string("2008\0\0\0\0", 8), "2008/"},
                                                       {"8-11-03 ", "8-11/-0/3"}};
  for (const auto& [stored, shown] : dates) {
    entry.date = stored;
    const auto source = openFile(kuFile({entry}));
    EXPECT_EQ(source->rows()[0].cells[1], shown);
    EXPECT_EQ(source->rows()[0].testDate, shown);
  }
}

TEST_F(AutomaticIndex, TheCountIsBelievedUpToAHundred) {
  const std::vector<Entry> entries(250, olderEntry({}));
  const auto source = openFile(kuFile(entries));
  EXPECT_EQ(source->rows().size(), 100U);
  EXPECT_TRUE(source->remarks().empty());
}

TEST_F(AutomaticIndex, NoEntriesIsAnEmptyGridAndNoRemark) {
  for (const std::string& file : {std::string(), word(0), word(-1), word(-32768)}) {
    const auto source = openFile(file);
    EXPECT_TRUE(source->rows().empty());
    EXPECT_TRUE(source->remarks().empty());
    EXPECT_EQ(source->read({}, workspace, {}).sampleRows, 0U);
  }
}

TEST_F(AutomaticIndex, TheGridIsThatOfTheWindow) {
  const Importer& importer = *importerOfId("auto");
  ASSERT_EQ(importer.columns.size(), 4U);
  EXPECT_EQ(importer.columns[0].heading, "工程编号");
  EXPECT_EQ(importer.columns[1].heading, "试验日期");
  EXPECT_EQ(importer.columns[2].heading, "组 数");
  EXPECT_EQ(importer.columns[3].heading, "方法");
  EXPECT_EQ(importer.columns[0].width, 1500);
  EXPECT_EQ(importer.columns[1].width, 1500);
  EXPECT_EQ(importer.columns[2].width, 800);
  EXPECT_EQ(importer.columns[3].width, 600);
}

TEST(ImporterTable, FindsASourceByItsNameOrItsCommand) {
  EXPECT_EQ(importerOfId("auto")->form, "OPENFORM0");
  EXPECT_EQ(importerOfId("auto-old")->form, "OPENFORM0OLD");
  EXPECT_EQ(importerOfMenuCommand("NEWSZ"), importerOfId("auto"));
  EXPECT_EQ(importerOfMenuCommand("OLDSZ1"), importerOfId("auto-old"));
  EXPECT_EQ(importerOfId("AUTO"), nullptr);
  EXPECT_EQ(importerOfId(""), nullptr);
  EXPECT_EQ(importerOfMenuCommand("ZMOPEN"), nullptr);
}

TEST(ImporterTable, NoTwoSourcesShareANameAWindowOrACommand) {
  for (const Importer* importer : importers()) {
    EXPECT_EQ(importerOfId(importer->id), importer);
    EXPECT_EQ(importerOfMenuCommand(importer->menuCommand), importer);
  }
}

}  // namespace
}  // namespace triaxlab::testing
