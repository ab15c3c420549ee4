#pragma once

#include <QMenuBar>
#include <map>
#include <string_view>

#include "shell/shell_session.h"

class QAction;
class QMenu;

namespace triaxlab {

/// The menu of the main window, made of the command table; each entry carries the command's name.
class CommandMenuBar : public QMenuBar {
  Q_OBJECT

 public:
  CommandMenuBar(QWidget* parent, ShellSession& shell);

  /// Takes over which commands are on, checked and shown, and their captions.
  void refresh();
  /// The submenu of that name. Pre: there is one.
  QMenu* menu(std::string_view name) const { return m_menus.at(name); }

 signals:
  /// The pointer or the arrow keys stand on an entry of which this is the help; empty when the menu closes.
  void entryShown(const QString& help);

 private:
  QAction* addCommand(const Command& command);
  void addHelp(QMenu* menu);
  void trigger(std::string_view name);

  ShellSession& m_shell;
  std::map<std::string_view, QMenu*> m_menus;
  std::map<std::string_view, QAction*> m_actions;
};

}  // namespace triaxlab
