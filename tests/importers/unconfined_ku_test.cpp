// KZJSJ.KU and HWXSJ.KU: dial readings of a ring of 1.25 over specimens of 12.00 cm2, so a reading of 100.0 divisions
// leaves a first stress of 100 x 1.25 x 10 / 12 = 104.17 kPa.
#include <gmock/gmock.h>

#include "importers/import_fixture.h"
#include "importers/unconfined_builders.h"
#include "sessions/dialogs/import_selection.h"
#include "support/fake_dialogs.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

constexpr int kNone = -30000;  // what the controllers write where they took no reading

class UnconfinedKu : public ImportTest {
 protected:
  ImportReport importKzj(const std::vector<KzjGroup>& groups, std::string_view numbers = "") {
    return importAll({kzjEntry(groups, numbers)}, "unconfined-kzj");
  }
  ImportReport importHwx(const std::vector<HwxSpecimen>& specimens) {
    return importAll({hwxEntry(specimens)}, "unconfined-hwx");
  }
  const UnconfinedSampleRecord& sample(std::size_t index = 0) const {
    return workspace.UnconfinedSampleTable.at(index);
  }
  std::string numberOf(std::size_t index) const { return std::string(sample(index).sampleNo.view()); }
  std::size_t samples() const { return workspace.UnconfinedSampleTable.used().size(); }
};

class UnconfinedKzj : public UnconfinedKu {};
class UnconfinedHwx : public UnconfinedKu {};

// ---- what the windows are called, where they look, what they say

struct Source {
  std::string_view id, command, form, title, file, folderPrompt, tooMany;
  std::size_t position;
};
constexpr std::array kSources{
    Source{"unconfined-kzj", "WUCEXIAN", "OPENFORM3", "无侧限抗压强度试验原始数据库", "KZJSJ.KU", "无侧限",
           "打开无侧限试验数据", 2200},
    Source{"unconfined-hwx", "XWUCEXIAN", "OPENFORM30", "新无侧限抗压强度试验原始数据库", "HWXSJ.KU", "新无侧限",
           "打开新无侧限试验数据", 13900},
};

TEST_F(UnconfinedKu, EachLooksForItsFileInItsFolder) {
  workspace.applicationFolder = folder.path();
  for (const Source& source : kSources) {
    const Importer& importer = *importerOfMenuCommand(source.command);
    EXPECT_EQ(importer.id, source.id);
    EXPECT_EQ(importer.form, source.form);
    EXPECT_EQ(importer.title, source.title);
    EXPECT_EQ(importer.messageTitle, source.tooMany);
    EXPECT_EQ(importer.folderField.position, source.position);
    FakeDialogs dialogs;
    ImportSelection selection(importer, workspace);
    selection.load(dialogs);
    ASSERT_EQ(dialogs.fileQuestions.size(), 1U);
    const std::string file(source.file);
    EXPECT_EQ(dialogs.fileQuestions[0].filter, "Log Files (" + file + ")|" + file + "|All  Files (*.*)|*.*");
  }
}

TEST_F(UnconfinedKu, TheGridsShowProjectDateAndGroups) {
  Entry kzj = kzjEntry({KzjGroup{}, KzjGroup{}}), hwx = hwxEntry({HwxSpecimen{}});
  kzj.projectNo = "2024A3";
  for (const auto& [source, entry, groups] : {std::tuple{"unconfined-kzj", &kzj, "2"}, {"unconfined-hwx", &hwx, "1"}}) {
    ImportSelection selection(*importerOfId(source), workspace);
    selection.open(folder.write("X.KU", kuFile({*entry})));
    std::vector<std::string> headings;
    std::vector<int> widths;
    for (const SourceColumn& column : selection.columns()) {
      headings.emplace_back(column.heading);
      widths.push_back(column.width);
    }
    EXPECT_THAT(headings, ElementsAre("序号", "工程编号", "试验日期", "组 数", "处理选择"));
    EXPECT_THAT(widths, ElementsAre(930, 1500, 1500, 800, 1000));
    EXPECT_EQ(selection.cell(1, 1), entry->projectNo);
    EXPECT_EQ(selection.cell(1, 2), "2024/04/12");
    EXPECT_EQ(selection.cell(1, 3), groups);
  }
}

