#pragma once

#include <QObject>
#include <filesystem>
#include <functional>
#include <vector>

class QMimeData;

namespace triaxlab {

/// Takes files and folders of this machine that are dropped anywhere on a window, also on an edit box, which would take
/// them as texts. Nothing is taken while a dialog waits for an answer.
class FileDrop : public QObject {
  Q_OBJECT

 public:
  using Paths = std::vector<std::filesystem::path>;
  /// `take` is called when the program that the files come from has got rid of them.
  FileDrop(QWidget* window, std::function<void(const Paths& paths)> take);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* m_window;
  std::function<void(const Paths& paths)> m_take;
};

}  // namespace triaxlab
