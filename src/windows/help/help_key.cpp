#include "windows/help/help_key.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace triaxlab {

HelpKey::HelpKey(QObject* parent, std::function<void()> help) : QObject(parent), m_help(std::move(help)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  m_help();
  return true;
}

}  // namespace triaxlab
