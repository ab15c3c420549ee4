#pragma once

#include <array>

#include "sessions/unconfined/stress_session.h"
#include "windows/listed_window.h"

class QPushButton;

namespace triaxlab {

/// The window of unconfined samples: stress-strain chart with the constants of the specimens, list and readings.
class Form4 : public ListedWindow {
  Q_OBJECT

 public:
  /// Both outlive the window.
  Form4(Workspace& workspace, ShellSession& shell);
  ~Form4() override;

 protected:
  void showUpperHalf(const ListedState& now) override;

 private:
  Form4(std::unique_ptr<StressSession> session, ShellSession& shell);
  void makeConstants();
  void makeStrainLimits();
  void makeButtons();
  bool keyInConstant(int constant, const QKeyEvent& event);

  StressSession& m_session;
  std::array<RecordEdit*, kConstants> m_text3{};
  BothSpecimens<RecordEdit*> m_text8{};
};

}  // namespace triaxlab
