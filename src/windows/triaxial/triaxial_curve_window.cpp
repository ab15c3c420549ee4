#include "windows/triaxial/triaxial_curve_window.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QWheelEvent>
#include <functional>
#include <optional>
#include <utility>

#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/copied_table.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/scroll_bars.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

constexpr std::array kMethodKeys{
    KeyRow{Qt::Key_1, MethodKey::One, "多样剪；UU"}, KeyRow{Qt::Key_2, MethodKey::Two, "多级剪；CU"},
    KeyRow{Qt::Key_3, MethodKey::Three, "试验方法 CD"}, KeyRow{Qt::Key_End, MethodKey::End, "切换多级剪的调整标志"}};

/// Lays an edit box over the label that it stands for, or lets Tab come to the label on which the box would open. A box
/// that goes leaves the focus to the canvas, not to whatever comes next: the person would type there unawares.
template <std::size_t N>
void showOverlay(RecordEdit* box, const OpenCellState& now, const OpenCellState& before,
                 const std::array<ClickLabel*, N>& labels, CanvasWidget* canvas) {
  if (!now.visible && box->hasFocus()) canvas->setFocus();
  const auto labelOf = [&labels](const OpenCellState& state) {
    return state.cell < 0 ? nullptr : labels.at(static_cast<std::size_t>(state.cell));
  };
  ClickLabel* const label = labelOf(now);
  if (ClickLabel* const former = labelOf(before)) former->setFocusPolicy(Qt::NoFocus);
  if (label != nullptr && !now.visible) label->setFocusPolicy(Qt::TabFocus);
  if (label != nullptr && now.visible) {
    setPlace(box, label->insideOfLines());
    box->showText(words(now.text));
  }
  box->setVisible(now.visible);
}

}  // namespace

Form1::Form1(Workspace& workspace, Dialogs& dialogs, ShellSession& shell)
    : DocumentWidget(shell, kForm1),
      m_dialogs(dialogs),
      m_session(workspace),
      m_controls(this, [this](DrawingSurface& surface) { m_session.draw(surface); }) {
  setObjectName("Form1");
  setWindowTitle(curve_captions::kTitle);
  setNaturalSize(kCurveWindow);
  connectList();
  connectPages();
  connectEdits();
  connectMethodKeys();
  connectCanvas();
  connectIntervention();
  load();
}

Form1::~Form1() {
  // A box that loses the focus while the window goes down has nobody to tell any more.
  for (const auto& [edit, input] : m_controls.edits) edit->disconnect(this);
}

// ---- what a person does

void Form1::connectList() {
  for (int i = 0; i < static_cast<int>(m_controls.label1.size()); ++i) {
    const ClickLabel* const label = m_controls.label1.at(static_cast<std::size_t>(i));
    const auto open = [this, i] { openCell(m_controls.text1, &CurveSession::selectListCell, i); };
    connect(label, &ClickLabel::clicked, this, open);
    connect(label, &ClickLabel::reached, this, open);
  }
  connect(m_controls.vScroll1, &QScrollBar::valueChanged, this,
          [this](int top) { act([&] { m_session.scrollList(top); }); });
  m_controls.text1->onKey = [this](const QKeyEvent& event) {
    return keyInCell(m_controls.text1, event, &CurveSession::keyInList);
  };
}

bool Form1::keyInCell(RecordEdit* box, const QKeyEvent& event, bool (CurveSession::*keyIn)(CellKey, CursorPlace)) {
  const std::optional<CellKey> key = cellKeyOf(event);
  if (!key) return false;
  bool leftCell = false;
  act([&] { leftCell = (m_session.*keyIn)(*key, cursorOf(*box)); });
  if (leftCell) startTyping(box);
  return leftCell;
}

void Form1::openCell(RecordEdit* overlay, void (CurveSession::*select)(int), int label) {
  act([&] { (m_session.*select)(label); });
  startTyping(overlay);
}

