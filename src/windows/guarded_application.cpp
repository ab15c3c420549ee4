#include "windows/guarded_application.h"

#include <QMetaObject>
#include <algorithm>
#include <array>
#include <exception>

#include "platform/last_words.h"
#include "shell/fault_log.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// The handler of the toolkit is a plain function, so what it knows can't be handed to it.
FaultLog* log = nullptr;
QtMessageHandler usualHandler = nullptr;

void noteMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  log->noteMessage(utf8(text));
  // The process ends when the usual handler returns.
  if (type == QtFatalMsg && log->write(utf8(text))) withholdLastWords();
  usualHandler(type, context, text);
}

bool isDeed(QEvent::Type type) {
  static constexpr std::array kDeeds{
      QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick, QEvent::Wheel,
      QEvent::KeyPress,         QEvent::Shortcut,           QEvent::ContextMenu,         QEvent::Close};
  return std::ranges::find(kDeeds, type) != kDeeds.end();
}

}  // namespace

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  const QEvent::Type type = event->type();
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    if (!onException) throw;
    // No box can be shown while a window is being painted.
    if (type == QEvent::Paint)
      throwAgainLater();
    else
      onException(isDeed(type) ? Occasion::Deed : Occasion::Itself);
    return false;
  }
}

void GuardedApplication::throwAgainLater() {
  QMetaObject::invokeMethod(
      this, [thrown = std::current_exception()] { std::rethrow_exception(thrown); }, Qt::QueuedConnection);
}

void noteToolkitMessages(FaultLog& faults) {
  const bool isInstalled = log != nullptr;
  log = &faults;
  if (!isInstalled) usualHandler = qInstallMessageHandler(noteMessage);
}

}  // namespace triaxlab
