#include "windows/help/about_window.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "shell/about.h"
#include "windows/controls/words.h"
#include "windows/help/manual_page.h"

namespace triaxlab {
namespace {

constexpr QSize kSize(640, 560);

}  // namespace

AboutWindow::AboutWindow(QWidget* parent, const Workspace& workspace) : QDialog(parent) {
  setObjectName("About");
  setWindowTitle("关于");
  resize(kSize);
  auto* const page = new ManualPage(this);
  page->setObjectName("Page");
  page->showText("about.md", aboutText(workspace, {utf8(QCoreApplication::applicationVersion()), qVersion()}));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(page, 1);
  layout->addWidget(buttons);
}

}  // namespace triaxlab
