#pragma once

#include <QWidget>
#include <utility>

#include "shell/shell_session.h"

namespace triaxlab {

/// What all document windows do alike: the session does what a person asks, then its state is shown; closing asks the
/// shell.
class DocumentWidget : public QWidget {
  Q_OBJECT

 public:
  /// The shell outlives the window.
  DocumentWidget(ShellSession& shell, ActiveDocument document) : m_shell(shell), m_document(document) {}

 signals:
  /// The state has been shown anew: menu and status bar follow.
  void refreshed();
  void closed();

 protected:
  ShellSession& shell() const { return m_shell; }
  /// Does what the person asked of the session, then shows its state. What goes wrong is told.
  template <class Operation>
  void act(Operation&& operation) {
    m_shell.run(std::forward<Operation>(operation));
    refresh();
  }
  void refresh();
  /// The one place where the session's state becomes widgets.
  virtual void showState() = 0;

  void closeEvent(QCloseEvent* event) override;

 private:
  ShellSession& m_shell;
  ActiveDocument m_document;
  bool m_isRefreshing = false, m_refreshAgain = false;
};

}  // namespace triaxlab
