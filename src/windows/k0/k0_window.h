#pragma once

#include "windows/k0/ko_window.h"

namespace triaxlab {

/// The window of K0 samples.
class Form6 : public KoWindow {
  Q_OBJECT

 public:
  /// Both outlive the window.
  Form6(Workspace& workspace, ShellSession& shell);
};

}  // namespace triaxlab
