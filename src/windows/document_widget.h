#pragma once

#include "shell/shell_session.h"
#include "windows/controls/key_help.h"
#include "windows/controls/scaled_window.h"
#include "windows/session_loop.h"

namespace triaxlab {

/// What all document windows do alike: what goes wrong is told by the shell, and closing asks it.
class DocumentWidget : public ScaledWindow, public KeyedWindow, protected SessionLoop {
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
  void run(const std::function<void()>& operation) override { m_shell.run(operation); }
  void stateShown() override { emit refreshed(); }

  void closeEvent(QCloseEvent* event) override;

 private:
  ShellSession& m_shell;
  ActiveDocument m_document;
};

}  // namespace triaxlab
