#pragma once

#include "sessions/k0/tk0_session.h"
#include "windows/k0/ko_window.h"

class QScrollBar;

namespace triaxlab {

/// The window of TK0 samples: beside the Ko chart a load stage with the construction of its T90.
class Form9 : public KoWindow {
  Q_OBJECT

 public:
  /// Both outlive the window.
  Form9(Workspace& workspace, ShellSession& shell);

  // DocumentWindow
  std::size_t stageOnDisplay() const override { return static_cast<std::size_t>(m_session.stage()); }

  std::vector<KeyGroup> keyHelp() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showUpperHalf(const ListedState& now) override;

 private:
  void makeStage();
  /// F4 and F5: each begins and leaves the 干预 of its line, and does nothing in that of the other.
  void turn(LineMode mode);
  void enter(LineMode mode);

  TK0Session& m_session;
  QScrollBar* m_stageBar = nullptr;
  ClickLabel* m_stageCaption = nullptr;
};

}  // namespace triaxlab
