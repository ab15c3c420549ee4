#pragma once

#include <QDialog>
#include <array>

#include "platform/dialogs.h"
#include "reports/print_options.h"
#include "store/workspace.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace triaxlab {

/// The print dialog of the triaxial result pages.
class SETPRINTFORM : public QDialog {
  Q_OBJECT

 public:
  /// All but the parent outlive the window.
  SETPRINTFORM(QWidget* parent, PrintOptions& options, Workspace& workspace, Dialogs& dialogs);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeChecks();
  void makeScopes();
  void makeBoxes();
  void makeButtons();
  void print();
  void preview();
  void refresh();

  PrintOptions& m_options;
  Workspace& m_workspace;
  Dialogs& m_dialogs;
  std::array<QCheckBox*, kPrintChecks> m_checks{};
  std::array<QRadioButton*, 4> m_scopes{};
  std::array<QLineEdit*, 3> m_boxes{};
  QLabel* m_sending;
  QPushButton *m_accept = nullptr, *m_preview = nullptr;
};

}  // namespace triaxlab
