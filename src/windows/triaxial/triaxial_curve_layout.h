#pragma once

#include <QWidget>
#include <array>
#include <utility>
#include <vector>

#include "sessions/triaxial/curve_session.h"
#include "windows/controls/canvas_widget.h"
#include "windows/controls/layout.h"
#include "windows/triaxial/physical_block.h"
#include "windows/triaxial/triaxial_intervention_layout.h"

class QPushButton;
class QScrollBar;

namespace triaxlab {

class ClickLabel;
class RecordEdit;

/// The controls of the triaxial curve window under their own names and at their places.
struct CurveControls {
  /// Makes all of them as children of the window, in the order in which Tab goes through them.
  CurveControls(QWidget* window, CanvasWidget::Drawing drawing);

  /// The edit boxes with what each of them stands for: the one table of both.
  std::vector<std::pair<RecordEdit*, Input>> edits;

  // The list of samples
  std::array<ClickLabel*, kCurveListLines + 1> label5{};
  std::array<ClickLabel*, std::size_t{2} * (kCurveListLines + 1)> label1{};
  RecordEdit* text1 = nullptr;  // lies over a cell of Label1
  QScrollBar* vScroll1 = nullptr;

  // The curves
  CanvasWidget* picture1 = nullptr;
  QPushButton *command3 = nullptr, *command4 = nullptr;

  // The sample on display
  RecordEdit *text3 = nullptr, *text4 = nullptr;
  std::array<RecordEdit*, 2> text6{};
  std::array<RecordEdit*, 8> text7{};
  std::array<ClickLabel*, 3> locationCaptions{};
  ClickLabel* label8 = nullptr;
  PerStage<RecordEdit*> text8{};
  QPushButton* command8 = nullptr;
  ClickLabel* label4 = nullptr;
  QPushButton* command5 = nullptr;

  // The table
  QPushButton *command1 = nullptr, *command2 = nullptr;
  std::array<ClickLabel*, kTableColumns> columnHeads{};
  std::array<ClickLabel*, kTableCells> label2{};
  RecordEdit* text2 = nullptr;  // lies over a cell of Label2
  QScrollBar* vScroll2 = nullptr;

  // The document
  RecordEdit* text5 = nullptr;
  std::array<RecordEdit*, 4> textW{};
  ClickLabel* text9Caption = nullptr;
  RecordEdit* text9 = nullptr;

  InterventionControls intervention;
  PhysicalBlock physicalValues;

 private:
  void makeList();
  void makeCurves(CanvasWidget::Drawing drawing);
  void makeSampleFields();
  void makeStages();
  void makeTable();
  void makeDocumentFields();

  ClickLabel* caption(const QString& text, int x, int y, int width);
  RecordEdit* edit(const QString& name, Input input, int x, int y, int width);
  QPushButton* button(const char* name, const QString& text, int x, int y, int width);

  QWidget* m_window;
};

/// The inner size of the window, twips.
inline constexpr Place kCurveWindow{0, 0, 15600, 9000};

}  // namespace triaxlab
