#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "sessions/triaxial/intervention.h"

class QGroupBox;
class QPushButton;
class QRadioButton;

namespace triaxlab {

class ClickLabel;
class RecordEdit;

/// The controls of intervention, which lie over the list of samples while a phase runs, under their own names.
struct InterventionControls {
  /// Makes all of them as children of the window, hidden.
  explicit InterventionControls(QWidget* window);

  /// Shows what the phase uses, and nothing while none runs.
  void show(const InterventionState& now);

  QGroupBox* frame1 = nullptr;
  ClickLabel* label12 = nullptr;
  PerStage<QRadioButton*> stageOptions{};  // Option3 to Option7
  RecordEdit *text10 = nullptr, *text11 = nullptr;
  QPushButton *command6 = nullptr, *command7 = nullptr;
  std::array<QRadioButton*, 2> envelopeOptions{};  // Option1, Option2
  ClickLabel* label14 = nullptr;

 private:
  void makeCurveControls();
  void makeEnvelopeControls();

  ClickLabel* caption(const QString& text, int x, int y, int width) const;
  QRadioButton* option(const QString& name, const QString& text, int x, int y) const;
  RecordEdit* edit(const char* name, int y) const;
  QPushButton* button(const char* name, int y) const;

  std::vector<QWidget*> m_curveControls;  // all that the curve phase shows
  ClickLabel* m_subject = nullptr;
  std::array<ClickLabel*, kKeyHelpLines> m_keyHelp{};
};

}  // namespace triaxlab
