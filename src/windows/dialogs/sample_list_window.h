#pragma once

#include <array>
#include <vector>

#include "sessions/dialogs/sample_list_session.h"
#include "windows/controls/key_help.h"
#include "windows/dialogs/session_dialog.h"

class QScrollBar;

namespace triaxlab {

class ClickLabel;

/// Form14 and Form13: the samples of a project file, to be put in order or removed. A click on a line marks its row for
/// deletion; Esc and the corner are 返 回.
class SampleListWindow : public SessionDialog, public KeyedWindow, private SampleListView {
  Q_OBJECT

 public:
  SampleListWindow(QWidget* parent, SampleListSession& session);

  std::vector<KeyGroup> keyHelp() const override;

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // SampleListView
  void askForRange(ListRangeDialog& dialog) override;
  void showRowMoves(RowMoves& moves) override;
  void refresh() override { SessionLoop::refresh(); }

  void showState() override;

  void makeColumn(std::size_t column, int x);
  void makeButtons(int x);

  SampleListSession& m_session;
  QScrollBar* m_scroll = nullptr;
  std::array<std::vector<ClickLabel*>, SampleListSession::kVisibleRows> m_lines;  // a cell for each column
};

}  // namespace triaxlab
