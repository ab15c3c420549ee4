#pragma once

#include <string>

#include "k0/charts/stage_chart.h"
#include "sessions/k0/ko_session.h"

namespace triaxlab {

/// Behind `Form9`: beside the Ko chart the settlement of a load stage with the construction of its T90, whose first
/// line can be moved, too.
class TK0Session : public KoSession {
 public:
  /// The workspace outlives the session.
  explicit TK0Session(Workspace& workspace);

  /// The stage on display, from 0 to the last that is in use.
  int stage() const { return m_stage; }
  int lastStage() const;
  std::string stageCaption() const { return "第" + std::to_string(m_stage + 1) + "级"; }
  void showStage(int stage);

  void drawStage(DrawingSurface& surface) const;
  void drawStageEdges(DrawingSurface& surface, const ChartView& view) const;
  std::string stageReadoutAt(Point place) const;

  // 干预
  /// A stage without load has no construction.
  bool canMoveT90Line() const;
  void moveT90Line();
  LineGrip gripOnStageChart(Point place) const;
  void mouseOnStageChart(Point place, bool buttonDown) {
    show(intervention().mouseAt(t90LineDrawn(), place, buttonDown));
  }

 private:
  K0SampleRecord& head(std::size_t row) const override { return record(row).k0; }
  void acceptLine(const StraightLine& line) override;
  std::string readingText(std::size_t row, std::size_t column) const override;
  void begin() override;
  void takePicture() override;

  TK0SampleRecord& record(std::size_t row) const { return workspace().TK0SampleTable.at(row); }
  TK0SampleRecord& record() const { return record(sampleRow()); }
  std::size_t stageIndex() const { return static_cast<std::size_t>(m_stage); }
  StageConstruction construction() const;
  std::optional<DrawnLineOnCanvas> t90LineDrawn() const;

  int m_stage = 0;
  std::size_t m_rowShown = 0;
  TK0SampleRecord m_drawn;
  T90 m_t90;  // of the stage as it was drawn
};

}  // namespace triaxlab
