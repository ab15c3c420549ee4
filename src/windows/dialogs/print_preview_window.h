#pragma once

#include <QDialog>
#include <functional>
#include <span>

#include "sessions/dialogs/print_dialog_session.h"
#include "windows/controls/key_help.h"

class QLabel;
class QPushButton;
class QScrollArea;

namespace triaxlab {

class PrintPageView;

/// The sheets of a job on the screen, one after the other, drawn by the same call that prints them. Only the sheet that
/// is seen is drawn.
class PrintPreview : public QDialog, public KeyedWindow {
  Q_OBJECT

 public:
  using SaveSheet = std::function<void(int sheet)>;
  /// The job outlives the window. `save` puts a sheet into a file of its own.
  PrintPreview(QWidget* parent, const PreviewedJob& job, SaveSheet save);

  std::vector<KeyGroup> keyHelp() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// How large the page is shown: fitted to the window, or as somebody has set it.
  enum class Fit : std::uint8_t { Page, Width, None };

  struct Key;
  static std::span<const Key> keys();

  QWidget* makeButtons();
  bool pressed(const QKeyEvent& event);
  bool turnedWheel(const QWheelEvent& event);
  /// To that sheet, or the nearest that there is.
  void turnTo(int sheet);
  void turn(int sheets);
  void fit(Fit fit);
  void magnify(double times);
  void copy() const;
  void refresh();

  const PreviewedJob& m_job;
  SaveSheet m_save;
  QScrollArea* m_area;
  PrintPageView* m_page;
  QPushButton *m_previous = nullptr, *m_next = nullptr;
  QLabel* m_number = nullptr;
  Fit m_fit = Fit::Page;
};

}  // namespace triaxlab
