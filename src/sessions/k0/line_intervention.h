#pragma once

#include <cstdint>
#include <optional>

#include "charts/clipping.h"
#include "charts/plot.h"
#include "common/straight_line.h"
#include "platform/dialogs.h"
#include "sessions/k0/line_motion.h"
#include "sessions/working_copy.h"

namespace triaxlab {

/// Which line a person corrects by hand: `adjustMode`.
enum class LineMode : std::uint8_t { None, Ko, T90 };

/// A line as its chart shows it.
struct DrawnLineOnCanvas {
  PlotScale scale;
  Segment ends;  // twips, clipped
};

/// What a line does when the mouse takes hold of it at a place: about its end it turns, elsewhere it is moved up and
/// down.
enum class LineGrip : std::uint8_t { None, Move, Turn };
LineGrip gripAt(const std::optional<DrawnLineOnCanvas>& drawn, Point place);

/// 干预 in the windows of K0 and TK0: the line that is moved with its working copy. Nothing else is moved meanwhile. A
/// drag does what so many key presses would, so that every line can also be reached by keys.
class LineIntervention {
 public:
  LineMode mode() const { return m_mode; }
  bool running() const { return m_mode != LineMode::None; }

  /// Begins to move a line that is shown. Pre: none is moved yet.
  void enter(LineMode mode, const StraightLine& shown);
  void end();
  /// The line as it is now, while one is moved.
  std::optional<StraightLine> line() const;

  // Each says whether the line has changed.
  bool key(ArrowKey key);
  bool undo();
  bool redo();

  /// The mouse stands at a place of the chart on which the line is drawn. Where the button goes down on the line it
  /// takes hold of it, and the line follows until the button is released.
  bool mouseAt(const std::optional<DrawnLineOnCanvas>& drawn, Point place, bool buttonDown);
  void mouseReleased() {
    m_buttonDown = false;
    letGo();
  }

 private:
  struct Drag {
    PlotScale scale;
    LineGrip grip;
    Point from;          // values
    StraightLine start;  // the line as it was
    bool isJoined = false;
  };

  const LineMotion& motion() const { return m_mode == LineMode::Ko ? kKoMotion : kT90Motion; }
  void takeHold(const std::optional<DrawnLineOnCanvas>& drawn, Point place);
  StraightLine draggedTo(Point value) const;
  bool drag(Point place);
  void letGo() { m_drag.reset(); }

  LineMode m_mode = LineMode::None;
  WorkingCopy<StraightLine> m_work{StraightLine{}};
  bool m_buttonDown = false;
  std::optional<Drag> m_drag;
};

/// Asks whether a corrected line is to be kept.
bool asksToKeepLine(Dialogs& dialogs);

}  // namespace triaxlab
