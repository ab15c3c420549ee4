// Files as a dying disk, another program or a malicious person leave them. Whatever they hold, the workspace changes
// only when a file was read, a person gets one sentence that names it, and nothing is written outside the data folder.

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/save_project.h"
#include "store/summary/summary_file.h"
#include "store/summary/summary_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

class DamagedFiles : public StoreTest {};

TEST_F(DamagedFiles, AProjectCutAnywhereOpensWithWhatIsThere) {
  std::string whole = headerBytes({"0020", "P1"});
  for (int i = 0; i < 20; ++i) whole += field("P1", 15) + field("S" + std::to_string(i), 15) + std::string(213, 'x');
  for (std::size_t size = 0; size < whole.size(); size += 97) {
    write("HSZS/KOP1.txt", whole.substr(0, size));
    if (size < kHeaderSize) {
      const std::string sentence = sentenceOf([&] { openProject(workspace, ProjectKind::K0, "KOP1.txt", nullptr); });
      EXPECT_THAT(sentence, HasSubstr("KOP1.txt"));
      EXPECT_THROW(listSamples(workspace, ProjectKind::K0, "KOP1.txt"), UserError);
      continue;
    }
    const Remarks remarks = openProject(workspace, ProjectKind::K0, "KOP1.txt", nullptr);
    const std::size_t records = (size - kHeaderSize) / 243;
    ASSERT_EQ(remarks.size(), 1U) << size;
    EXPECT_THAT(remarks[0], HasSubstr("缺 " + std::to_string(20 - records) + " 个"));
    const std::string place = "第 " + std::to_string(records + 1) + " 个只剩一部分";
    EXPECT_EQ(remarks[0].find(place) != std::string::npos, (size - kHeaderSize) % 243 != 0) << size;
    for (std::size_t i = 0; i < 20; ++i)
      ASSERT_EQ(workspace.K0SampleTable[i].sampleNo.trimmed(), i < records ? "S" + std::to_string(i) : "") << size;
    Remarks ofList;
    const SampleListTable list = listSamples(workspace, ProjectKind::K0, "KOP1.txt", &ofList);
    EXPECT_EQ(ofList, remarks);
    ASSERT_EQ(list.size(), 20U);
    for (std::size_t i = 0; i < 20; ++i)
      EXPECT_EQ(list[i].sampleNo, i < records ? "S" + std::to_string(i) : "") << size;
  }
}

TEST_F(DamagedFiles, ATriaxialProjectCutAnywhereOpensWithWhatIsThere) {
  const std::string whole =
      headerBytes({"0002", "P1"}) + triaxialBytes("P1", "S1") + triaxialBytes("P1", "S2") + field("QC", kEndTextSize);
  const std::size_t second = kHeaderSize + kTriaxialSize, end = second + kTriaxialSize;
  for (const std::size_t size : {kHeaderSize, kHeaderSize + 1, second - 1, second, second + 33, end - 1}) {
    write("HSZS/WKSZP1.txt", whole.substr(0, size));
    EXPECT_EQ(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr).size(), 1U) << size;
    EXPECT_EQ(isLive(row(0)), size >= second);
    EXPECT_FALSE(isLive(row(1)));
    EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  }
  write("HSZS/WKSZP1.txt", whole.substr(0, end + 1));
  EXPECT_TRUE(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr).empty());
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.trimmed(), "Q") << "what is there of the end text";
}

TEST_F(DamagedFiles, AProjectThatCanNotBeReadChangesNothing) {
  setRow(0, triaxialBytes("BEFORE", "S1"));
  SetText(workspace.processingDate.year, "1999");
  SetText(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo, "BEFORE");
  workspace.dataOf(ProjectKind::Triaxial).rawImportPending = true;
  const std::string blankCount = headerBytes({"", "P1"}), wordCount = headerBytes({"many", "P1"});
  for (const std::string& damaged :
       {std::string(), blankCount, wordCount, blankCount.substr(0, 80), std::string(500, '\0')}) {
    write("HSZS/WKSZP1.txt", damaged);
    EXPECT_THAT(sentenceOf([&] { openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr); }),
                HasSubstr("WKSZP1.txt"));
  }
  std::filesystem::remove(data("HSZS/WKSZP1.txt"));
  std::filesystem::create_directory(data("HSZS/WKSZP1.txt"));
  EXPECT_THAT(sentenceOf([&] { openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr); }),
              HasSubstr("WKSZP1.txt"));
  EXPECT_EQ(row(0).projectNo.trimmed(), "BEFORE");
  EXPECT_EQ(workspace.processingDate.year.view(), "1999");
  EXPECT_EQ(workspace.dataOf(ProjectKind::Triaxial).ProjectDateTable[0].projectNo.trimmed(), "BEFORE");
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).rawImportPending);
}