TEST_F(UnconfinedKu, AnImportThatBringsNothingSaysSo) {
  const KzjGroup nameless{.packedSampleNo = {0, 0, 0}, .packedRemouldedNo = {0, 0, 0}};
  for (const auto& [source, entry] :
       {std::pair{"unconfined-kzj", kzjEntry({nameless})}, {"unconfined-hwx", hwxEntry({{.sampleNo = ""}})}}) {
    FakeDialogs dialogs;
    ImportSelection selection(*importerOfId(source), workspace);
    selection.open(folder.write("X.KU", kuFile({entry})));
    selection.toggleMark(1, dialogs);
    ASSERT_TRUE(selection.read(dialogs));
    EXPECT_THAT(dialogs.shown, ElementsAre("[打开无侧限抗压强度试验原始数据库] 没有无侧限试验数据...")) << source;
    EXPECT_EQ(samples(), 0U);
  }
}

TEST_F(UnconfinedKu, EachMarkedRowDatesItsProject) {
  Entry first = kzjEntry({KzjGroup{}}), second = kzjEntry({KzjGroup{}});
  second.projectNo = "P2";
  second.date = "20240425";
  importAll({first, second}, "unconfined-kzj");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).projectTestDate("P1"), "2024/04/12");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Unconfined).projectTestDate("P2"), "2024/04/25");
  EXPECT_EQ(samples(), 2U) << "one number in two projects is two samples";
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Unconfined).rawImportPending);
}

// ---- KZJSJ.KU

TEST_F(UnconfinedKzj, ASpecimenFillsItsSide) {
  KzjSide undisturbed{.heightFraction = 5, .areaFraction = 50, .ring = 912, .readings = {{0, 1000}, {22, 3}}};
  importKzj({{.undisturbed = undisturbed, .remoulded = {.readings = {{1, 1000}}}}});
  ASSERT_EQ(samples(), 1U);
  EXPECT_EQ(sample().projectNo.trimmed(), "P1");
  EXPECT_EQ(sample().sampleNo.trimmed(), "101");
  EXPECT_EQ(sample().sampleHeight[0].trimmed(), "8.05");
  EXPECT_EQ(sample().sampleArea[0].trimmed(), "12.50");
  EXPECT_EQ(sample().ringCoefficient[0], 912);
  EXPECT_EQ(sample().undisturbedReading[0].trimmed(), "100.0");
  EXPECT_EQ(sample().undisturbedStrain[0].trimmed(), "1.0");
  EXPECT_EQ(sample().undisturbedStress[0].trimmed(), "73.0") << "100 x 0.912 x 10 / 12.5 = 72.96";
  EXPECT_EQ(sample().undisturbedReading[22].trimmed(), "0.3");
  EXPECT_EQ(sample().undisturbedStrain[22].trimmed(), "23.0");
  EXPECT_TRUE(sample().undisturbedStrain[23].isBlank());
  EXPECT_EQ(sample().sampleHeight[1].trimmed(), "8.00");
  EXPECT_EQ(sample().ringCoefficient[1], 1250);
  EXPECT_EQ(sample().remouldedReading[0].trimmed(), "0.0");
  EXPECT_TRUE(sample().remouldedStress[0].isBlank());
  EXPECT_EQ(sample().remouldedStress[1].trimmed(), "104.2");
}

TEST_F(UnconfinedKzj, AllKindsButFiveAreReadEachHalfPercent) {
  for (const int kind : {0, 3, 4, 6, 255}) {
    importKzj({{.kind = kind, .undisturbed = {.readings = {{0, 10}}}}});
    EXPECT_EQ(sample().undisturbedStrain[0].trimmed(), "0.5") << kind;
    EXPECT_EQ(sample().undisturbedStrain[22].trimmed(), "11.5") << kind;
  }
}

