#pragma once

#include <QLineEdit>
#include <cstddef>
#include <functional>
#include <optional>

class QKeyEvent;

namespace triaxlab {

/// An edit box over a field of a record. Of what is typed or pasted as much goes in as the field has room for beside
/// what stands there. It is handed out at each change; what the field took of it comes back through `showText`. A text
/// that is wider than the box is told in full beside the mouse.
class RecordEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit RecordEdit(QWidget* parent);

  /// Looks at each key before the box does; true: the key is done with.
  std::function<bool(const QKeyEvent&)> onKey;

  /// How many bytes of GBK the field has. A box without it takes every text.
  std::function<std::size_t()> fieldWidth;

  /// Shows a text without handing it out; the cursor stays where it is as far as the text reaches.
  void showText(const QString& shown);

 signals:
  void focusEntered();
  void focusLeft();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  class Gate;
  struct Replacement {
    int begin, length;
    QString text;
  };
  /// Whether the box takes the text as it is, the cursor being behind what was put in. If not, the part that fits goes
  /// in once the whole is out again.
  bool lets(const QString& typed, int cursor);
  void insertFitting();

  QString m_shown;  // before what is put in
  std::optional<Replacement> m_fitting;
};

}  // namespace triaxlab
