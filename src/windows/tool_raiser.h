#pragma once

#include <QTimer>
#include <string>
#include <string_view>

namespace triaxlab {

/// Brings the window of a sibling tool to the front. A tool that has just been started needs a moment to open it, so it
/// is looked for a few times while the program goes on.
class ToolRaiser {
 public:
  ToolRaiser();

  /// Looks for this window from now on, and no longer for the one before.
  void raise(std::string_view windowTitle);

 private:
  void look();

  QTimer m_timer;
  std::string m_title;
  int m_looksLeft = 0;
};

}  // namespace triaxlab
