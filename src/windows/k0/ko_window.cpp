#include "windows/k0/ko_window.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <utility>

#include "k0/charts/ko_chart.h"
#include "windows/controls/canvas_widget.h"
#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips throughout.
constexpr int kReadingPitch = 2000, kReadingWidth = 1950;
constexpr Place kHelpFrame{800, 5250, 10300, 1700};
constexpr int kHelpX = 200, kSubjectY = 200, kHelpY = 550, kHelpPitch = 330, kHelpWidth = 9900, kLineHeight = 300;

Qt::CursorShape cursorOf(LineGrip grip) {
  switch (grip) {
    case LineGrip::Move:
      return Qt::SizeVerCursor;
    case LineGrip::Turn:
      return Qt::PointingHandCursor;
    case LineGrip::None:
      break;
  }
  return Qt::ArrowCursor;
}

}  // namespace

KoWindow::KoWindow(ShellSession& shell, ActiveDocument document, std::unique_ptr<KoSession> session)
    : ListedWindow(shell, document, std::move(session)), m_session(static_cast<KoSession&>(this->session())) {}

// ---- what stands in the window

void KoWindow::makeKoChart() {
  CanvasWidget* const chart = addChart(
      "Picture1", {0, 0, kKoChartWidth, kKoChartHeight}, [this](DrawingSurface& surface) { m_session.drawKo(surface); },
      [this](DrawingSurface& surface, const ChartView& view) { m_session.drawKoEdges(surface, view); },
      [this](Point place) { return m_session.koReadoutAt(place); });
  connectLine(
      chart, [this](Point place) { return m_session.gripOnKoChart(place); },
      [this](Point place, bool buttonDown) { m_session.mouseOnKoChart(place, buttonDown); });
}

void KoWindow::connectLine(CanvasWidget* chart, std::function<LineGrip(Point)> gripAt,
                           std::function<void(Point, bool buttonDown)> mouseAt) {
  connect(chart, &CanvasWidget::mouseAt, this,
          [this, chart, gripAt = std::move(gripAt), mouseAt = std::move(mouseAt)](Point place, bool buttonDown) {
            if (m_session.mode() == LineMode::None) return;
            if (!buttonDown) chart->setCursor(cursorOf(gripAt(place)));
            act([&] { mouseAt(place, buttonDown); });
          });
  connect(chart, &CanvasWidget::mouseReleased, this, [this] { m_session.mouseReleased(); });
}

void KoWindow::makeRest(const KoBesideCharts& places) {
  m_lineNote = caption({}, places.lineNote);
  m_lineNote->setObjectName("Label1");
  m_samplingDepth = caption({}, places.samplingDepth);
  m_samplingDepth->setObjectName("SamplingDepth");
  const auto button = [this](const char* name, const char* text, Place place, void (KoSession::*step)()) {
    auto* const made = put(new QPushButton(words(text), this), name, place);
    connect(made, &QPushButton::clicked, this, [this, step] { act([&] { std::invoke(step, m_session); }); });
    return made;
  };
  m_redraw = button("Command1", ko_captions::kRedraw, places.redraw, &KoSession::redraw);
  m_reprocess = button("Command2", ko_captions::kReprocess, places.reprocess, &KoSession::reprocess);
  makeLowerHalf({.pitch = kReadingPitch, .width = kReadingWidth});
  makeHelp();
  for (QWidget* const control : findChildren<QWidget*>()) control->installEventFilter(this);
}

void KoWindow::makeHelp() {
  m_help = put(new QGroupBox(this), "Frame1", kHelpFrame);
  const auto line = [this](const QString& name, int y) {
    return put(new ClickLabel(m_help), name, {kHelpX, y, kHelpWidth, kLineHeight});
  };
  m_subject = line("PhaseSubject", kSubjectY);
  for (int i = 0; i < static_cast<int>(m_keyHelp.size()); ++i)
    m_keyHelp.at(static_cast<std::size_t>(i)) = line(arrayName("KeyHelp", i), kHelpY + kHelpPitch * i);
  m_help->hide();
}

// ---- keys of a mode

bool KoWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && keyInMode(static_cast<QKeyEvent&>(*event))) return true;
  return ListedWindow::eventFilter(watched, event);
}

void KoWindow::keyPressEvent(QKeyEvent* event) {
  // Of the window itself: what lies in it was asked before.
  if (!keyInMode(*event)) ListedWindow::keyPressEvent(event);
}

bool KoWindow::keyInMode(const QKeyEvent& event) {
  if (m_session.mode() == LineMode::None) return false;
  if (const std::optional<ArrowKey> key = keyOf(event, kArrowKeys)) {
    act([&] { m_session.key(*key); });
    return true;
  }
  // A box takes back its own typing.
  if (qobject_cast<const QLineEdit*>(focusWidget()) != nullptr) return false;
  const std::optional<StepKey> step = exactKeyOf(event, kStepKeys);
  if (step) act([&] { *step == StepKey::Undo ? m_session.undo() : m_session.redo(); });
  return step.has_value();
}

std::vector<KeyGroup> KoWindow::keyHelp() const {
  std::vector<KeyGroup> groups = ListedWindow::keyHelp();
  groups.push_back(keyGroup("干预时", kArrowKeys, kStepKeys));
  return groups;
}

// ---- what the shell asks

InterventionEntry KoWindow::interventionEntry() const {
  return {.possible = true, .running = m_session.mode() != LineMode::None};
}

void KoWindow::enterIntervention() {
  act([this] { m_session.moveKoLine(); });
  charts().front()->setFocus();
}

void KoWindow::leaveIntervention(Dialogs& dialogs) {
  act([&] { m_session.leaveIntervention(dialogs); });
  for (CanvasWidget* const chart : charts()) chart->unsetCursor();
  charts().front()->setFocus();
}

// ---- what the window shows

void KoWindow::showUpperHalf(const ListedState& /*listed*/) {
  const KoState now = m_session.koState();
  m_lineNote->setText(words(now.lineNote));
  m_samplingDepth->setText(words(ko_captions::kSamplingDepth + now.samplingDepth));
  m_redraw->setEnabled(now.idle);
  m_reprocess->setEnabled(now.idle);
  showTables(now.idle);
  m_help->setVisible(!now.idle);
  m_subject->setText(words(now.subject));
  for (std::size_t i = 0; i < m_keyHelp.size(); ++i) m_keyHelp.at(i)->setText(words(now.help.at(i)));
  for (CanvasWidget* const chart : charts()) chart->setZoomable(now.idle);
}

}  // namespace triaxlab
