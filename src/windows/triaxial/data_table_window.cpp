#include "windows/triaxial/data_table_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QScrollBar>

#include "windows/controls/layout.h"

namespace triaxlab {
namespace {

// Twips.
constexpr Place kWindow{0, 0, 13000, 8300};
constexpr Place kStageList{10000, 150, 2300, 300};

}  // namespace

Form2::Form2(Workspace& workspace, ShellSession& shell, std::size_t sampleRow)
    : m_shell(shell),
      m_session(workspace, sampleRow),
      m_controls(this, {.canvasWidth = kDataTableWidth, .stages = kStageList}, [this](DrawingSurface& surface) {
        if (m_shown.table) drawDataTable(surface, *m_shown.table);
      }) {
  setObjectName("Form2");
  setWindowTitle(kDataTableCaption);
  setMinimumSize(rectangle(kWindow).size());
  connect(m_controls.combo1, &QComboBox::activated, this, [this](int entry) {
    m_session.chooseStage(entry);
    showState();
  });
  connect(m_controls.vScroll1, &QScrollBar::valueChanged, this, [this](int top) {
    m_session.scroll(top);
    showState();
  });
  setFocusProxy(m_controls.picture1);
  showState();
}

void Form2::load(std::size_t sampleRow) {
  m_session.load(sampleRow);
  showState();
}

void Form2::refresh(FailureMode mode) {
  m_session.followRecord(mode);
  showState();
}

void Form2::showState() {
  DataTableState now = m_session.state();
  m_controls.show(now.stage);
  if (now == m_shown) return;
  m_shown = std::move(now);
  m_controls.picture1->redraw();
}

void Form2::closeEvent(QCloseEvent* event) {
  if (!m_shell.mayClose(kForm2)) return event->ignore();
  event->accept();
  emit closed();
}

void Form2::keyPressEvent(QKeyEvent* event) {
  if (!m_controls.takesKey(*event)) QWidget::keyPressEvent(event);
}

}  // namespace triaxlab