TEST_F(DamagedFiles, ACountBeyondTheEndIsBlankRecordsAndARemark) {
  write("HSZS/KOP1.txt", headerBytes({"9999", "P1"}) + field("P1", 15) + field("S1", 15) + std::string(213, ' '));
  const Remarks remarks = openProject(workspace, ProjectKind::K0, "KOP1.txt", [](int) { return SampleRange{1, 1001}; });
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_THAT(remarks[0], HasSubstr("缺 1000 个"));
  EXPECT_EQ(workspace.K0SampleTable[0].sampleNo.trimmed(), "S1");
  EXPECT_TRUE(workspace.K0SampleTable[1].sampleNo.isBlank());
}

TEST_F(DamagedFiles, TheCutSampleIsNamedWhenItIsAskedFor) {
  std::string content = headerBytes({"0120", "P1"});
  for (int i = 0; i < 109; ++i) content += field("P1", 15) + field("S" + std::to_string(i), 15) + std::string(213, ' ');
  write("HSZS/KOP1.txt", content + "P1 and a little more");
  const auto open = [&](SampleRange range) {
    return openProject(workspace, ProjectKind::K0, "KOP1.txt", [range](int) { return range; });
  };
  EXPECT_THAT(open({1, 109}), ::testing::IsEmpty());
  EXPECT_THAT(open({101, 112}), ::testing::ElementsAre(HasSubstr("缺 3 个试样（第 110 个只剩一部分）")));
  EXPECT_THAT(open({111, 120}), ::testing::ElementsAre(HasSubstr("缺 10 个试样，")));
}

TEST_F(DamagedFiles, AnEndTextWhereASampleIsClaimedIsACutSample) {
  const std::string content =
      headerBytes({"0002", "P1"}) + triaxialBytes("P1", "S1") + field("P1             S2", kEndTextSize);
  write("HSZS/WKSZP1.txt", content);
  EXPECT_THAT(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr),
              ::testing::ElementsAre(HasSubstr("第 2 个只剩一部分")));
  EXPECT_TRUE(workspace.dataOf(ProjectKind::Triaxial).controlledDocNo.isBlank());
  setRow(0, triaxialBytes("P1", "S2"));
  const SaveReport report = saveProject(workspace, ProjectKind::Triaxial, nullptr);
  EXPECT_THAT(report.remarks, ::testing::ElementsAre(HasSubstr("第 2 个只剩一部分")));
  EXPECT_SAME_BYTES(read("HSZS/WKSZP1.txt"), headerBytes({"0003", "P1", "2024/01/02", "2024-03-04"}) +
                                                 triaxialBytes("P1", "S1") + emptyTriaxial() +
                                                 triaxialBytes("P1", "S2") + field("", kEndTextSize));
  EXPECT_SAME_BYTES(read("HSZS/backup/" + backups().at(0)), content);
}

TEST_F(DamagedFiles, ASaveFillsWhatAShortFileLacksWithBlankRecords) {
  // Two whole records and half of the third, of four.
  const std::string head = headerBytes({"0004", "P1"});
  std::string records;
  for (const char* sample : {"S1", "S2", "S3"}) records += field("P1", 15) + field(sample, 15) + std::string(213, '1');
  records.resize(2 * 243 + 100);
  write("HSZS/KOP1.txt", head + records);
  SetText(workspace.K0SampleTable[0].projectNo, "P1");
  SetText(workspace.K0SampleTable[0].sampleNo, "S9");
  EXPECT_THAT(saveProject(workspace, ProjectKind::K0, nullptr).remarks,
              ::testing::ElementsAre(HasSubstr("缺 2 个试样（第 3 个只剩一部分）")));
  const std::string saved = read("HSZS/KOP1.txt");
  const auto& blank = infoOf(ProjectKind::K0).blankRecord();
  const std::string blankRecord(reinterpret_cast<const char*>(blank.data()), blank.size());
  ASSERT_EQ(saved.size(), 81U + 5 * 243);
  EXPECT_EQ(saved.substr(81, 2 * 243), records.substr(0, 2 * 243)) << "what is there whole stays";
  EXPECT_EQ(saved.substr(81 + 2 * 243, 243), blankRecord);
  EXPECT_EQ(saved.substr(81 + 3 * 243, 243), blankRecord);
  EXPECT_EQ(saved.substr(81 + 4 * 243, 17), field("P1", 15) + "S9");
}

