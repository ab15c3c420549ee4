// *.SZD: lines of text and readings of 0.01 kPa between them.
#include "importers/import_fixture.h"
#include "importers/source_builders.h"

namespace triaxlab::testing {
namespace {

class Nanjing : public ImportTest {
 protected:
  ImportReport import(std::string_view bytes) { return importFile(bytes, "nanjing"); }
  ImportReport import(const NanjingBlock& block) { return import(block.bytes()); }
  std::string_view stressOf(std::size_t index, std::size_t i) const {
    return row(index).deviatorStress[i][0].trimmed();
  }
  std::string_view sampleNo(std::size_t index) const { return row(index).sampleNo.trimmed(); }
};

TEST_F(Nanjing, IsACommandWithAFileDialog) {
  const Importer& importer = *importerOfId("nanjing");
  EXPECT_EQ(&importer, importerOfMenuCommand("OPENNJ"));
  EXPECT_EQ(importer.fileDialogTitle, "打开南京三轴原始数据文件");
  EXPECT_EQ(importer.defaultFile, "*.SZD");
  EXPECT_TRUE(importer.form.empty());
  EXPECT_TRUE(importer.columns.empty());
  EXPECT_EQ(openFile("", "nanjing")->rows().size(), 1U) << "the file is its only row";
}

TEST_F(Nanjing, SamplesBeginInRow1) {
  const std::string file = NanjingBlock{.readings = {0, 250, 12345}}.bytes() + "\n" +
                           NanjingBlock{.date = "2011/05/07", .projectNo = "NJ2", .sampleNo = "J2"}.bytes();
  EXPECT_EQ(import(file).sampleRows, 3U);
  EXPECT_FALSE(isLive(row(0)));
  EXPECT_EQ(sampleNo(1), "J1");
  EXPECT_EQ(row(1).projectNo.trimmed(), "NJ1");
  EXPECT_EQ(row(1).cellPressure[0].trimmed(), "100");
  EXPECT_TRUE(row(1).cellPressure[1].isBlank());
  EXPECT_EQ(row(1).testMethod, 0);
  EXPECT_EQ(sampleNo(2), "J2");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo.trimmed(), "NJ2")
      << "the last block's";
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate.trimmed(), "2011/05/07");
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[1].projectNo.isBlank());
}

TEST_F(Nanjing, ReadingsAreHundredthsWithoutASign) {
  import(NanjingBlock{.readings = { 0, 250, 12345, 0xFFFF, 0x8000, 5 }});
  EXPECT_EQ(stressOf(1, 0), "0.0");
  EXPECT_EQ(stressOf(1, 1), "2.5");
  EXPECT_EQ(stressOf(1, 2), "123.5");  // 123.45 away from zero
  EXPECT_EQ(stressOf(1, 3), "655.4");  // 655.35
  EXPECT_EQ(stressOf(1, 4), "327.7");  // 327.68
  EXPECT_EQ(stressOf(1, 5), "0.1");
  EXPECT_EQ(stressOf(1, 6), "0.0") << "no reading";
  EXPECT_EQ(stressOf(1, 200), "0.0");
  EXPECT_EQ(stressOf(1, 201), "");
  EXPECT_TRUE(row(1).deviatorStress[0][1].isBlank());
}

TEST_F(Nanjing, StrainsGoByATenthOfAPercentFromZero) {
  import(NanjingBlock{});
  EXPECT_EQ(row(1).axialStrain[0][0], 0.0F);
  EXPECT_EQ(row(1).axialStrain[1][0], 0.1F);
  EXPECT_EQ(row(1).axialStrain[3][0], 0.3F);
  EXPECT_EQ(row(1).axialStrain[200][0], 20.0F);
  EXPECT_EQ(row(1).axialStrain[201][0], 0.0F);
  EXPECT_EQ(row(1).axialStrain[1][1], 0.0F);
}

