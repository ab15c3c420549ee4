#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "shell/kept_file.h"

namespace triaxlab {

/// What a person has made of the sizes of the windows, kept from one run to the next.
class WindowMemory {
 public:
  struct MainWindow {
    int width = 0, height = 0;  // logical pixels, its frame counted
    bool maximized = false;
    bool operator==(const MainWindow&) const = default;
  };

  explicit WindowMemory(const std::filesystem::path& applicationFolder);

  std::optional<MainWindow> mainWindow() const { return m_mainWindow; }
  void setMainWindow(MainWindow chosen);
  /// The scale that a document window was given; nothing when it goes along with the room that it has.
  std::optional<double> scaleOf(std::string_view window) const;
  void setScale(std::string_view window, std::optional<double> chosen);
  /// Puts what has changed on the disk.
  void write();

 private:
  void read();

  KeptFile m_file;
  std::optional<MainWindow> m_mainWindow;
  std::map<std::string, double, std::less<>> m_scales;
  bool m_isChanged = false;
};

}  // namespace triaxlab
