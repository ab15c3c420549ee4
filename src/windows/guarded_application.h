#pragma once

#include <QApplication>
#include <functional>

namespace triaxlab {

class FaultLog;

/// The application object, which lets no exception out of an event: the toolkit would end the program.
class GuardedApplication : public QApplication {
 public:
  using QApplication::QApplication;

  /// Called where an exception is being handled; without one the exception goes on.
  std::function<void()> onException;

  bool notify(QObject* receiver, QEvent* event) override;
};

/// What the toolkit has to say is noted, and said as before. Where nothing but the end of the process is left, the
/// report and standard error tell of it. The log outlives the process's last words.
void noteLastWords(FaultLog& log);

}  // namespace triaxlab
