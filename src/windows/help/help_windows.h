#pragma once

#include <memory>

#include "store/workspace.h"
#include "windows/controls/key_help.h"

class QWidget;

namespace triaxlab {

class ManualWindow;

/// What the help menu opens, for the window that is in front when it is asked.
class HelpWindows {
 public:
  HelpWindows();
  ~HelpWindows();

  void showManual(QWidget* front);
  /// `common` are the keys that work in every window.
  void showKeys(QWidget* front, const std::vector<KeyGroup>& common);
  static void showAbout(QWidget* front, const Workspace& workspace);
  void close();

 private:
  ManualWindow& manualFor(QWidget* front);

  std::unique_ptr<ManualWindow> m_manual;  // beside the main window
};

}  // namespace triaxlab
