#include "windows/document_widget.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

namespace triaxlab {

void DocumentWidget::refresh() {
  // A box that is hidden while it has the focus loses it, which changes the state on the way.
  m_refreshAgain = true;
  if (m_isRefreshing) return;
  {
    const QScopedValueRollback refreshing(m_isRefreshing, true);
    while (std::exchange(m_refreshAgain, false)) showState();
  }
  emit refreshed();
}

void DocumentWidget::closeEvent(QCloseEvent* event) {
  if (!m_shell.mayClose(m_document)) return event->ignore();
  event->accept();
  emit closed();
}

}  // namespace triaxlab
