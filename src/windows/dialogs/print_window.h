#pragma once

#include <vector>

#include "sessions/dialogs/print_dialog_session.h"
#include "windows/dialogs/print_window_layouts.h"
#include "windows/dialogs/session_dialog.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace triaxlab {

/// The window of every print dialog: what it has the form says, and where its layout.
class PrintWindow : public SessionDialog {
  Q_OBJECT

 public:
  /// Session and devices outlive the window.
  PrintWindow(QWidget* parent, PrintDialogSession& session, PageDevices& devices);

  /// Esc and the window's corner stop a job that is being sent, and else close the dialog.
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeTicks();
  void makeScopes();
  void makeBoxes();
  void makeCopiesBar(Place place);
  void makeSheet(const SheetControls& places);
  void makePrinter();
  void makeTexts();
  void makeButtons();
  QLineEdit* boxOf(PrintBox box) const;

  void print();
  void preview();
  /// Shows how far the job has come and lets a key stop it.
  bool goesOn(int sent, int sheets);
  void showState() override;
  void showSheet(const PrintDialogState& now);

  PrintDialogSession& m_session;
  PageDevices& m_devices;
  const PrintWindowLayout& m_layout;
  std::vector<QCheckBox*> m_ticks;
  std::vector<QRadioButton*> m_scopes;
  std::vector<QLineEdit*> m_boxes;
  QScrollBar* m_copies = nullptr;
  QComboBox *m_paper = nullptr, *m_printer = nullptr;
  QRadioButton *m_portrait = nullptr, *m_landscape = nullptr;
  QLabel* m_sending = nullptr;
  QProgressBar* m_progress = nullptr;
  QPushButton* m_preview = nullptr;
  bool m_isSending = false, m_isStopped = false;
};

}  // namespace triaxlab