void Form1::connectPages() {
  const auto onClick = [this](QPushButton* button, void (CurveSession::*step)()) {
    connect(button, &QPushButton::clicked, this, [this, step] { act([&] { std::invoke(step, m_session); }); });
  };
  onClick(m_controls.command3, &CurveSession::previousPage);
  onClick(m_controls.command4, &CurveSession::nextPage);
  onClick(m_controls.command1, &CurveSession::previousTablePage);
  onClick(m_controls.command2, &CurveSession::nextTablePage);
  onClick(m_controls.command8, &CurveSession::applyStrainLimits);
  connect(m_controls.command5, &QPushButton::clicked, this, [this] { shell().showTable(kForm7); });
  connect(m_controls.vScroll2, &QScrollBar::valueChanged, this,
          [this](int top) { act([&] { m_session.scrollTable(top); }); });
  for (int i = 0; i < kTableCells; ++i) {
    const ClickLabel* const label = m_controls.label2.at(static_cast<std::size_t>(i));
    const auto open = [this, i] { openCell(m_controls.text2, &CurveSession::selectTableCell, i); };
    connect(label, &ClickLabel::reached, this, open);
    connect(label, &ClickLabel::clicked, this, [this, open] {
      // Where nothing is typed the table has the focus, and Ctrl+C copies it.
      m_controls.vScroll2->setFocus();
      open();
    });
  }
  m_controls.text2->onKey = [this](const QKeyEvent& event) {
    return keyInCell(m_controls.text2, event, &CurveSession::keyInTable);
  };
}

void Form1::connectCanvas() {
  m_controls.picture1->setEdges(
      [this](DrawingSurface& surface, const ChartView& view) { m_session.drawEdges(surface, view); });
  Intervention& phase = m_session.intervention();
  connect(m_controls.picture1, &CanvasWidget::mouseAt, this, [this, &phase](Point place, bool leftButton) {
    if (phase.phase() == Phase::Curve) act([&] { phase.mouseAt(place, leftButton); });
    tellMouse(place);
  });
  connect(m_controls.picture1, &CanvasWidget::mouseLeft, this, [this] { tellMouse(std::nullopt); });
  connect(m_controls.picture1, &CanvasWidget::mouseReleased, this, [&phase] { phase.mouseReleased(); });
}

void Form1::tellMouse(std::optional<Point> place) {
  std::string text = place ? m_session.readout(*place) : std::string();
  if (text == m_readout) return;
  m_readout = std::move(text);
  emit readoutChanged(words(m_readout));
}

void Form1::connectEdits() {
  for (const auto& [edit, input] : m_controls.edits) {
    edit->fieldWidth = [this, typed = input] { return m_session.width(typed); };
    connect(edit, &QLineEdit::textEdited, this,
            [this, typed = input](const QString& text) { act([&] { m_session.edit(typed, utf8(text)); }); });
    connect(edit, &RecordEdit::focusLeft, this, [this] { act([&] { m_session.finishTyping(); }); });
  }
}

void Form1::connectMethodKeys() {
  static constexpr std::array kMethodFields{MethodField::ShearMode, MethodField::TestMethod};
  for (int i = 0; i < static_cast<int>(m_controls.text6.size()); ++i)
    m_controls.text6.at(static_cast<std::size_t>(i))->onKey = [this, i](const QKeyEvent& event) {
      const std::optional<MethodKey> key = keyOf(event, kMethodKeys);
      bool taken = false;
      if (key) act([&] { taken = m_session.keyOnMethod(kMethodFields.at(static_cast<std::size_t>(i)), *key); });
      return taken;
    };
}

void Form1::connectIntervention() {
  const InterventionControls& controls = m_controls.intervention;
  Intervention& phase = m_session.intervention();
  for (std::size_t stage = 0; stage < kStages; ++stage)
    connect(controls.stageOptions.at(stage), &QRadioButton::clicked, this,
            [this, &phase, stage] { act([&] { phase.selectStage(stage); }); });
  for (std::size_t i = 0; i < controls.envelopeOptions.size(); ++i)
    connect(controls.envelopeOptions.at(i), &QRadioButton::clicked, this,
            [this, &phase, i] { act([&] { phase.chooseEffective(i == 1); }); });
  const auto onAsking = [this, &phase](auto* control, auto signal, void (Intervention::*step)(Dialogs&)) {
    connect(control, signal, this, [this, &phase, step] { act([&] { (phase.*step)(m_dialogs); }); });
  };
  onAsking(controls.command6, &QPushButton::clicked, &Intervention::multiply);
  onAsking(controls.command7, &QPushButton::clicked, &Intervention::add);
  onAsking(controls.label14, &ClickLabel::doubleClicked, &Intervention::askCohesionStep);
  for (QWidget* const control : findChildren<QWidget*>()) control->installEventFilter(this);
}

