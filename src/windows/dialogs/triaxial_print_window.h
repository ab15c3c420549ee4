#pragma once

#include <array>

#include "sessions/dialogs/three_in_one_print_session.h"
#include "windows/dialogs/session_dialog.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace triaxlab {

/// The print dialog of the triaxial result pages.
class SETPRINTFORM : public SessionDialog {
  Q_OBJECT

 public:
  /// Session and devices outlive the window.
  SETPRINTFORM(QWidget* parent, ThreeInOnePrintSession& session, PageDevices& devices);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeChecks();
  void makeScopes();
  void makeBoxes();
  void makeButtons();
  void print();
  void preview();
  void showState() override;

  ThreeInOnePrintSession& m_session;
  PageDevices& m_devices;
  std::array<QCheckBox*, kPrintTicks> m_checks{};
  std::array<QRadioButton*, 4> m_scopes{};
  std::array<QLineEdit*, kPrintBoxes> m_boxes{};
  QLabel* m_sending;
  QPushButton *m_accept = nullptr, *m_preview = nullptr;
};

}  // namespace triaxlab
