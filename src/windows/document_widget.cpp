#include "windows/document_widget.h"

#include <QCloseEvent>

namespace triaxlab {

void DocumentWidget::closeEvent(QCloseEvent* event) {
  if (!m_shell.mayClose(m_document)) return event->ignore();
  event->accept();
  emit closed();
}

}  // namespace triaxlab
