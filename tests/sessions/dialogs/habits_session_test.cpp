#include "sessions/dialogs/habits_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

#include "sessions/dialogs/habit_samples.h"
#include "shell/lab.h"
#include "support/fake_dialogs.h"

namespace triaxlab {
namespace {

using ::testing::ElementsAre;
using testing::FakeDialogs;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Lab;

std::string gbk(std::string_view utf8) { return utf8ToGbkExactly(utf8).value(); }

class Habits : public ::testing::Test {
 protected:
  HabitsSession& open() {
    window.emplace(lab.workspace, dialogs, [] {});
    return *window;
  }
  /// Chooses a key of a file.
  HabitsSession& at(std::size_t file, std::string_view key) {
    if (!window) open();
    window->chooseFile(file);
    for (int row = 1; row <= window->rowCount(); ++row)
      if (window->cell(row, 1).starts_with(key)) window->chooseRow(row);
    return *window;
  }
  std::string file(const std::string& name) const { return gbkToUtf8(lab.folder.read(name)); }

  static constexpr std::size_t kZmqvb = 0, kSz = 1, kEsz = 2, kSzshezhi = 3;
  Lab lab;
  FakeDialogs dialogs;
  std::optional<HabitsSession> window;
};

TEST_F(Habits, EveryKeyOfTheFourFilesIsListedWithWhatItDoes) {
  HabitsSession& form = open();
  ASSERT_EQ(form.files().size(), 4U);
  EXPECT_EQ(form.files()[0], "zmqvb.ini：报告习惯");
  for (const auto& [file, keys] : {std::pair{kZmqvb, 25}, {kSz, 2}, {kEsz, 17}, {kSzshezhi, 22}}) {
    form.chooseFile(file);
    EXPECT_EQ(form.rowCount(), keys);
    for (int row = 1; row <= keys; ++row) {
      form.chooseRow(row);
      EXPECT_GT(form.meaning().size(), std::string("。默认：空。").size()) << form.cell(row, 1);
    }
  }
}

TEST_F(Habits, AKeyTellsItsLimitsItsDefaultAndItsValue) {
  lab.folder.write("zmqvb.ini", gbk("[无侧限最大应变]30\r\n"));
  const HabitsSession& strain = at(kZmqvb, "[无侧限最大应变]");
  EXPECT_EQ(strain.meaning(), "无侧限曲线的最大应变，%。10 至 50 的整数。默认：22。");
  EXPECT_EQ(strain.text(), "30");
  EXPECT_EQ(strain.cell(strain.currentRow(), 2), "30");
  const HabitsSession& label = at(kZmqvb, "[工程编号]");
  EXPECT_EQ(label.cell(label.currentRow(), 2), "工程编号（默认）");
  EXPECT_EQ(label.text(), "");
  EXPECT_EQ(label.defaultText(), "工程编号");
  const HabitsSession& flag = at(kZmqvb, "[三轴打印探井号]");
  EXPECT_EQ(flag.cell(flag.currentRow(), 2), "关");
}

TEST_F(Habits, ASaveWritesTheLinesOfTheChangedKeysAlone) {
  lab.folder.write("zmqvb.ini", gbk("; 我们的习惯\r\n[三轴C]1 ;张工\r\nfoo\r\n"));
  lab.folder.write("sz.ini", "bar");
  at(kZmqvb, "[三轴C]").setText("3");
  at(kZmqvb, "[三轴打印探井号]").setOn(true);
  at(kSzshezhi, "[05").setText("城建土工试验室");
  EXPECT_TRUE(window->isChanged());
  EXPECT_EQ(window->cell(window->currentRow(), 2), "城建土工试验室 *");
  EXPECT_TRUE(window->save());
  EXPECT_FALSE(window->isChanged());
  EXPECT_EQ(window->saved(), "已写入 zmqvb.ini、szshezhi.txt");
  EXPECT_EQ(file("zmqvb.ini"), "; 我们的习惯\r\n[三轴C]3 ;张工\r\nfoo\r\n[三轴打印探井号]\r\n");
  EXPECT_EQ(file("szshezhi.txt"), "[05城建土工试验室]\r\n");
  EXPECT_EQ(file("sz.ini"), "bar");
  EXPECT_FALSE(fileExists(lab.folder.path() / "esz.ini"));
  EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(Habits, ANumberOutsideItsLimitsIsToldAndStays) {
  at(kZmqvb, "[三轴C]").setText("7");
  at(kSz, "[钻孔号]").setText("孔号");
  EXPECT_FALSE(window->save());
  EXPECT_THAT(dialogs.shown, ElementsAre("stop [实验室习惯] zmqvb.ini 的 [三轴C] 要写 0 至 4 的整数，不能是“7”。"));
  EXPECT_TRUE(window->isChanged());
  EXPECT_EQ(at(kZmqvb, "[三轴C]").text(), "7");
  EXPECT_FALSE(fileExists(lab.folder.path() / "zmqvb.ini"));
  EXPECT_EQ(file("sz.ini"), "[钻孔号]=[孔号]\r\n") << "the other file has nothing to do with it";
}

TEST_F(Habits, AFileChangedMeanwhileIsToldAndNotWrittenOver) {
  lab.folder.write("zmqvb.ini", gbk("[三轴C]1\r\n"));
  at(kZmqvb, "[三轴C]").setText("3");
  lab.folder.write("zmqvb.ini", gbk("[三轴C]2\r\n[无侧限最大应变]40\r\n"));
  EXPECT_FALSE(window->save());
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_THAT(dialogs.shown[0], HasSubstr("刚被别的程序改过，没有写入"));
  EXPECT_THAT(dialogs.shown[0], HasSubstr("zmqvb.ini"));
  EXPECT_EQ(file("zmqvb.ini"), "[三轴C]2\r\n[无侧限最大应变]40\r\n");
  EXPECT_EQ(at(kZmqvb, "[无侧限最大应变]").text(), "40") << "the editor's work is seen";
  EXPECT_EQ(at(kZmqvb, "[三轴C]").text(), "3") << "and what is still to be saved";
  EXPECT_TRUE(window->save());
  EXPECT_EQ(file("zmqvb.ini"), "[三轴C]3\r\n[无侧限最大应变]40\r\n");
}

TEST_F(Habits, AFileThatAppearedMeanwhileIsNotWrittenOver) {
  at(kSz, "[钻孔号]").setText("孔号");
  lab.folder.write("sz.ini", gbk("[土样编号]=[室内编号]\r\n"));
  EXPECT_FALSE(window->save());
  EXPECT_TRUE(window->save());
  EXPECT_EQ(file("sz.ini"), "[钻孔号]=[孔号]\r\n[土样编号]=[室内编号]\r\n");
}

TEST_F(Habits, AFileThatCannotBeReadIsNamedAndLeftAlone) {
  std::filesystem::create_directory(lab.folder.path() / "sz.ini");
  const HabitsSession& label = at(kSz, "[钻孔号]");
  EXPECT_FALSE(label.canBeChanged());
  EXPECT_THAT(label.fileNote(), HasSubstr("sz.ini"));
  window->setText("孔号");
  EXPECT_FALSE(window->isChanged());
  EXPECT_TRUE(at(kZmqvb, "[三轴C]").canBeChanged());
}

TEST_F(Habits, AnEmptyTextIsTheDefaultButOfANumberedText) {
  lab.folder.write("zmqvb.ini", gbk("[工程编号]=[合同号]\r\n"));
  at(kZmqvb, "[工程编号]").setText("");
  EXPECT_TRUE(window->hasDefault());
  at(kSzshezhi, "[08").setText("");
  EXPECT_FALSE(window->hasDefault());
  EXPECT_TRUE(window->save());
  EXPECT_EQ(file("zmqvb.ini"), ";[工程编号]=[合同号]\r\n");
  EXPECT_EQ(file("szshezhi.txt"), "[08]\r\n");
  window->useDefault();
  EXPECT_TRUE(window->save());
  EXPECT_EQ(file("szshezhi.txt"), ";[08]\r\n");
}

TEST_F(Habits, LeavingAsksAboutWhatIsNotSaved) {
  EXPECT_TRUE(open().mayClose());
  at(kZmqvb, "[三轴C]").setText("3");
  dialogs.answers = {false};
  EXPECT_TRUE(window->mayClose());
  EXPECT_FALSE(fileExists(lab.folder.path() / "zmqvb.ini"));
  dialogs.answers = {true};
  EXPECT_TRUE(window->mayClose());
  EXPECT_EQ(file("zmqvb.ini"), "[三轴C]3\r\n");
  window->setText("99");
  dialogs.answers = {true};
  EXPECT_FALSE(window->mayClose()) << "what can't be saved is not lost";
  EXPECT_EQ(dialogs.take().front(), "! [实验室习惯] 有的习惯改了还没有保存。\n现在保存吗？");
}

// ---- Samples

TEST_F(Habits, TheSampleShowsWhatIsTypedBeforeItIsSaved) {
  HabitsSession& form = at(kZmqvb, "[工程编号]");
  EXPECT_EQ(form.sample(), "工程编号: 2024-015");
  form.setText("合同号");
  EXPECT_EQ(form.sample(), "合同号: 2024-015");
  at(kZmqvb, "[三轴C]").setText("2");
  EXPECT_EQ(form.sample(), "C = 25.37 kPa");
  at(kZmqvb, "[K0不打印试验日期]");
  EXPECT_EQ(form.sample(), "试验日期:2024/05/06");
  form.setOn(true);
  EXPECT_EQ(form.sample(), "（不印）");
  at(kSzshezhi, "[02");
  EXPECT_EQ(form.sample(), "合同号:2024-015") << "the other file's word, not yet saved";
}

TEST_F(Habits, ABoreholeIsCalledAndCutAsTheHabitsSay) {
  HabitsSession& form = at(kZmqvb, "[三轴打印钻孔编号]");
  EXPECT_EQ(form.sample(), "   钻孔号: TJ-0012ZK3");
  form.setOn(true);
  EXPECT_EQ(form.sample(), "钻孔编号:TJ-0012ZK3");
  at(kZmqvb, "[三轴打印探井号]").setOn(true);
  EXPECT_EQ(form.sample(), "   探井号: TJ-0012");
}

TEST_F(Habits, EnglishLabelsAreShownWithTheirColon) {
  HabitsSession& form = at(kEsz, "[工程编号]=");
  EXPECT_EQ(form.sample(), "Project No.: 2024-015");
  form.setText("Job:");
  EXPECT_EQ(form.sample(), "Job:2024-015");
}

TEST(HabitSamples, OnlyKeysThatChangeNoPageHaveNone) {
  std::vector<std::string_view> without;
  for (const TextFile* const file : textFiles())
    for (const TextKey& key : file->keys)
      if (key.meaning != "可以写，不印" && sampleOf(key, {}).empty()) without.push_back(key.key);
  EXPECT_THAT(without,
              ElementsAre("[三轴应力差人工干预后自动调整原始数据]", "[按工程编号打开win三轴]", "[三轴试验取50点]"));
}

}  // namespace
}  // namespace triaxlab
