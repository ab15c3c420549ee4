#pragma once

#include <QDialog>

#include "windows/session_loop.h"

namespace triaxlab {

/// What all dialogs over a session do alike: the loop of every window, and an end when the session says so.
class SessionDialog : public QDialog, protected SessionLoop {
  Q_OBJECT

 public:
  using QDialog::QDialog;

 protected:
  /// As `act`; when the operation returns true the dialog has done its work and closes.
  void actToEnd(const std::function<bool()>& operation);
};

}  // namespace triaxlab
