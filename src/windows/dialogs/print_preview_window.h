#pragma once

#include <QDialog>
#include <QPrinter>
#include <functional>

#include "platform/page_device.h"

class QPrintPreviewWidget;
class QPushButton;

namespace triaxlab {

/// The pages of a job on the screen, drawn by the same call that prints them.
class PrintPreview : public QDialog {
  Q_OBJECT

 public:
  using Pages = std::function<void(PageDevice&)>;
  PrintPreview(QWidget* parent, Pages pages);

 private:
  void turn(int pages);
  void refresh();

  Pages m_pages;
  QPrinter m_printer;
  QPrintPreviewWidget* m_view;
  QPushButton *m_previous, *m_next;
};

}  // namespace triaxlab
