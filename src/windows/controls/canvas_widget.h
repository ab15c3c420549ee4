#pragma once

#include <QImage>
#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "charts/axes.h"
#include "platform/drawing_surface.h"
#include "windows/controls/drawn_area.h"

namespace triaxlab {

/// What a canvas does with a key, told in the windows around it.
struct CanvasKey {
  int toolkitKey;
  const char* effect;
};
inline constexpr std::array kCopyKeys{CanvasKey{int(Qt::CTRL) | int(Qt::Key_C), "复制图片；在表上复制整个数据页"}};

/// A drawing area whose unit is a twip. What is drawn is kept as a picture and drawn again only when it has changed; a
/// script can have the same drawing as operations. Ctrl+C and the context menu copy the picture.
///
/// A canvas may be magnified about the mouse by the wheel with Ctrl, moved by a drag, and shown whole again by a double
/// click. That is a matter of looking: nobody behind the canvas learns of it.
class CanvasWidget : public QWidget, public DrawnArea {
  Q_OBJECT

 public:
  using Drawing = std::function<void(DrawingSurface&)>;

  /// Width and height in twips.
  CanvasWidget(QWidget* parent, int width, int height, Drawing drawing);

  int widthTwips() const override { return m_width; }
  int heightTwips() const override { return m_height; }
  /// What is drawn over a magnified picture, in the picture's own twips.
  using Edges = std::function<void(DrawingSurface&, const ChartView&)>;
  void setEdges(Edges edges) { m_edges = std::move(edges); }
  /// What is seen: the whole drawing, or beyond the edges of the canvas the parts that its magnification hides.
  void drawOn(DrawingSurface& surface) const override;

  /// What a copied picture shows over the drawing: the texts of fields that lie there.
  void setFieldTexts(Drawing fieldTexts) { m_fieldTexts = std::move(fieldTexts); }

  /// A canvas that can't be magnified shows the whole drawing.
  void setZoomable(bool zoomable);
  /// Only what lies left of this place (twips) is magnified; what is right of it stays as it is, with the fields over
  /// it.
  void setZoomWidth(int width) { m_zoomWidth = width; }
  void showWhole();
  void copyPicture() const;
  /// Where a place of the canvas (twips), which may be magnified, is on the widget.
  QPointF pixelAt(double x, double y) const { return QPointF(x, y) / pixelTwips(); }

 signals:
  /// The mouse stands at a place of the canvas (twips); `leftButton` is down. Comes with each press and move.
  void mouseAt(Point place, bool leftButton);
  void mouseReleased();
  void mouseLeft();

 public slots:
  /// What the drawing shows has changed.
  void redraw();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  bool isZoomed() const { return m_zoom > 1; }
  /// Twips to a logical pixel.
  double pixelTwips() const;
  bool isMagnified(QPointF pixel) const;
  /// The place of the drawing that is seen at a place of the widget (pixels).
  Point placeAt(QPointF pixel) const;
  /// Shows a place of the drawing at a place of the widget, as near as the edges of the drawing allow.
  void show(Point place, QPointF at, double zoom);
  void tellMouse(const QMouseEvent& event);
  enum class Fields : std::uint8_t { Left, Drawn };
  void paintOn(QImage& picture, double pixelTwips, Fields fields = Fields::Left) const;

  int m_width, m_height, m_zoomWidth;
  Drawing m_drawing;
  Edges m_edges;
  Drawing m_fieldTexts;
  QImage m_picture;
  bool m_isCurrent = false;

  bool m_zoomable = false;
  double m_zoom = 1;
  Point m_corner;                  // of the drawing, seen at the upper left
  std::optional<Point> m_dragged;  // the place of the drawing that the mouse holds
};

}  // namespace triaxlab
