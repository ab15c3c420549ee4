#include "windows/guarded_application.h"

#include <fmt/core.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "shell/fault_log.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// The handlers of toolkit and language are plain functions, so what they know can't be handed to them.
FaultLog* lastWords = nullptr;
QtMessageHandler usualHandler = nullptr;

void noteMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  lastWords->noteMessage(utf8(text));
  // The process ends when the usual handler returns.
  if (type == QtFatalMsg) lastWords->write(utf8(text));
  usualHandler(type, context, text);
}

[[noreturn]] void tellTheEnd() {
  const std::string thrown = std::current_exception() ? thrownText() : "std::terminate";
  lastWords->write(thrown);
  fmt::print(stderr, "triaxlab: {}\n", thrown);
  std::abort();
}

}  // namespace

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    if (!onException) throw;
    onException();
    return false;
  }
}

void noteLastWords(FaultLog& log) {
  const bool isInstalled = lastWords != nullptr;
  lastWords = &log;
  if (isInstalled) return;
  usualHandler = qInstallMessageHandler(noteMessage);
  std::set_terminate(tellTheEnd);
}

}  // namespace triaxlab
