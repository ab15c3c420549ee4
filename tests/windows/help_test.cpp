#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <set>

#include "desk.h"
#include "lone_application.h"
#include "played_program.h"
#include "windows/controls/cell_keys.h"
#include "windows/controls/grid_view.h"
#include "windows/controls/words.h"
#include "windows/help/manual_pages.h"
#include "windows/help/manual_window.h"

namespace triaxlab::testing {
namespace {

using ::testing::HasSubstr;

class ManualInHand : public ::testing::Test {
 protected:
  ManualInHand() {
    makeApplication();
    window = std::make_unique<ManualWindow>();
    window->show();
  }
  QTextBrowser* page() const { return window->findChild<QTextBrowser*>("Page"); }
  QLineEdit* search() const { return window->findChild<QLineEdit*>("Search"); }
  GridView* contents() const { return window->findChild<GridView*>("Contents"); }
  QString line(int row) const { return contents()->model()->index(row - 1, 1).data().toString(); }
  /// The heading that stands at the upper edge of the page.
  QString heading() const { return page()->textCursor().block().text(); }

  std::unique_ptr<ManualWindow> window;
};

TEST_F(ManualInHand, OpensWhereItTellsOfTheWindow) {
  window->showTopic(helpTopicOf("Form7"));
  EXPECT_EQ(page()->source().fileName(), "curves.md");
  EXPECT_EQ(heading(), "6. 固结表和数据表");
  EXPECT_GT(page()->verticalScrollBar()->value(), 0);
}

TEST_F(ManualInHand, OpensAtItsFirstPageForOtherWindows) {
  window->showTopic(nullptr);
  EXPECT_EQ(page()->source().fileName(), "README.md");
}

TEST_F(ManualInHand, ListsChaptersAndSectionsUntilSomebodySearches) {
  EXPECT_EQ(line(1), "QVB三轴试验数据处理 · 使用手册");
  EXPECT_EQ(line(2), "开始");
  const int all = contents()->model()->rowCount();
  search()->setText("灵敏度");
  EXPECT_LT(contents()->model()->rowCount(), all);
  EXPECT_THAT(utf8(line(1)), HasSubstr("灵敏度"));
  contents()->setCurrentCell(1, 1);
  EXPECT_FALSE(page()->extraSelections().isEmpty()) << "what was searched for is marked";
  search()->clear();
  EXPECT_EQ(contents()->model()->rowCount(), all);
  EXPECT_TRUE(page()->extraSelections().isEmpty());
}

TEST_F(ManualInHand, ShowsPicturesNoWiderThanThePage) {
  window->resize(700, 500);
  window->showTopic(helpTopicOf("Form1"));
  int pictures = 0;
  for (QTextBlock block = page()->document()->begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part)
      if (const QTextImageFormat form = part.fragment().charFormat().toImageFormat(); form.isValid()) {
        ++pictures;
        EXPECT_GT(form.width(), 0) << utf8(form.name());
        EXPECT_LT(form.width(), page()->viewport()->width()) << utf8(form.name());
      }
  EXPECT_GT(pictures, 3);
}

TEST_F(ManualInHand, ShowsTheKeysOfAWindow) {
  window->showKeys("固结数据表", {keyGroup("在格里", kCellKeys)});
  const auto tables = page()->document()->rootFrame()->childFrames();
  ASSERT_EQ(tables.size(), 1);
  const auto* const table = qobject_cast<QTextTable*>(tables.front());
  ASSERT_NE(table, nullptr);
  const auto cell = [table](int row, int column) {
    return table->cellAt(row, column).firstCursorPosition().block().text();
  };
  EXPECT_EQ(cell(1, 0), "↑");
  EXPECT_EQ(cell(2, 0), "↓、回车") << "keys of one effect stand together, each once";
  EXPECT_EQ(cell(2, 1), "下一行；在最后一行时表向上滚");
}

TEST(KeyNames, AreThoseOfTheKeyboard) {
  EXPECT_EQ(keyName(Qt::Key_Return), "回车");
  EXPECT_EQ(keyName(Qt::Key_F4), "F4");
  EXPECT_EQ(keyName(int(Qt::CTRL) | Qt::Key_Z), "Ctrl+Z");
  EXPECT_EQ(keyName(int(Qt::ALT) | Qt::Key_Left), "Alt+←");
  EXPECT_EQ(keyName(int(Qt::CTRL) | Qt::Key_Plus), "Ctrl++");
}

/// The keys of a window, out of the table that is shown of them.
std::set<std::string> shownKeys(const ManualWindow& manual) {
  std::set<std::string> keys;
  const auto* const page = manual.findChild<QTextBrowser*>("Page");
  for (QTextFrame* const frame : page->document()->rootFrame()->childFrames()) {
    const auto* const table = qobject_cast<QTextTable*>(frame);
    for (int row = 1; table != nullptr && row < table->rows(); ++row)
      for (const QString& key : table->cellAt(row, 0).firstCursorPosition().block().text().split("、"))
        keys.insert(utf8(key));
  }
  return keys;
}

class KeysOf : public ::testing::TestWithParam<ActiveDocument> {};

TEST_P(KeysOf, StandInTheManual) {
  makeApplication();
  Desk desk(GetParam());
  desk.press("KEYS");
  const ManualWindow* manual = nullptr;
  for (QWidget* const window : QApplication::topLevelWidgets())
    if (auto* const found = qobject_cast<ManualWindow*>(window); found != nullptr && found->isVisible()) manual = found;
  ASSERT_NE(manual, nullptr);
  std::string text;
  const Manual pages = readManual();
  for (const ManualChapter& chapter : pages.chapters()) text += chapter.markdown;
  const std::set<std::string> keys = shownKeys(*manual);
  EXPECT_GT(keys.size(), 5U);
  for (const std::string& key : keys) EXPECT_THAT(text, HasSubstr(key));
}

INSTANTIATE_TEST_SUITE_P(Windows, KeysOf,
                         ::testing::Values(kNoDocument, kForm1, kForm2, kForm7, kForm4, kForm6, kForm9));

TEST(PlayHelp, F1OpensTheManualBesideAModalWindowToo) {
  const PlayedProgram program;
  const PlayResult result = program.play(
      "menu NEW\nkey F1\nstate Manual.Page\nclose Manual\n"
      "menu SHEZHI\nkey F1\ntype Manual.Search 源文件目录\nget Manual.Contents 1 1\nclose Manual\n"
      "type Form5.Text1 /srv\nclick Form5.Command2\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_THAT(result.out, HasSubstr("Manual.Page: visible enabled"));
  EXPECT_THAT(result.out, HasSubstr("源文件目录"));
}

TEST(PlayHelp, ADialogTellsItsKeysByShiftF1) {
  const PlayedProgram program;
  const PlayResult result =
      program.play("menu HABITS\nkey Shift+F1\nget Manual.Page\nclose Manual\nclick HABITSFORM.Return\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_THAT(result.out, HasSubstr("到这个关键字的值上"));
  EXPECT_THAT(result.out, HasSubstr("离开，等于 取 消 或 返 回"));
  EXPECT_EQ(result.out.find("Ctrl+S"), std::string::npos) << "the menu is out of reach";
}

TEST(PlayHelp, TheKeysAreThoseOfTheWindowInFront) {
  const PlayedProgram program;
  const PlayResult result = program.play(
      "file HSZSJ.KU\nmenu NEWSZ\ndblcell OPENFORM0.Grid1 2\nclick OPENFORM0.Command1\nmenu KEYS\nget Manual.Page\n"
      "click Form1.Command5\nmenu KEYS\nget Manual.Page\n");
  EXPECT_EQ(result.errors, "");
  const std::string curves = result.out.substr(0, result.out.rfind("Manual.Page=")),
                    table = result.out.substr(curves.size());
  EXPECT_THAT(curves, HasSubstr("切换多级剪的调整标志"));
  EXPECT_THAT(curves, HasSubstr("Ctrl+S"));
  EXPECT_THAT(table, HasSubstr("F2"));
  EXPECT_THAT(table, HasSubstr("打开第一个孔压"));
}

TEST(PlayHelp, TheProgramTellsOfItself) {
  const PlayedProgram program;
  const PlayResult result = program.play("menu ABOUT\nget About.Page\nclose About\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_THAT(result.out, HasSubstr(program.folder().path().string()));
  EXPECT_THAT(result.out, HasSubstr("MIT"));
}

}  // namespace
}  // namespace triaxlab::testing
