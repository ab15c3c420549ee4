#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace triaxlab {

/// What a person has made of the sizes of the windows, kept from one run to the next in a file of this program's own in
/// the application folder. It is a convenience and never worth a word: what can't be read or understood counts as not
/// chosen, and where nothing can be written nothing is kept.
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

  std::filesystem::path m_file;
  std::optional<MainWindow> m_mainWindow;
  std::map<std::string, double, std::less<>> m_scales;
  bool m_isChanged = false, m_isOutOfReach = false;
};

}  // namespace triaxlab