TEST_F(UnconfinedKzj, PackedNumbersAreReadFromTheLastByte) {
  const auto packed = [](int first, int second, int third) {
    return KzjGroup{.packedSampleNo = {first, second, third}, .packedRemouldedNo = {first, second, third}};
  };
  importKzj({packed(0x45, 0xA3, 0x12), packed(0xFF, 0x1F, 0x1A), packed(0xBC, 0xDE, 0x7F), packed(0x00, 0x00, 0x10)});
  EXPECT_EQ(numberOf(0), "12-345         ");
  EXPECT_EQ(numberOf(1), "1-1            ");
  EXPECT_EQ(numberOf(2), "7              ");
  EXPECT_EQ(numberOf(3), "100000         ");
}

TEST_F(UnconfinedKzj, ALongNumberNamesBothSides) {
  const KzjGroup group{.packedRemouldedNo = {0xFF, 0x2F, 0x20}};
  importKzj({group, group, group, group},
            std::string("zmgj") + "1234567   " + "123456    " + " ABCDEFG  " + std::string("LONGNO7\0XY", 10));
  ASSERT_EQ(samples(), 5U);
  EXPECT_EQ(numberOf(0), "1234567        ");
  EXPECT_EQ(numberOf(1), "101            ") << "six characters are no long number";
  EXPECT_EQ(numberOf(2), "202            ");
  EXPECT_EQ(numberOf(3), " ABCDEFG       ") << "taken with its blanks";
  EXPECT_EQ(numberOf(4), "LONGNO7        ") << "up to the first zero byte";

  importKzj({group}, "wmgj1234567");
  EXPECT_EQ(numberOf(0), "101            ");
}

TEST_F(UnconfinedKzj, EachSideGoesToTheRowOfItsNumber) {
  const std::array<int, 3> one{0xFF, 0xFF, 0x1F}, two{0xFF, 0xFF, 0x2F}, none{0xFF, 0xFF, 0xFF}, zero{0, 0, 0};
  importKzj({{.packedSampleNo = one, .packedRemouldedNo = two, .undisturbed = {.ring = 1}, .remoulded = {.ring = 2}},
             {.packedSampleNo = two, .packedRemouldedNo = one, .undisturbed = {.ring = 3}, .remoulded = {.ring = 4}},
             {.packedSampleNo = none, .packedRemouldedNo = zero}});
  ASSERT_EQ(samples(), 2U);
  EXPECT_EQ(numberOf(0).substr(0, 2), "1 ");
  EXPECT_EQ(sample(0).ringCoefficient[0], 1);
  EXPECT_EQ(sample(0).ringCoefficient[1], 4);
  EXPECT_EQ(numberOf(1).substr(0, 2), "2 ");
  EXPECT_EQ(sample(1).ringCoefficient[0], 3);
  EXPECT_EQ(sample(1).ringCoefficient[1], 2);
}

TEST_F(UnconfinedKzj, AReadingThatWasNotTakenLeavesItsRowBlank) {
  importKzj({{.undisturbed = {.readings = {{0, 100}, {1, kNone}, {2, 200}}}}});
  EXPECT_EQ(sample().undisturbedStrain[0].trimmed(), "1.0");
  EXPECT_TRUE(sample().undisturbedReading[1].isBlank());
  EXPECT_TRUE(sample().undisturbedStrain[1].isBlank());
  EXPECT_TRUE(sample().undisturbedStress[1].isBlank());
  EXPECT_EQ(sample().undisturbedStrain[2].trimmed(), "3.0") << "the rows behind it don't move up";
}

