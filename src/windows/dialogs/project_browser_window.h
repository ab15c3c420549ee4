#pragma once

#include <QDialog>

#include "sessions/dialogs/browser_session.h"

namespace triaxlab {

class ClickLabel;
class GridView;

/// The list of project files of one kind, to be sorted; a double click, Enter or 打开文件 opens the chosen one.
class OPENFORM : public QDialog {
  Q_OBJECT

 public:
  OPENFORM(QWidget* parent, BrowserSession& session);

 private:
  void makeLabels();
  void open();
  void showRows();
  void sort(void (BrowserSession::*order)());

  BrowserSession& m_session;
  GridView* m_grid;
  ClickLabel* m_sorting = nullptr;
};

}  // namespace triaxlab
