// What the listing commands print.
#include <nlohmann/json.hpp>

#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

class Output : public CliTest {
 protected:
  void import(const std::vector<Entry>& entries) { ASSERT_EQ(run({"import", "auto", database(entries)}).status, 0); }
  nlohmann::json show(const std::vector<std::string>& more = {}) {
    std::vector<std::string> words{"show", "triaxial", "WKSZP1.txt"};
    words.insert(words.end(), more.begin(), more.end());
    const ProgramRun ran = run(words);
    EXPECT_EQ(ran.status, 0) << ran.err;
    return nlohmann::json::parse(ran.out);
  }
};

TEST_F(Output, ListIsTheGridOfTheBrowser) {
  EXPECT_EQ(run({"list", "triaxial"}).out, "序号\t工程编号\t试样总数\t创建日期\t处理日期\t操作者\n");
  import({sampleEntry("P2", "S-1"), sampleEntry("P1", "S-1"), sampleEntry("P1", "S-2")});
  EXPECT_EQ(run({"list", "triaxial"}).out,
            "序号\t工程编号\t试样总数\t创建日期\t处理日期\t操作者\n"
            "1\tP1\t0002\t2024/05/06\t2024/05/06\t\n"
            "2\tP2\t0001\t2024/05/06\t2024/05/06\t\n");
  for (const char* kind : {"unconfined", "k0", "tk0", "old-triaxial"})
    EXPECT_EQ(lineCount(run({"list", kind}).out), 1U) << kind;
}

TEST_F(Output, SamplesIsTheListOfTheFile) {
  import({sampleEntry("P1", "S-1"), sampleEntry("P1", "\xD1\xD2-2")});  // 岩
  EXPECT_EQ(run({"samples", "triaxial", "WKSZP1.txt"}).out,
            "序号\t土样编号\t钻孔编号\t取土深度\n"
            "1\tS-1\t\t\n"
            "2\t岩-2\t\t\n");
  EXPECT_EQ(run({"samples", "triaxial", "wkszp1.TXT"}).status, 0);  // whatever the case of the letters
  EXPECT_EQ(run({"samples", "triaxial", "WKSZP9.txt"}).status, 1);
}

TEST_F(Output, LabelsOfTheLaboratoryHeadTheGrids) {
  // [工程编号]=[项目] in zmqvb.ini and [土样编号]=... in sz.ini are told in GBK.
  folder.write("app/zmqvb.ini", "[\xB9\xA4\xB3\xCC\xB1\xE0\xBA\xC5]=[No]\r\n");
  EXPECT_EQ(run({"list", "triaxial"}).out.substr(0, std::string("序号\tNo\t").size()), "序号\tNo\t");
}

TEST_F(Output, ShowHasTheFieldsOfTheRecordInTheirOrder) {
  import({sampleEntry("P1", "S-1")});
  const auto document = nlohmann::ordered_json::parse(run({"show", "triaxial", "WKSZP1.txt"}).out);
  std::vector<std::string> names;
  for (const auto& field : document.items()) names.push_back(field.key());
  EXPECT_EQ(names, (std::vector<std::string>{"kind", "file", "header", "controlledDocNo", "samples"}));
  EXPECT_EQ(document["kind"], "triaxial");
  EXPECT_EQ(document["file"], "WKSZP1.txt");
  EXPECT_EQ(document["header"]["sampleCount"], "0001");
  EXPECT_EQ(document["header"]["projectNo"], "P1");
  EXPECT_EQ(document["controlledDocNo"], "");

  names.clear();
  for (const auto& field : document["samples"][0].items()) names.push_back(field.key());
  EXPECT_EQ(names, (std::vector<std::string>{"row",
                                             "projectNo",
                                             "sampleNo",
                                             "uuAdjustFlag",
                                             "recordCodeA",
                                             "recordCodeB",
                                             "testMethod",
                                             "shearMode",
                                             "shearRate",
                                             "cohesionTenths",
                                             "frictionAngle",
                                             "cohesionEffTenths",
                                             "frictionAngleEff",
                                             "cellPressure",
                                             "initialHeight",
                                             "consolidatedHeight",
                                             "initialArea",
                                             "consolidatedArea",
                                             "failureRadius",
                                             "density",
                                             "failureRadiusEff",
                                             "failureCentre",
                                             "failureCentreEff",
                                             "soilName",
                                             "failureStrainLimit",
                                             "consolidationDrainage",
                                             "ringCoefficient",
                                             "sigma1Failure",
                                             "sigma1FailureEff",
                                             "sigma3FailureEff",
                                             "deviatorStress",
                                             "sigma1Eff",
                                             "sigma3Eff",
                                             "porePressure",
                                             "consolidationTime",
                                             "consolidationPorePressure",
                                             "consolidationVolume",
                                             "volumeChange",
                                             "axialStrain",
                                             "adjustedFlag",
                                             "pathAdjustedFlag",
                                             "pathSlope",
                                             "pathIntercept",
                                             "coefficientB",
                                             "coefficientAf",
                                             "testDate",
                                             "cohesionText",
                                             "cohesionEffText",
                                             "reserved",
                                             "boreholeNo",
                                             "samplingDepth",
                                             "samplingSpot"}));
}

