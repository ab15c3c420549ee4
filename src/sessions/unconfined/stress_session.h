#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "charts/axes.h"
#include "platform/drawing_surface.h"
#include "sessions/listed_session.h"
#include "unconfined/charts/stress_chart.h"
#include "unconfined/record.h"

namespace triaxlab {

/// The fixed captions of the window.
namespace stress_captions {
inline constexpr const char* kTitle = "无侧限抗压强度试验";
inline constexpr const char* kShowCurve = "曲 线";
inline constexpr const char* kPrintTable = "打印数表";
inline constexpr const char* kApplyLimits = "确定";
inline constexpr BothSpecimens<const char*> kPeaks{"原状峰值点", "重塑峰值点"};
}  // namespace stress_captions

/// The constants of both specimens, in the order in which a person goes through them: height, area and ring
/// coefficient, undisturbed and remoulded of each.
inline constexpr int kConstants = 6;

/// The constant to which a key leads; nothing when the key belongs to the text.
std::optional<int> constantReachedFrom(int constant, CellKey key, CursorPlace cursor);

/// What stands behind the window of unconfined samples.
class StressSession : public ListedSession {
 public:
  /// The workspace outlives the session. Loads it; the table has been reduced.
  explicit StressSession(Workspace& workspace);

  /// Draws the sample on display as it was when it was last shown: an edit of the record alone doesn't change the
  /// picture.
  void draw(DrawingSurface& surface) const;
  /// What the fields over the picture hold, for a copy of it.
  void drawFields(DrawingSurface& surface) const;
  /// What stays at the edges of a magnified picture.
  void drawEdges(DrawingSurface& surface, const ChartView& view) const;
  /// The values at a place of the canvas (twips) with their units, UTF-8. Empty beside the plot.
  std::string readout(Point place) const;

  /// A save has reduced the records with what was typed: what is seen is what was saved.
  void markSaved() override;

  /// Reduces the sample on display and draws it anew.
  void showCurve() { showSample(); }
  /// The strain up to which a specimen's peak is looked for, %, as it stands in its box; UTF-8.
  const BothSpecimens<std::string>& strainLimitTexts() const { return m_strainLimitTexts; }
  static constexpr std::size_t kLimitWidth = 6;  // bytes that the box takes
  /// The box now holds this text.
  void editStrainLimit(Specimen specimen, std::string_view utf8);
  /// Stores the limits; one out of bounds isn't stored, and its box tells the usual one. Draws the sample anew.
  void applyStrainLimits();

 private:
  UnconfinedSampleRecord& record() const;
  EditableField ringField(Specimen specimen) const;

  EditableField listField(std::size_t row, bool isProject) const override;
  EditableField readingField(std::size_t row, std::size_t column) const override;
  std::string readingText(std::size_t row, std::size_t column) const override;
  int ownFieldCount() const override { return kConstants; }
  EditableField ownField(int index) const override;
  void begin() override { m_carried = {}; }
  void takePicture() override;

  /// What was last typed for each specimen: a sample without a number begins with it.
  struct Carried {
    BothSpecimens<std::optional<FixedText<6>>> height, area;
    BothSpecimens<std::optional<Little<std::int16_t>>> ring;
  };
  void carryOver(UnconfinedSampleRecord& sample) const;

  mutable Carried m_carried;  // filled by the fields that are handed out
  BothSpecimens<std::string> m_strainLimitTexts;
  UnconfinedSampleRecord m_drawn;  // the sample as it was when it was last shown
  StressChartOptions m_options;
};

}  // namespace triaxlab
