#include "windows/file_drop.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace triaxlab {
namespace {

FileDrop::Paths pathsIn(const QMimeData& dragged) {
  FileDrop::Paths paths;
  for (const QUrl& url : dragged.urls())
    if (url.isLocalFile()) paths.push_back(QFileInfo(QDir::cleanPath(url.toLocalFile())).filesystemFilePath());
  return paths;
}

}  // namespace

FileDrop::FileDrop(QWidget* window, std::function<void(const Paths& paths)> take)
    : QObject(window), m_window(window), m_take(std::move(take)) {
  window->setAcceptDrops(true);
  QCoreApplication::instance()->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
  const bool isDrop = event->type() == QEvent::Drop;
  if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) return false;
  const auto* const widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != m_window || QApplication::activeModalWidget() != nullptr) return false;
  auto& drop = static_cast<QDropEvent&>(*event);
  const Paths paths = pathsIn(*drop.mimeData());
  if (paths.empty()) return false;
  // A move would let the other program delete what it has given away.
  drop.setDropAction(Qt::CopyAction);
  drop.accept();
  if (isDrop)
    QMetaObject::invokeMethod(
        this, [this, paths] { m_take(paths); }, Qt::QueuedConnection);
  return true;
}

}  // namespace triaxlab
