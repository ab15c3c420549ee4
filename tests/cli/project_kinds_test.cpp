// The commands over project files of all kinds and ages.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;

/// `text` in a field of `width` places.
std::string field(std::string_view text, std::size_t width) {
  std::string places(text);
  places.resize(width, ' ');
  return places;
}

class ProjectKinds : public CliTest {
 protected:
  ProjectKinds() { run({"init"}); }

  static std::string header(std::string_view count, std::string_view tag = "V2.0") {
    return field(count, 4) + field("P1", 15) + "2024/01/022024/03/042024/02/28" + field("", 10) + field(tag, 20) +
           "\0\0"s;
  }
  static std::string names(std::string_view sampleNo) { return field("P1", 15) + field(sampleNo, 15); }
  /// A TK0 record without readings.
  static std::string tk0Record(std::string_view sampleNo) {
    std::string record = names(sampleNo) + std::string(4851, ' ');
    record[30] = '\0';
    return record.replace(4583, 298, std::string(298, '\0'));  // lines, counts and times
  }
  void write(const std::string& name, const std::string& bytes) { folder.write("app/HSZS/" + name, bytes); }
  std::string read(const std::string& name) const { return folder.read("app/HSZS/" + name); }
  nlohmann::json show(const std::string& kind, const std::string& name) {
    const ProgramRun ran = run({"show", kind, name});
    EXPECT_EQ(ran.status, 0) << ran.err;
    return nlohmann::json::parse(ran.out);
  }
};

