#pragma once

#include "sessions/triaxial/stage_table_session.h"
#include "windows/controls/canvas_widget.h"
#include "windows/controls/key_help.h"
#include "windows/controls/layout.h"

class QComboBox;
class QKeyEvent;
class QScrollBar;
class QWheelEvent;

namespace triaxlab {

/// Where the controls of a table window stand, twips. The scroll bar is right of the canvas.
struct StageTablePlaces {
  int canvasWidth = 0;
  Place stages;  // Combo1
};

/// What the windows of the data table and of the consolidation table have in common: canvas, stages and scroll bar.
struct StageTableControls {
  StageTableControls(QWidget* window, const StageTablePlaces& places, CanvasWidget::Drawing drawing);

  CanvasWidget* picture1;
  QComboBox* combo1;
  QScrollBar* vScroll1;

  void show(const StageTableState& now) const;
  /// The wheel scrolls wherever it is turned.
  void turnWheel(QWheelEvent& event) const;
  /// Arrows up and down, PageUp, PageDown, Home and End scroll as well. False for any other key.
  bool takesKey(const QKeyEvent& event) const;
};

/// The keys of every such window.
KeyGroup stageTableKeys();

}  // namespace triaxlab
