#pragma once

#include <array>

#include "sessions/dialogs/overwrite_session.h"
#include "windows/dialogs/session_dialog.h"

class QScrollBar;

namespace triaxlab {

class ClickLabel;

/// Which of the known samples a save of imported data may write over. A click on a line flips its answer.
class Form10 : public SessionDialog {
  Q_OBJECT

 public:
  Form10(QWidget* parent, OverwriteSession& session);

  /// 取消, Esc and the corner drop the save.
  void reject() override;

 protected:
  void wheelEvent(QWheelEvent* event) override;

 private:
  struct Line {
    ClickLabel *number = nullptr, *sampleNo = nullptr, *storedPressures = nullptr, *storedSoil = nullptr,
               *comingPressures = nullptr, *comingSoil = nullptr, *answer = nullptr;
  };

  void makeLines();
  void makeButtons();
  void showState() override;

  OverwriteSession& m_session;
  std::array<Line, OverwriteSession::kVisibleRows> m_lines;
  QScrollBar* m_scroll;
};

}  // namespace triaxlab
