#pragma once

#include <QColor>
#include <QLabel>
#include <cstdint>
#include <optional>

namespace triaxlab {

/// A text that can be clicked. One that is wider than its place is condensed, never cut.
class ClickLabel : public QLabel {
  Q_OBJECT

 public:
  enum class Look : std::uint8_t {
    Caption,  // plain text on the window's ground
    Head,     // head of a list's column
    Cell,     // cell of a list
  };
  explicit ClickLabel(QWidget* parent, const QString& text = {}, Look look = Look::Caption);

  /// Shown on the ground of a chosen line.
  void setMarked(bool marked);
  /// Shown in a colour of its own, or again in that of the desktop.
  void setInk(std::optional<QColor> ink);

 signals:
  void clicked();
  void doubleClicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void setGround();

  Look m_look;
  bool m_marked = false;
  std::optional<QColor> m_ink;
};

}  // namespace triaxlab