TEST_F(ProjectKinds, ARewriteTakesTheSamplesInTheOrderGiven) {
  const std::string blanks(213, ' ');
  write("KOP1.txt", header("0003", "") + names("S1") + blanks + names("S2") + blanks + names("S3") + blanks);
  const ProgramRun ran = run({"rewrite", "k0", "kop1.txt", "--order", "3,1"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, "[保存K0文件] 数据保存完毕!\n");
  EXPECT_EQ(read("KOP1.txt"), header("0002", "") + names("S3") + blanks + names("S1") + blanks);
  EXPECT_EQ(run({"samples", "k0", "KOP1.txt"}).out, "序号\t土样编号\n1\tS3\n2\tS1\n");
}

TEST_F(ProjectKinds, ARewriteWithoutSamplesDeletesTheFile) {
  write("TKOP1.txt", header("0001", "") + names("S1") + std::string(4851, ' '));
  EXPECT_EQ(run({"rewrite", "tk0", "TKOP1.txt", "--order", "none"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(projectFile("TKOP1.txt")));
}

TEST_F(ProjectKinds, ADamagedSummaryFileIsNamedAndTheProjectWrittenAllTheSame) {
  const std::string blanks(213, ' ');
  write("KOP1.txt", header("0002", "") + names("S1") + blanks + names("S2") + blanks);
  folder.write("app/ZMSJ/KHZP1.txt", "damaged");
  const ProgramRun rewritten = run({"rewrite", "k0", "KOP1.txt", "--order", "2"});
  EXPECT_EQ(rewritten.status, 1);
  EXPECT_THAT(rewritten.err, HasSubstr("KHZP1.txt"));
  EXPECT_EQ(lineCount(rewritten.err), 2U) << "beside the message";
  EXPECT_EQ(read("KOP1.txt"), header("0001", "") + names("S2") + blanks);
  std::filesystem::remove(folder.path() / "app/HSZS/KOP1.txt");
  const ProgramRun imported = run({"import", "auto", database({sampleEntry("P1", "S-1")})});
  EXPECT_EQ(imported.status, 1);
  EXPECT_THAT(imported.err, HasSubstr("KHZP1.txt"));
  EXPECT_TRUE(std::filesystem::exists(projectFile("WKSZP1.txt")));
  EXPECT_EQ(folder.read("app/ZMSJ/KHZP1.txt"), "damaged");
}

TEST_F(ProjectKinds, AnOrderThatTheFileCanNotHaveIsRefused) {
  const std::string file =
      header("0002", "") + names("S1") + std::string(213, ' ') + names("S2") + std::string(213, ' ');
  write("KOP1.txt", file);
  for (const char* order : {"0", "3", "1,1", "1,2,1", "10001", "18446744073709551615"}) {
    const ProgramRun ran = run({"rewrite", "k0", "KOP1.txt", "--order", order});
    EXPECT_EQ(ran.status, 1) << order;
    EXPECT_THAT(ran.err, HasSubstr("KOP1.txt"));
    EXPECT_EQ(lineCount(ran.err), 1U);
    EXPECT_EQ(read("KOP1.txt"), file) << order;
  }
  EXPECT_EQ(run({"rewrite", "k0", "KO9.txt", "--order", "1"}).status, 1);
  EXPECT_EQ(run({"rewrite", "old-triaxial", "KSZP1.txt", "--order", "none"}).status, 1);
}

TEST_F(ProjectKinds, AnUnconfinedSampleIsShownByItsFields) {
  std::string record = names("S1") + std::string(1894, ' ');
  record.replace(30, 6, field("12.5", 6));       // undisturbedStress, first row
  record.replace(1890, 4, "\xD2\x04\x00\x00"s);  // ring coefficients 1234 and 0
  record.replace(1912, 2, "\x96\x64");           // strain limits 150 and 100
  write("KWCXP1.txt", header("0001") + record);
  const nlohmann::json sample = show("unconfined", "KWCXP1.txt")["samples"][0];
  EXPECT_EQ(sample["row"], 0);
  EXPECT_EQ(sample["sampleNo"], "S1");
  EXPECT_EQ(sample["undisturbedStress"].size(), 51U);
  EXPECT_EQ(sample["undisturbedStress"][0], "12.5");
  EXPECT_EQ(sample["ringCoefficient"], (nlohmann::json{1234, 0}));
  EXPECT_EQ(sample["strainLimit"], (nlohmann::json{150, 100}));
  EXPECT_EQ(sample["boreholeNo"], "");
}

TEST_F(ProjectKinds, ResultsOfUnconfinedSamplesAreThoseOfTheirCurves) {
  std::string record = names("S1") + std::string(1894, ' ');
  // The parabola 20 x - 5 x² through the origin has its top of 20 kPa at 2 %.
  record.replace(30, 12, field("15.0", 6) + field("15.0", 6));              // undisturbedStress
  record.replace(336, 6, field("7.5", 6));                                  // remouldedStress
  record.replace(642, 12, field("1.0", 6) + field("3.0", 6));               // undisturbedStrain
  record.replace(948, 6, field("1.0", 6));                                  // remouldedStrain
  record.replace(1894, 18, field("1", 6) + field("2", 6) + field("3", 6));  // as an older program left them
  std::string remouldedAlone = names("S2") + std::string(1894, ' ');
  remouldedAlone.replace(336, 6, field("7.5", 6));
  remouldedAlone.replace(948, 6, field("1.0", 6));
  write("KWCXP1.txt", header("0002") + record + remouldedAlone);
  write("KWCXP2.txt", header("0001") + record);
  const ProgramRun ran = run({"results", "unconfined", "KWCXP1.txt", "KWCXP2.txt"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out,
            "土样编号\tqu kPa\tqu′ kPa\tSt\t峰值应变 %\n"
            "S1\t20.0\t7.5\t2.67\t2.0\n"
            "S2\t\t7.5\t\t\n"
            "S1\t20.0\t7.5\t2.67\t2.0\n");
  EXPECT_EQ(show("unconfined", "KWCXP1.txt")["samples"][0]["qu"], "20.0");
}

TEST_F(ProjectKinds, ATK0SampleIsShownWithTheFieldsOfK0First) {
  std::string record = tk0Record("S1");
  record[30] = 1;
  record.replace(223, 15, field("3.0-3.2", 15));                 // samplingDepth
  record.replace(243 + (2 * 10 + 9) * 7, 7, field("88.1", 7));   // pressureSeries, row 2, stage 9
  record.replace(4583, 8, "\x00\x00\x00\x00\x00\x00\xF8\x3F"s);  // t90Slope, stage 0: 1.5
  record.replace(4753, 2, "\x0A\x00"s);                          // stageCount
  record.replace(4757, 4, "\x2C\x01\x00\x00"s);                  // elapsedSeconds, row 0: 300
  write("TKOP1.txt", header("0001", "") + record);
  const nlohmann::json sample = show("tk0", "TKOP1.txt")["samples"][0];
  EXPECT_EQ(sample["koAdjusted"], 1);
  EXPECT_EQ(sample["samplingDepth"], "") << "no summary file has a depth";
  EXPECT_EQ(sample["pressureSeries"][2][9], "88.1");
  EXPECT_EQ(sample["t90Slope"][0], 1.5);
  EXPECT_EQ(sample["stageCount"], 10);
  EXPECT_EQ(sample["elapsedSeconds"][0], 300);
  EXPECT_EQ(sample["t90Minutes"], nlohmann::json(std::vector<double>(10, 0))) << "no stage is loaded";
}

/// Readings after 1, 4, 9, 16 and 25 minutes on a line of 0.1 mm per root of a minute, then one that falls back. The
/// second line rises by 0.1 / 1.15; the parabola through the last three is -0.04 x² + 0.46 x - 0.8, so they meet at
/// (0.3730435 + sqrt(0.3730435² - 0.128)) / 0.08 = 5.98364, and T90 is 35.80 minutes.
void putStage(std::string& record, std::size_t stage, std::string_view load, std::string_view pressure) {
  record.replace(91 + 6 * stage, 6, field(load, 6));
  const char* const deformations[] = {"0.1", "0.2", "0.3", "0.4", "0.5", "0.52"};
  for (std::size_t row = 1; row <= 6; ++row) {
    const std::size_t seconds = 60 * row * row;
    record.replace(243 + (row * 10 + stage) * 7, 7, field(pressure, 7));
    record.replace(2413 + (row * 10 + stage) * 7, 7, field(deformations[row - 1], 7));
    record[4757 + 4 * row] = static_cast<char>(seconds & 0xFF);
    record[4757 + 4 * row + 1] = static_cast<char>(seconds >> 8);
  }
}

TEST_F(ProjectKinds, KoAndT90AreTheResultsOfATK0Sample) {
  std::string first = tk0Record("S1"), second = tk0Record("S2");
  putStage(first, 0, "100", "60.0");
  putStage(first, 1, "200", "110.0");
  putStage(second, 0, "100", "60.0");
  write("TKOP1.txt", header("0001", "") + first);
  write("TKOP2.txt", header("0001", "") + second);
  const std::string head =
      "土样编号\tKo\tT90(1) min\tT90(2) min\tT90(3) min\tT90(4) min\tT90(5) min\tT90(6) min\tT90(7) min"
      "\tT90(8) min\tT90(9) min\tT90(10) min\n";
  const ProgramRun ran = run({"results", "tk0", "TKOP1.txt", "TKOP2.txt"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out, head + "S1\t0.500\t35.8\t35.8\t\t\t\t\t\t\t\t\nS2\t\t35.8\t\t\t\t\t\t\t\t\t\n");
  const nlohmann::json t90 = show("tk0", "TKOP1.txt")["samples"][0]["t90Minutes"];
  EXPECT_NEAR(t90[1].get<double>(), 5.98364 * 5.98364, 0.001);
  EXPECT_EQ(t90[2], 0);
}

TEST_F(ProjectKinds, KoIsTheResultOfAK0Sample) {
  std::string record = names("S1") + std::string(213, ' ');
  record[30] = '\0';
  for (const std::size_t stage : {0U, 1U}) {
    record.replace(91 + 6 * stage, 6, field(stage == 0 ? "100" : "200", 6));
    record.replace(151 + 6 * stage, 6, field(stage == 0 ? "60.0" : "110.0", 6));
  }
  write("KOP1.txt", header("0001", "") + record);
  const std::string before = read("KOP1.txt");
  EXPECT_EQ(run({"results", "k0", "KOP1.txt", "kop1.txt"}).out, "土样编号\tKo\nS1\t0.500\nS1\t0.500\n");
  EXPECT_EQ(show("k0", "KOP1.txt")["samples"][0]["koIntercept"], "10.0");
  EXPECT_EQ(read("KOP1.txt"), before);
  EXPECT_EQ(run({"open", "k0", "KOP1.txt", "--save"}).err, "[保存数据] K0试验数据保存完毕\n");
  EXPECT_EQ(read("KOP1.txt").substr(81 + 211, 12), field("0.500", 6) + field("10.0", 6));
  EXPECT_EQ(folder.read("app/ZMSJ/KHZP1.txt").substr(600 + 1137, 6), field("0.500", 6));
}

TEST_F(ProjectKinds, TheirPagesArePrintedAndTheFilesStayAsTheyWere) {
  write("KOP1.txt", header("0001", "") + names("S1") + '\0' + std::string(212, ' '));
  const std::string before = read("KOP1.txt");
  const std::filesystem::path out = folder.path() / "pages.json";
  EXPECT_EQ(run({"print", "k0", "KOP1.txt", "--layout", "k0", "--out", out.string()}).err, "");
  EXPECT_EQ(nlohmann::json::parse(folder.read("pages.json"))["pages"].size(), 1U);
  EXPECT_EQ(read("KOP1.txt"), before);
  const ProgramRun wrong = run({"print", "k0", "KOP1.txt", "--layout", "tk0", "--out", out.string()});
  EXPECT_EQ(wrong.status, 1);
  EXPECT_EQ(wrong.err, "k0 类试样不能用 tk0 版式打印。\n");
}

TEST_F(ProjectKinds, PagesWithoutPicturesAreRefusedAFolder) {
  write("KOP1.txt", header("0001", "") + names("S1") + '\0' + std::string(212, ' '));
  const std::filesystem::path out = folder.path() / "pictures";
  const ProgramRun ran = run({"print", "k0", "KOP1.txt", "--layout", "k0", "--out", out.string()});
  EXPECT_EQ(ran.status, 1);
#ifdef TRIAXLAB_HAS_QT
  EXPECT_EQ(ran.err, "k0 版式的页面不能存成图片，--out 请给 .pdf 或 .json 文件。\n");
#endif
  EXPECT_FALSE(std::filesystem::exists(out));
}

#ifdef TRIAXLAB_HAS_QT
TEST_F(ProjectKinds, UnconfinedPagesAreBitmapsOfTheirTest) {
  const auto sample = [](std::string_view number) { return names(number) + std::string(1894, ' '); };
  write("KWCXP1.txt", header("0003") + sample("S1") + sample("S2") + sample("S3"));
  const std::filesystem::path out = folder.path() / "pictures";
  EXPECT_EQ(run({"print", "unconfined", "KWCXP1.txt", "--layout", "unconfined-curve", "--out", out.string()}).err, "");
  for (const char* name : {"WCX1.BMP", "WCX2.BMP"}) EXPECT_EQ(folder.read(out / name).substr(0, 2), "BM") << name;
  EXPECT_FALSE(std::filesystem::exists(out / "WCX3.BMP"));
}
#endif

TEST_F(ProjectKinds, TheOldestTriaxialFilesAreListedShownAndSavedAsTodays) {
  std::string record = names("A-1").substr(0, 29) + std::string(5966 - 29, '\0');
  record.replace(34, 476 - 34, std::string(476 - 34, ' '));
  record.replace(34, 22, std::string(22, '\0'));
  record.replace(476, 4160, std::string(4160, ' '));
  record[32] = 1;
  record.replace(56, 6, field("100", 6));
  record.replace(476, 4, "52  ");  // deviatorStress
  record[5656] = 4;                // 0.4 %
  write("KSZP1.txt", header("1", "") + record);
  EXPECT_EQ(lineCount(run({"list", "old-triaxial"}).out), 2U);
  EXPECT_EQ(run({"samples", "old-triaxial", "KSZP1.txt"}).out, "序号\t土样编号\t钻孔编号\t取土深度\n1\tA-1\t\t\n");
  const nlohmann::json document = show("old-triaxial", "KSZP1.txt");
  EXPECT_EQ(document["kind"], "old-triaxial");
  EXPECT_EQ(document["samples"][0]["deviatorStress"][0][0], "52");
  EXPECT_EQ(document["samples"][0]["axialStrain"][0][0], 0.4);
  EXPECT_FALSE(std::filesystem::exists(projectFile("WKSZP1.txt")));
  EXPECT_EQ(run({"open", "old-triaxial", "KSZP1.txt", "--save"}).status, 0);
  EXPECT_EQ(read("WKSZP1.txt").size(), kHeaderSize + kSampleSize + kEndTextSize);
}

TEST_F(ProjectKinds, AnOldFileIsUpgradedByOpeningIt) {
  write("KWCXP1.txt", header("0001", "") + names("S1") + std::string(886, ' '));
  const ProgramRun ran = run({"open", "unconfined", "KWCXP1.txt"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, "");
  EXPECT_EQ(read("KWCXP1.txt"), header("0001") + names("S1") + std::string(1894, ' '));
}

}  // namespace
}  // namespace triaxlab::testing
