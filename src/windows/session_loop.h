#pragma once

#include <functional>

namespace triaxlab {

/// What all windows over a session do alike: the session does what a person asks, then its state is shown.
class SessionLoop {
 public:
  SessionLoop() = default;
  SessionLoop(const SessionLoop&) = delete;
  SessionLoop& operator=(const SessionLoop&) = delete;
  virtual ~SessionLoop() = default;

 protected:
  /// Does what the person asked, then shows the session's state.
  void act(const std::function<void()>& operation);
  void refresh();

  /// The one place where the session's state becomes widgets.
  virtual void showState() = 0;
  virtual void stateShown() {}
  /// Runs an operation, with the ending of errors that the window has.
  virtual void run(const std::function<void()>& operation) { operation(); }

 private:
  bool m_isRefreshing = false, m_refreshAgain = false;
};

}  // namespace triaxlab
