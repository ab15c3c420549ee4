#include "windows/dialogs/print_window.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

#include "windows/controls/words.h"
#include "windows/dialogs/print_preview_window.h"

namespace triaxlab {
namespace {

constexpr int kButtonWidth = 1600, kButtonHeight = 450, kButtonPitch = 2150, kButtons = 3;
constexpr int kMargin = 300, kLine = 300, kBoxLine = 330;
constexpr int kProgressWidth = 2400;
constexpr int kMostCopies = 99;

}  // namespace

PrintWindow::PrintWindow(QWidget* parent, PrintDialogSession& session, PageDevices& devices)
    : SessionDialog(parent), m_session(session), m_devices(devices), m_layout(layoutOf(session.form())) {
  setObjectName(words(session.form().name));
  setWindowTitle(words(session.form().title));
  setFixedSize(pixels(m_layout.width), pixels(m_layout.height));
  makeTicks();
  makeScopes();
  makeBoxes();
  if (m_layout.sheet) makeSheet(*m_layout.sheet);
  makePrinter();
  makeTexts();
  makeButtons();
  refresh();
}

void PrintWindow::makeTicks() {
  for (const auto& [name, tick, place] : m_layout.ticks) {
    auto* const box = put(new QCheckBox(print_captions::kTicks[tick], this), name, place);
    connect(box, &QCheckBox::clicked, this,
            [this, tick = tick](bool ticked) { act([&] { m_session.setTicked(tick, ticked); }); });
    m_ticks.push_back(box);
  }
}

void PrintWindow::makeScopes() {
  auto* const group = new QButtonGroup(this);
  for (const ScopeOption& option : m_session.form().scopes) {
    const std::size_t i = m_scopes.size();
    auto* const button =
        put(new QRadioButton(option.caption, this), QString("Option%1").arg(i + 1), m_layout.scopes[i]);
    group->addButton(button);
    connect(button, &QRadioButton::clicked, this, [this, scope = option.scope] {
      std::optional<PrintBox> typedIn;
      act([&] { typedIn = m_session.choose(scope); });
      if (!typedIn) return;
      QLineEdit* const box = boxOf(*typedIn);
      box->setFocus();
      box->selectAll();
    });
    m_scopes.push_back(button);
  }
}

void PrintWindow::makeBoxes() {
  for (const auto& [name, box, place] : m_layout.boxes) {
    auto* const edit = put(new QLineEdit(this), name, place);
    connect(edit, &QLineEdit::textEdited, this,
            [this, box = box](const QString& text) { act([&] { m_session.setText(box, utf8(text)); }); });
    edit->installEventFilter(this);
    m_boxes.push_back(edit);
  }
  if (m_layout.copiesBar) makeCopiesBar(*m_layout.copiesBar);
}

QLineEdit* PrintWindow::boxOf(PrintBox box) const {
  const auto found = std::ranges::find(m_layout.boxes, box, &BoxControl::box);
  return m_boxes.at(static_cast<std::size_t>(found - m_layout.boxes.begin()));
}

void PrintWindow::makeCopiesBar(Place place) {
  m_copies = put(new QScrollBar(Qt::Vertical, this), "VScroll1", place);
  m_copies->setRange(1, kMostCopies);
  // The upper arrow gives more; a bar by itself goes down there.
  m_copies->setInvertedAppearance(true);
  connect(m_copies, &QScrollBar::actionTriggered, this, [this](int action) {
    if (action == QScrollBar::SliderSingleStepSub) m_copies->setSliderPosition(m_copies->value() + 1);
    if (action == QScrollBar::SliderSingleStepAdd) m_copies->setSliderPosition(m_copies->value() - 1);
  });
  connect(m_copies, &QScrollBar::valueChanged, this,
          [this](int copies) { act([&] { m_session.setText(PrintBox::Copies, std::to_string(copies)); }); });
}

void PrintWindow::makeSheet(const SheetControls& places) {
  m_paper = put(new QComboBox(this), "Combo1", places.paper);
  for (const PaperName& paper : kPaperNames) m_paper->addItem(paper.name);
  connect(m_paper, &QComboBox::activated, this, [this](int entry) {
    act([&] { m_session.setPaper(kPaperNames.at(static_cast<std::size_t>(entry)).paper); });
  });
  put(new QComboBox(this), "Combo2", places.curves)->addItem(print_captions::kAllCurves);
  m_portrait = put(new QRadioButton(print_captions::kPortrait, this), "Option5", places.portrait);
  m_landscape = put(new QRadioButton(print_captions::kLandscape, this), "Option6", places.landscape);
  auto* const group = new QButtonGroup(this);
  for (QRadioButton* const button : {m_portrait, m_landscape}) {
    group->addButton(button);
    connect(button, &QRadioButton::clicked, this,
            [this, isPortrait = button == m_portrait] { act([&] { m_session.setPortrait(isPortrait); }); });
  }
}

void PrintWindow::makePrinter() {
  constexpr int kCaption = 900, kWidth = 3600;
  const Printers printers = m_devices.printers();
  put(new QLabel(print_captions::kPrinter, this), {}, {kMargin, m_layout.printerY, kCaption, kBoxLine});
  m_printer = put(new QComboBox(this), "Combo3", {kMargin + kCaption, m_layout.printerY, kWidth, kBoxLine});
  for (const std::string& name : printers.names) m_printer->addItem(words(name), words(name));
  m_printer->addItem(print_captions::kPdfFile, QString());
  m_printer->setCurrentIndex(m_printer->findData(words(printers.usual)));
  connect(m_printer, &QComboBox::activated, this,
          [this] { act([&] { m_session.choosePrinter(utf8(m_printer->currentData().toString())); }); });
}

void PrintWindow::makeTexts() {
  for (const PrintText& text : m_layout.texts) {
    auto* const label = put(new QLabel(text.text, this), text.name, text.place);
    if (text.centred) label->setAlignment(Qt::AlignCenter);
  }
  const int width = m_layout.width - 2 * kMargin;
  m_sending = put(new QLabel(print_captions::kSending, this), "Label1",
                  {kMargin, m_layout.sendingY, width - kProgressWidth, kLine});
  m_progress = put(new QProgressBar(this), "ProgressBar1",
                   {kMargin + width - kProgressWidth, m_layout.sendingY, kProgressWidth, kLine});
  m_progress->setFormat("%v/%m");
  m_sending->hide();
  m_progress->hide();
}

void PrintWindow::makeButtons() {
  const int first = (m_layout.width - (kButtons - 1) * kButtonPitch - kButtonWidth) / 2;
  const auto button = [&](const char* caption, const char* name, int place) {
    auto* const made = put(new QPushButton(caption, this), name,
                           {first + place * kButtonPitch, m_layout.buttonsY, kButtonWidth, kButtonHeight});
    made->setAutoDefault(false);
    return made;
  };
  QPushButton* const accept = button(print_captions::kAccept, "Command1", 0);
  accept->setDefault(true);
  connect(accept, &QPushButton::clicked, this, &PrintWindow::print);
  m_preview = button(print_captions::kPreview, "Command3", 1);
  connect(m_preview, &QPushButton::clicked, this, &PrintWindow::preview);
  connect(button(print_captions::kCancel, "Command2", 2), &QPushButton::clicked, this, &PrintWindow::reject);
}

bool PrintWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn)
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
      if (watched == m_boxes[i]) act([this, i] { m_session.enterBox(m_layout.boxes[i].box); });
  return QDialog::eventFilter(watched, event);
}

