#pragma once

#include "sessions/dialogs/source_folder_session.h"
#include "windows/controls/key_help.h"
#include "windows/dialogs/session_dialog.h"

class QComboBox;
class QLineEdit;

namespace triaxlab {

class GridView;

/// Asks for the folder of one kind of raw data: a text box, the disks and the folders of the machine.
class Form5 : public SessionDialog, public KeyedWindow {
  Q_OBJECT

 public:
  Form5(QWidget* parent, SourceFolderSession& session);

  std::vector<KeyGroup> keyHelp() const override;

 private:
  void makeLists();
  void makeButtons();
  void openFolder(const std::function<void()>& operation);
  void showRows();
  void showState() override;

  SourceFolderSession& m_session;
  QLineEdit* m_text;
  QComboBox* m_drives;
  GridView* m_folders;
};

}  // namespace triaxlab
