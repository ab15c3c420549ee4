#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "charts/axes.h"
#include "k0/record.h"
#include "platform/dialogs.h"
#include "platform/drawing_surface.h"
#include "sessions/k0/line_intervention.h"
#include "sessions/listed_session.h"

namespace triaxlab {

/// The fixed captions of both windows.
namespace ko_captions {
inline constexpr const char *kK0Title = "K0试验数据表", *kTK0Title = "TK0试验数据表";
inline constexpr const char* kSamplingDepth = "取土深度:";
inline constexpr const char* kRedraw = "绘 制 曲 线";
inline constexpr const char* kReprocess = "重新处理曲线";
inline constexpr std::array<const char*, 3> kReadings{"轴向变形量(mm)", "轴向压力(kPa)", "侧向压力(kPa)"};
}  // namespace ko_captions

/// What both windows show besides the list, UTF-8.
struct KoState {
  std::string lineNote;  // whether the Ko line was set by hand
  std::string samplingDepth;
  bool idle = true;  // no line is moved: the tables are there, and the buttons are on
  /// While a line is moved: of which sample, where the line is, and what keys and mouse do.
  std::string subject;
  std::array<std::string, 3> help;
};

/// What stands behind the windows of K0 and TK0, which have the Ko line with its chart and its 干预 in common. The
/// chart shows the sample as it was when it was last drawn: an edit doesn't change it.
class KoSession : public ListedSession {
 public:
  KoState koState() const;
  void drawKo(DrawingSurface& surface) const;
  void drawKoEdges(DrawingSurface& surface, const ChartView& view) const;
  /// The values at a place of the chart (twips) with their units, UTF-8.
  std::string koReadoutAt(Point place) const;

  /// 绘制曲线: the line is fitted again unless it was set by hand, and drawn.
  void redraw();
  /// 重新处理曲线: a Ko line that was set by hand is forgotten.
  void reprocess();

  // 干预: until it is left the sample stays, and the keys move the line.
  LineMode mode() const { return m_intervention.mode(); }
  void moveKoLine();
  /// Asks whether the line is to be kept, and goes on after either answer. Nothing when none is moved.
  void leaveIntervention(Dialogs& dialogs);
  void key(ArrowKey key) { show(m_intervention.key(key)); }
  void undo() { show(m_intervention.undo()); }
  void redo() { show(m_intervention.redo()); }
  /// The mouse on the Ko chart.
  LineGrip gripOnKoChart(Point place) const;
  void mouseOnKoChart(Point place, bool buttonDown) { show(m_intervention.mouseAt(koLineDrawn(), place, buttonDown)); }
  void mouseReleased() { m_intervention.mouseReleased(); }

 protected:
  KoSession(Workspace& workspace, ProjectKind tests);

  /// The head of the sample in a table row.
  virtual K0SampleRecord& head(std::size_t row) const = 0;
  /// Stores the line that was moved. Pre: it isn't the Ko line.
  virtual void acceptLine(const StraightLine& /*line*/) {}

  K0SampleRecord& head() const { return head(sampleRow()); }
  LineIntervention& intervention() { return m_intervention; }
  const LineIntervention& intervention() const { return m_intervention; }
  /// The picture follows when the line has changed.
  void show(bool changed);

  EditableField listField(std::size_t row, bool isProject) const override;
  EditableField readingField(std::size_t row, std::size_t column) const override;
  std::string readingText(std::size_t row, std::size_t column) const override;
  void begin() override { m_intervention.end(); }
  void takePicture() override;
  bool isHeld() const override { return m_intervention.running(); }

 private:
  std::optional<StraightLine> movedKoLine() const;
  std::optional<DrawnLineOnCanvas> koLineDrawn() const;
  void fit();

  LineIntervention m_intervention;
  K0SampleRecord m_drawn;
};

/// Behind `Form6`.
class K0Session : public KoSession {
 public:
  /// The workspace outlives the session.
  explicit K0Session(Workspace& workspace);

 private:
  K0SampleRecord& head(std::size_t row) const override;
};

}  // namespace triaxlab
