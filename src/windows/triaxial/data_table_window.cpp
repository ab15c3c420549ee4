#include "windows/triaxial/data_table_window.h"

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
    : DocumentWidget(shell, kForm2),
      m_session(workspace, sampleRow),
      m_controls(this, {.canvasWidth = kDataTableWidth, .stages = kStageList}, [this](DrawingSurface& surface) {
        if (m_shown.table) drawDataTable(surface, *m_shown.table);
      }) {
  setObjectName("Form2");
  setWindowTitle(kDataTableCaption);
  setNaturalSize(kWindow);
  connect(m_controls.combo1, &QComboBox::activated, this,
          [this](int entry) { act([&] { m_session.chooseStage(entry); }); });
  connect(m_controls.vScroll1, &QScrollBar::valueChanged, this,
          [this](int top) { act([&] { m_session.scroll(top); }); });
  setFocusProxy(m_controls.picture1);
  refresh();
}

void Form2::load(std::size_t sampleRow) {
  act([&] { m_session.load(sampleRow); });
}

void Form2::followRecord(FailureMode mode) {
  act([&] { m_session.followRecord(mode); });
}

void Form2::showState() {
  DataTableState now = m_session.state();
  m_controls.show(now.stage);
  if (now == m_shown) return;
  m_shown = std::move(now);
  m_controls.picture1->redraw();
}

void Form2::keyPressEvent(QKeyEvent* event) {
  if (!m_controls.takesKey(*event)) DocumentWidget::keyPressEvent(event);
}

}  // namespace triaxlab
