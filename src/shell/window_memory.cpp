#include "shell/window_memory.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace triaxlab {
namespace {

using Json = nlohmann::json;

constexpr const char* kFileName = "triaxlab-windows.json";
constexpr int kLargestWindow = 100000;  // pixels

constexpr const char *kMainWindow = "mainWindow", *kWidth = "width", *kHeight = "height", *kMaximized = "maximized";
constexpr const char* kScales = "scales";

bool isSize(std::int64_t pixels) { return pixels > 0 && pixels <= kLargestWindow; }

std::optional<WindowMemory::MainWindow> mainWindowOf(const Json& kept) {
  if (!kept.is_object()) return std::nullopt;
  const auto number = [&kept](const char* name) {
    const auto found = kept.find(name);
    return found != kept.end() && found->is_number_integer() ? found->get<std::int64_t>() : 0;
  };
  const std::int64_t width = number(kWidth), height = number(kHeight);
  if (!isSize(width) || !isSize(height)) return std::nullopt;
  return WindowMemory::MainWindow{static_cast<int>(width), static_cast<int>(height),
                                  kept.contains(kMaximized) && kept[kMaximized] == true};
}

}  // namespace

WindowMemory::WindowMemory(const std::filesystem::path& applicationFolder) : m_file(applicationFolder, kFileName) {
  read();
}

void WindowMemory::read() {
  const Json kept = m_file.read();
  // Each value by itself: one that makes no sense doesn't take the others with it.
  m_mainWindow = mainWindowOf(kept.value(kMainWindow, Json()));
  const Json scales = kept.value(kScales, Json());
  if (!scales.is_object()) return;
  for (const auto& [window, scale] : scales.items())
    if (scale.is_number() && scale.get<double>() > 0) m_scales[window] = scale.get<double>();
}

void WindowMemory::setMainWindow(MainWindow chosen) {
  m_isChanged = m_isChanged || m_mainWindow != chosen;
  m_mainWindow = chosen;
}

std::optional<double> WindowMemory::scaleOf(std::string_view window) const {
  const auto found = m_scales.find(window);
  if (found == m_scales.end()) return std::nullopt;
  return found->second;
}

void WindowMemory::setScale(std::string_view window, std::optional<double> chosen) {
  if (scaleOf(window) == chosen) return;
  m_isChanged = true;
  if (chosen)
    m_scales.insert_or_assign(std::string(window), *chosen);
  else
    m_scales.erase(m_scales.find(window));
}

void WindowMemory::write() {
  if (!m_isChanged) return;
  m_isChanged = false;
  Json kept = Json::object();
  if (m_mainWindow)
    kept[kMainWindow] = {
        {kWidth, m_mainWindow->width}, {kHeight, m_mainWindow->height}, {kMaximized, m_mainWindow->maximized}};
  kept[kScales] = m_scales;
  m_file.write(kept);
}

}  // namespace triaxlab