TEST_F(UnconfinedKzj, AFirstStressIsAboveZeroOrBlank) {
  const auto firstStress = [this](const KzjSide& side) {
    importKzj({{.undisturbed = side}});
    return std::string(sample().undisturbedStress[0].trimmed());
  };
  const std::map<int, int> load{{0, 1000}}, pull{{0, -1000}};
  EXPECT_EQ(firstStress({.readings = load}), "104.2");
  EXPECT_EQ(firstStress({.readings = pull}), "");
  EXPECT_EQ(firstStress({.ring = -1250, .readings = load}), "");
  EXPECT_EQ(firstStress({.ring = 0, .readings = load}), "");
  EXPECT_EQ(firstStress({.areaWhole = 0, .readings = load}), "");
  EXPECT_EQ(firstStress({.heightWhole = 0, .readings = load}), "");
  EXPECT_EQ(firstStress({.areaWhole = 11, .areaFraction = 100, .readings = load}), "104.2");
}

TEST_F(UnconfinedKzj, ACutFileBringsWhatIsThere) {
  const KzjGroup second{.packedSampleNo = {0xFF, 0x2F, 0x10}, .packedRemouldedNo = {0xFF, 0x2F, 0x10}};
  const std::string whole = kuFile({kzjEntry({{.undisturbed = {.readings = {{0, 1000}, {22, 2000}}}}, second})});
  constexpr std::size_t kBlock = 2 + 30, kGroup = kBlock + 1, kFirstReading = kGroup + 24;
  for (std::size_t size = kBlock; size <= whole.size(); size += size < kGroup + 80 ? 1 : 7) {
    const ImportReport report = importFile(std::string_view(whole).substr(0, size), "unconfined-kzj");
    EXPECT_EQ(report.remarks.empty(), size >= kGroup + 2 * 276) << size;
    EXPECT_EQ(samples() > 0, size > kGroup + 2) << size;
    if (samples() == 0) continue;
    EXPECT_EQ(sample().undisturbedReading[0].trimmed() == "100.0", size >= kFirstReading + 2) << size;
    EXPECT_EQ(sample().undisturbedReading[22].trimmed() == "200.0", size >= kFirstReading + 46) << size;
  }
}

TEST_F(UnconfinedKzj, CountsAndOffsetsBeyondTheEndBringARemark) {
  Entry entry = kzjEntry({KzjGroup{}});
  for (const std::size_t offset : {std::size_t{100}, std::size_t{0x7FFFFFFF}, std::size_t{0xFFFFFFFF}}) {
    const ImportReport report = importFile(word(1) + indexEntry(entry, offset), "unconfined-kzj");
    EXPECT_EQ(report.sampleRows, 0U);
    EXPECT_EQ(report.remarks.size(), 1U);
  }
  entry.block.resize(1 + 276);
  entry.block[0] = '\xFF';
  EXPECT_EQ(importAll({entry}, "unconfined-kzj").samples, 1U) << "one group and blanks, of 255";
}

TEST_F(UnconfinedKzj, MoreSamplesThanTheTableHasRowsAreRefused) {
  std::vector<KzjGroup> groups;
  for (int i = 0; i < 251; ++i)
    groups.push_back({.packedSampleNo = {0xFF, i, 0x1F}, .packedRemouldedNo = {0xFF, i, 0x2F}});
  std::vector<Entry> entries(5, kzjEntry(groups));
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i].projectNo = "P" + std::to_string(i);
  workspace.UnconfinedSampleTable[0] = {};
  const std::string sentence = refusal(kuFile(entries), "unconfined-kzj");
  EXPECT_NE(sentence.find("1001"), std::string::npos) << sentence;
  EXPECT_EQ(samples(), 1U) << "the table stays as it was";
}

// ---- HWXSJ.KU

