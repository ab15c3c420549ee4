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
  auto* const close = new QPushButton("知道了", this);
  close->setObjectName("WarningClose");
  close->setAutoDefault(false);
  close->setFocusPolicy(Qt::NoFocus);
  connect(close, &QPushButton::clicked, this, [this] {
    hide();
    emit shown(false);
    emit dismissed();
  });
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(8, 3, 3, 3);
  row->addWidget(m_text, 1);
  row->addWidget(close, 0, Qt::AlignTop);
  hide();
}

void WarningBar::show(const Remarks& remarks) {
  if (remarks == m_remarks) return;
  m_remarks = remarks;
  m_text->setText(linesOf(remarks, kMostLines));
  m_text->setToolTip(linesOf(remarks, static_cast<qsizetype>(remarks.size())));
  setVisible(!remarks.empty());
  emit shown(!remarks.empty());
}

}  // namespace triaxlab
