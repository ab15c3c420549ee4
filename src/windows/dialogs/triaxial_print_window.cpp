#include "windows/dialogs/triaxial_print_window.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "windows/controls/layout.h"
#include "windows/controls/words.h"
#include "windows/dialogs/print_preview_window.h"

namespace triaxlab {
namespace {

constexpr Place kWindow{0, 0, 8100, 5600};

/// Check1 to Check12: the curves on the left, circles and manner of printing on the right.
struct Check {
  PrintTick tick;
  Place place;
};
constexpr std::array<Check, kPrintTicks> kChecks{{
    {PrintTick::DotMatrix, {4500, 200, 3300, 300}},
    {PrintTick::StressStrain, {300, 200, 3900, 300}},
    {PrintTick::StressRatioEnvelope, {300, 560, 3900, 300}},
    {PrintTick::StressDifferenceEnvelope, {300, 920, 3900, 300}},
    {PrintTick::StressPath, {300, 1280, 3900, 300}},
    {PrintTick::PorePressure, {300, 1640, 3900, 300}},
    {PrintTick::StressRatio, {300, 2000, 3900, 300}},
    {PrintTick::PageNumbers, {4500, 560, 3300, 300}},
    {PrintTick::EffectiveCircles, {4500, 1280, 3300, 300}},
    {PrintTick::TotalCircles, {4500, 920, 3300, 300}},
    {PrintTick::Picture, {4500, 1640, 3300, 300}},
    {PrintTick::A3, {4500, 2000, 3300, 300}},
}};
constexpr std::array<Place, 4> kScopePlaces{
    {{300, 2600, 1500, 300}, {1900, 2600, 1800, 300}, {300, 3000, 1500, 300}, {1900, 3000, 1800, 300}}};
constexpr std::array<Place, kPrintBoxes> kBoxPlaces{
    {{300, 3420, 1200, 330}, {2000, 3420, 1200, 330}, {5700, 3420, 1200, 330}}};
constexpr Place kTo{1550, 3420, 400, 330}, kFirstPage{4500, 3420, 1150, 330};
constexpr Place kSending{300, 3950, 7500, 300};
constexpr Place kAccept{1100, 4500, 1600, 450}, kPreview{3250, 4500, 1600, 450}, kCancel{5400, 4500, 1600, 450};

}  // namespace

SETPRINTFORM::SETPRINTFORM(QWidget* parent, ThreeInOnePrintSession& session, PageDevices& devices)
    : SessionDialog(parent),
      m_session(session),
      m_devices(devices),
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
  for (std::size_t i = 0; i < kChecks.size(); ++i) {
    const auto& [tick, place] = kChecks.at(i);
    const char* const caption = print_captions::kTicks.at(static_cast<std::size_t>(tick));
    auto* const box = put(new QCheckBox(caption, this), QString("Check%1").arg(i + 1), place);
    connect(box, &QCheckBox::clicked, this,
            [this, tick = tick](bool ticked) { act([&] { m_session.setTicked(tick, ticked); }); });
    m_checks.at(i) = box;
  }
}

void SETPRINTFORM::makeScopes() {
  for (std::size_t i = 0; i < m_scopes.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    auto* const option =
        put(new QRadioButton(print_captions::kScopes.at(i), this), QString("Option%1").arg(number), kScopePlaces.at(i));
    connect(option, &QRadioButton::clicked, this, [this, number] {
      bool typesRange = false;
      act([&] { typesRange = m_session.choose(static_cast<PrintScope>(number)); });
      if (typesRange) m_boxes[0]->setFocus();
    });
    m_scopes.at(i) = option;
  }
}

void SETPRINTFORM::makeBoxes() {
  put(new QLabel(print_captions::kTo, this), "Label3", kTo)->setAlignment(Qt::AlignCenter);
  put(new QLabel(print_captions::kFirstPage, this), "Label2", kFirstPage);
  for (std::size_t i = 0; i < m_boxes.size(); ++i) {
    auto* const box = put(new QLineEdit(this), QString("Text%1").arg(i + 1), kBoxPlaces.at(i));
    connect(box, &QLineEdit::textEdited, this,
            [this, i](const QString& text) { m_session.setText(static_cast<PrintBox>(i), utf8(text)); });
    box->installEventFilter(this);
    m_boxes.at(i) = box;
  }
}

void SETPRINTFORM::makeButtons() {
  m_accept = put(new QPushButton(print_captions::kAccept, this), "Command1", kAccept);
  m_accept->setDefault(true);
  connect(m_accept, &QPushButton::clicked, this, &SETPRINTFORM::print);
  m_preview = put(new QPushButton(print_captions::kPreview, this), "Command3", kPreview);
  m_preview->setAutoDefault(false);
  connect(m_preview, &QPushButton::clicked, this, &SETPRINTFORM::preview);
  auto* const cancel = put(new QPushButton(print_captions::kCancel, this), "Command2", kCancel);
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool SETPRINTFORM::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn)
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
      if (watched == m_boxes.at(i)) act([this, i] { m_session.enterBox(static_cast<PrintBox>(i)); });
  return QDialog::eventFilter(watched, event);
}

void SETPRINTFORM::print() {
  actToEnd([this] {
    if (!m_session.accept()) return false;
    refresh();
    m_sending->show();
    // Nothing is drawn by itself until the job is done.
    repaint();
    m_session.send(m_devices);
    return true;
  });
}

void SETPRINTFORM::preview() {
  PrintPreview(this, [this](PageDevice& device) { m_session.preview(device); }).exec();
}

void SETPRINTFORM::showState() {
  const ThreeInOnePrintState now = m_session.state();
  for (std::size_t i = 0; i < kChecks.size(); ++i) m_checks.at(i)->setChecked(now.ticked(kChecks.at(i).tick));
  m_scopes.at(static_cast<std::size_t>(now.scope) - 1)->setChecked(true);
  for (std::size_t i = 0; i < m_boxes.size(); ++i) {
    const QString text = words(now.texts.at(i));
    if (m_boxes.at(i)->text() != text) m_boxes.at(i)->setText(text);
  }
  m_preview->setEnabled(now.canPreview);
}

}  // namespace triaxlab