TEST_F(Output, ShowGivesTextsTrimmedNumbersAsNumbersAndAllRows) {
  import({sampleEntry("P1", "S-1")});
  const auto sample = show()["samples"][0];
  EXPECT_EQ(sample["row"], 0);
  EXPECT_EQ(sample["sampleNo"], "S-1");
  EXPECT_EQ(sample["testMethod"], 1);
  EXPECT_EQ(sample["cellPressure"], (std::vector<std::string>{"100", "200", "300", "", ""}));
  EXPECT_EQ(sample["shearRate"], (std::vector<int>{0, 0, 0, 0, 0}));
  EXPECT_EQ(sample["failureStrainLimit"], (std::vector<int>(5, 150)));
  ASSERT_EQ(sample["deviatorStress"].size(), 212U);
  // Row 0: 10, 20, 30 x (1 - 0.004); row 1: 60, 80, 100 x (1 - 0.008).
  EXPECT_EQ(sample["deviatorStress"][0], (std::vector<std::string>{"10", "20", "30", "", ""}));
  EXPECT_EQ(sample["deviatorStress"][1], (std::vector<std::string>{"60", "79", "99", "", ""}));
  EXPECT_EQ(sample["deviatorStress"][211], (std::vector<std::string>(5, "")));
  ASSERT_EQ(sample["consolidationTime"].size(), 151U);
  ASSERT_EQ(sample["axialStrain"].size(), 212U);
}

TEST_F(Output, ShowGivesFloatsWithTheirShortestDigits) {
  import({sampleEntry("P1", "S-1")});
  const std::string text = run({"show", "triaxial", "WKSZP1.txt"}).out;
  EXPECT_NE(text.find("\"axialStrain\":[[0.4,0.4,0.4,0.4,0.4],[0.8,"), std::string::npos);
  EXPECT_NE(text.find("[84.8,84.8,84.8,84.8,84.8]]"), std::string::npos);  // row 211
}

TEST_F(Output, ShowTakesOneSampleByItsNumber) {
  import({sampleEntry("P1", "S-1"), sampleEntry("P1", "S-2")});
  EXPECT_EQ(show()["samples"].size(), 2U);
  const auto second = show({"--sample", "2"});
  ASSERT_EQ(second["samples"].size(), 1U);
  EXPECT_EQ(second["samples"][0]["row"], 1);
  EXPECT_EQ(second["samples"][0]["sampleNo"], "S-2");
  for (const char* number : {"0", "3", "-1", "5000"}) {
    const ProgramRun ran = run({"show", "triaxial", "WKSZP1.txt", "--sample", number});
    EXPECT_EQ(ran.status, 1) << number;
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(lineCount(ran.err), 1U);
  }
}

TEST_F(Output, ShowReadsOneSampleOfALargeFileAlone) {
  std::vector<std::vector<Specimen>> groups;
  for (int i = 1; i <= 120; ++i) groups.push_back({{.sampleNo = "S" + std::to_string(i)}});
  import({olderEntry(groups)});
  const auto last = show({"--sample", "120"});
  ASSERT_EQ(last["samples"].size(), 1U);
  EXPECT_EQ(last["samples"][0]["row"], 119);
  EXPECT_EQ(last["samples"][0]["sampleNo"], "S120");
  EXPECT_EQ(show()["samples"].size(), 120U);
}

// c and φ of the demonstration database as its description tells them. c′ and φ′ of the multi-stage ZK2-06 follow from
// its peaks: centres 59, 96, 174 and radii 28, 42, 76, anchored on the largest of each.
TEST_F(Output, ResultsOfTheDemonstrationDatabase) {
  ASSERT_EQ(run({"import", "auto", TRIAXLAB_SAMPLES "/HSZSJ.KU", "--show", "3"}).status, 0);
  const std::string head = "土样编号\t方法\t围压 kPa\tC kPa\tφ °\tC′ kPa\tφ′ °\n";
  EXPECT_EQ(run({"results", "triaxial", "WKSZ2024-018.txt"}).out,
            head +
                "ZK1-02\tUU\t100, 200, 300\t16\t0.8\t\t\n"
                "ZK1-05\tUU\t100, 200, 300\t44\t5.0\t\t\n"
                "ZK2-03\tCU\t100, 200, 300, 400\t22\t16.2\t13\t25.5\n"
                "ZK2-06\tCU\t50, 100, 200\t9\t14.1\t3\t24.9\n"
                "ZK3-04\tCD\t100, 200, 300\t24\t26.0\t\t\n");
  EXPECT_EQ(run({"results", "triaxial", "WKSZDT2-07.txt"}).out, head +
                                                                    "7-1\tUU\t50, 100, 150, 200\t17\t0.8\t\t\n"
                                                                    "7-2\tUU\t100, 200, 300\t38\t17.2\t\t\n"
                                                                    "7-3\tCU\t100, 200, 300\t17\t19.2\t9\t27.1\n"
                                                                    "7-4\tCD\t100, 200, 300, 400\t17\t24.7\t\t\n");
}

