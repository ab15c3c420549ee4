#include "windows/first_place.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace triaxlab {
namespace {

constexpr int kPatience = 1000;  // milliseconds in which a desktop has laid its frame around a new window

/// The platform without a display has a screen and frames of no meaning.
bool hasDisplay() { return QGuiApplication::platformName() != "offscreen"; }

}  // namespace

QSize outerSize(const QWidget& window) { return hasDisplay() ? window.frameGeometry().size() : window.size(); }

QRect firstPlace(const QRect& available, QSize wanted, const QMargins& frame) {
  const QSize outer = wanted.boundedTo(available.size());
  const QPoint corner(available.x() + (available.width() - outer.width()) / 2,
                      available.y() + (available.height() - outer.height()) / 2);
  return QRect(corner, outer).marginsRemoved(frame);
}

FirstPlace::FirstPlace(QWidget* window, QSize wanted) : QObject(window), m_window(window), m_wanted(wanted) {
  if (hasDisplay()) {
    place();
    window->installEventFilter(this);
  } else {
    window->resize(wanted);
  }
}

bool FirstPlace::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
      // From now on the window exists for the desktop.
      if (watched == m_window) m_window->windowHandle()->installEventFilter(this);
      QTimer::singleShot(kPatience, this, &QObject::deleteLater);
      break;
    case QEvent::Expose:
    case QEvent::Move:
    case QEvent::Resize:
      if (m_window->isVisible() && m_window->windowHandle()->frameMargins() != m_frame) place();
      break;
    default:
      break;
  }
  return false;
}

void FirstPlace::place() {
  if (m_window->isVisible()) m_frame = m_window->windowHandle()->frameMargins();
  const QRect inner = firstPlace(m_window->screen()->availableGeometry(), m_wanted, m_frame);
  m_window->resize(inner.size());
  m_window->move(inner.marginsAdded(m_frame).topLeft());
}

}  // namespace triaxlab
