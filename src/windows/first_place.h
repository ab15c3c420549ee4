#pragma once

#include <QMargins>
#include <QObject>
#include <QRect>

class QWidget;

namespace triaxlab {

/// Where a window of a wanted outer size goes on a free part of the screen: centred, and no larger than that. The
/// place and size are those of its content, inside the frame that the desktop lays around it.
QRect firstPlace(const QRect& available, QSize wanted, const QMargins& frame);

/// The size of a window on the screen, the frame counted where it has a meaning.
QSize outerSize(const QWidget& window);

/// Gives a window its first place. The desktop tells its frame only once the window is on the screen, so the place is
/// mended when the frame comes; after a second it is the person's.
class FirstPlace : public QObject {
  Q_OBJECT

 public:
  /// The window owns it. `wanted` in pixels, the frame counted.
  FirstPlace(QWidget* window, QSize wanted);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  QWidget* m_window;
  QSize m_wanted;
  QMargins m_frame;  // that was counted
};

}  // namespace triaxlab