bool Form1::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && keyInPhase(static_cast<QKeyEvent&>(*event))) return true;
  return DocumentWidget::eventFilter(watched, event);
}

bool Form1::keyInPhase(const QKeyEvent& event) {
  Intervention& phase = m_session.intervention();
  const InterventionControls& controls = m_controls.intervention;
  // Asked of the window: a box passes a key that it has no use for, as Up and Down, on to what it lies in.
  const QWidget* const focus = focusWidget();
  if (!phase.running() || focus == controls.text10 || focus == controls.text11) return false;
  if (const std::optional<ArrowKey> key = keyOf(event, kArrowKeys)) {
    act([&] { phase.key(*key); });
    return true;
  }
  // A box takes back its own typing.
  if (qobject_cast<const QLineEdit*>(focus) != nullptr) return false;
  const std::optional<StepKey> step = exactKeyOf(event, kStepKeys);
  if (step) act([&] { *step == StepKey::Undo ? phase.undo() : phase.redo(); });
  return step.has_value();
}

void Form1::startTyping(RecordEdit* overlay) {
  if (overlay->isHidden()) return;
  overlay->setFocus();
  overlay->selectAll();
}

void Form1::wheelEvent(QWheelEvent* event) {
  const bool overList = event->position().x() < m_controls.picture1->x();
  const bool overTable = event->position().y() > m_controls.picture1->geometry().bottom();
  if (overList && m_controls.vScroll1->isVisible())
    m_controls.vScroll1->event(event);
  else if (overTable)
    m_controls.vScroll2->event(event);
}

void Form1::keyPressEvent(QKeyEvent* event) {
  // What has no use of its own for the key: the buttons and bars of the table stand for it, all others for the chart.
  if (!event->matches(QKeySequence::Copy)) return DocumentWidget::keyPressEvent(event);
  const QWidget* const focus = focusWidget();
  const bool ofTable = focus == m_controls.vScroll2 || focus == m_controls.command1 || focus == m_controls.command2;
  if (ofTable)
    copyResults();
  else
    m_controls.picture1->copyPicture();
}

std::vector<KeyGroup> Form1::keyHelp() const {
  return {keyGroup("试样表、成果表", kCellKeys), keyGroup("剪切方式、试验方法两栏", kMethodKeys),
          keyGroup("干预时", kArrowKeys, kStepKeys), keyGroup("曲线、数据表", kCopyKeys)};
}

void Form1::contextMenuEvent(QContextMenuEvent* event) {
  if (!isOnTable(event->pos())) return event->ignore();
  popupTableMenu(this, event->globalPos(), [this] { copyResults(); });
}

bool Form1::isOnTable(QPoint place) const {
  return m_controls.label2.front()->geometry().united(m_controls.label2.back()->geometry()).contains(place);
}

void Form1::copyResults() const { copyTable(m_session.tableText()); }

// ---- what the shell asks

void Form1::load() {
  m_session.load();
  refresh();
  // An empty table is typed into from the first key; otherwise there is something to look at.
  m_controls.picture1->setFocus();
  startTyping(m_controls.text1);
}

void Form1::markSaved() {
  m_session.markSaved();
  refresh();
}

void Form1::markChanged() {
  m_session.markChanged();
  refresh();
}

void Form1::showPage(CurvePage page) {
  m_session.showPage(static_cast<int>(page));
  refresh();
}

InterventionEntry Form1::interventionEntry() const {
  return {.possible = m_session.canIntervene(), .running = m_session.intervention().running()};
}

void Form1::enterIntervention() {
  m_session.enterIntervention();
  refresh();
  m_controls.picture1->setFocus();
}

void Form1::leaveIntervention(Dialogs& dialogs) {
  m_session.leaveIntervention(dialogs);
  refresh();
  m_controls.picture1->setFocus();
}

void Form1::reprocess() {
  m_session.reprocess();
  refresh();
}

EnvelopeEntries Form1::envelopeEntries() const {
  return {.ratioEnabled = m_shown.ratioEnvelope.enabled, .ratioChecked = m_shown.ratioEnvelope.checked};
}

std::array<std::string, 2> Form1::statusPanels() const { return m_shown.statusPanels; }

