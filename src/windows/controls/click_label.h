#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>
#include <cstdint>
#include <optional>

#include "windows/controls/layout.h"

namespace triaxlab {

/// A text that can be clicked. One that is wider than its place is condensed, never cut, and told in full beside the
/// mouse. One that Tab reaches is clicked by the space bar and Enter, too.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  enum class Look : std::uint8_t {
    Caption,  // plain text on the window's ground
    Head,     // head of a list's column
    Cell,     // cell of a list
    Layer,    // over an edit box, whose text it shows in its own way
  };
  explicit ClickLabel(QWidget* parent, const QString& text = {}, Look look = Look::Caption);

  /// What a box covers that lies over the cell: all but the lines at its right and below.
  Place insideOfLines() const;
  /// Shown on the ground of a chosen line.
  void setMarked(bool marked);
  /// Shown in a colour of its own, or again in that of the desktop.
  void setInk(std::optional<QColor> ink);

 signals:
  void clicked();
  void doubleClicked();
  /// Tab has come to it.
  void reached();

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void setGround();
  void paintText(QPaintEvent* event);
  int neededWidth();

  Look m_look;
  bool m_marked = false;
  std::optional<QColor> m_ink;

  struct Measured {
    QString text;
    QFont font;
    int width = 0;
  };
  std::optional<Measured> m_measured;  // the text as it was last asked for
};

}  // namespace triaxlab
