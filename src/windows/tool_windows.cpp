#include "windows/tool_windows.h"

#include <string>
#include <utility>

namespace triaxlab {
namespace {

constexpr int kPause = 250;  // milliseconds between looks
constexpr int kLooks = 40;   // ten seconds in all

}  // namespace

ToolWindows::ToolWindows() {
  m_timer.setInterval(kPause);
  QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

void ToolWindows::raise(std::string_view title) {
  wish([title = std::string(title)] { return raiseWindow(title); });
}

void ToolWindows::minimize(int process) {
  wish([process] { return minimizeWindowsOf(process); });
}

void ToolWindows::wish(std::function<WindowWish()> wish) {
  m_wish = std::move(wish);
  m_looksLeft = kLooks;
  m_timer.start();
  look();
}

void ToolWindows::look() {
  if (m_wish() != WindowWish::NoSuchWindow || --m_looksLeft == 0) m_timer.stop();
}

}  // namespace triaxlab
