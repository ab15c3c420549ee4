#pragma once

#include <QObject>
#include <functional>

namespace triaxlab {

/// F1 in whatever window takes the keys. The menu's own shortcut works in the main window alone, and a modal dialog
/// shuts it out.
class HelpKey : public QObject {
  Q_OBJECT

 public:
  HelpKey(QObject* parent, std::function<void()> help);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> m_help;
};

}  // namespace triaxlab
