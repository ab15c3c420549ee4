#pragma once

#include <QApplication>
#include <functional>

#include "shell/barrier.h"

namespace triaxlab {

class FaultLog;

/// The application object, which lets no exception out of an event: the toolkit would end the program.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  /// Called where an exception is being handled; without one the exception goes on.
  std::function<void(Occasion)> onException;

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void throwAgainLater();
};

/// What the toolkit has to say is noted, and said as before; the word with which it ends the process is a fault. The
/// log outlives the process's last words.
void noteToolkitMessages(FaultLog& faults);

}  // namespace triaxlab