TEST_F(Output, TheOldReaderFindsTwoProjectsRowsInTheDemonstrationDatabase) {
  ASSERT_EQ(run({"import", "auto-old", TRIAXLAB_SAMPLES "/HSZSJ.KU"}).status, 0);
  EXPECT_FALSE(std::filesystem::exists(projectFile("WKSZ2024-018.txt")));
  const std::string results = run({"results", "triaxial", "WKSZDT2-07.txt"}).out;
  EXPECT_NE(results.find("7-1\tUU\t50, 100, 150, 200\t19\t1.1\t\t\n"), std::string::npos) << results;
}

// c and φ of the soils that the demonstration databases were made with. c′ and φ′ come with the page of the envelopes.
TEST_F(Output, ResultsOfTheDemonstrationDatabasesOfOtherApparatus) {
  struct Case {
    const char *source, *database, *project, *results;
  };
  const std::string head = "土样编号\t方法\t围压 kPa\tC kPa\tφ °\tC′ kPa\tφ′ °\n";
  for (const Case& c : {Case{"qvb98", "KSZSJ.KU", "WKSZXA9911.txt",
                             "11-1\tUU\t100, 200, 300\t47\t4.2\t\t\n11-2\tCU\t100, 200, 300, 400\t20\t16.8\t\t\n"},
                        Case{"qvb98", "KSZSJ.KU", "WKSZXA9912.txt",
                             "TJ12-1-3.5\tCD\t100, 200, 300\t24\t26.0\t\t\n12-2\tUU\t100, 150, 200\t15\t1.1\t\t\n"},
                        Case{"new-qvb", "RSZSJ.KU", "WKSZYL1503.txt",
                             "B3-1\tUU\t50, 100, 150\t16\t1.1\t\t\nB3-4\tCU\t50, 100, 200, 300\t11\t13.4\t\t\n"},
                        Case{"new-qvb", "RSZSJ.KU", "WKSZYL1505.txt",
                             "B5-2\tCD\t100, 200, 300\t26\t25.6\t\t\nB5-3\tUU\t100, 200, 300\t45\t4.7\t\t\n"},
                        Case{"manual", "SDSZSJ.KU", "WKSZSD2016-05.txt",
                             "SD-1\tUU\t100, 200, 300\t47\t4.5\t\t\nSD-2\tCU\t100, 200, 300\t16\t19.2\t\t\n"
                             "SD-3\tCD\t100, 200, 300\t17\t24.5\t\t\n"}}) {
    const ProgramRun ran = run({"import", c.source, std::string(TRIAXLAB_SAMPLES "/") + c.database});
    ASSERT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(run({"results", "triaxial", c.project}).out, head + c.results);
  }
}

TEST_F(Output, NanjingSamplesHaveOneSpecimenEach) {
  const std::string file = TRIAXLAB_SAMPLES "/NJ1105.SZD";
  ASSERT_EQ(run({"import", "nanjing", file}).status, 0);
  const std::string results = run({"results", "triaxial", "WKSZNJ2011-5.txt"}).out;
  EXPECT_NE(results.find("J1-100\t\t100\t"), std::string::npos) << results;
  EXPECT_NE(results.find("J2-300\t\t300\t"), std::string::npos) << results;
  // The file is its only row, and known samples are written over whatever is asked for: no import is pending.
  EXPECT_EQ(run({"import", "nanjing", file, "--rows", "1", "--keep-existing"}).status, 0);
  EXPECT_EQ(run({"import", "nanjing", file, "--rows", "2"}).status, 1);
}

TEST_F(Output, AFullDiskBehindTheOutputIsAnError) {
  import({sampleEntry("P1", "S-1")});
  const ProgramRun ran = runBare({"--app", app().string(), "show", "triaxial", "WKSZP1.txt"}, "/dev/full");
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(lineCount(ran.err), 1U);
}

