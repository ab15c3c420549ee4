#include "store/project/project_list.h"

#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::ElementsAre;

class ProjectList : public StoreTest {
 protected:
  std::vector<std::string> fileNames(ProjectKind kind) const {
    std::vector<std::string> names;
    for (const ProjectListRow& row : listProjects(workspace, kind)) names.push_back(row.fileName);
    return names;
  }
};

TEST_F(ProjectList, ShowsTheTextsOfTheHeaders) {
  write("HSZS/WKSZ7.txt", headerBytes({"0012", "\xD1\xD2\xCD\xC1"}));
  const std::vector<ProjectListRow> rows = listProjects(workspace, ProjectKind::Triaxial);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].fileName, "WKSZ7.txt");
  EXPECT_EQ(rows[0].projectNo, "岩土");
  EXPECT_EQ(rows[0].sampleCount, "0012");
  EXPECT_EQ(rows[0].createdDate, "2024/01/02");
  EXPECT_EQ(rows[0].processedDate, "2024/03/04");
  EXPECT_EQ(rows[0].operatorName, "Zhao");
}

TEST_F(ProjectList, HoldsTheFilesOfTheMaskInTheOrderOfTheirNames) {
  for (const char* name : {"WKSZb.txt", "wkszA.TXT", "WKSZc.Txt", "KSZ1.txt", "KO1.txt", "TKO1.txt", "WKSZd.txt.bak"})
    write(std::string("HSZS/") + name, headerBytes({"0001", "x"}));
  EXPECT_THAT(fileNames(ProjectKind::Triaxial), ElementsAre("wkszA.TXT", "WKSZb.txt", "WKSZc.Txt"));
  EXPECT_THAT(fileNames(ProjectKind::OldTriaxial), ElementsAre("KSZ1.txt"));
  EXPECT_THAT(fileNames(ProjectKind::K0), ElementsAre("KO1.txt"));
  EXPECT_THAT(fileNames(ProjectKind::TK0), ElementsAre("TKO1.txt"));
}

TEST_F(ProjectList, AFileThatIsNoProjectIsListedByItsName) {
  write("HSZS/WKSZ1.txt", "");
  write("HSZS/WKSZ2.txt", headerBytes({"0001", "2"}).substr(0, 80));
  write("HSZS/WKSZ3.txt", headerBytes({"abcd", "3"}));
  const std::vector<ProjectListRow> rows = listProjects(workspace, ProjectKind::Triaxial);
  ASSERT_EQ(rows.size(), 3U);
  for (const ProjectListRow& row : rows) {
    EXPECT_EQ(row.projectNo, row.fileName);
    EXPECT_EQ(row.sampleCount + row.createdDate + row.processedDate + row.operatorName, "");
  }
}

TEST_F(ProjectList, IsEmptyWithoutFilesOrWithoutTheFolder) {
  EXPECT_TRUE(listProjects(workspace, ProjectKind::Triaxial).empty());
  std::filesystem::remove_all(workspace.dataFolder);
  EXPECT_TRUE(listProjects(workspace, ProjectKind::Triaxial).empty());
}

TEST_F(ProjectList, EndsAfterAThousandAndOneFiles) {
  for (int i = 1000; i < 2005; ++i) write("HSZS/KO" + std::to_string(i) + ".txt", headerBytes({"0000", "x"}));
  const std::vector<std::string> names = fileNames(ProjectKind::K0);
  ASSERT_EQ(names.size(), 1001U);
  EXPECT_EQ(names.back(), "KO2000.txt");
}

TEST_F(ProjectList, SamplesComeInTheOrderOfTheFile) {
  write("HSZS/WKSZP1.txt", headerBytes({"0003", "P1"}) + triaxialBytes("P1", "B-2") + triaxialBytes("P1", " A-1 ") +
                               triaxialBytes("P1", "\xD1\xD2"));
  const std::vector<SampleListRow> rows = listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].sampleNo, "B-2");
  EXPECT_EQ(rows[1].sampleNo, "A-1");
  EXPECT_EQ(rows[2].sampleNo, "岩");
  EXPECT_EQ(rows[2].recordIndex, 2U);
  EXPECT_FALSE(rows[2].deleteMark);
}

TEST_F(ProjectList, SamplesBeyondTheEndAreBlank) {
  write("HSZS/KOP1.txt",
        headerBytes({"0003", "P1"}) + field("P1", 15) + field("123456789012345", 15) + std::string(213, ' '));
  const std::vector<SampleListRow> rows = listSamples(workspace, ProjectKind::K0, "KOP1.txt");
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].sampleNo, "123456789012345") << "15 places but in a triaxial file";
  EXPECT_EQ(rows[2].sampleNo, "");
}

TEST_F(ProjectList, ADamagedFileHasNoSampleList) {
  write("HSZS/WKSZ1.txt", "short");
  EXPECT_THROW(listSamples(workspace, ProjectKind::Triaxial, "WKSZ1.txt"), UserError);
  EXPECT_THROW(listSamples(workspace, ProjectKind::Triaxial, "WKSZ2.txt"), UserError);
}

}  // namespace
}  // namespace triaxlab::testing
