#include "windows/triaxial/triaxial_intervention_layout.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "sessions/triaxial/curve_session.h"
#include "windows/controls/click_label.h"
#include "windows/controls/layout.h"
#include "windows/controls/record_edit.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips; inside the frame from its own corner.
constexpr Place kFrame{60, 60, 3975, 5600};
constexpr int kControlHeight = 300, kButtonHeight = 280;
constexpr int kMouseY = 200, kStagesY = 700, kFactorY = 1200, kSummandY = 1600, kEnvelopesY = 2100, kStepY = 2600;
constexpr int kSubjectY = 3000, kHelpY = 3400;
constexpr int kCaptionX = 120, kCaptionWidth = 1560, kFieldX = 1700, kFieldWidth = 1000;
constexpr int kButtonX = 2800, kButtonWidth = 900;
constexpr int kMouseX = 1380, kMouseWidth = 2500;
constexpr int kStagePitch = 740, kStageWidth = 700, kEnvelopePitch = 1300, kEnvelopeWidth = 1200;
constexpr int kWide = 3700;

}  // namespace

InterventionControls::InterventionControls(QWidget* window) : frame1(put(new QGroupBox(window), "Frame1", kFrame)) {
  frame1->setAutoFillBackground(true);
  makeCurveControls();
  makeEnvelopeControls();
  m_subject = caption({}, kCaptionX, kSubjectY, kWide);
  m_subject->setObjectName("PhaseSubject");
  for (int line = 0; line < static_cast<int>(kKeyHelpLines); ++line) {
    ClickLabel*& made = m_keyHelp.at(static_cast<std::size_t>(line));
    made = caption({}, kCaptionX, kHelpY + kControlHeight * line, kWide);
    made->setObjectName(arrayName("KeyHelp", line));
  }
  frame1->hide();
}

ClickLabel* InterventionControls::caption(const QString& text, int x, int y, int width) const {
  auto* const label = new ClickLabel(frame1, text);
  setPlace(label, {x, y, width, kControlHeight});
  return label;
}

QRadioButton* InterventionControls::option(const QString& name, const QString& text, int x, int y) const {
  return put(new QRadioButton(text, frame1), name, {x, y, kStageWidth, kControlHeight});
}

RecordEdit* InterventionControls::edit(const char* name, int y) const {
  return put(new RecordEdit(frame1), name, {kFieldX, y, kFieldWidth, kControlHeight});
}

QPushButton* InterventionControls::button(const char* name, int y) const {
  return put(new QPushButton(intervention_captions::kApply, frame1), name, {kButtonX, y, kButtonWidth, kButtonHeight});
}

void InterventionControls::makeCurveControls() {
  ClickLabel* const mousePlace = caption(intervention_captions::kMousePlace, kCaptionX, kMouseY, kMouseX - kCaptionX);
  label12 = caption({}, kMouseX, kMouseY, kMouseWidth);
  label12->setObjectName("Label12");
  m_curveControls = {mousePlace, label12};

  constexpr int kFirstOption = 3;
  auto* const stages = new QButtonGroup(frame1);
  for (int stage = 0; stage < static_cast<int>(kStages); ++stage) {
    const auto at = static_cast<std::size_t>(stage);
    stageOptions.at(at) = option(QString("Option%1").arg(kFirstOption + stage), curve_captions::kStageColumns.at(at),
                                 kCaptionX + kStagePitch * stage, kStagesY);
    stages->addButton(stageOptions.at(at));
    m_curveControls.push_back(stageOptions.at(at));
  }

  ClickLabel* const factor = caption(intervention_captions::kFactor, kCaptionX, kFactorY, kCaptionWidth);
  text10 = edit("Text10", kFactorY);
  command6 = button("Command6", kFactorY);
  ClickLabel* const summand = caption(intervention_captions::kSummand, kCaptionX, kSummandY, kCaptionWidth);
  text11 = edit("Text11", kSummandY);
  command7 = button("Command7", kSummandY);
  factor->setBuddy(text10);
  summand->setBuddy(text11);
  for (QWidget* const control : std::initializer_list<QWidget*>{factor, text10, command6, summand, text11, command7})
    m_curveControls.push_back(control);
}

void InterventionControls::makeEnvelopeControls() {
  auto* const envelopes = new QButtonGroup(frame1);
  static constexpr std::array kTexts{intervention_captions::kTotal, intervention_captions::kEffective};
  for (int i = 0; i < static_cast<int>(kTexts.size()); ++i) {
    const auto at = static_cast<std::size_t>(i);
    QRadioButton*& made = envelopeOptions.at(at);
    made = option(QString("Option%1").arg(i + 1), kTexts.at(at), 0, 0);
    setPlace(made, {kCaptionX + kEnvelopePitch * i, kEnvelopesY, kEnvelopeWidth, kControlHeight});
    envelopes->addButton(made);
  }
  label14 = caption({}, kCaptionX, kStepY, kWide);
  label14->setObjectName("Label14");
  label14->setToolTip("双击可设置C值的调整步长");
}

void InterventionControls::show(const InterventionState& now) {
  for (QWidget* const control : m_curveControls) control->setVisible(now.phase == Phase::Curve);
  for (std::size_t stage = 0; stage < kStages; ++stage) {
    stageOptions.at(stage)->setEnabled(now.stageEnabled.at(stage));
    stageOptions.at(stage)->setChecked(stage == now.selectedStage);
  }
  label12->setText(words(now.mousePlace));
  for (std::size_t i = 0; i < envelopeOptions.size(); ++i) {
    envelopeOptions.at(i)->setVisible(now.envelopeChoice);
    envelopeOptions.at(i)->setChecked(now.effectiveChosen == (i == 1));
  }
  label14->setVisible(now.phase == Phase::Envelope);
  label14->setText(words(now.cohesionStep));
  m_subject->setText(words(now.subject));
  for (std::size_t line = 0; line < kKeyHelpLines; ++line) m_keyHelp.at(line)->setText(words(now.keyHelp.at(line)));
  frame1->setVisible(now.running());
}

}  // namespace triaxlab