// ---- What the buttons do

void PrintWindow::print() {
  actToEnd([this] {
    if (!m_session.accept()) return false;
    const QScopedValueRollback sending(m_isSending, true);
    refresh();
    m_sending->show();
    // Nothing is drawn by itself until events run again.
    repaint();
    m_session.send(m_devices, [this](int sent, int sheets) { return goesOn(sent, sheets); });
    return true;
  });
}

bool PrintWindow::goesOn(int sent, int sheets) {
  m_progress->setMaximum(sheets);
  m_progress->setValue(sent);
  m_progress->show();
  // In a loop of its own, so that whoever looks whether the program is idle sees that it isn't.
  QEventLoop events;
  QTimer::singleShot(0, &events, &QEventLoop::quit);
  events.exec();
  return !m_isStopped;
}

void PrintWindow::reject() {
  if (m_isSending)
    m_isStopped = true;
  else
    SessionDialog::reject();
}

void PrintWindow::preview() {
  if (const auto previewed = m_session.preview())
    PrintPreview(this, *previewed, [&](int sheet) { m_session.saveSheet(*previewed, sheet, m_devices); }).exec();
}

// ---- State to widgets

void PrintWindow::showState() {
  const PrintDialogState now = m_session.state();
  for (std::size_t i = 0; i < m_ticks.size(); ++i) {
    const PrintTick tick = m_layout.ticks[i].tick;
    m_ticks[i]->setChecked(now.ticks[tick]);
    m_ticks[i]->setEnabled(!m_isSending && (tick != PrintTick::Picture || now.canTickPicture));
  }
  for (std::size_t i = 0; i < m_scopes.size(); ++i) {
    m_scopes[i]->setChecked(m_session.form().scopes[i].scope == now.scope);
    m_scopes[i]->setEnabled(!m_isSending);
  }
  for (std::size_t i = 0; i < m_boxes.size(); ++i) {
    const PrintBox box = m_layout.boxes[i].box;
    const QString text = words(now.texts[box]);
    if (m_boxes[i]->text() != text) m_boxes[i]->setText(text);
    m_boxes[i]->setEnabled(!m_isSending && now.boxesOn[box]);
  }
  if (m_copies != nullptr) {
    const QSignalBlocker shown(m_copies);
    m_copies->setValue(words(now.texts[PrintBox::Copies]).toInt());
  }
  m_printer->setEnabled(!m_isSending && now.canChoosePrinter);
  m_printer->setToolTip(m_printer->currentText());  // a name may be longer than its place
  if (m_layout.sheet) showSheet(now);
  for (QPushButton* const button : findChildren<QPushButton*>()) button->setEnabled(!m_isSending);
  m_preview->setEnabled(!m_isSending && now.canPreview);
}

void PrintWindow::showSheet(const PrintDialogState& now) {
  const auto* const paper = std::ranges::find(kPaperNames, now.paper, &PaperName::paper);
  m_paper->setCurrentIndex(static_cast<int>(paper - kPaperNames.begin()));
  (now.portrait ? m_portrait : m_landscape)->setChecked(true);
  for (QWidget* const control :
       {static_cast<QWidget*>(m_paper), static_cast<QWidget*>(m_portrait), static_cast<QWidget*>(m_landscape)})
    control->setEnabled(!m_isSending);
}

}  // namespace triaxlab
