#include "windows/dialogs/fill_in_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <functional>
#include <optional>

#include "windows/controls/cell_keys.h"
#include "windows/controls/copied_table.h"
#include "windows/controls/edit_grid.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"
#include "windows/dialogs/session_grid.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 14400, 8400};
constexpr Place kHeading{200, 160, 14000, 300}, kSamples{200, 540, 14000, 6700}, kRemark{200, 7320, 14000, 300};
constexpr int kButtonY = 7740, kButtonWidth = 1500, kButtonHeight = 450;

GridContent typedContentOf(const FillInSession& session, const std::function<void(int, int, const QString&)>& type) {
  GridContent content = contentOf(session);
  content.isTyped = [&session](int column) { return session.isTyped(column); };
  content.type = type;
  return content;
}

}  // namespace

struct FillInWindow::Keys {
  static constexpr std::array kRows{
      KeyRow{int(Qt::CTRL) | int(Qt::Key_D), &FillInWindow::copyDown, "上一行（选中几行时是第一行）的文字向下复制"},
      KeyRow{int(Qt::CTRL) | int(Qt::Key_C), &FillInWindow::copy, "复制选中的格"},
      KeyRow{int(Qt::CTRL) | int(Qt::Key_V), &FillInWindow::paste, "从电子表格粘贴"},
      KeyRow{int(Qt::Key_Delete), &FillInWindow::clear, "清空选中的格"},
      KeyRow{int(Qt::CTRL) | int(Qt::Key_Z), &FillInWindow::undo, "撤销一步"},
      KeyRow{int(Qt::CTRL) | int(Qt::Key_Y), &FillInWindow::redo, "重做一步"},
  };
};

FillInWindow::FillInWindow(QWidget* parent, FillInSession& session)
    : SessionDialog(parent),
      m_session(session),
      m_samples(put(new EditGrid(this,
                                 typedContentOf(session,
                                                [this](int row, int column, const QString& text) {
                                                  act([&] { m_session.type(row, column, utf8(text)); });
                                                }),
                                 [&session](int row, int column) { return session.width(row, column); }),
                    "Samples", kSamples)),
      m_remark(put(new QLabel(this), "Remark", kRemark)) {
  setObjectName("FILLFORM");
  setWindowTitle(words(FillInSession::kCaption));
  setFixedSize(rectangle(kWindow).size());
  put(new QLabel(words(session.heading()), this), "Heading", kHeading);
  m_samples->horizontalHeader()->setStretchLastSection(true);
  button("CopyDown", FillInSession::kCopyDown, 200, &FillInWindow::copyDown);
  button("Paste", FillInSession::kPaste, 1850, &FillInWindow::paste);
  m_undo = button("Undo", FillInSession::kUndo, 3500, &FillInWindow::undo);
  m_redo = button("Redo", FillInSession::kRedo, 5150, &FillInWindow::redo);
  button("Return", FillInSession::kReturn, 12700, &FillInWindow::leave);
  m_samples->onKey = [this](const QKeyEvent& event) {
    const std::optional<Work> work = exactKeyOf(event, Keys::kRows);
    if (work) (this->**work)();
    return work.has_value();
  };
  refresh();
  m_samples->setCurrentCell(m_session.firstRow(), FillInSession::firstColumn());
  m_samples->setFocus();
}

QPushButton* FillInWindow::button(const char* name, std::string_view caption, int x, Work work) {
  auto* const made = put(new QPushButton(words(caption), this), name, {x, kButtonY, kButtonWidth, kButtonHeight});
  made->setAutoDefault(false);
  // A click leaves the focus to the grid, where the keys go on.
  made->setFocusPolicy(Qt::TabFocus);
  connect(made, &QPushButton::clicked, this, [this, work] {
    m_samples->finishTyping();
    (this->*work)();
  });
  return made;
}

void FillInWindow::copyDown() {
  act([this] { m_session.copyDown(m_samples->block()); });
}

void FillInWindow::copy() { copyTable(m_session.text(m_samples->block())); }

void FillInWindow::paste() {
  act([this] { m_session.paste(m_samples->block(), utf8(QGuiApplication::clipboard()->text())); });
}

void FillInWindow::clear() {
  act([this] { m_session.clear(m_samples->block()); });
}

void FillInWindow::undo() {
  act([this] { m_session.undo(); });
}

void FillInWindow::redo() {
  act([this] { m_session.redo(); });
}

void FillInWindow::leave() { accept(); }

void FillInWindow::done(int result) {
  m_samples->finishTyping();
  SessionDialog::done(result);
}

std::vector<KeyGroup> FillInWindow::keyHelp() const { return {EditGrid::keyHelp(), keyGroup("选中的格", Keys::kRows)}; }

void FillInWindow::showState() {
  m_samples->textsChanged();
  m_remark->setText(words(m_session.remark()));
  m_undo->setEnabled(m_session.canUndo());
  m_redo->setEnabled(m_session.canRedo());
}

}  // namespace triaxlab
