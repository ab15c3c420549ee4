#include "windows/controls/warning_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "windows/controls/words.h"

namespace triaxlab {
namespace {

/// All remarks are told beside the mouse.
constexpr qsizetype kMostLines = 3;

QString linesOf(const Remarks& remarks, qsizetype most) {
  QStringList lines;
  for (const std::string& remark : remarks) lines << words(remark);
  if (lines.size() <= most) return lines.join('\n');
  const qsizetype left = lines.size() - most + 1;
  return lines.mid(0, most - 1).join('\n') + QString("\n……还有 %1 条").arg(left);
}

}  // namespace

WarningBar::WarningBar(QWidget* parent) : QFrame(parent), m_text(new QLabel(this)) {
  setObjectName("WarningBar");
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  QPalette colours = palette();
  colours.setColor(QPalette::Window, QColor(255, 240, 190));
  colours.setColor(QPalette::WindowText, Qt::black);
  setPalette(colours);
  m_text->setObjectName("WarningText");
  m_text->setTextFormat(Qt::PlainText);
  m_text->setWordWrap(true);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(8, 3, 3, 3);
  row->addWidget(m_text, 1);
  m_report = addButton("WarningReport", "查看");
  connect(m_report, &QPushButton::clicked, this, &WarningBar::reportWanted);
  connect(addButton("WarningClose", "知道了"), &QPushButton::clicked, this, [this] {
    hide();
    emit shown(false);
    emit dismissed();
  });
  hide();
}

QPushButton* WarningBar::addButton(const char* name, const QString& caption) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::NoFocus);
  layout()->addWidget(button);
  layout()->setAlignment(button, Qt::AlignTop);
  return button;
}

void WarningBar::show(const Remarks& remarks, bool hasReport) {
  m_report->setVisible(hasReport);
  if (remarks == m_remarks) return;
  m_remarks = remarks;
  m_text->setText(linesOf(remarks, kMostLines));
  m_text->setToolTip(linesOf(remarks, static_cast<qsizetype>(remarks.size())));
  setVisible(!remarks.empty());
  emit shown(!remarks.empty());
}

}  // namespace triaxlab
