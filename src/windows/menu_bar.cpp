#include "windows/menu_bar.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

#include "shell/command_table.h"
#include "windows/controls/words.h"

namespace triaxlab {

CommandMenuBar::CommandMenuBar(QWidget* parent, ShellSession& shell) : QMenuBar(parent), m_shell(shell) {
  setNativeMenuBar(false);
  for (const Command& command : commandTable()) m_actions[command.name] = addCommand(command);
}

QAction* CommandMenuBar::addCommand(const Command& command) {
  QMenu* const parent = command.parent.empty() ? nullptr : m_menus.at(command.parent);
  if (command.lineAbove && parent != nullptr) parent->addSeparator();
  const QString caption = words(command.caption);
  QAction* action = nullptr;
  if (command.kind == CommandKind::Submenu) {
    QMenu* const menu = parent != nullptr ? parent->addMenu(caption) : addMenu(caption);
    m_menus[command.name] = menu;
    addHelp(menu);
    action = menu->menuAction();
    // A submenu that does something does it when it opens, too.
    if (command.action != Action::None)
      connect(menu, &QMenu::aboutToShow, this, [this, name = command.name] { trigger(name); });
  } else {
    action = parent->addAction(caption);
    action->setCheckable(command.kind == CommandKind::Toggle || command.kind == CommandKind::ExclusiveCheck);
    if (!command.shortcut.empty()) action->setShortcut(QKeySequence(words(command.shortcut)));
  }
  action->setObjectName(words(command.name));
  action->setMenuRole(QAction::NoRole);
  connect(action, &QAction::triggered, this, [this, name = command.name] { trigger(name); });
  return action;
}

void CommandMenuBar::addHelp(QMenu* menu) {
  connect(menu, &QMenu::hovered, this, [this](const QAction* entry) {
    const Command* const command = findCommand(utf8(entry->objectName()));
    emit entryShown(command != nullptr ? words(commandHelp(*command)) : entry->text());
  });
  connect(menu, &QMenu::aboutToHide, this, [this] { emit entryShown({}); });
}

void CommandMenuBar::trigger(std::string_view name) {
  m_shell.trigger(name);
  // The toolkit has flipped the check of the entry by itself.
  refresh();
}

void CommandMenuBar::refresh() {
  for (const Command& command : commandTable()) {
    const CommandState state = m_shell.commandState(command);
    QAction* const action = m_actions.at(command.name);
    action->setText(words(state.caption).replace('&', "&&"));
    action->setVisible(state.visible);
    action->setEnabled(state.enabled);
    if (action->isCheckable()) action->setChecked(state.checked);
  }
}

}  // namespace triaxlab
