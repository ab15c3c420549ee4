#include "sessions/k0/line_intervention.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/angles.h"

namespace triaxlab {
namespace {

/// How far from the line the mouse still takes hold of it, twips.
constexpr double kReach = 120;
/// The last part of the line, as a share of its length, by which it turns.
constexpr double kEndShare = 1.0 / 3;

/// Where a place lies along a line, 0 at its left end and 1 at the right, and how far from it.
struct Nearness {
  double share, distance;
};
Nearness nearnessTo(Segment line, Point place) {
  if (line.from.x > line.to.x) std::swap(line.from, line.to);
  const Point along{line.to.x - line.from.x, line.to.y - line.from.y};
  const double square = along.x * along.x + along.y * along.y;
  const double dot = (place.x - line.from.x) * along.x + (place.y - line.from.y) * along.y;
  const double share = square == 0 ? 0 : std::clamp(dot / square, 0.0, 1.0);
  return {share, std::hypot(place.x - line.from.x - share * along.x, place.y - line.from.y - share * along.y)};
}

}  // namespace

LineGrip gripAt(const std::optional<DrawnLineOnCanvas>& drawn, Point place) {
  if (!drawn) return LineGrip::None;
  const Nearness nearness = nearnessTo(drawn->ends, place);
  if (nearness.distance > kReach) return LineGrip::None;
  return nearness.share > 1 - kEndShare ? LineGrip::Turn : LineGrip::Move;
}

void LineIntervention::enter(LineMode mode, const StraightLine& shown) {
  m_mode = mode;
  m_work = WorkingCopy(shown);
  letGo();
}

void LineIntervention::end() {
  m_mode = LineMode::None;
  letGo();
}

std::optional<StraightLine> LineIntervention::line() const {
  if (!running()) return std::nullopt;
  return *m_work;
}

bool LineIntervention::key(ArrowKey key) {
  letGo();
  return running() && m_work.change([&](StraightLine& line) { line = movedLine(line, key, motion()); });
}

bool LineIntervention::undo() {
  letGo();
  return running() && m_work.undo();
}

bool LineIntervention::redo() {
  letGo();
  return running() && m_work.redo();
}

bool LineIntervention::mouseAt(const std::optional<DrawnLineOnCanvas>& drawn, Point place, bool buttonDown) {
  if (!buttonDown) {
    mouseReleased();
    return false;
  }
  if (!std::exchange(m_buttonDown, true)) takeHold(drawn, place);
  return drag(place);
}

void LineIntervention::takeHold(const std::optional<DrawnLineOnCanvas>& drawn, Point place) {
  letGo();
  const LineGrip grip = running() ? gripAt(drawn, place) : LineGrip::None;
  if (grip != LineGrip::None) m_drag = Drag{drawn->scale, grip, drawn->scale.valueAt(place), *m_work};
}

StraightLine LineIntervention::draggedTo(Point value) const {
  const auto& [scale, grip, from, start, isJoined] = *m_drag;
  if (grip == LineGrip::Move) return raisedLine(start, std::round((value.y - from.y) / motion().raise), motion());
  // All lines go through their intercept, about which they turn.
  const auto degreesTo = [&line = start](Point end) { return degreesOfTangent((end.y - line.intercept) / end.x); };
  return turnedLine(start, std::round((degreesTo(value) - degreesTo(from)) / motion().turnUp), motion());
}

bool LineIntervention::drag(Point place) {
  if (!m_drag) return false;
  const Point value = m_drag->scale.valueAt(place);
  if (m_drag->grip == LineGrip::Turn && (value.x <= 0 || m_drag->from.x <= 0)) return false;
  const StraightLine dragged = draggedTo(value);
  using Step = WorkingCopy<StraightLine>::Step;
  const bool changed =
      m_work.change([&dragged](StraightLine& line) { line = dragged; }, m_drag->isJoined ? Step::Joined : Step::New);
  m_drag->isJoined = m_drag->isJoined || changed;
  return changed;
}

bool asksToKeepLine(Dialogs& dialogs) {
  return dialogs.ask("K0曲线调整", "   曲线已经调整\n保存修改后数据吗？", MessageIcon::Exclamation);
}

}  // namespace triaxlab