TEST_F(Nanjing, MoreThan201ReadingsAreDropped) {
  std::vector<int> readings(600);
  for (int i = 0; i < 600; ++i) readings[static_cast<std::size_t>(i)] = 100 * (i % 300);
  EXPECT_TRUE(import(NanjingBlock{.readings = readings}.bytes() + "\n" + NanjingBlock{.sampleNo = "J2"}.bytes())
                  .remarks.empty());
  EXPECT_EQ(stressOf(1, 200), "200.0");
  EXPECT_EQ(stressOf(1, 201), "");
  EXPECT_EQ(row(1).cellPressure[0].trimmed(), "100");
  EXPECT_EQ(sampleNo(2), "J2");
}

TEST_F(Nanjing, WithoutAnEndMarkTheScanGoesOnBehind301Pairs) {
  const NanjingBlock block{.readings = std::vector<int>(602, 700), .hasEndMark = false};
  import(block.bytes() + "rest of a line\n" + NanjingBlock{.sampleNo = "J2"}.bytes());
  EXPECT_EQ(stressOf(1, 200), "7.0");
  EXPECT_TRUE(row(1).cellPressure[0].isBlank());
  EXPECT_EQ(sampleNo(2), "J2");
}

TEST_F(Nanjing, TheEndMarkIsAPair) {
  // Its halves apart, or across two pairs, are readings.
  import(NanjingBlock{.readings = { 0x7141, 1, 2, 0x7A3D, 0x7A3D, 0x7141, 3, 0x7141, 0x7A3D, 4 }});
  EXPECT_EQ(stressOf(1, 0), "289.9");  // 28993
  EXPECT_EQ(stressOf(1, 3), "312.9");  // 31293
  EXPECT_EQ(stressOf(1, 9), "0.0");    // 4, that is 0.04
  EXPECT_EQ(row(1).cellPressure[0].trimmed(), "100");
}

TEST_F(Nanjing, FourPressuresAreKnown) {
  const std::pair<int, const char*> pressures[] = {{0x4248, "50"},  {0x42C8, "100"}, {0x4348, "200"},
                                                   {0x4396, "300"}, {0x43C8, ""},    {0, ""}};
  for (const auto& [word, text] : pressures) {
    import(NanjingBlock{.pressureWord = word});
    EXPECT_EQ(row(1).cellPressure[0].trimmed(), text);
  }
}

TEST_F(Nanjing, ReadingsMayHoldLineFeedsAndMarkers) {
  // "SZ-data" and line feeds as readings: nothing of it is a line.
  std::vector<int> readings{0x0A0A, 0x5A53, 0x642D, 0x7461, 0x0A61, 0x0A0A};
  EXPECT_EQ(import(NanjingBlock{.readings = readings}).sampleRows, 2U);
  EXPECT_EQ(stressOf(1, 0), "25.7");  // 2570
}

TEST_F(Nanjing, OnlyAnExactMarkerIsOne) {
  const std::string block = NanjingBlock{}.bytes();
  const std::string body = block.substr(block.find('\n'));
  for (const char* marker : {"SZ-data\r", " SZ-data", "SZ-data ", "sz-data", "SZ-dat", ""}) {
    EXPECT_EQ(import(marker + body).sampleRows, 1U) << marker;
    EXPECT_FALSE(isLive(row(1)));
  }
  EXPECT_EQ(import("head\n\n" + block).sampleRows, 2U) << "lines in front have no effect";
  EXPECT_EQ(sampleNo(1), "J1");
}

TEST_F(Nanjing, AMarkerInsideABlockBeginsANewOne) {
  import("SZ-data\n2011/05/06\n" + NanjingBlock{}.bytes());
  EXPECT_FALSE(isLive(row(1)));
  EXPECT_EQ(sampleNo(2), "J1");
}

