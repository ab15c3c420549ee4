#include "cli/cli_fixture.h"

namespace triaxlab::testing {
namespace {

constexpr const char* kSaved = "[保存数据] 三轴试验数据保存完毕\n";

class ImportCommand : public CliTest {
 protected:
  std::uintmax_t sizeOf(std::string_view name) const { return std::filesystem::file_size(projectFile(name)); }
  bool exists(std::string_view name) const { return std::filesystem::exists(projectFile(name)); }
  std::string bytesOf(std::string_view name) const { return folder.read(std::filesystem::path("app/HSZS") / name); }
};

TEST_F(ImportCommand, SavesTheSamplesOfAllRows) {
  const ProgramRun ran =
      run({"import", "auto", database({sampleEntry("P1", "S-1"), sampleEntry("P2", "S-2"), sampleEntry("P1", "S-3")})});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, kSaved);
  EXPECT_EQ(ran.out, "");
  EXPECT_EQ(sizeOf("WKSZP1.txt"), kHeaderSize + 2 * kSampleSize + kEndTextSize);
  EXPECT_EQ(sizeOf("WKSZP2.txt"), kHeaderSize + kSampleSize + kEndTextSize);
  EXPECT_TRUE(std::filesystem::exists(app() / "ZMSJ" / "KHZP1.txt"));
  // Count, project, created and processed today, tested on the day of the database.
  EXPECT_EQ(bytesOf("WKSZP1.txt").substr(0, 49), "0002P1             2024/05/062024/05/062024/04/12");
}

TEST_F(ImportCommand, TheOpeningPassRunsBeforeTheSave) {
  run({"import", "auto", database({sampleEntry("P1", "S-1")})});
  // sigma1Failure of the first stage: the peak is 60 x (1 - 2 x 0.004) = 59.52, written "60", and 60 + 100.
  EXPECT_EQ(bytesOf("WKSZP1.txt").substr(kHeaderSize + 386, 6), "160   ");
}

TEST_F(ImportCommand, ReadsTheRowsThatAreNamed) {
  const std::string file = database({sampleEntry("P1", "S-1"), sampleEntry("P2", "S-2"), sampleEntry("P3", "S-3")});
  EXPECT_EQ(run({"import", "auto", file, "--rows", "3,1,3"}).status, 0);
  EXPECT_TRUE(exists("WKSZP1.txt"));
  EXPECT_FALSE(exists("WKSZP2.txt"));
  EXPECT_TRUE(exists("WKSZP3.txt"));
  EXPECT_EQ(run({"import", "auto", file, "--rows", "all"}).status, 0);
  EXPECT_TRUE(exists("WKSZP2.txt"));
}

TEST_F(ImportCommand, ARowThatTheGridLacksIsAnErrorAndNothingIsSaved) {
  const std::string file = database({sampleEntry("P1", "S-1")});
  for (const char* rows : {"2", "1,2", "0", "99999999999999999"}) {
    const ProgramRun ran = run({"import", "auto", file, "--rows", rows});
    EXPECT_EQ(ran.status, 1) << rows;
    EXPECT_NE(ran.err.find(file), std::string::npos) << ran.err;
    EXPECT_EQ(lineCount(ran.err), 1U);
  }
  EXPECT_FALSE(exists("WKSZP1.txt"));
}

TEST_F(ImportCommand, WithoutASaveNothingIsWritten) {
  const ProgramRun ran = run({"import", "auto", database({sampleEntry("P1", "S-1")}), "--no-save", "--show", "3"});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, "");
  EXPECT_TRUE(std::filesystem::is_empty(app() / "HSZS"));
  EXPECT_TRUE(std::filesystem::is_empty(app() / "ZMSJ"));
}

