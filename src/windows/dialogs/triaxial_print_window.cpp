#include "windows/dialogs/triaxial_print_window.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "reports/three_in_one.h"
#include "sessions/dialogs/error_display.h"
#include "windows/controls/layout.h"
#include "windows/controls/words.h"
#include "windows/dialogs/print_preview_window.h"
#include "windows/send_job.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 8100, 5600};

/// Check1 to Check12: the curves on the left, circles and manner of printing on the right.
constexpr std::array<Place, kPrintChecks> kCheckPlaces{{
    {4500, 200, 3300, 300},   // 针式打印机
    {300, 200, 3900, 300},    // the six curves
    {300, 560, 3900, 300},    //
    {300, 920, 3900, 300},    //
    {300, 1280, 3900, 300},   //
    {300, 1640, 3900, 300},   //
    {300, 2000, 3900, 300},   //
    {4500, 560, 3300, 300},   // 打印页码
    {4500, 1280, 3300, 300},  // 有效应力圆
    {4500, 920, 3300, 300},   // 总应力圆
    {4500, 1640, 3300, 300},  // 打印到图片文件
    {4500, 2000, 3300, 300},  // 打印到A3
}};
constexpr std::array<Place, 4> kScopePlaces{
    {{300, 2600, 1500, 300}, {1900, 2600, 1800, 300}, {300, 3000, 1500, 300}, {1900, 3000, 1800, 300}}};
constexpr std::array<Place, 3> kBoxPlaces{{{300, 3420, 1200, 330}, {2000, 3420, 1200, 330}, {5700, 3420, 1200, 330}}};
constexpr Place kTo{1550, 3420, 400, 330}, kFirstPage{4500, 3420, 1150, 330};
constexpr Place kSending{300, 3950, 7500, 300};
constexpr Place kAccept{1100, 4500, 1600, 450}, kPreview{3250, 4500, 1600, 450}, kCancel{5400, 4500, 1600, 450};

}  // namespace

SETPRINTFORM::SETPRINTFORM(QWidget* parent, PrintOptions& options, Workspace& workspace, Dialogs& dialogs)
    : QDialog(parent),
      m_options(options),
      m_workspace(workspace),
      m_dialogs(dialogs),
      m_sending(put(new QLabel(print_captions::kSending, this), "Label1", kSending)) {
  setObjectName("SETPRINTFORM");
  setWindowTitle(print_captions::kTitle);
  setFixedSize(rectangle(kWindow).size());
  m_sending->hide();
  makeChecks();
  makeScopes();
  makeBoxes();
  makeButtons();
  refresh();
}

void SETPRINTFORM::makeChecks() {
  for (std::size_t i = 0; i < kPrintChecks; ++i) {
    const int number = static_cast<int>(i) + 1;
    auto* const box =
        put(new QCheckBox(print_captions::kChecks.at(i), this), QString("Check%1").arg(number), kCheckPlaces.at(i));
    connect(box, &QCheckBox::clicked, this, [this, number](bool ticked) {
      m_options.setTicked(static_cast<PrintCheck>(number), ticked);
      refresh();
    });
    m_checks.at(i) = box;
  }
}

void SETPRINTFORM::makeScopes() {
  for (std::size_t i = 0; i < m_scopes.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    auto* const option =
        put(new QRadioButton(print_captions::kScopes.at(i), this), QString("Option%1").arg(number), kScopePlaces.at(i));
    connect(option, &QRadioButton::clicked, this, [this, number] {
      const bool typesRange = m_options.choose(static_cast<PrintScope>(number));
      refresh();
      if (typesRange) m_boxes[0]->setFocus();
    });
    m_scopes.at(i) = option;
  }
}

void SETPRINTFORM::makeBoxes() {
  put(new QLabel(print_captions::kTo, this), "Label3", kTo)->setAlignment(Qt::AlignCenter);
  put(new QLabel(print_captions::kFirstPage, this), "Label2", kFirstPage);
  for (std::size_t i = 0; i < m_boxes.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    auto* const box = put(new QLineEdit(this), QString("Text%1").arg(number), kBoxPlaces.at(i));
    connect(box, &QLineEdit::textEdited, this,
            [this, number](const QString& text) { m_options.setText(static_cast<PrintBox>(number), utf8(text)); });
    box->installEventFilter(this);
    m_boxes.at(i) = box;
  }
}

void SETPRINTFORM::makeButtons() {
  m_accept = put(new QPushButton(print_captions::kAccept, this), "Command1", kAccept);
  m_accept->setDefault(true);
  connect(m_accept, &QPushButton::clicked, this, &SETPRINTFORM::print);
  m_preview = put(new QPushButton("预 览", this), "Command3", kPreview);
  m_preview->setAutoDefault(false);
  connect(m_preview, &QPushButton::clicked, this, &SETPRINTFORM::preview);
  auto* const cancel = put(new QPushButton(print_captions::kCancel, this), "Command2", kCancel);
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool SETPRINTFORM::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn)
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
      if (watched == m_boxes.at(i)) {
        m_options.enterBox(static_cast<PrintBox>(i + 1));
        refresh();
      }
  return QDialog::eventFilter(watched, event);
}

void SETPRINTFORM::print() {
  const std::optional<PrintJob> job = m_options.accept(m_dialogs);
  refresh();
  if (!job) return;
  m_sending->show();
  // Nothing is drawn by itself until the job is done.
  repaint();
  runShowingErrors(m_dialogs, [&] { sendThreeInOne(*job, m_workspace, m_dialogs); });
  accept();
}

void SETPRINTFORM::preview() {
  const PrintJob job = m_options.job();
  PrintPreview(this, [&](PageDevice& device) {
    runShowingErrors(m_dialogs, [&] { runThreeInOne(job, m_workspace, device); });
  }).exec();
}

void SETPRINTFORM::refresh() {
  const PrintOptionsState& now = m_options.state();
  for (std::size_t i = 0; i < kPrintChecks; ++i) m_checks.at(i)->setChecked(now.checks.at(i));
  m_scopes.at(static_cast<std::size_t>(now.scope) - 1)->setChecked(true);
  for (std::size_t i = 0; i < m_boxes.size(); ++i) {
    const QString text = words(now.texts.at(i));
    if (m_boxes.at(i)->text() != text) m_boxes.at(i)->setText(text);
  }
  m_preview->setEnabled(m_options.job().selectedCurveCount() != 0);
}

}  // namespace triaxlab
