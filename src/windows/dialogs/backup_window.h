#pragma once

#include "sessions/dialogs/backup_session.h"
#include "windows/controls/key_help.h"
#include "windows/dialogs/session_dialog.h"

class QPushButton;

namespace triaxlab {

class GridView;

/// 恢复备份: the copies of a project; a double click, Enter or 恢复 puts the chosen one in the project's place.
class BackupWindow : public SessionDialog, public KeyedWindow {
  Q_OBJECT

 public:
  BackupWindow(QWidget* parent, BackupSession& session);

  std::vector<KeyGroup> keyHelp() const override;

 private:
  void restore();
  void showState() override;

  BackupSession& m_session;
  GridView* m_copies;
};

}  // namespace triaxlab
