#include "windows/help/fault_report_window.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "platform/files.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr QSize kSize(720, 480);

}  // namespace

FaultReportWindow::FaultReportWindow(QWidget* parent, const std::string& report, const std::filesystem::path& file)
    : QDialog(parent) {
  setObjectName("FaultReport");
  setWindowTitle("错误报告");
  resize(kSize);
  auto* const heading = new QLabel(this);
  heading->setObjectName("Heading");
  heading->setTextFormat(Qt::PlainText);
  heading->setWordWrap(true);
  heading->setText(QString("请把这份报告交给维护程序的人，并说明当时在做什么。报告里没有试验数据。它保存在文件 %1。")
                       .arg(words(textOfPath(file))));
  auto* const text = new QTextEdit(this);
  text->setObjectName("Report");
  text->setLineWrapMode(QTextEdit::NoWrap);
  text->setPlainText(words(report));
  text->setReadOnly(true);
  auto* const buttons = new QDialogButtonBox(this);
  auto* const copy = buttons->addButton("复制", QDialogButtonBox::ActionRole);
  copy->setObjectName("Copy");
  connect(copy, &QPushButton::clicked, text, [text] { QGuiApplication::clipboard()->setText(text->toPlainText()); });
  auto* const close = buttons->addButton("返回", QDialogButtonBox::RejectRole);
  close->setObjectName("Return");
  close->setDefault(true);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(heading);
  layout->addWidget(text, 1);
  layout->addWidget(buttons);
}

}  // namespace triaxlab
