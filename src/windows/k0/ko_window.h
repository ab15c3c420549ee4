#pragma once

#include <array>
#include <functional>
#include <memory>

#include "sessions/k0/ko_session.h"
#include "windows/listed_window.h"

class QGroupBox;
class QPushButton;

namespace triaxlab {

/// Places of what stands beside the charts, twips.
struct KoBesideCharts {
  Place lineNote, samplingDepth, redraw, reprocess;
};

/// What the windows of K0 and TK0 do alike: the Ko chart, what stands beside it, and 干预 on a line, during which the
/// tables give way to what keys and mouse do.
class KoWindow : public ListedWindow {
  Q_OBJECT

 public:
  // DocumentWindow
  InterventionEntry interventionEntry() const override;
  void enterIntervention() override;
  void leaveIntervention(Dialogs& dialogs) override;

  std::vector<KeyGroup> keyHelp() const override;

 protected:
  /// A window's own constructor makes the charts, then the rest.
  KoWindow(ShellSession& shell, ActiveDocument document, std::unique_ptr<KoSession> session);
  void makeKoChart();
  void makeRest(const KoBesideCharts& places);

  /// Lets the mouse move the line on a chart.
  void connectLine(CanvasWidget* chart, std::function<LineGrip(Point)> gripAt,
                   std::function<void(Point, bool buttonDown)> mouseAt);

  void showUpperHalf(const ListedState& now) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void makeHelp();
  /// True when the line that is moved takes the key.
  bool keyInMode(const QKeyEvent& event);

  KoSession& m_session;
  ClickLabel *m_lineNote = nullptr, *m_samplingDepth = nullptr;
  QPushButton *m_redraw = nullptr, *m_reprocess = nullptr;
  QGroupBox* m_help = nullptr;
  ClickLabel* m_subject = nullptr;
  std::array<ClickLabel*, 3> m_keyHelp{};
};

}  // namespace triaxlab