TEST_F(ImportCommand, CurvePagesThatATestDoesNotHaveAreRefusedBeforeTheFileIsRead) {
  const ProgramRun ran = run({"import", "k0-kgj", (app() / "missing.KU").string(), "--show", "1"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(ran.err, "本版本还没有显示曲线： k0 类试样的功能。\n");
}

TEST_F(ImportCommand, KnownSamplesAreWrittenOverUnlessTheyAreKept) {
  run({"import", "auto", database({sampleEntry("P1", "S-1")})});
  Entry changed = sampleEntry("P1", "S-1");
  changed.block[1 + 2 * 460 + 39] = 1;  // the flag of the last specimen, which becomes uuAdjustFlag
  const std::string file = database({changed, sampleEntry("P1", "S-2")});
  const auto uuAdjustFlag = [this] { return int{bytesOf("WKSZP1.txt").at(kHeaderSize + 29)}; };

  EXPECT_EQ(run({"import", "auto", file, "--keep-existing"}).status, 0);
  EXPECT_EQ(uuAdjustFlag(), 0);
  EXPECT_EQ(sizeOf("WKSZP1.txt"), kHeaderSize + 2 * kSampleSize + kEndTextSize);  // the new one is appended

  EXPECT_EQ(run({"import", "auto", file}).status, 0);
  EXPECT_EQ(uuAdjustFlag(), 1);
  EXPECT_EQ(sizeOf("WKSZP1.txt"), kHeaderSize + 2 * kSampleSize + kEndTextSize);
}

TEST_F(ImportCommand, ADatabaseWithoutEntriesIsNothingToImport) {
  for (const std::string& bytes : {std::string(), word(0)}) {
    const ProgramRun ran = run({"import", "auto", folder.write("raw/empty.ku", bytes).string()});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out + ran.err, "");
  }
  EXPECT_TRUE(std::filesystem::is_empty(app() / "HSZS"));
}

TEST_F(ImportCommand, ADamagedDatabaseIsReadAsFarAsItGoesAndSaidSo) {
  const std::string whole = kuFile({sampleEntry("P1", "S-1"), sampleEntry("P2", "S-2")});
  const std::string file = folder.write("raw/short.ku", whole.substr(0, whole.size() - 1000)).string();
  const ProgramRun ran = run({"import", "auto", file});
  EXPECT_EQ(ran.status, 0);
  EXPECT_EQ(ran.err, "文件“" + file + "”不完整：第2行的数据超出了文件末尾，缺少的部分按空白处理。\n" + kSaved);
  EXPECT_TRUE(exists("WKSZP1.txt"));
  EXPECT_TRUE(exists("WKSZP2.txt"));
}

TEST_F(ImportCommand, AFileThatCannotBeReadIsNamedInOneLine) {
  std::filesystem::create_directory(folder.path() / "folder.ku");
  for (const std::string& file : {(folder.path() / "missing.ku").string(), (folder.path() / "folder.ku").string(),
                                  std::string("/proc/self/mem")}) {
    const ProgramRun ran = run({"import", "auto", file});
    EXPECT_EQ(ran.status, 1) << file;
    EXPECT_NE(ran.err.find(file), std::string::npos) << ran.err;
    EXPECT_EQ(lineCount(ran.err), 1U);
  }
  EXPECT_TRUE(std::filesystem::is_empty(app() / "HSZS"));
}

TEST_F(ImportCommand, ProjectNumbersThatAreNoFileNameAreNamedAndTheOthersSaved) {
  const ProgramRun ran = run(
      {"import", "auto", database({sampleEntry("../P", "S-1"), sampleEntry("P2", "S-2"), sampleEntry("a\\b", "S-3")})});
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.err.find("../P"), std::string::npos) << ran.err;
  EXPECT_NE(ran.err.find("a\\b"), std::string::npos) << ran.err;
  EXPECT_TRUE(exists("WKSZP2.txt"));
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
    if (entry.is_regular_file()) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"HSZSJ.KU", "KHZP2.txt", "WKSZP2.txt", "err", "out", "qvb.sys"}));
}

TEST_F(ImportCommand, ChineseNamesGoThrough) {
  // 岩土 in GBK.
  const std::string file = folder.write("原始数据/自动.ku", kuFile({sampleEntry("\xD1\xD2\xCD\xC1", "S-1")})).string();
  EXPECT_EQ(run({"import", "auto", file}).status, 0);
  EXPECT_TRUE(exists("WKSZ岩土.txt"));
}

}  // namespace
}  // namespace triaxlab::testing
