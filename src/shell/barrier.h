#pragma once

#include <cstdint>
#include <string>

#include "platform/dialogs.h"
#include "shell/fault_log.h"
#include "shell/shell_session.h"

namespace triaxlab {

/// In what something went wrong.
enum class Occasion : std::uint8_t {
  Deed,    // of a person, who waits for what comes of it
  Itself,  // a window is drawn, the mouse goes over it: what fails there fails again and again
};

/// Where everything ends that nobody expected: the operation is given up, the person is told, the tables stay as they
/// are, and the program goes on with an offer to save them. A UserError that has come so far is shown like any other.
class Barrier {
 public:
  /// All outlive the barrier.
  Barrier(Dialogs& dialogs, ShellSession& shell, FaultLog& log) : m_dialogs(dialogs), m_shell(shell), m_log(log) {}

  /// To be called where an exception is being handled. Throws nothing.
  void caught(Occasion occasion) noexcept;

 private:
  void meet(const std::string& thrown, Occasion occasion, bool tellsAlready);
  void tell(const std::string& thrown, bool isWritten);
  void save();

  Dialogs& m_dialogs;
  ShellSession& m_shell;
  FaultLog& m_log;
  bool m_telling = false;
  std::string m_met;  // last, and behind which command
};

}  // namespace triaxlab
