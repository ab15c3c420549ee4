#pragma once

#include <string>

#include "platform/dialogs.h"
#include "shell/fault_log.h"
#include "shell/shell_session.h"

namespace triaxlab {

/// Where everything ends that nobody expected: the operation is given up, the person is told, the tables stay as they
/// are, and the program goes on with an offer to save them. A UserError that has come so far is shown like any other.
class Barrier {
 public:
  /// All outlive the barrier.
  Barrier(Dialogs& dialogs, ShellSession& shell, FaultLog& log) : m_dialogs(dialogs), m_shell(shell), m_log(log) {}

  /// To be called where an exception is being handled. Throws nothing.
  void caught() noexcept;

 private:
  void tell(const std::string& thrown, bool isWritten);

  Dialogs& m_dialogs;
  ShellSession& m_shell;
  FaultLog& m_log;
  bool m_telling = false;
  std::string m_told;  // last, and behind which command
};

}  // namespace triaxlab
