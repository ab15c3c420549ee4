// A file that another program has changed since it was read is told before it is written over.

#include "store/safety/changed_files.h"

#include <thread>

#include "store/project/project_file.h"
#include "store/project/project_list.h"
#include "store/project/rewrite_list.h"
#include "store/project/save_project.h"
#include "store/store_fixture.h"

namespace triaxlab::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ChangedFilesTest : public StoreTest {
 protected:
  ChangedFilesTest() { writeProject("P1", {"S1", "S2"}); }

  void writeProject(const std::string& projectNo, const std::vector<std::string>& samples) const {
    std::string file = headerBytes({FormatPadded(static_cast<int>(samples.size()), 4), projectNo});
    for (const std::string& sample : samples) file += triaxialBytes(projectNo, sample);
    write("HSZS/WKSZ" + projectNo + ".txt", file + field("", 100));
  }
  /// What the other program does: one sample more. The sizes differ, so the clock doesn't matter.
  void changeByAnother() const { writeProject("P1", {"S1", "S2", "S3"}); }

  void open(const std::string& projectNo = "P1") {
    openProject(workspace, ProjectKind::Triaxial, "WKSZ" + projectNo + ".txt", nullptr);
  }
  void list() { listSamples(workspace, ProjectKind::Triaxial, "WKSZP1.txt"); }
  SaveReport save() { return saveProject(workspace, ProjectKind::Triaxial, nullptr, question()); }
  RewriteReport rewrite(std::vector<std::uint32_t> order = {1, 0}) {
    return rewriteProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", order, question());
  }
  ChangeQuestion question() {
    return [this](std::string_view title, std::string_view text) {
      questions.push_back("[" + std::string(title) + "] " + std::string(text));
      return answer;
    };
  }

  std::vector<std::string> questions;
  bool answer = true;
};

TEST_F(ChangedFilesTest, ASaveAsksAndYesGoesOn) {
  open();
  changeByAnother();
  EXPECT_THAT(save().remarks, IsEmpty());
  EXPECT_THAT(questions, ElementsAre(AllOf(HasSubstr("[保存数据]"), HasSubstr("WKSZP1.txt"), HasSubstr("改动过"))));
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0003") << "what the other has added stays";
  EXPECT_THAT(save().remarks, IsEmpty());
  EXPECT_EQ(questions.size(), 1U) << "now it is our own";
}

TEST_F(ChangedFilesTest, NoLeavesAllAsItWasAndSaysSo) {
  open();
  list();
  changeByAnother();
  answer = false;
  const auto before = snapshot();
  EXPECT_THAT(sentenceOf([this] { save(); }), AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("没有保存")));
  EXPECT_THAT(sentenceOf([this] { rewrite(); }), AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("没有保存")));
  EXPECT_THAT(questions, ElementsAre(HasSubstr("[保存数据]"), HasSubstr("[保存三轴文件]")));
  EXPECT_EQ(snapshot(), before);
  EXPECT_TRUE(isLive(row(0))) << "the table is as it was";
}

TEST_F(ChangedFilesTest, WithNobodyToAskItIsARemark) {
  open();
  list();
  changeByAnother();
  EXPECT_THAT(saveProject(workspace, ProjectKind::Triaxial, nullptr).remarks, ElementsAre(HasSubstr("WKSZP1.txt")));
  changeByAnother();
  EXPECT_THAT(rewriteProject(workspace, ProjectKind::Triaxial, "WKSZP1.txt", std::array{0U}).remarks,
              ElementsAre(HasSubstr("WKSZP1.txt")));
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0001");
}

TEST_F(ChangedFilesTest, AFileThatIsGoneIsToldToo) {
  open();
  std::filesystem::remove(data("HSZS/WKSZP1.txt"));
  save();
  EXPECT_THAT(questions, ElementsAre(HasSubstr("删除")));
  EXPECT_TRUE(has("HSZS/WKSZP1.txt"));
}

TEST_F(ChangedFilesTest, AChangeThatKeptSizeAndTimeIsFound) {
  open();
  const auto time = std::filesystem::last_write_time(data("HSZS/WKSZP1.txt"));
  std::this_thread::sleep_for(std::chrono::milliseconds(30));  // a file system's clock ticks slowly
  writeProject("P1", {"S1", "S8"});
  std::filesystem::last_write_time(data("HSZS/WKSZP1.txt"), time);
  save();
  EXPECT_THAT(questions, ElementsAre(HasSubstr("改动过")));
}

TEST_F(ChangedFilesTest, SeveralFilesAreOneQuestion) {
  writeProject("P2", {"S1"});
  open("P2");
  open();
  setRow(2, triaxialBytes("P2", "S1"));
  changeByAnother();
  writeProject("P2", {"S1", "S2"});
  save();
  EXPECT_THAT(questions, ElementsAre(AllOf(HasSubstr("WKSZP1.txt"), HasSubstr("WKSZP2.txt"))));
}

TEST_F(ChangedFilesTest, AChangeDuringTheAnswerIsAskedAboutAgain) {
  open();
  changeByAnother();
  saveProject(workspace, ProjectKind::Triaxial, nullptr, [this](std::string_view, std::string_view) {
    questions.emplace_back();
    if (questions.size() == 1) writeProject("P1", {"S1", "S2", "S3", "S4"});
    return true;
  });
  EXPECT_EQ(questions.size(), 2U);
  EXPECT_EQ(read("HSZS/WKSZP1.txt").substr(0, 4), "0004");
}

TEST_F(ChangedFilesTest, OwnChangesAreNotAskedAbout) {
  open();
  save();
  list();
  rewrite();
  rewrite();
  save();
  open();
  save();
  EXPECT_THAT(questions, IsEmpty());
}

TEST_F(ChangedFilesTest, AnUpgradeIsAnOwnChange) {
  write("HSZS/WKSZP1.txt", headerBytes({"0000", "P1", "", "", "", "", "V1.0"}) + field("", 100));
  open();
  setRow(0, triaxialBytes("P1", "S1"));
  save();
  EXPECT_THAT(questions, IsEmpty());
}

TEST_F(ChangedFilesTest, AListThatIsReadLaterDoesNotHideAChangeFromTheDocument) {
  open();
  changeByAnother();
  list();
  rewrite({2, 1, 0});
  EXPECT_THAT(questions, IsEmpty()) << "the list has seen the change";
  save();
  EXPECT_EQ(questions.size(), 1U) << "the document has not";
}

TEST_F(ChangedFilesTest, AFileThatWasNeverReadIsSavedWithoutAQuestion) {
  setRow(0, triaxialBytes("P1", "S1"));
  setRow(1, triaxialBytes("NEW", "S1"));
  changeByAnother();
  save();
  EXPECT_THAT(questions, IsEmpty());
}

TEST_F(ChangedFilesTest, AFileThatIsRemovedByTheListIsSavedWithoutAQuestion) {
  open();
  rewrite({});
  EXPECT_FALSE(has("HSZS/WKSZP1.txt"));
  save();
  EXPECT_THAT(questions, IsEmpty());
  EXPECT_TRUE(has("HSZS/WKSZP1.txt"));
}

TEST_F(ChangedFilesTest, ASaveThatFailedIsNotAStrangersChange) {
  open();
  // The journal can't be written where a folder has its name.
  std::filesystem::create_directories(data("journal/x"));
  EXPECT_THROW(save(), UserError);
  std::filesystem::remove_all(data("journal"));
  save();
  EXPECT_THAT(questions, IsEmpty());
}

}  // namespace
}  // namespace triaxlab::testing