TEST_F(DamagedFiles, ASaveLeavesADamagedProjectAlone) {
  setRow(0, triaxialBytes("P1", "S1"));
  for (const std::string& damaged : {std::string(), std::string("0001"), headerBytes({"x", "P1"})}) {
    write("HSZS/WKSZP1.txt", damaged);
    EXPECT_THAT(sentenceOf([&] { saveProject(workspace, ProjectKind::Triaxial, nullptr); }), HasSubstr("WKSZP1.txt"));
    EXPECT_EQ(read("HSZS/WKSZP1.txt"), damaged);
    EXPECT_FALSE(has("ZMSJ/KHZP1.txt"));
  }
}

TEST_F(DamagedFiles, ASummaryCutAnywhereIsReadAsFarAsItGoes) {
  std::string whole = newSummaryHeaderBytes("0003", "P1");
  for (const char* number : {"S1", "S2", "S3"}) {
    std::string record = newSummaryRecordBytes();
    put(record, 7, field(number, 15) + field(std::string("ZK") + number, 15));
    whole += record;
  }
  for (std::size_t i = 0; i < 3; ++i) setRow(i, triaxialBytes("P1", "S" + std::to_string(i + 1)));
  for (std::size_t size = 0; size < whole.size(); size += 97) {
    write("ZMSJ/KHZP1.txt", whole.substr(0, size));
    workspace.dataOf(ProjectKind::Triaxial).clearLocations();
    EXPECT_EQ(readLocations(workspace, ProjectKind::Triaxial).size(), size < kSummaryHeaderSize ? 1U : 0U) << size;
    const std::size_t records = size < kSummaryHeaderSize ? 0 : (size - kSummaryHeaderSize) / kSummaryRecordSize;
    for (std::size_t i = 0; i < 3; ++i)
      ASSERT_EQ(workspace.dataOf(ProjectKind::Triaxial).SampleDisplayTable[i].boreholeNo.isBlank(), i >= records)
          << size;
  }
}

TEST_F(DamagedFiles, ASummaryCutInsideARecordIsMendedByTheSave) {
  std::string record = siblingRecordBytes("S1");
  write("ZMSJ/KHZP1.txt", newSummaryHeaderBytes("0001", "P1") + record.substr(0, 1000));
  setRow(0, triaxialBytes("P1", "S1"));
  EXPECT_TRUE(saveProject(workspace, ProjectKind::Triaxial, nullptr).errors.empty());
  const std::string saved = read("ZMSJ/KHZP1.txt");
  ASSERT_EQ(saved.size(), kSummaryHeaderSize + kSummaryRecordSize);
  EXPECT_EQ(saved.substr(kSummaryHeaderSize + 59, 941), record.substr(59, 941)) << "what was there stays";
  EXPECT_EQ(saved.substr(kSummaryHeaderSize + 1563, 5), "\r\nPC:") << "the rest is that of a new record";
}

TEST_F(DamagedFiles, NoProjectNumberLeadsOutOfTheDataFolder) {
  const std::vector<std::string> numbers{"../../x",
                                         "..\\..\\x",
                                         "/etc/x",
                                         "a/b",
                                         "..",
                                         ".",
                                         "c:x",
                                         "CON",
                                         "nul",
                                         "a\nb",
                                         std::string("a\0b", 3),
                                         "*",
                                         "a?",
                                         "12345678901234\xCD",
                                         "x."};
  for (std::size_t i = 0; i < numbers.size(); ++i) setRow(i, triaxialBytes(numbers[i], "S1"));
  const auto before = snapshot();
  EXPECT_THROW(saveProject(workspace, ProjectKind::Triaxial, nullptr), UserError);
  auto after = snapshot();
  after.erase((workspace.applicationFolder / "qvb.sys").string());  // the date texts
  EXPECT_EQ(after, before);
  EXPECT_TRUE(readLocations(workspace, ProjectKind::Triaxial).empty());
}

