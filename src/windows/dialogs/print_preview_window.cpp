#include "windows/dialogs/print_preview_window.h"

#include <QHBoxLayout>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/printer_device.h"

namespace triaxlab {
namespace {

constexpr QSize kFirstSize(860, 640);

}  // namespace

PrintPreview::PrintPreview(QWidget* parent, Pages pages)
    : QDialog(parent),
      m_pages(std::move(pages)),
      m_view(new QPrintPreviewWidget(&m_printer, this)),
      m_previous(new QPushButton("上一页", this)),
      m_next(new QPushButton("下一页", this)) {
  setObjectName("PrintPreview");
  setWindowTitle("打印预览");
  resize(kFirstSize);
  m_view->setObjectName("Picture1");
  m_previous->setObjectName("Command1");
  m_next->setObjectName("Command2");
  auto* const fitPage = new QPushButton("整页", this);
  auto* const fitWidth = new QPushButton("页宽", this);
  auto* const leave = new QPushButton("返 回", this);
  leave->setObjectName("Command3");
  auto* const buttons = new QHBoxLayout;
  for (QPushButton* const button : {m_previous, m_next, fitPage, fitWidth, leave}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->addLayout(buttons);
  layout->addWidget(m_view);

  connect(m_view, &QPrintPreviewWidget::paintRequested, this,
          [this](QPrinter* printer) { m_pages(*makePageDeviceOn(*printer)); });
  connect(m_view, &QPrintPreviewWidget::previewChanged, this, &PrintPreview::refresh);
  connect(m_previous, &QPushButton::clicked, this, [this] { turn(-1); });
  connect(m_next, &QPushButton::clicked, this, [this] { turn(1); });
  connect(fitPage, &QPushButton::clicked, m_view, &QPrintPreviewWidget::fitInView);
  connect(fitWidth, &QPushButton::clicked, m_view, &QPrintPreviewWidget::fitToWidth);
  connect(leave, &QPushButton::clicked, this, &QDialog::reject);
  m_view->updatePreview();
}

void PrintPreview::turn(int pages) {
  m_view->setCurrentPage(m_view->currentPage() + pages);
  refresh();
}

void PrintPreview::refresh() {
  m_previous->setEnabled(m_view->currentPage() > 1);
  m_next->setEnabled(m_view->currentPage() < m_view->pageCount());
}

}  // namespace triaxlab
