#pragma once

#include "sessions/dialogs/habits_session.h"
#include "windows/controls/key_help.h"
#include "windows/dialogs/session_dialog.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace triaxlab {

class GridView;

/// 实验室习惯: the keys of a text settings file in a list, the chosen one beside it with what it does, its value and
/// how a page looks with it; the data folder below.
class HabitsWindow : public SessionDialog, public KeyedWindow {
  Q_OBJECT

 public:
  HabitsWindow(QWidget* parent, HabitsSession& session);

  std::vector<KeyGroup> keyHelp() const override;

  /// Esc and the corner.
  void reject() override;

 private:
  void makeList();
  void makeKey();
  void makeDataFolder();
  void makeButtons();
  QLabel* textBox(const char* name);
  void chooseFile(int file);
  void showState() override;
  void showKey();

  HabitsSession& m_session;
  QComboBox* m_files;
  QLabel* m_fileNote;
  GridView* m_keys;
  QLabel *m_key, *m_meaning;
  QCheckBox* m_on;
  QLineEdit* m_value;
  QPushButton* m_default;
  QLabel *m_sample, *m_dataFolder, *m_saved;
  QPushButton* m_save = nullptr;
};

}  // namespace triaxlab
