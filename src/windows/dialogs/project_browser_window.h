#pragma once

#include "sessions/dialogs/browser_session.h"
#include "windows/dialogs/session_dialog.h"

namespace triaxlab {

class ClickLabel;
class GridView;

/// The list of project files of one kind, to be sorted; a double click, Enter or 打开文件 opens the chosen one.
class OPENFORM : public SessionDialog {
  Q_OBJECT

 public:
  OPENFORM(QWidget* parent, BrowserSession& session);

 private:
  void makeLabels();
  void makeFilter();
  void openProject();
  void sort(void (BrowserSession::*order)());
  void showState() override;

  BrowserSession& m_session;
  GridView* m_grid;
  ClickLabel* m_sorting = nullptr;
};

}  // namespace triaxlab
