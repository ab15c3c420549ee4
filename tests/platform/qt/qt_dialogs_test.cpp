#include "platform/qt/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/qt/application.h"
#include "support/temporary_folder.h"

namespace triaxlab {
namespace {

/// Boxes are answered from inside their own event loop, one act after the other.
class QtDialogsTest : public ::testing::Test {
 protected:
  using Act = std::function<void(QWidget& box)>;
  /// Each act is done when the program is idle again after the one before.
  void whenShown(std::vector<Act> acts) {
    m_acts = std::move(acts);
    QTimer::singleShot(0, &m_context, [this] { next(); });
  }

  static void press(QWidget& box, int key) {
    QWidget* const target = box.focusWidget() != nullptr ? box.focusWidget() : &box;
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
  }
  static Act key(int key) {
    return [key](QWidget& box) { press(box, key); };
  }
  static Act corner() {
    return [](QWidget& box) { box.close(); };
  }

  QtDialogs dialogs;

 private:
  void next() {
    QWidget* const box = QApplication::activeModalWidget();
    if (box == nullptr || m_acts.empty()) return;
    const Act act = std::move(m_acts.front());
    m_acts.erase(m_acts.begin());
    QTimer::singleShot(0, &m_context, [this] { next(); });
    act(*box);
  }

  std::vector<Act> m_acts;
  QObject m_context;  // no act outlives its test
};

TEST_F(QtDialogsTest, EnterAnswersAQuestionWithYes) {
  whenShown({key(Qt::Key_Return)});
  EXPECT_TRUE(dialogs.ask("保存三轴数据", "保存修改后数据吗？", MessageIcon::None));
}

TEST_F(QtDialogsTest, NeitherEscNorTheCornerAnswersAQuestion) {
  bool stillThere = false;
  whenShown({key(Qt::Key_Escape), corner(), [&](QWidget& box) {
               stillThere = box.isVisible();
               qobject_cast<QMessageBox*>(&box)->button(QMessageBox::No)->click();
             }});
  EXPECT_FALSE(dialogs.ask("保存三轴数据", "保存修改后数据吗？", MessageIcon::None));
  EXPECT_TRUE(stillThere);
}

TEST_F(QtDialogsTest, EscIsTheOKOfAMessage) {
  bool shown = false;
  whenShown({[&](QWidget& box) {
    const auto& message = *qobject_cast<QMessageBox*>(&box);
    shown = true;
    EXPECT_EQ(message.windowTitle(), "保存数据");
    EXPECT_EQ(message.text(), "三轴试验数据保存完毕");
    EXPECT_EQ(message.icon(), QMessageBox::Information);
    press(box, Qt::Key_Escape);
  }});
  dialogs.message("保存数据", "三轴试验数据保存完毕", MessageIcon::Information);
  EXPECT_TRUE(shown);
}

TEST_F(QtDialogsTest, AMessageHasAMarkOnlyWhereItIsGiven) {
  whenShown({[&](QWidget& box) {
    EXPECT_EQ(qobject_cast<QMessageBox*>(&box)->icon(), QMessageBox::NoIcon);
    press(box, Qt::Key_Return);
  }});
  dialogs.message("t", "text", MessageIcon::None);
}

TEST_F(QtDialogsTest, AnInputBoxGivesWhatWasTypedAndNothingWhenCancelled) {
  whenShown({[&](QWidget& box) {
    auto& input = *qobject_cast<QInputDialog*>(&box);
    EXPECT_EQ(input.textValue(), "1.00");
    input.setTextValue("2.50");
    input.accept();
  }});
  EXPECT_EQ(dialogs.input("设置三轴C值调整步长", "请输入三轴C值调整步长", "1.00"), "2.50");
  whenShown({key(Qt::Key_Escape)});
  EXPECT_EQ(dialogs.input("设置三轴C值调整步长", "请输入三轴C值调整步长", "1.00"), std::nullopt);
}

TEST_F(QtDialogsTest, AFileDialogShowsTheFiltersWordsAndTheFilesOfItsMask) {
  const testing::TemporaryFolder folder;
  folder.write("hszsj.ku", "");
  whenShown({[&](QWidget& box) {
    auto& question = *qobject_cast<QFileDialog*>(&box);
    EXPECT_EQ(question.windowTitle(), "全自动三轴试验原始数据库");
    const auto& filters = *question.findChild<QComboBox*>("fileTypeCombo");
    EXPECT_EQ(filters.itemText(0).toStdString(), "Log Files (HSZSJ.KU)");
    EXPECT_EQ(filters.itemText(1).toStdString(), "All  Files (*.*)");
    question.findChild<QLineEdit*>("fileNameEdit")->setText("hszsj.ku");
    static_cast<QDialog&>(question).accept();
  }});
  const auto file = dialogs.chooseFile({.title = "全自动三轴试验原始数据库",
                                        .filter = "Log Files (HSZSJ.KU)|HSZSJ.KU|All  Files (*.*)|*.*",
                                        .initial = folder.path() / "HSZSJ.KU"});
  EXPECT_EQ(file, folder.path() / "hszsj.ku");
}

TEST_F(QtDialogsTest, ACancelledFileDialogGivesNothing) {
  whenShown({key(Qt::Key_Escape)});
  EXPECT_EQ(dialogs.chooseFileToSave({.title = "打印到PDF文件", .filter = "", .initial = {}}), std::nullopt);
}

}  // namespace
}  // namespace triaxlab

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  triaxlab::prepareApplication();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
