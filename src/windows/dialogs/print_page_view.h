#pragma once

#include <QImage>
#include <QWidget>

#include "reports/send_report.h"
#include "windows/controls/drawn_area.h"

namespace triaxlab {

/// One sheet of a job on the screen, drawn by what draws it on paper.
class PrintPageView : public QWidget, public DrawnArea {
  Q_OBJECT

 public:
  /// The sheets outlive the view.
  PrintPageView(QWidget* parent, const Sheets& sheets);

  int sheet() const { return m_sheet; }
  void showSheet(int sheet);
  /// 1 is the size of the paper.
  double zoom() const { return m_zoom; }
  void setZoom(double zoom);
  /// The zoom at which a sheet is as wide, as high as that many pixels.
  double zoomForWidth(int pixels) const;
  double zoomForHeight(int pixels) const;

  /// The sheet as a picture for other documents.
  QImage picture() const;

  // DrawnArea
  int widthTwips() const override { return m_sheets.size().width; }
  int heightTwips() const override { return m_sheets.size().height; }
  void drawOn(DrawingSurface& surface) const override { m_sheets.draw(surface, m_sheet); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void paintOn(QPainter& painter, double pixelsPerTwip) const;

  const Sheets& m_sheets;
  int m_sheet = 1;
  double m_zoom = 1;
};

}  // namespace triaxlab
