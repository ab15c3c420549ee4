// How lines become files, whatever is in them.
#include "exports/export_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "common/user_error.h"
#include "exports/export_fixture.h"
#include "platform/files.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ExportFiles : public testing::ExportTest {
 protected:
  /// Adds a K0 sample with this number (GBK).
  K0SampleRecord& add(std::string_view sampleNo) {
    K0SampleRecord& record = workspace.K0SampleTable.addRow();
    SetText(record.projectNo, "P1");
    SetText(record.sampleNo, sampleNo);
    return record;
  }
  /// The lines of the results below the heading.
  std::vector<std::string> results(std::string_view format = "csv") const {
    std::vector<std::string> all = lines(ProjectKind::K0, TableContent::Results, format);
    if (format == "csv") all.erase(all.begin());
    return all;
  }
};

TEST_F(ExportFiles, OfCommaSeparatedValuesBeginWithTheNames) {
  EXPECT_EQ(written(ProjectKind::K0, TableContent::Results),
            "projectNo,sample,sampleNo,testDate,boreholeNo,samplingDepth,samplingSpot,koValue,koIntercept_kPa,"
            "koAdjusted\r\n");
}

TEST_F(ExportFiles, LeaveTextsAsTheRecordHasThem) {
  for (const char* const text : {"007", "1E5", "=1+1", "+8", "-3", "\xB8\xA3 7"}) add(text);  // 福 in GBK
  EXPECT_THAT(results(), ElementsAre("P1,1,007,,,,,,,0", "P1,2,1E5,,,,,,,0", "P1,3,=1+1,,,,,,,0", "P1,4,+8,,,,,,,0",
                                     "P1,5,-3,,,,,,,0", "P1,6,福 7,,,,,,,0"));
}

TEST_F(ExportFiles, PutCommasAndQuotationMarksIntoQuotationMarks) {
  add("a,b");
  add("6\" pipe");
  EXPECT_THAT(results(), ElementsAre("P1,1,\"a,b\",,,,,,,0", "P1,2,\"6\"\" pipe\",,,,,,,0"));
}

TEST_F(ExportFiles, LeaveControlCharactersOut) {
  add(std::string_view("a\r\nb\tc\0d\x7F", 9));
  EXPECT_THAT(results(), ElementsAre("P1,1,abcd,,,,,,,0"));
  EXPECT_THAT(results("jsonl"), ElementsAre(HasSubstr(R"("sampleNo": "abcd")")));
}

TEST_F(ExportFiles, OfJsonHaveAnObjectALine) {
  SetText(add("a\\\"b").koValue, "0.45");
  add("2");
  EXPECT_THAT(
      results("jsonl"),
      ElementsAre(R"({"projectNo": "P1", "sample": "1", "sampleNo": "a\\\"b", "testDate": null, "boreholeNo": null, )"
                  R"("samplingDepth": null, "samplingSpot": null, "koValue": "0.45", "koIntercept_kPa": null, )"
                  R"("koAdjusted": "0"})",
                  StartsWith(R"({"projectNo": "P1", "sample": "2", )")));
}

TEST_F(ExportFiles, PassOverEmptySlotsAndKeepTheNumbersOfTheOthers) {
  add("A-1");
  workspace.K0SampleTable.addRow();
  add("A-3");
  EXPECT_THAT(results(), ElementsAre(StartsWith("P1,1,A-1,"), StartsWith("P1,3,A-3,")));
}

TEST_F(ExportFiles, TakeTheSamplesOfMoreThanOneProject) {
  ExportFile table(folder / "all.csv", *tableFormatOfId("csv"), exportTablesOf(ProjectKind::K0), TableContent::Results);
  add("A-1");
  table.add(workspace);
  workspace.K0SampleTable.clear();
  SetText(add("B-1").projectNo, "P2");
  table.add(workspace);
  EXPECT_EQ(table.lineCount(), 2U);
  table.finish();
  EXPECT_THAT(folder.read("all.csv"), EndsWith("\r\nP1,1,A-1,,,,,,,0\r\nP2,1,B-1,,,,,,,0\r\n"));
}

TEST_F(ExportFiles, AreOnePieceHoweverManyLinesThereAre) {
  for (int i = 0; i < 1001; ++i) SetText(add("S").koValue, std::to_string(i));
  const std::vector<std::string> all = results();
  ASSERT_EQ(all.size(), 1001U);
  for (std::size_t i = 0; i < all.size(); ++i)
    EXPECT_EQ(all[i], "P1," + std::to_string(i + 1) + ",S,,,,," + std::to_string(i) + ",,0");
}

TEST_F(ExportFiles, LeaveTheOldOneWhenTheyAreGivenUp) {
  folder.write("table.csv", "old");
  {
    ExportFile table(folder / "table.csv", *tableFormatOfId("csv"), exportTablesOf(ProjectKind::K0),
                     TableContent::Results);
    add("A-1");
    table.add(workspace);
  }
  EXPECT_EQ(folder.read("table.csv"), "old");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST_F(ExportFiles, AreNotBegunWhereNoFileCanBe) {
  std::filesystem::create_directory(folder / "folder.csv");
  for (const std::filesystem::path& place :
       {folder / "folder.csv", folder.path() / "missing" / "a.csv", std::filesystem::path("/dev/null")}) {
    std::string sentence;
    try {
      const ExportFile table(place, *tableFormatOfId("csv"), exportTablesOf(ProjectKind::K0), TableContent::Results);
    } catch (const UserError& error) {
      sentence = error.what();
    }
    EXPECT_THAT(sentence, HasSubstr("“" + textOfPath(std::filesystem::absolute(place)) + "”"));
  }
}

TEST(ExportFormats, AreKnownByNameAndExtension) {
  EXPECT_EQ(tableFormatOfId("xml"), nullptr);
  EXPECT_EQ(tableFormatOfExtension(".txt"), nullptr);
  for (const TableFormat& format : tableFormats()) {
    EXPECT_EQ(tableFormatOfId(format.id), &format);
    EXPECT_EQ(tableFormatOfExtension(format.extension), &format);
  }
  EXPECT_EQ(tableFormatOfExtension(".CSV"), tableFormatOfId("csv"));
}

}  // namespace
}  // namespace triaxlab