TEST_F(Output, MessagesThatNobodyGetsStopNoWork) {
  const std::string file = database({sampleEntry("P1", "S-1")});
  // A full disk, a stream that is closed, all of them closed: then the data files must not get their numbers.
  for (const char* const streams : {" 2>/dev/full", " 2>&-", " <&- >&- 2>&-"}) {
    std::filesystem::remove_all(app() / "HSZS");
    setShell("", streams);
    EXPECT_EQ(run({"import", "auto", file}).status, 1) << streams;
    EXPECT_EQ(std::filesystem::file_size(projectFile("WKSZP1.txt")), kHeaderSize + kSampleSize + kEndTextSize);
    EXPECT_EQ(folder.read("app/HSZS/WKSZP1.txt").substr(0, 6), "0001P1") << streams;
  }
  setShell("", "");
  EXPECT_EQ(run({"import", "auto", file}).status, 0);
}

TEST_F(Output, AReaderThatGoesAwayStopsNoWork) {
  const std::string file = database({sampleEntry("P1", "S-1")});
  setShell("( sleep 0.3; ", " 2>&3; echo $? >'" + (folder.path() / "status").string() + "') 3>&1 | true");
  run({"import", "auto", file});
  EXPECT_EQ(folder.read("status"), "1\n");
  EXPECT_TRUE(std::filesystem::exists(projectFile("WKSZP1.txt")));
}

TEST_F(Output, AFileBeyondTheLimitIsNamed) {
  const std::string file = database({sampleEntry("P1", "S-1")});
  ASSERT_EQ(run({"init"}).status, 0);
  setShell("ulimit -f 8; ", "");  // blocks: less than a sample takes
  const ProgramRun ran = run({"import", "auto", file});
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find("文件超过系统允许的大小"), std::string::npos) << ran.err;
  EXPECT_NE(ran.err.find(app().string()), std::string::npos) << ran.err;
  EXPECT_FALSE(std::filesystem::exists(projectFile("WKSZP1.txt")));
}

TEST_F(Output, SettingsThatCanNotBeReadAreSaidAndNothingIsMade) {
  const std::string file = database({sampleEntry("P1", "S-1")});
  std::filesystem::create_symlink("qvb.sys", app() / "qvb.sys");
  const std::vector<std::vector<std::string>> commands{{"init"}, {"import", "auto", file}, {"list", "triaxial"}};
  for (const std::vector<std::string>& words : commands) {
    const ProgramRun ran = run(words);
    EXPECT_EQ(ran.status, 1) << words[0];
    EXPECT_EQ(lineCount(ran.err), 1U) << ran.err;
    EXPECT_NE(ran.err.find("qvb.sys"), std::string::npos) << ran.err;
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(app()), {}), 1) << "the settings file alone";
}

TEST_F(Output, EveryKindIsShown) {
  // A project of no samples: the head alone, for each kind.
  run({"init"});
  const std::string head =
      "0   P1             2024/05/062024/05/062024/05/06" + std::string(10, ' ') + "V2.0" + std::string(18, ' ');
  ASSERT_EQ(head.size(), kHeaderSize);
  const std::pair<const char*, const char*> kinds[] = {
      {"unconfined", "KWCXP1.txt"}, {"k0", "KOP1.txt"}, {"tk0", "TKOP1.txt"}};
  for (const auto& [kind, name] : kinds) {
    folder.write(std::filesystem::path("app/HSZS") / name, head);
    const ProgramRun ran = run({"show", kind, name});
    ASSERT_EQ(ran.status, 0) << ran.err;
    const auto document = nlohmann::json::parse(ran.out);
    EXPECT_EQ(document["kind"], kind);
    EXPECT_EQ(document["header"]["projectNo"], "P1");
    EXPECT_TRUE(document["samples"].empty());
  }
}

// ---- open

TEST_F(Output, OpenWithoutASaveLeavesTheFile) {
  import({sampleEntry("P1", "S-1")});
  const std::string before = folder.read("app/HSZS/WKSZP1.txt");
  const ProgramRun ran = run({"open", "triaxial", "WKSZP1.txt", "--show", "3"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.out + ran.err, "");
  EXPECT_TRUE(folder.read("app/HSZS/WKSZP1.txt") == before);
}

TEST_F(Output, OpenSavesWhenAsked) {
  import({sampleEntry("P1", "S-1")});
  const ProgramRun ran = run({"open", "triaxial", "WKSZP1.txt", "--save"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, "[保存数据] 三轴试验数据保存完毕\n");
}

TEST_F(Output, AProjectThatIsNotThereIsNamed) {
  for (const char* name : {"WKSZP1.txt", "../WKSZP1.txt", "KWCXP1.txt", ""}) {
    const ProgramRun ran = run({"open", "triaxial", name});
    EXPECT_EQ(ran.status, 1) << name;
    EXPECT_NE(ran.err.find(name), std::string::npos) << ran.err;
    EXPECT_EQ(lineCount(ran.err), 1U);
  }
}

}  // namespace
}  // namespace triaxlab::testing
