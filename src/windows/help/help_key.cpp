#include "windows/help/help_key.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace triaxlab {

HelpKey::HelpKey(QObject* parent, std::function<void()> manual, std::function<void()> keys)
    : QObject(parent), m_manual(std::move(manual)), m_keys(std::move(keys)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || (key.modifiers() & ~Qt::ShiftModifier) != 0) return false;
  (key.modifiers() == Qt::NoModifier ? m_manual : m_keys)();
  return true;
}

}  // namespace triaxlab
