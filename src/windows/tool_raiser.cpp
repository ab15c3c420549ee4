#include "windows/tool_raiser.h"

#include "platform/process.h"

namespace triaxlab {
namespace {

constexpr int kPause = 250;  // milliseconds between looks
constexpr int kLooks = 40;   // ten seconds in all

}  // namespace

ToolRaiser::ToolRaiser() {
  m_timer.setInterval(kPause);
  QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
}

void ToolRaiser::raise(std::string_view windowTitle) {
  m_title = windowTitle;
  m_looksLeft = kLooks;
  m_timer.start();
  look();
}

void ToolRaiser::look() {
  if (raiseWindow(m_title) != Raising::NoSuchWindow || --m_looksLeft == 0) m_timer.stop();
}

}  // namespace triaxlab
