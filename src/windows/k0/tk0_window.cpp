#include "windows/k0/tk0_window.h"

#include <QKeyEvent>

#include "windows/controls/canvas_widget.h"
#include "windows/controls/cell_keys.h"
#include "windows/controls/click_label.h"
#include "windows/controls/scroll_bars.h"
#include "windows/controls/words.h"

namespace triaxlab {
namespace {

// Twips throughout.
constexpr Place kWindow{0, 0, 14800, 7900};
constexpr Place kStageCanvas{9000, 0, kStageChartWidth, kStageChartHeight},
    kStageBar{14450, 300, kScrollBarWidth, 2800};
/// Under canvas and bar, which is narrower than the text.
constexpr Place kStageCaption{14050, 3720, 700, 260};
constexpr int kX = 9200, kSecondX = 11300, kTextY = 3900, kButtonY = 4300, kTextWidth = 2000, kDepthWidth = 2700,
              kButtonWidth = 1700;
constexpr int kHeight = 300;
constexpr KoBesideCharts kBeside{.lineNote = {kX, kTextY, kTextWidth, kHeight},
                                 .samplingDepth = {kSecondX, kTextY, kDepthWidth, kHeight},
                                 .redraw = {kX, kButtonY, kButtonWidth, kHeight},
                                 .reprocess = {kSecondX, kButtonY, kButtonWidth, kHeight}};

constexpr const char* kNoConstruction = "这一级没有轴向压力，没有T90直线可以调整。";

constexpr std::array kModeKeys{KeyRow{Qt::Key_F4, LineMode::Ko, "开始、结束干预 Ko 直线"},
                               KeyRow{Qt::Key_F5, LineMode::T90, "开始、结束干预这一级的 T90 直线"}};

}  // namespace

Form9::Form9(Workspace& workspace, ShellSession& shell)
    : KoWindow(shell, kForm9, std::make_unique<TK0Session>(workspace)), m_session(static_cast<TK0Session&>(session())) {
  setObjectName("Form9");
  setWindowTitle(words(ko_captions::kTK0Title));
  setNaturalSize(kWindow);
  makeKoChart();
  makeStage();
  makeRest(kBeside);
  load();
}

void Form9::makeStage() {
  CanvasWidget* const chart = addChart(
      "Picture2", kStageCanvas, [this](DrawingSurface& surface) { m_session.drawStage(surface); },
      [this](DrawingSurface& surface, const ChartView& view) { m_session.drawStageEdges(surface, view); },
      [this](Point place) { return m_session.stageReadoutAt(place); });
  connectLine(
      chart, [this](Point place) { return m_session.gripOnStageChart(place); },
      [this](Point place, bool buttonDown) { m_session.mouseOnStageChart(place, buttonDown); });
  m_stageCaption = caption({}, kStageCaption);
  m_stageCaption->setObjectName("StageNumber");
  m_stageBar = uprightScrollBar(this, "VScroll3", kStageBar, 1);
  connect(m_stageBar, &QScrollBar::valueChanged, this, [this](int stage) { act([&] { m_session.showStage(stage); }); });
}

void Form9::turn(LineMode mode) {
  if (m_session.mode() == mode)
    shell().trigger("RZMGANYU");
  else if (m_session.mode() == LineMode::None)
    enter(mode);
}

void Form9::enter(LineMode mode) {
  if (mode == LineMode::T90 && !m_session.canMoveT90Line()) return shell().showRemarks({kNoConstruction});
  act([&] { mode == LineMode::Ko ? m_session.moveKoLine() : m_session.moveT90Line(); });
  charts().front()->setFocus();
}

void Form9::keyPressEvent(QKeyEvent* event) {
  const std::optional<LineMode> mode = exactKeyOf(*event, kModeKeys);
  // The 干预 of another window is left by the program's own key.
  const bool isOurs = m_session.mode() != LineMode::None || !shell().interventionRuns();
  if (!mode || !isOurs) return KoWindow::keyPressEvent(event);
  turn(*mode);
}

std::vector<KeyGroup> Form9::keyHelp() const {
  std::vector<KeyGroup> groups = KoWindow::keyHelp();
  groups.push_back(keyGroup("窗口", kModeKeys));
  return groups;
}

void Form9::showUpperHalf(const ListedState& now) {
  KoWindow::showUpperHalf(now);
  showScroll(m_stageBar, m_session.stage(), m_session.lastStage());
  m_stageBar->setEnabled(m_session.mode() == LineMode::None);
  m_stageCaption->setText(words(m_session.stageCaption()));
}

}  // namespace triaxlab