TEST_F(UnconfinedHwx, ASpecimenFillsItsSide) {
  importHwx({{.height = 798, .area = 1205, .ring = 1650, .readings = {{0, 1000}, {41, 5}}},
             {.side = 0, .readings = {{2, 1000}}}});
  ASSERT_EQ(samples(), 1U);
  EXPECT_EQ(sample().projectNo.trimmed(), "P1");
  EXPECT_EQ(sample().sampleNo.trimmed(), "S-1");
  EXPECT_EQ(sample().sampleHeight[0].trimmed(), "7.98");
  EXPECT_EQ(sample().sampleArea[0].trimmed(), "12.05");
  EXPECT_EQ(sample().ringCoefficient[0], 1650);
  EXPECT_EQ(sample().undisturbedReading[0].trimmed(), "100.0");
  EXPECT_EQ(sample().undisturbedStrain[0].trimmed(), "0.5");
  EXPECT_EQ(sample().undisturbedStress[0].trimmed(), "136.9") << "100 x 1.65 x 10 / 12.05 = 136.93";
  EXPECT_EQ(sample().undisturbedReading[41].trimmed(), "0.5");
  EXPECT_EQ(sample().undisturbedStrain[41].trimmed(), "21.0");
  EXPECT_TRUE(sample().undisturbedStrain[42].isBlank());
  EXPECT_EQ(sample().remouldedStress[2].trimmed(), "104.2");
}

TEST_F(UnconfinedHwx, OneIsUndisturbedAndAllElseRemoulded) {
  for (const int side : {0, 1, 2, 255}) {
    importHwx({{.side = side}});
    EXPECT_EQ(sample().sampleHeight[0].isBlank(), side != 1) << side;
    EXPECT_EQ(sample().sampleHeight[1].isBlank(), side == 1) << side;
  }
}

TEST_F(UnconfinedHwx, ALaterSpecimenReplacesItsSideWhole) {
  importHwx({{.readings = {{0, 1000}, {1, 1100}}}, {.side = 2}, {.ring = 1300, .readings = {{0, 500}, {1, kNone}}}});
  ASSERT_EQ(samples(), 1U);
  EXPECT_EQ(sample().ringCoefficient[0], 1300);
  EXPECT_EQ(sample().undisturbedReading[0].trimmed(), "50.0");
  EXPECT_TRUE(sample().undisturbedReading[1].isBlank());
  EXPECT_TRUE(sample().undisturbedStress[1].isBlank());
  EXPECT_EQ(sample().sampleHeight[1].trimmed(), "8.00") << "the other side stays";
}

TEST_F(UnconfinedHwx, ASpecimenNamesItsProjectOrTakesThatOfTheIndex) {
  importHwx({{.projectNo = "LONGPROJ10", .sampleNo = "A"},
             {.projectNo = "", .sampleNo = "A"},
             {.projectNo = std::string("\0junk", 5), .sampleNo = std::string(" B\0junk", 7)},
             {.sampleNo = std::string(10, '\0')}});
  ASSERT_EQ(samples(), 3U);
  EXPECT_EQ(sample(0).projectNo.trimmed(), "LONGPROJ10");
  EXPECT_EQ(sample(1).projectNo.trimmed(), "P1");
  EXPECT_EQ(sample(2).projectNo.trimmed(), "P1");
  EXPECT_EQ(numberOf(2), "B              ");
  EXPECT_FALSE(workspace.dataOf(ProjectKind::Unconfined).projectTestDate("LONGPROJ10"))
      << "the index dates its own project alone";
}

TEST_F(UnconfinedHwx, ACutFileBringsWhatIsThere) {
  const std::string whole = kuFile({hwxEntry({{.readings = {{0, 1000}, {41, 2000}}}})});
  constexpr std::size_t kSpecimen = 2 + 30 + 1;
  for (std::size_t size = kSpecimen - 1; size <= whole.size(); ++size) {
    const ImportReport report = importFile(std::string_view(whole).substr(0, size), "unconfined-hwx");
    EXPECT_EQ(samples(), size > kSpecimen + 11 ? 1U : 0U) << size;
    if (samples() == 0) continue;
    EXPECT_EQ(report.remarks.empty(), size == whole.size()) << size;
    EXPECT_EQ(sample().undisturbedReading[0].trimmed() == "100.0", size >= kSpecimen + 38) << size;
    EXPECT_EQ(sample().undisturbedReading[41].trimmed() == "200.0", size == whole.size()) << size;
  }
}

}  // namespace
}  // namespace triaxlab::testing