// ---- what the window shows

void Form1::showState() {
  CurveState now = m_session.state();
  showList(now);
  showFields(now);
  showStages(now);
  showTable(now);
  showIntervention(now);
  // Another chart is seen whole, and a phase works on the whole chart.
  if (now.currentCurvePage != m_shown.currentCurvePage || m_session.sampleRow() != m_rowShown)
    m_controls.picture1->showWhole();
  m_controls.picture1->setZoomable(!now.intervention.running());
  m_rowShown = m_session.sampleRow();
  m_shown = std::move(now);
  if (m_pictureShown != m_session.pictureNumber()) {
    m_pictureShown = m_session.pictureNumber();
    m_controls.picture1->redraw();
  }
}

void Form1::showList(const CurveState& now) {
  for (std::size_t line = 0; line < now.list.size(); ++line) {
    const bool chosen = static_cast<int>(line) == now.selectedLine;
    if (now.list.at(line) == m_shown.list.at(line) && chosen == (static_cast<int>(line) == m_shown.selectedLine))
      continue;
    const auto show = [chosen](ClickLabel* label, const std::string& text) {
      label->setText(words(text));
      label->setMarked(chosen);
    };
    show(m_controls.label5.at(line), now.list.at(line).number);
    show(m_controls.label1.at(2 * line), now.list.at(line).project);
    show(m_controls.label1.at(2 * line + 1), now.list.at(line).sample);
  }
  showScroll(m_controls.vScroll1, now.listTop, now.listScrollMax);
  showOverlay(m_controls.text1, now.listCell, m_shown.listCell, m_controls.label1, m_controls.picture1);
}

void Form1::showFields(const CurveState& now) {
  // The two boxes over cells are shown with the cells.
  for (const auto& [edit, input] : m_controls.edits)
    if (edit != m_controls.text1 && edit != m_controls.text2) edit->showText(words(now.text(input)));
  m_controls.text6[0]->showText(words(now.shearMode));
  m_controls.text6[1]->showText(words(now.testMethod));
  for (std::size_t i = 0; i < now.locationLabels.size(); ++i)
    m_controls.locationCaptions.at(i)->setText(words(now.locationLabels.at(i)));
  m_controls.text9->setVisible(now.controlledDocNoVisible);
  m_controls.text9Caption->setVisible(now.controlledDocNoVisible);
}

void Form1::showStages(const CurveState& now) {
  m_controls.label8->setVisible(now.strainLimitsVisible);
  m_controls.command8->setVisible(now.strainLimitsVisible);
  m_controls.command8->setEnabled(now.strainLimitsEnabled);
  for (RecordEdit* const limit : m_controls.text8) limit->setVisible(now.strainLimitsVisible);
  m_controls.label4->setText(words(now.envelopeNote));
  m_controls.label4->setVisible(now.envelopeNoteVisible);
  m_controls.command5->setVisible(now.consolidationTableVisible);
  m_controls.command5->setEnabled(now.consolidationTableEnabled);
}

void Form1::showTable(const CurveState& now) const {
  const auto show = [](const auto& labels, const auto& texts, const auto& before) {
    for (std::size_t i = 0; i < texts.size(); ++i)
      if (texts.at(i) != before.at(i)) labels.at(i)->setText(words(texts.at(i)));
  };
  show(m_controls.columnHeads, now.columnHeads, m_shown.columnHeads);
  show(m_controls.label2, now.tableCells, m_shown.tableCells);
  showScroll(m_controls.vScroll2, now.tableTop, now.tableScrollMax);
  showOverlay(m_controls.text2, now.resultCell, m_shown.resultCell, m_controls.label2, m_controls.picture1);
}

void Form1::showIntervention(const CurveState& now) {
  const bool idle = !now.intervention.running();
  for (ClickLabel* const label : m_controls.label5) label->setVisible(idle);
  for (ClickLabel* const label : m_controls.label1) label->setVisible(idle);
  m_controls.vScroll1->setVisible(idle);
  for (QPushButton* const step : {m_controls.command1, m_controls.command2, m_controls.command3, m_controls.command4})
    step->setEnabled(idle);
  m_controls.intervention.show(now.intervention);
  m_controls.physicalValues.show(now.physicalValues);
}

}  // namespace triaxlab