TEST_F(Nanjing, TextsAreCutAtTheirWidthAndKeepTheirBytes) {
  import(NanjingBlock{
      .date = "2011/05/06 08:00", .projectNo = "\xBF\xB1\xB2\xEC-11111111111\xBF\xB1", .sampleNo = "J-1\r"});
  EXPECT_EQ(row(1).projectNo.view(), "\xBF\xB1\xB2\xEC-1111111111");
  EXPECT_EQ(row(1).sampleNo.trimmed(), "J-1\r");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].testDate.view(), "2011/05/06");
}

TEST_F(Nanjing, LeavesThePendingMarkAndClearsTheRest) {
  workspace.TriaxialSampleTable[0].projectNo = workspace.TriaxialSampleTable[1000].projectNo = [] {
    FixedText<15> text;
    SetText(text, "OLD");
    return text;
  }();
  for (const bool pending : {false, true}) {
    workspace.dataOf(ProjectKind::Triaxial).rawImportPending = pending;
    import(NanjingBlock{});
    EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).rawImportPending, pending);
  }
  EXPECT_TRUE(row(0).projectNo.isBlank());
  EXPECT_TRUE(row(1000).projectNo.isBlank());
}

TEST_F(Nanjing, TellsItsProgress) {
  const auto source = openFile(NanjingBlock{}.bytes() + "\n" + NanjingBlock{}.bytes(), "nanjing");
  std::vector<std::pair<std::size_t, std::size_t>> told;
  source->read({}, workspace, [&](std::size_t done, std::size_t total) { told.emplace_back(done, total); });
  EXPECT_EQ(told, (std::vector<std::pair<std::size_t, std::size_t>>{{1, 2}, {2, 2}}));
}

// ---- damage

TEST_F(Nanjing, AFileWithoutAMarkerBringsNothingAndSaysSo) {
  for (const std::string_view bytes : {std::string_view(), std::string_view("nothing\nof it\n")}) {
    const ImportReport report = import(bytes);
    EXPECT_EQ(report.sampleRows, 1U);
    ASSERT_EQ(report.remarks.size(), 1U);
    EXPECT_NE(report.remarks[0].find("HSZSJ.KU”中没有“SZ-data”标记"), std::string::npos) << report.remarks[0];
  }
}

TEST_F(Nanjing, EveryShorterFileGivesWhatIsThere) {
  const std::string whole = NanjingBlock{.readings = {100, 200, 300, 400}}.bytes();
  const std::size_t binary = whole.find("\xEE\xEE\xEE\xEE");  // behind the last line feed
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const ImportReport report = import(std::string_view(whole).substr(0, size));
    EXPECT_EQ(report.remarks.size(), size < 8 || size >= binary ? 1U : 0U) << size;
    EXPECT_EQ(stressOf(1, 0), size < binary ? "" : size >= binary + 5 ? "1.0" : "0.0") << size;
    EXPECT_EQ(stressOf(1, 3), size < binary         ? ""
                              : size >= binary + 12 ? "4.0"
                              : size == binary + 11 ? "1.4"
                                                    : "0.0")
        << size;  // 400 is 0x0190, of which 0x90 is 144
    EXPECT_TRUE(row(1).cellPressure[0].isBlank()) << size;
  }
  EXPECT_TRUE(import(whole).remarks.empty());
}

TEST_F(Nanjing, MoreSamplesThanRowsAreRefusedAndChangeNothing) {
  std::string file;
  for (int i = 0; i < 1000; ++i) file += "SZ-data\n\n\n\n";
  EXPECT_EQ(import(file).sampleRows, 1001U);
  const ImportedState before(workspace);
  const std::string sentence = refusal(file + "SZ-data\n", "nanjing");
  EXPECT_NE(sentence.find("HSZSJ.KU”中的试样超过1000个"), std::string::npos) << sentence;
  EXPECT_TRUE(ImportedState(workspace) == before);
}

TEST_F(Nanjing, AMissingFileIsNamed) {
  EXPECT_THROW(importPath(folder.path() / "missing.szd", "nanjing"), UserError);
  EXPECT_THROW(importPath(folder.path(), "nanjing"), UserError);
}

}  // namespace
}  // namespace triaxlab::testing
