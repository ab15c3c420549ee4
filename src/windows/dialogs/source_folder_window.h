#pragma once

#include <QDialog>

#include "sessions/dialogs/source_folder_session.h"

class QComboBox;
class QLineEdit;

namespace triaxlab {

class GridView;

/// Asks for the folder of one kind of raw data: a text box, the disks and the folders of the machine.
class Form5 : public QDialog {
  Q_OBJECT

 public:
  Form5(QWidget* parent, SourceFolderSession& session);

 private:
  void makeLists();
  void makeButtons();
  void showRows();
  void refresh();

  SourceFolderSession& m_session;
  QLineEdit* m_text;
  QComboBox* m_drives;
  GridView* m_folders;
};

}  // namespace triaxlab
