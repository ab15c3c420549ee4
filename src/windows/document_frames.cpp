#include "windows/document_frames.h"

#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVariant>
#include <algorithm>
#include <optional>

#include "shell/window_memory.h"
#include "windows/controls/scaled_window.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

/// Where a frame keeps the size that it was given.
constexpr const char* kGivenSizeProperty = "givenSize";
/// A frame that was drawn to the edge of the area within this share of it means all of it.
constexpr double kAlmostAll = 0.98;

const ScaledWindow& contentOf(const QMdiSubWindow& frame) { return *qobject_cast<ScaledWindow*>(frame.widget()); }

/// What the frame has around its content.
QSize borderOf(const QMdiSubWindow& frame) { return frame.sizeHint() - contentOf(frame).sizeHint(); }

/// Neither filling the area nor a mere title in it, which are sizes that it comes back from.
bool isFree(const QMdiSubWindow& frame) { return !frame.isMaximized() && !frame.isMinimized() && !frame.isShaded(); }

bool hasGivenSize(const QMdiSubWindow& frame) {
  return isFree(frame) && frame.widget() != nullptr && frame.size() == frame.property(kGivenSizeProperty).toSize();
}

double largestScale(const QMdiSubWindow& frame) {
  const QSize room = frame.mdiArea()->contentsRect().size();
  return contentOf(frame).scaleWithin(room - borderOf(frame));
}

}  // namespace

void resizeFrame(QMdiSubWindow& frame, double scale) { frame.resize(contentOf(frame).sizeAt(scale) + borderOf(frame)); }

void fitFrame(QMdiSubWindow& frame) { resizeFrame(frame, largestScale(frame)); }

DocumentFrames::DocumentFrames(QMdiArea* area, WindowMemory* memory) : QObject(area), m_area(area), m_memory(memory) {
  if (m_memory != nullptr) area->installEventFilter(this);
}

void DocumentFrames::opened(QMdiSubWindow& frame) {
  if (m_memory != nullptr)
    settle(frame);
  else
    resizeFrame(frame, 1);
}

void DocumentFrames::settle(QMdiSubWindow& frame) {
  const double largest = largestScale(frame);
  const std::optional<double> chosen = m_memory->scaleOf(utf8(frame.widget()->objectName()));
  resizeFrame(frame, std::clamp(chosen.value_or(largest), ScaledWindow::kSmallestScale, largest));
  frame.setProperty(kGivenSizeProperty, frame.size());
}

void DocumentFrames::note(const QMdiSubWindow& frame) {
  if (m_memory == nullptr || !isFree(frame) || hasGivenSize(frame)) return;
  const double scale = contentOf(frame).scale();
  const bool takesAll = scale >= kAlmostAll * largestScale(frame);
  m_memory->setScale(utf8(frame.widget()->objectName()), takesAll ? std::nullopt : std::optional(scale));
}

void DocumentFrames::fit(QMdiSubWindow& frame) {
  frame.showNormal();
  frame.move(0, 0);
  if (m_memory == nullptr) return fitFrame(frame);
  m_memory->setScale(utf8(frame.widget()->objectName()), std::nullopt);
  settle(frame);
}

bool DocumentFrames::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_area && event->type() == QEvent::Resize)
    for (QMdiSubWindow* const frame : m_area->subWindowList())
      if (hasGivenSize(*frame)) settle(*frame);
  return false;
}

}  // namespace triaxlab
