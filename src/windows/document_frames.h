#pragma once

#include <QObject>
#include <QSize>

class QMdiArea;
class QMdiSubWindow;

namespace triaxlab {

class ScaledWindow;
class WindowMemory;

/// Gives the frame of a document window the size at which its content has this scale, or the largest that has room.
void resizeFrame(QMdiSubWindow& frame, double scale);
void fitFrame(QMdiSubWindow& frame);

/// How large the document windows are: as large as the area has room for, at most as the person made them, and they go
/// along when the area changes. A frame that no longer has the size which it was given has one of the person's.
class DocumentFrames : public QObject {
 public:
  /// Without a memory each window has its natural size, whatever the room, and nothing is remembered. The memory
  /// outlives the area.
  DocumentFrames(QMdiArea* area, WindowMemory* memory);

  void opened(QMdiSubWindow& frame);
  /// What the person has made of the frame's size since it was given one.
  void note(const QMdiSubWindow& frame);
  /// Whatever the person made of it: all the room again, and so the next time.
  void fit(QMdiSubWindow& frame);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void settle(QMdiSubWindow& frame);

  QMdiArea* m_area;
  WindowMemory* m_memory;
};

}  // namespace triaxlab
