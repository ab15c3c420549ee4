#pragma once

#include <QLineEdit>
#include <functional>

class QKeyEvent;

namespace triaxlab {

/// An edit box over a field of a record. What a person types is handed out at each change; what the field took of it
/// comes back through `showText`. A text that is wider than the box is told in full beside the mouse.
class RecordEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit RecordEdit(QWidget* parent);

  /// Looks at each key before the box does; true: the key is done with.
  std::function<bool(const QKeyEvent&)> onKey;

  /// Shows a text without handing it out; the cursor stays where it is as far as the text reaches.
  void showText(const QString& text);

 signals:
  void focusEntered();
  void focusLeft();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace triaxlab
