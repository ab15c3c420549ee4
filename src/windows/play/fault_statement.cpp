#include "windows/play/fault_statement.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <array>
#include <csignal>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "windows/play/find_widget.h"

namespace triaxlab {
namespace {

/// The next event of a kind that comes to a widget fails.
class FailingEvent : public QObject {
 public:
  FailingEvent(QWidget& widget, QEvent::Type type, std::function<void()> failure)
      : QObject(&widget), m_type(type), m_failure(std::move(failure)) {
    widget.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != m_type) return false;
    watched->removeEventFilter(this);
    deleteLater();
    m_failure();
    return true;
  }

 private:
  QEvent::Type m_type;
  std::function<void()> m_failure;
};

void failInEvent(QWidget& widget, std::function<void()> failure) {
  new FailingEvent(widget, QEvent::User, std::move(failure));
  QEvent event(QEvent::User);
  QCoreApplication::sendEvent(&widget, &event);
}

void throwIn(QWidget& widget, const std::string& name) {
  failInEvent(widget, [name] { throw std::logic_error("a fault in " + name); });
}

void exhaustMemoryIn(QWidget& widget, const std::string& /*name*/) {
  failInEvent(widget, [] { throw std::bad_alloc(); });
}

void throwAtPaint(QWidget& widget, const std::string& name) {
  auto* const area = qobject_cast<QAbstractScrollArea*>(&widget);
  QWidget& painted = area != nullptr ? *area->viewport() : widget;
  new FailingEvent(painted, QEvent::Paint, [name] { throw std::logic_error("a fault at painting " + name); });
  painted.repaint();
}

void crash(QWidget& /*widget*/, const std::string& /*name*/) { std::raise(SIGSEGV); }

struct Fault {
  std::string_view kind;
  void (*meet)(QWidget&, const std::string&);
};
constexpr std::array kFaults{Fault{"throw", throwIn}, Fault{"memory", exhaustMemoryIn}, Fault{"paint", throwAtPaint},
                             Fault{"crash", crash}};

}  // namespace

void fault(Arguments& arguments, Stage& /*stage*/) {
  const std::string kind = arguments.word("throw, memory, paint or crash");
  const auto* const found = std::ranges::find(kFaults, kind, &Fault::kind);
  if (found == kFaults.end()) throw ScriptError("no kind of fault: " + kind);
  const Target target = targetOf(arguments.word("WINDOW.CONTROL"));
  arguments.end();
  found->meet(*reachControl(target), target.spelled());
}

}  // namespace triaxlab