TEST_F(DamagedFiles, ARowOfZeroBytesIsNamedAndNotSaved) {
  row(0) = recordOf<TriaxialSampleRecord>(std::string(kTriaxialSize, '\0'));
  setRow(1, triaxialBytes("P1", "S1"));
  EXPECT_EQ(saveProject(workspace, ProjectKind::Triaxial, nullptr).errors.size(), 1U);
  EXPECT_TRUE(has("HSZS/WKSZP1.txt"));
}

TEST_F(DamagedFiles, AFolderInAProjectsPlaceRefusesThatProjectAlone) {
  std::filesystem::create_directory(data("HSZS/WKSZP1.txt"));
  std::filesystem::create_directory(data("ZMSJ/KHZP2.txt"));
  for (std::size_t i = 0; i < 3; ++i) setRow(i, triaxialBytes("P" + std::to_string(i + 1), "S1"));
  const SaveReport report = saveProject(workspace, ProjectKind::Triaxial, nullptr);
  EXPECT_THAT(report.errors, ::testing::ElementsAre(HasSubstr("WKSZP1.txt"), HasSubstr("KHZP2.txt")));
  EXPECT_FALSE(has("HSZS/WKSZP2.txt"));
  EXPECT_TRUE(has("HSZS/WKSZP3.txt"));
}

TEST_F(DamagedFiles, ADataFolderThatIsAFileIsTold) {
  setRow(0, triaxialBytes("P1", "S1"));
  std::filesystem::remove_all(workspace.dataFolder);
  File(workspace.dataFolder, File::Mode::Create).writeAt(0, std::as_bytes(std::span("file", 4)));
  EXPECT_THAT(sentenceOf([&] { saveProject(workspace, ProjectKind::Triaxial, nullptr); }), HasSubstr("没有保存"));
  EXPECT_THROW(openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr), UserError);
  EXPECT_TRUE(listProjects(workspace, ProjectKind::Triaxial).empty());
  EXPECT_EQ(std::filesystem::file_size(workspace.dataFolder), 4U);
}

#ifndef _WIN32

/// Runs `act` in a process of a user who owns nothing here; true when it returned true there.
template <class Act>
bool asNobody(Act act) {
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    const bool isNobody = geteuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0);
    _exit(isNobody && act() ? 0 : 1);
  }
  int status = 1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(DamagedFiles, ADataFolderThatMayNotBeWrittenKeepsItsFiles) {
  namespace fs = std::filesystem;
  write("HSZS/WKSZP1.txt", headerBytes({"0001", "P1"}) + triaxialBytes("P1", "S1"));
  setRow(0, triaxialBytes("P1", "S1", 2, "250"));
  const auto readOnly = fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;
  fs::permissions(folder(), readOnly);
  for (const auto& entry : fs::recursive_directory_iterator(folder()))
    fs::permissions(entry.path(), entry.is_directory() ? readOnly : fs::perms::owner_read | fs::perms::others_read);
  const auto before = snapshot();
  EXPECT_TRUE(asNobody([&] {
    const std::string sentence = sentenceOf([&] { saveProject(workspace, ProjectKind::Triaxial, nullptr); });
    return sentence.find("没有读写权限") != std::string::npos && sentence.find("没有保存") != std::string::npos;
  }));
  EXPECT_TRUE(asNobody([&] {
    return openProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", nullptr).empty() && isLive(row(0));
  })) << "it can still be read";
  EXPECT_EQ(snapshot(), before);
  for (const auto& entry : fs::recursive_directory_iterator(folder()))
    fs::permissions(entry.path(), fs::perms::owner_all);
  fs::permissions(folder(), fs::perms::owner_all);
}

TEST_F(DamagedFiles, AProjectFileThatMayNotBeReadIsTold) {
  write("HSZS/KOP1.txt", headerBytes({"0000", "P1"}));
  std::filesystem::permissions(folder(), std::filesystem::perms::owner_all | std::filesystem::perms::others_exec);
  std::filesystem::permissions(data("HSZS/KOP1.txt"), std::filesystem::perms::none);
  EXPECT_TRUE(asNobody([&] {
    const auto open = [&] { openProject(workspace, ProjectKind::K0, "KOP1.txt", nullptr); };
    return sentenceOf(open).find("KOP1.txt") != std::string::npos;
  }));
}

#endif

}  // namespace
}  // namespace triaxlab::testing
