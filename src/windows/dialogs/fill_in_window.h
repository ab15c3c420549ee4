#pragma once

#include <string_view>
#include <vector>

#include "sessions/dialogs/fill_in_session.h"
#include "windows/controls/key_help.h"
#include "windows/dialogs/session_dialog.h"

class QLabel;
class QPushButton;

namespace triaxlab {

class EditGrid;

/// 填写土样资料: the texts of all samples in one grid.
class FillInWindow : public SessionDialog, public KeyedWindow {
  Q_OBJECT

 public:
  FillInWindow(QWidget* parent, FillInSession& session);

  /// What is being typed is kept, however the window is left.
  void done(int result) override;
  std::vector<KeyGroup> keyHelp() const override;

 private:
  using Work = void (FillInWindow::*)();
  struct Keys;
  QPushButton* button(const char* name, std::string_view caption, int x, Work work);
  void copyDown();
  void copy();
  void paste();
  void clear();
  void undo();
  void redo();
  void leave();
  void showState() override;

  FillInSession& m_session;
  EditGrid* m_samples;
  QLabel* m_remark;
  QPushButton *m_undo, *m_redo;
};

}  // namespace triaxlab
