#pragma once

#include <QTimer>
#include <functional>
#include <string_view>

#include "platform/process.h"

namespace triaxlab {

/// Wishes about the window of a tool. A tool that has just been started needs a moment to open it, so it is looked for
/// a few times while the program goes on; a new wish ends the looking for the one before.
class ToolWindows {
 public:
  ToolWindows();

  /// Brings the window with this title to the front.
  void raise(std::string_view title);
  /// Puts the windows of a process away.
  void minimize(int process);

 private:
  void wish(std::function<WindowWish()> wish);
  void look();

  QTimer m_timer;
  std::function<WindowWish()> m_wish;
  int m_looksLeft = 0;
};

}  // namespace triaxlab
