#pragma once

#include <QObject>
#include <functional>

namespace triaxlab {

/// F1 and Shift+F1 in whatever window takes the keys. The menu's own shortcuts work in the main window alone, and a
/// modal dialog shuts them out.
class HelpKey : public QObject {
  Q_OBJECT

 public:
  HelpKey(QObject* parent, std::function<void()> manual, std::function<void()> keys);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> m_manual, m_keys;
};

}  // namespace triaxlab
